// kvarnio codes.
#include <algorithm>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include "../commands.h"
#include "codearguments.h"
#include "codereport.h"

namespace kvarnio {
namespace {

ExitStatus ListCodes(Context& context, CodesArguments const& arguments) {
    CodeFile const file(context, arguments.format, arguments.file);
    PrintUnread(file);
    if (context.json) {
        PrintJson({{"file", Shown(file.Path())},
                   {"place", file.Place().empty() ? Json() : Json(file.Place())},
                   {"codes", ToJson(arguments.format, file.Records())}});
        return done;
    }
    std::cout << Shown(file.Path()) << (file.Records().empty() ? ": no codes\n" : "\n");
    if (!file.Records().empty()) {
        PrintCodes(arguments.format, file.Records());
    }
    return done;
}

CodeRecords::iterator Find(CodesArguments const& arguments, CodeRecords& records) {
    CodeRecord const typed = Typed(arguments, nullptr);
    return std::find_if(records.begin(), records.end(), [&](CodeRecord const& record) {
        return SameKey(arguments.format, record, typed);
    });
}

void RequireFound(CodesArguments const& arguments, CodeFile const& file, bool found) {
    if (!found) {
        throw Failure(NameOf(arguments.format, Typed(arguments, nullptr)) + " does not stand in " +
                      Shown(file.Path()));
    }
}

// The record as it is read from the file that now holds it.
CodeRecord AsRead(CodeFile const& file, CodeRecord const& record) {
    auto const& records = file.Records();
    auto const found = std::find(records.begin(), records.end(), record);
    return found != records.end() ? *found : record;
}

ExitStatus AddCode(Context& context, CodesArguments const& arguments) {
    CodeFormat const& format = arguments.format;
    CodeRecord added = Typed(arguments, nullptr);
    format.complete(added);
    CodeFile file(context, format, arguments.file);
    CodeRecords records = file.Records();
    if (auto const found = Find(arguments, records); found != records.end()) {
        throw Failure(NameOf(arguments.format, Typed(arguments, nullptr)) + " stands in " +
                      Shown(file.Path()) + " already: " + Shown(format, *found));
    }
    // At the end of its section, where there are sections: they come in order.
    bool const hasSections = format.columns.front().type == Column::Type::whole;
    auto const place = std::find_if(records.begin(), records.end(), [&](CodeRecord const& record) {
        return hasSections && record.cells.front() > added.cells.front();
    });
    records.insert(place, added);
    Losses const losses = file.Write(records);
    added = AsRead(file, added);
    Report(context, format, file, losses, {"added", nullptr, &added});
    return done;
}

ExitStatus SetCode(Context& context, CodesArguments const& arguments) {
    CodeFormat const& format = arguments.format;
    CodeRecord alone = Typed(arguments, nullptr);
    format.complete(alone); // refused before the file is looked at
    CodeFile file(context, format, arguments.file);
    CodeRecords records = file.Records();
    auto const found = Find(arguments, records);
    RequireFound(arguments, file, found != records.end());
    CodeRecord const was = *found;
    *found = Typed(arguments, &was);
    format.complete(*found);
    CodeRecord now = *found;
    Losses const losses = file.Write(records);
    now = AsRead(file, now);
    Report(context, format, file, losses, {"set", &was, &now});
    return done;
}

ExitStatus RemoveCode(Context& context, CodesArguments const& arguments) {
    CodeFile file(context, arguments.format, arguments.file);
    CodeRecords records = file.Records();
    auto const found = Find(arguments, records);
    RequireFound(arguments, file, found != records.end());
    CodeRecord const was = *found;
    records.erase(found);
    Losses const losses = file.Write(records);
    Report(context, arguments.format, file, losses, {"removed", &was, nullptr});
    return done;
}

ExitStatus UpdateCodes(Context& context, CodeFormat const& format) {
    CodeFile file(context, format, "");
    Losses losses;
    CodeRecords const added = file.AddMissing(losses);
    PrintLosses(file.Path(), losses);
    if (!added.empty()) {
        WarnOfSharedFile(context, file.Path(), format.fileName);
    }
    if (context.json) {
        Json json = {{"file", Shown(file.Path())}, {"added", ToJson(format, added)}};
        AddLosses(json, losses);
        PrintJson(json);
        return done;
    }
    for (CodeRecord const& record : added) {
        std::cout << (context.dryRun ? "would be written: " : "") << Shown(file.Path())
                  << ": added " << Shown(format, record) << '\n';
    }
    if (added.empty()) {
        std::cout << Shown(file.Path()) << ": no code was missing\n";
    }
    return done;
}

// --- The command line ----------------------------------------------------------------------------

enum class Takes { none, key, record };

void AddCells(CLI::App& command, CodesArguments& arguments, Takes takes) {
    for (std::size_t i = 0; i < arguments.cells.size(); ++i) {
        Column const& column = arguments.format.columns[i];
        if (takes == Takes::key && !column.isKey) {
            continue;
        }
        std::string const name = Heading(column);
        auto* const option = command.add_option(column.option != nullptr ? column.option : name,
                                                arguments.cells[i], column.help);
        option->type_name(name);
        option->required(column.option == nullptr && column.otherwise == nullptr);
    }
}

void AddKinds(CommandLine& line, CLI::App& action, Takes takes,
              ExitStatus (*run)(Context&, CodesArguments const&)) {
    for (CodeFormat const& format : CodeFormats()) {
        auto const arguments = std::make_shared<CodesArguments>(format);
        bool const named = format.fileName == nullptr;
        CLI::App& command = CommandLine::AddCommand(
            action, format.kind,
            std::string(format.what) +
                (named ? ", in a file that you name" : std::string(": ") + format.fileName),
            "");
        if (named) {
            command.add_option("FILE", arguments->file, "Its file")->required();
        }
        if (takes != Takes::none) {
            AddCells(command, *arguments, takes);
        }
        if (run != ListCodes) {
            line.AddDryRun(command);
        }
        line.Run(command, [arguments, run](Context& context) { return run(context, *arguments); });
    }
}

} // namespace

void AddCodesCommand(CommandLine& line) {
    constexpr char const* losing =
        "The file is written by the library, and the old one is kept in FILE.bak: kvarnio undo "
        "FILE\n"
        "puts it back. What the library does not read is dropped, and named on standard error.";
    CLI::App& codes =
        line.AddGroup("codes", "Show and change the code files",
                      "A code file is taken from the project folder, else the CFG folder, else the "
                      "main folder.\nExample: kvarnio codes add kodfil Le Lera --project .");
    AddKinds(line,
             line.AddGroup(codes, "list", "Show the codes, and the file that they stand in", ""),
             Takes::none, ListCodes);
    AddKinds(line, line.AddGroup(codes, "add", "Add a code at the end", losing), Takes::record,
             AddCode);
    AddKinds(line, line.AddGroup(codes, "set", "Change a code", losing), Takes::record, SetCode);
    AddKinds(line, line.AddGroup(codes, "remove", "Remove a code", losing), Takes::key, RemoveCode);

    auto const formats = CodeFormats();
    auto const miljkod = std::find_if(formats.begin(), formats.end(), [](CodeFormat const& format) {
        return format.fileName == CProjPath::Miljkod;
    });
    CLI::App& update = CommandLine::AddCommand(
        codes, "update", std::string("Add the codes that programs rely on to ") + miljkod->fileName,
        losing);
    line.AddDryRun(update);
    line.Run(update,
             [format = *miljkod](Context& context) { return UpdateCodes(context, format); });
}

} // namespace kvarnio
