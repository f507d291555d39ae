// kvarnio set.
#include <iostream>
#include <memory>

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
    bool integer = false;
    int decimals = -1; // none given
};

NewValue ValueToWrite(SetArguments const& arguments) {
    if (arguments.integer) {
        return WholeNumber("VALUE", arguments.value);
    }
    if (arguments.decimals >= 0) {
        return Decimal{Number("VALUE", arguments.value), arguments.decimals};
    }
    return Value(arguments.value);
}

bool IsRemoval(NewValue const& value) {
    std::string const* const text = std::get_if<std::string>(&value);
    return text != nullptr && text->empty();
}

void RequireLengths(std::string const& key, NewValue const& value) {
    std::string const* const text = std::get_if<std::string>(&value);
    auto const require = [](char const* what, std::size_t length, std::size_t longest) {
        if (length > longest) {
            throw Failure("nothing was written: " + std::string(what) + " has " +
                          std::to_string(length) + " characters, and the file holds at most " +
                          std::to_string(longest));
        }
    };
    require("KEY", key.size(), kvarn::longestKey);
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
void RequireScale(SettingsFile const& file, std::string const& key, NewValue const& value) {
    if (!file.Find(key)) {
        throw Failure("nothing was written: " + NoValue(file, kvarn::ToUtf8(key)));
    }
    std::string const* const text = std::get_if<std::string>(&value);
    if (text != nullptr && kvarn::Words(*text).size() != 1) {
        throw UsageError("VALUE must be one word: a line of " + file.Name() +
                         " holds the scale and the step, and nothing is removed from it");
    }
}

void RequireAllowed(SettingsFile const& file, std::string const& typed, std::string const& key,
                    NewValue const& value) {
    if (file.IsJb23()) {
        RequireScale(file, key, value);
    }
    auto const was = file.Find(key);
    if (IsRemoval(value) && (!was || was->file.empty())) {
        throw Failure("nothing to remove: " + typed + " does not stand in " + Shown(file.Path()));
    }
}

void TellOfScales(SettingsFile const& file, std::string const& key) {
    int const lines = file.LineCount();
    int const added = file.MissingScales(key);
    if (lines > 0 && added > 0) {
        std::cerr << "kvarnio: the file had " << lines << " of eleven lines; " << added
                  << " with the defaults come first\n";
    }
}

ExitStatus Set(Context& context, SetArguments const& arguments) {
    NewValue const value = ValueToWrite(arguments);
    std::string const typedKey = Key(arguments.key);
    RequireLengths(typedKey, value);
    SettingsFile const before(context, FileName(arguments.file));
    RequireWritable(context, before);
    RequireAllowed(before, arguments.key, typedKey, value);
    auto const was = before.Find(typedKey);
    std::string const key = was ? was->key : typedKey;

    Losses const losses = LossesOf(before.Check(key));
    KeepWhatIsLost(before.Path(), losses);
    if (before.Write(key, value) != 0) {
        throw Failure(NotWritten(before.Path()));
    }
    if (before.IsJb23()) {
        TellOfScales(before, key);
    }
    SettingsFile const after(context, before.Name());
    Report(context, after, {key, IsRemoval(value), was, after.Find(key), losses});
    return done;
}

} // namespace

void AddSetCommand(CommandLine& line) {
    auto const arguments = std::make_shared<SetArguments>();
    CLI::App& set = line.AddCommand(
        "set", "Write a key into the settings file that is in use",
        "The file keeps no comments: lines that are not KEY=VALUE are dropped, named on standard "
        "error,\nand kept in FILE.bak.\n"
        "Put -- before a VALUE that begins with a hyphen and is no number.\n"
        "Example: kvarnio set KVARNBOK.PAR HSKALA 200 --project .");
    set.add_option("FILE", arguments->file, SettingsFile::Help())->required();
    set.add_option("KEY", arguments->key, "Key, in any case, at most 39 characters")->required();
    set.add_option("VALUE", arguments->value, "Value, at most 258 characters; \"\" removes the key")
        ->required();
    CLI::Option* const integer = set.add_flag(
        "--int", arguments->integer, "VALUE is a whole number; -1 is written as MAX for scales");
    constexpr int mostDecimals = 20;
    set.add_option("--double", arguments->decimals,
                   "VALUE is a number, to be written with so many decimals")
        ->type_name("DECIMALS")
        ->check(CLI::Range(0, mostDecimals).description(""))
        ->excludes(integer);
    line.Run(set, [arguments](Context& context) { return Set(context, *arguments); });
}

} // namespace kvarnio
