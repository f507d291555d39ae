// kvarnio set.
#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <formats/checks/linechecker.h>
#include <text/codepage.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/backup.h"
#include "../shared/copies.h"
#include "../shared/failure.h"
#include "setreport.h"

namespace kvarnio {
namespace {

struct SetArguments {
    std::string file;
    std::string key;
    std::string value;
    std::vector<std::string> more; // keys and values
    bool integer = false;
    int decimals = -1;  // none given
    bool force = false; // whatever programs make of the values
    bool isNew = false; // and of the keys
};

// All of standard input but for its last line end.
std::string ReadInput() {
    std::string text{std::istreambuf_iterator<char>(std::cin), {}};
    if (std::cin.bad()) {
        throw IoFailure("standard input cannot be read");
    }
    text.erase(text.ends_with("\r\n") ? text.size() - 2
                                      : text.size() - (text.ends_with('\n') ? 1 : 0));
    return text;
}

struct TypedPair {
    std::string key;
    std::string value;
};

std::vector<TypedPair> PairsOf(SetArguments const& arguments) {
    std::vector<TypedPair> pairs = {
        {arguments.key, arguments.value == "-" ? ReadInput() : arguments.value}};
    for (std::size_t i = 0; i < arguments.more.size(); i += 2) {
        if (i + 1 == arguments.more.size()) {
            throw UsageError("KEY \"" + arguments.more[i] + "\" has no VALUE");
        }
        pairs.push_back({arguments.more[i], arguments.more[i + 1]});
    }
    return pairs;
}

NewValue ValueToWrite(SetArguments const& arguments, std::string const& typed) {
    if (arguments.integer) {
        return WholeNumber("VALUE", typed);
    }
    if (arguments.decimals >= 0) {
        return Decimal{Number("VALUE", typed), arguments.decimals};
    }
    return Value(typed);
}

std::vector<NewEntry> EntriesToWrite(SetArguments const& arguments) {
    std::vector<NewEntry> entries;
    for (TypedPair const& pair : PairsOf(arguments)) {
        NewValue value = ValueToWrite(arguments, pair.value);
        std::string key = Key(pair.key);
        if (std::any_of(entries.begin(), entries.end(), [&](NewEntry const& earlier) {
                return kvarn::CompareNoCase1252(earlier.key, key) == 0;
            })) {
            throw UsageError("KEY \"" + pair.key + "\" is given twice");
        }
        entries.push_back({std::move(key), std::move(value)});
    }
    return entries;
}

bool IsRemoval(NewValue const& value) {
    std::string const* const text = std::get_if<std::string>(&value);
    return text != nullptr && text->empty();
}

void RequireLengths(NewEntry const& entry) {
    std::string const* const text = std::get_if<std::string>(&entry.value);
    auto const require = [](char const* what, std::size_t length, std::size_t longest) {
        if (length > longest) {
            throw Failure("nothing was written: " + std::string(what) + " has " +
                          std::to_string(length) + " characters, and the file holds at most " +
                          std::to_string(longest));
        }
    };
    require("KEY", entry.key.size(), kvarn::longestKey);
    require("VALUE", text != nullptr ? text->size() : 0, kvarn::longestValue);
}

std::string NowhereToWrite(Context const& context, std::string const& name) {
    return "nothing was written: there is no " + name + " to write to\n" + Folders(context) +
           "Create an empty " + name + " in the folder that shall have it, and try again.";
}

void RequireWritable(Context const& context, SettingsFile const& file) {
    bool const isMade = file.IsJb23() && IsFolder(context.ini.m_cfgKat.GetString());
    if (file.Path().empty() && !isMade) {
        throw Failure(file.IsCfg() ? NoCfg() : NowhereToWrite(context, file.Name()));
    }
}

// A line of the scales is found by its number, and holds two words.
void RequireScale(SettingsFile const& file, NewEntry const& entry) {
    if (!file.Find(entry.key)) {
        throw Failure("nothing was written: " + NoValue(file, kvarn::ToUtf8(entry.key)));
    }
    std::string const* const text = std::get_if<std::string>(&entry.value);
    if (text != nullptr && kvarn::Words(*text).size() != 1) {
        throw UsageError("VALUE must be one word: a line of " + file.Name() +
                         " holds the scale and the step, and nothing is removed from it");
    }
}

// What a check would find afterwards.
void RequireSound(SettingsFile const& file, NewEntry const& entry, SetArguments const& arguments) {
    if (!arguments.isNew && !file.IsKnown(entry.key)) {
        std::string const nearest = file.Nearest(entry.key);
        throw UsageError("no program knows the key " + kvarn::ToUtf8(entry.key) +
                         (nearest.empty() ? ";" : "; did you mean " + nearest + '?') +
                         " --new writes it all the same");
    }
    auto const fault = file.FaultOf(entry);
    if (!arguments.force && !IsRemoval(entry.value) && fault) {
        throw UsageError(kvarn::ToUtf8(entry.key) + ": " + fault.what +
                         "; --force writes it all the same");
    }
}

void RequireAllowed(SettingsFile const& file, NewEntry const& entry,
                    SetArguments const& arguments) {
    if (file.IsJb23()) {
        RequireScale(file, entry);
    }
    RequireSound(file, entry, arguments);
    auto const was = file.Find(entry.key);
    if (IsRemoval(entry.value) && (!was || was->file.empty())) {
        throw Failure("nothing to remove: " + kvarn::ToUtf8(entry.key) + " does not stand in " +
                      Shown(file.Path()));
    }
}

// The keys as the file or else the table of defaults spells them.
void SpellAsBefore(SettingsFile const& file, std::vector<NewEntry>& entries) {
    for (NewEntry& entry : entries) {
        if (auto const was = file.Find(entry.key)) {
            entry.key = was->key;
        }
    }
}

void TellOfScales(SettingsFile const& file, std::vector<NewEntry> const& entries) {
    int const lines = file.LineCount();
    int const added = file.MissingScales(entries);
    if (lines > 0 && added > 0) {
        std::cerr << "kvarnio: the file had " << lines << " of eleven lines; " << added
                  << " with the defaults come first\n";
    }
}

std::vector<Change> ChangesOf(SettingsFile const& before, SettingsFile const& after,
                              std::vector<NewEntry> const& entries, bool dryRun) {
    std::vector<Change> changes;
    changes.reserve(entries.size());
    for (NewEntry const& entry : entries) {
        changes.push_back({entry.key, IsRemoval(entry.value), before.Find(entry.key),
                           dryRun ? before.After(entry) : after.Find(entry.key)});
    }
    return changes;
}

ExitStatus Set(Context& context, SetArguments const& arguments) {
    std::vector<NewEntry> entries = EntriesToWrite(arguments);
    std::for_each(entries.begin(), entries.end(), RequireLengths);
    SettingsFile const before(context, FileName(arguments.file));
    RequireWritable(context, before);
    RequireText(before.Path(), before.Content());
    SpellAsBefore(before, entries);
    for (NewEntry const& entry : entries) {
        RequireAllowed(before, entry, arguments);
    }

    Losses losses = LossesOf(before.Check(entries));
    if (context.dryRun) {
        Report(context, before, ChangesOf(before, before, entries, true), losses);
        return done;
    }
    KeepOld(before.Path(), losses, [&](std::string_view content) { return before.Check(content); });
    if (before.Write(entries) != 0) {
        throw IoFailure(NotWritten(before.Path()));
    }
    if (before.IsJb23()) {
        TellOfScales(before, entries);
    }
    SettingsFile const after(context, before.Name());
    Report(context, after, ChangesOf(before, after, entries, false), losses);
    return done;
}

} // namespace

void AddSetCommand(CommandLine& line) {
    auto const arguments = std::make_shared<SetArguments>();
    CLI::App& set = line.AddCommand(
        "set", "Write keys into the settings file that is in use",
        "Several keys are written by one rewriting, all of them or none; --json then prints an "
        "array.\n"
        "The old file is kept in FILE.bak: kvarnio undo FILE puts it back. The file keeps\n"
        "no comments: lines that are not KEY=VALUE are dropped, and named on standard error.\n"
        "VALUE - is read from standard input.\n"
        "Put -- before a VALUE that begins with a hyphen and is no number.\n"
        "Example: kvarnio set KVARNBOK.PAR HSKALA 200 LSKALA 500 --project .");
    set.add_option("FILE", arguments->file, SettingsFile::Help())->required();
    set.add_option("KEY", arguments->key, "Key, in any case, at most 39 characters")->required();
    set.add_option("VALUE", arguments->value, "Value, at most 258 characters; \"\" removes the key")
        ->required();
    CLI::Option const& more =
        CommandLine::AddWords(set, "MORE", "Further keys with their values: KEY VALUE ...");
    CLI::Option* const integer =
        set.add_flag("--int", arguments->integer,
                     "Each VALUE is a whole number; -1 is written as MAX for scales");
    constexpr int mostDecimals = 20;
    set.add_option("--double", arguments->decimals,
                   "Each VALUE is a number, to be written with so many decimals")
        ->type_name("DECIMALS")
        ->check(CLI::Range(0, mostDecimals).description(""))
        ->excludes(integer);
    set.add_flag("--force", arguments->force, "Write a value that programs misread");
    set.add_flag("--new", arguments->isNew, "Write a key that no program knows");
    line.AddDryRun(set);
    line.Run(set, [arguments, &more](Context& context) {
        arguments->more = more.results();
        return Set(context, *arguments);
    });
}

} // namespace kvarnio
