// kvarnio road xy, station, z.
#include <algorithm>
#include <memory>

#include <CLI/CLI.hpp>
#include <text/codepage.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "answers.h"
#include "pointtable.h"

#include <neighbours/road/station.h>

namespace kvarnio {
namespace {

struct QueryArguments {
    RoadsWanted roads;
    std::vector<std::string> numbers;
    CLI::Option const* also = nullptr; // of the question about points alone
    TableArguments table;
};

std::string Capitals(char const* name) {
    std::string text(name);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return static_cast<char>(c - 'a' + 'A'); });
    return text;
}

double TypedNumber(Quantity const& quantity, std::string const& typed) {
    std::string const what = Capitals(quantity.name);
    if (!quantity.isStation || typed.find('/') == std::string::npos) {
        return Number(what.c_str(), typed);
    }
    auto const station = ReadStation(typed);
    if (!station) {
        throw UsageError(what + " \"" + typed +
                         "\" is not kilometres and metres, as in 0/100.000: the kilometres are "
                         "whole, the metres below 1000");
    }
    return *station;
}

CLI::Validator NotEmpty(std::string const& option) {
    return {[option](std::string& typed) {
                return typed.empty() ? option + " is empty" : std::string();
            },
            ""};
}

std::string KnownHeadings(Question const& question) {
    std::string headings;
    for (Quantity const* quantity : question.asked) {
        for (char const* heading : quantity->headings) {
            headings += (headings.empty() ? "" : ", ") + kvarn::ToUtf8(heading);
        }
    }
    return headings;
}

ExitStatus Query(Context& context, Question const& question, QueryArguments const& arguments) {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < arguments.numbers.size() && !arguments.numbers[i].empty(); ++i) {
        numbers.push_back(TypedNumber(*question.asked[i], arguments.numbers[i]));
    }
    bool const isTable = arguments.table.wanted;
    if (isTable && !numbers.empty()) {
        throw UsageError("--csv reads a table: leave out the numbers");
    }
    if (isTable && context.json) {
        throw UsageError("--csv writes a table: leave out --json");
    }
    RoadsWanted wanted = arguments.roads;
    if (arguments.also != nullptr) {
        wanted.also = arguments.also->results();
    }
    AskedRoads const roads(wanted, question);
    return isTable           ? AnswerTable(roads, question, arguments.table)
           : numbers.empty() ? AnswerInput(roads, question, context.json)
                             : AnswerOne(roads, question, numbers, context.json);
}

std::string Footer(Question const& question) {
    bool const isOfPoints = !question.asked.front()->isStation;
    std::string text =
        std::string(question.note) +
        "\nStations are typed in metres, 100, or as kilometres and metres, 0/100.000.\n"
        "Without the numbers they are read from standard input, a query a line: " +
        NamesOf(question.asked, " ") +
        ",\nseparated by blanks. Each gets a line, in order: its result, or \"error: \" and the "
        "reason; the exit\nstatus is then 1. Blank lines and lines that begin with # are passed "
        "over.\n";
    if (!question.ofProfile) {
        text += "A place without a height has \"-\" for it, nothing in a table, null in JSON; the "
                "reason\nis told on standard error, and the exit status is 1.\n";
    }
    if (isOfPoints) {
        text += "Of several roads the nearest comes first: one point gets a line from each road "
                "that\nit lies beside, many points one line each; the road's file follows the "
                "numbers.\n";
    }
    return text +
           "A table keeps its lines and columns, and the results follow them. The columns that "
           "are\nread have headings (" +
           KnownHeadings(question) +
           ")\nor are the only numbers of the first line; --columns says which otherwise. A line "
           "without\na result is named on standard error as FILE:LINE: reason, and the exit status "
           "is 1.\n" +
           question.example;
}

void AddTableOptions(CLI::App& command, TableArguments& table) {
    CLI::Option* const csv =
        command.add_flag("--csv", table.wanted, "Read a table and write it with the results");
    auto const add = [&](char const* name, std::string& value, char const* type, char const* what) {
        command.add_option(name, value, what)->type_name(type)->needs(csv)->check(NotEmpty(name));
    };
    add("--in", table.input, "TABLE", "The table; standard input if not given");
    add("-o,--output", table.output, "TABLE",
        "The table to write, whole or not at all; standard output if not given");
    add("--separator", table.options.separator, "CHARACTER",
        "Between the fields; found among semicolon, tab and comma if not given");
    add("--columns", table.options.columns, "LIST",
        "The columns to read: numbers from 1 or headings, as in 2,3");
    command
        .add_flag("--decimal-comma", table.options.decimalComma,
                  "Read and write numbers with a comma")
        ->needs(csv);
}

// The parser takes "-.5" for an option.
void AddNumbersThatBeginWithAPoint(CLI::App& command, std::vector<CLI::Option*> const& numbers) {
    command
        .add_option_function<std::string>("-.",
                                          [numbers](std::string const& digits) {
                                              for (CLI::Option* number : numbers) {
                                                  if (number->count() == 0) {
                                                      number->add_result("-." + digits);
                                                      return;
                                                  }
                                              }
                                              throw UsageError("-." + digits +
                                                               " is one number too many");
                                          })
        ->trigger_on_parse()
        ->take_last()
        ->type_name("digits after \"-.\"")
        ->group(""); // not in the help
}

void AddQuery(CommandLine& line, CLI::App& road, Question const& question) {
    auto const arguments = std::make_shared<QueryArguments>();
    arguments->numbers.resize(question.asked.size()); // never resized again: options point into it
    CLI::App& command =
        CommandLine::AddCommand(road, question.command, question.what, Footer(question));
    AddRoadFile(command, arguments->roads.file);
    std::vector<CLI::Option*> numbers;
    for (std::size_t i = 0; i < question.asked.size(); ++i) {
        char const* const unit =
            question.asked[i]->isStation ? "In metres, or as 0/100.000" : "In metres";
        numbers.push_back(
            command.add_option(Capitals(question.asked[i]->name), arguments->numbers[i], unit));
        if (i > 0) {
            numbers.front()->needs(numbers.back());
        }
    }
    AddNumbersThatBeginWithAPoint(command, numbers);
    command.add_flag("--km", arguments->roads.kilometres,
                     "Print stations as kilometres and metres, 0/100.000");
    if (!question.ofProfile) {
        command.add_flag("--height", arguments->roads.height, "The profile's height there as well");
        command
            .add_option("--profile", arguments->roads.profile,
                        "Heights from the profile in this file")
            ->type_name("FILE")
            ->check(NotEmpty("--profile"));
    }
    if (!question.asked.front()->isStation) {
        arguments->also = &CommandLine::AddOptionOfWords(
            command, "--also", "FILE|FOLDER",
            "More roads: files, and folders for those in them that have a plan; after the point");
    }
    AddTableOptions(command, arguments->table);
    line.Run(command, [arguments, &question](Context& context) {
        return Query(context, question, *arguments);
    });
}

} // namespace

void AddRoadQueries(CommandLine& line, CLI::App& road) {
    for (Question const& question : Questions()) {
        AddQuery(line, road, question);
    }
}

} // namespace kvarnio
