#include "answers.h"

#include <iostream>
#include <optional>

#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/progress.h"

#include <neighbours/road/station.h>

namespace kvarnio {
namespace {

constexpr std::string_view blanks = " \t\r";

std::string Line(AskedRoads const& roads, Question const& question, Answer const& answer) {
    std::string line;
    for (std::size_t i = 0; i < answer.values.size(); ++i) {
        bool const inKilometres = question.answered[i]->isStation && roads.InKilometres();
        line += line.empty() ? "" : " ";
        line += inKilometres ? StationText(answer.values[i], 3) : Printed(answer.values[i]);
    }
    if (roads.HasHeight()) {
        line += ' ' + (answer.height ? Printed(*answer.height) : "-");
    }
    if (roads.AreSeveral()) {
        line += ' ' + *answer.road; // at the end: it may hold blanks
    }
    return line;
}

void Store(Json& json, AskedRoads const& roads, std::vector<Quantity const*> const& quantities,
           std::vector<double> const& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        json[quantities[i]->name] = values[i];
        if (quantities[i]->isStation && roads.InKilometres()) {
            json["km"] = StationText(values[i], 3);
        }
    }
}

Json ToJson(AskedRoads const& roads, Question const& question, std::vector<double> const& numbers,
            Answer const& answer) {
    Json json = Json::object();
    Store(json, roads, question.asked, numbers);
    Store(json, roads, question.answered, answer.values);
    if (roads.HasHeight() && !answer.values.empty()) {
        json["height"] = answer.height ? Json(*answer.height) : Json();
    }
    if (roads.AreSeveral() && answer.road != nullptr) {
        json["road"] = *answer.road;
    }
    if (!answer.reason.empty()) {
        json["error"] = answer.reason;
    }
    return json;
}

// The numbers of a line, separated by blanks; nothing where it holds anything else.
std::optional<std::vector<double>> Numbers(std::string_view line, Question const& question) {
    std::vector<double> numbers;
    while (true) {
        std::size_t const first = line.find_first_not_of(blanks);
        if (first == std::string_view::npos) {
            bool const isWhole = numbers.size() == question.asked.size();
            return isWhole ? std::optional(numbers) : std::nullopt;
        }
        line.remove_prefix(first);
        std::size_t const length = std::min(line.find_first_of(blanks), line.size());
        bool const isStation =
            numbers.size() < question.asked.size() && question.asked[numbers.size()]->isStation;
        auto const number = (isStation ? ReadStation : ReadNumber)(line.substr(0, length));
        if (!number) {
            return std::nullopt;
        }
        numbers.push_back(*number);
        line.remove_prefix(length);
    }
}

// One line or one row; false where something is missing.
bool AnswerLine(AskedRoads const& roads, Question const& question, std::string const& line,
                std::size_t number, Json* json) {
    auto const numbers = Numbers(line, question);
    Answer const answer = numbers ? roads.Ask(*numbers)
                                  : Answer{.reason = "wanted " + NamesOf(question.asked, " ") +
                                                     ", got \"" + OneLine(line) + '"'};
    if (json != nullptr) {
        json->push_back(ToJson(roads, question, numbers.value_or(std::vector<double>()), answer));
    } else if (answer.values.empty()) {
        std::cout << "error: " + answer.reason + '\n';
    } else {
        std::cout << Line(roads, question, answer) + '\n';
        if (!answer.reason.empty()) {
            std::cerr << "standard input:" + std::to_string(number) + ": " + answer.reason + '\n';
        }
    }
    return answer.reason.empty();
}

} // namespace

ExitStatus AnswerOne(AskedRoads const& roads, Question const& question,
                     std::vector<double> const& numbers, bool json) {
    std::vector<Answer> const answers =
        roads.AreSeveral() ? roads.AskAll(numbers) : std::vector<Answer>{roads.Ask(numbers)};
    if (answers.front().values.empty()) {
        throw Failure(answers.front().reason);
    }
    ExitStatus status = done;
    Json rows = Json::array();
    for (Answer const& answer : answers) {
        if (json) {
            rows.push_back(ToJson(roads, question, numbers, answer));
        } else {
            std::cout << Line(roads, question, answer) << '\n';
        }
        if (!answer.reason.empty()) {
            status = failed;
            std::cerr << "kvarnio: " << (roads.AreSeveral() ? *answer.road + ": " : "")
                      << answer.reason << '\n';
        }
    }
    if (json) {
        PrintJson(roads.AreSeveral() ? rows : rows.front());
    }
    return status;
}

ExitStatus AnswerInput(AskedRoads const& roads, Question const& question, bool json) {
    bool isWhole = true;
    Json rows = Json::array();
    std::cin.tie(nullptr);                   // a flush a line is slow
    constexpr std::uintmax_t between = 1024; // an answer takes less time than a look at the clock
    Progress progress("queries", SizeOfInput(), between);
    std::size_t number = 0;
    for (std::string line; std::getline(std::cin, line);) {
        ++number;
        std::size_t const first = line.find_first_not_of(blanks);
        if (first == std::string::npos || line[first] == '#') {
            continue;
        }
        progress.Advance(line.size() + 1);
        isWhole = AnswerLine(roads, question, line, number, json ? &rows : nullptr) && isWhole;
    }
    if (json) {
        PrintJson(rows);
    }
    if (std::cin.bad()) {
        throw IoFailure("standard input cannot be read");
    }
    return isWhole ? done : failed;
}

} // namespace kvarnio
