// kvarnio road xy, station, z.
#include <charconv>
#include <cmath>
#include <iostream>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>
#include <text/format.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/output.h"
#include "../shared/road/roadfile.h"

namespace kvarnio {
namespace {

struct Answer {
    std::vector<double> values;
    std::string reason; // why there are none
};

// What is asked of a road, and what the answer is called.
struct Question {
    char const* command;
    char const* what;
    char const* note;
    std::vector<char const*> asked; // the names of the numbers
    std::vector<char const*> answered;
    Answer (*ask)(RoadFile& file, std::vector<double> const& numbers);
};

std::string Station(double station) {
    return kvarn::Format("%.4lf", station);
}

std::string StationOutside(double station, std::vector<kovltype> const& line) {
    return "station " + Station(station) + " is not on the line, which has " +
           Station(line.front().sektion) + " to " + Station(line.back().sektion);
}

Answer AskXy(RoadFile& file, std::vector<double> const& numbers) {
    double x = 0;
    double y = 0;
    if (file.PlanToAsk().Vag2xy(numbers[0], numbers[1], &x, &y) != 0) {
        return {{}, StationOutside(numbers[0], file.Plan())};
    }
    return {{x, y}, ""};
}

Answer AskStation(RoadFile& file, std::vector<double> const& numbers) {
    constexpr int allOfTheLine = 0;
    double station = 0;
    double offset = 0;
    if (file.PlanToAsk().Vagstv(numbers[0], numbers[1], &station, &offset, allOfTheLine) != 0) {
        return {{}, "the point lies beside no segment and no inner vertex of the line"};
    }
    return {{station, offset}, ""};
}

Answer AskZ(RoadFile& file, std::vector<double> const& numbers) {
    double z = 0;
    if (file.ProfileToAsk().Vagprofz(numbers[0], &z) != 0) {
        return {{},
                numbers[0] == file.Profile().back().y
                    ? "the last station of a profile, " + Station(numbers[0]) + ", has no height"
                    : StationOutside(numbers[0], file.Profile())};
    }
    return {{z}, ""};
}

Question const questions[] = {
    {"xy",
     "Print the coordinates of a station and an offset",
     "Positive offsets lie to the right of travel.",
     {"station", "offset"},
     {"x", "y"},
     AskXy},
    {"station",
     "Print the station and the offset of a point",
     "Positive offsets lie to the right of travel; on a line whose stations decrease to the left, "
     "but\nfor points beside a corner.",
     {"x", "y"},
     {"station", "offset"},
     AskStation},
    {"z",
     "Print the height of a profile at a station",
     "The last station itself has no height.",
     {"station"},
     {"height"},
     AskZ},
};

// An answer that is not a number comes from equal stations and coincident vertices.
Answer Ask(Question const& question, RoadFile& file, std::vector<double> const& numbers) {
    Answer answer = question.ask(file, numbers);
    for (double const value : answer.values) {
        if (!std::isfinite(value)) {
            return {{}, "the line gives no number there; kvarnio road check names the places"};
        }
    }
    return answer;
}

// Without the sign that a rounded zero would keep.
std::string Printed(double value) {
    std::string text = kvarn::Format("%.4lf", value);
    return text == "-0.0000" ? text.substr(1) : text;
}

std::string Printed(std::vector<double> const& values) {
    std::string line;
    for (double const value : values) {
        line += (line.empty() ? "" : " ") + Printed(value);
    }
    return line;
}

void Store(Json& json, std::vector<char const*> const& names, std::vector<double> const& values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        json[names[i]] = values[i];
    }
}

std::string Names(Question const& question) {
    std::string names;
    for (char const* name : question.asked) {
        names += names.empty() ? name : std::string(" ") + name;
    }
    return names;
}

ExitStatus AnswerOne(Context const& context, Question const& question, RoadFile& file,
                     std::vector<double> const& numbers) {
    Answer const answer = Ask(question, file, numbers);
    if (!answer.reason.empty()) {
        throw Failure(answer.reason);
    }
    if (context.json) {
        Json json = Json::object();
        Store(json, question.asked, numbers);
        Store(json, question.answered, answer.values);
        PrintJson(json);
    } else {
        std::cout << Printed(answer.values) << '\n';
    }
    return done;
}

// The numbers of a line, separated by blanks; nothing where it holds anything else.
std::optional<std::vector<double>> Numbers(std::string_view line, std::size_t wanted) {
    constexpr std::string_view blanks = " \t\r";
    std::vector<double> numbers;
    while (true) {
        std::size_t const first = line.find_first_not_of(blanks);
        if (first == std::string_view::npos) {
            return numbers.size() == wanted ? std::optional(numbers) : std::nullopt;
        }
        line.remove_prefix(first);
        line.remove_prefix(line.starts_with('+') ? 1 : 0);
        double number = 0;
        auto const parsed = std::from_chars(line.data(), line.data() + line.size(), number);
        line.remove_prefix(static_cast<std::size_t>(parsed.ptr - line.data()));
        bool const ended = line.empty() || blanks.find(line.front()) != std::string_view::npos;
        if (parsed.ec != std::errc() || !ended || !std::isfinite(number)) {
            return std::nullopt;
        }
        numbers.push_back(number);
    }
}

Answer AnswerLine(Question const& question, RoadFile& file, std::string_view line, Json* json) {
    auto const numbers = Numbers(line, question.asked.size());
    Answer answer =
        numbers ? Ask(question, file, *numbers)
                : Answer{{}, "wanted " + Names(question) + ", got \"" + OneLine(line) + '"'};
    if (json != nullptr) {
        Json row = Json::object();
        Store(row, question.asked, numbers.value_or(std::vector<double>()));
        Store(row, question.answered, answer.values);
        if (!answer.reason.empty()) {
            row["error"] = answer.reason;
        }
        json->push_back(std::move(row));
    } else {
        std::cout << (answer.reason.empty() ? Printed(answer.values) : "error: " + answer.reason)
                  << '\n';
    }
    return answer;
}

ExitStatus AnswerInput(Context const& context, Question const& question, RoadFile& file) {
    ExitStatus status = done;
    Json json = Json::array();
    std::cin.tie(nullptr); // a flush a line is slow
    for (std::string line; std::getline(std::cin, line);) {
        std::size_t const first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#') {
            continue;
        }
        Answer const answer = AnswerLine(question, file, line, context.json ? &json : nullptr);
        status = answer.reason.empty() ? status : failed;
    }
    if (context.json) {
        PrintJson(json);
    }
    if (std::cin.bad()) {
        throw Failure("standard input cannot be read");
    }
    return status;
}

struct QueryArguments {
    std::string file;
    std::vector<std::string> numbers;
};

std::string Capitals(char const* name) {
    std::string text(name);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return static_cast<char>(c - 'a' + 'A'); });
    return text;
}

ExitStatus Query(Context& context, Question const& question, QueryArguments const& arguments) {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < arguments.numbers.size() && !arguments.numbers[i].empty(); ++i) {
        numbers.push_back(Number(Capitals(question.asked[i]).c_str(), arguments.numbers[i]));
    }
    RoadFile file(arguments.file);
    file.WarnOfSkippedLines();
    question.ask == AskZ ? file.ProfileToAsk() : file.PlanToAsk();
    return numbers.empty() ? AnswerInput(context, question, file)
                           : AnswerOne(context, question, file, numbers);
}

std::string Footer(Question const& question) {
    return std::string(question.note) +
           "\nWithout the numbers they are read from standard input, a query a line: " +
           Names(question) +
           ",\nseparated by blanks. Each gets a line, in order: its result, or \"error: \" and the "
           "reason; the exit\nstatus is then 1. Blank lines and lines that begin with # are passed "
           "over.";
}

void AddQuery(CommandLine& line, CLI::App& road, Question const& question) {
    auto const arguments = std::make_shared<QueryArguments>();
    arguments->numbers.resize(question.asked.size()); // never resized again: options point into it
    CLI::App& command =
        CommandLine::AddCommand(road, question.command, question.what, Footer(question));
    AddRoadFile(command, arguments->file);
    std::vector<CLI::Option*> options;
    for (std::size_t i = 0; i < question.asked.size(); ++i) {
        options.push_back(
            command.add_option(Capitals(question.asked[i]), arguments->numbers[i], "In metres"));
        if (i > 0) {
            options.front()->needs(options.back());
        }
    }
    line.Run(command, [arguments, &question](Context& context) {
        return Query(context, question, *arguments);
    });
}

} // namespace

void AddRoadQueries(CommandLine& line, CLI::App& road) {
    for (Question const& question : questions) {
        AddQuery(line, road, question);
    }
}

} // namespace kvarnio
