// kvarnio set.
#include <cerrno>
#include <fstream>
#include <memory>
#include <system_error>

#include <CLI/CLI.hpp>

#include "arguments.h"
#include "backup.h"
#include "commandline.h"
#include "failure.h"
#include "platform.h"
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
    require("KEY", key.size(), longestKey);
    require("VALUE", text != nullptr ? text->size() : 0, longestValue);
}

std::string NowhereToWrite(Context const& context, std::string const& name) {
    std::string text = "nothing was written: there is no " + name + " to write to\n";
    auto const folder = [&text](char const* what, CString const& path) {
        std::error_code unreachable;
        text += std::string("  ") + what + Shown(path.GetString()) +
                (std::filesystem::is_directory(HostPath(path.GetString()), unreachable)
                     ? "\n"
                     : " (does not exist)\n");
    };
    if (context.project.m_projKat.IsEmpty()) {
        text += "  project folder: none, --project DIR names it\n";
    } else {
        folder("project folder: ", context.project.m_projKat);
    }
    folder("CFG folder:     ", context.ini.m_cfgKat);
    folder("main folder:    ", context.ini.m_huvudKat);
    return text + "Create an empty " + name + " in the folder that shall have it, and try again.";
}

void RequireWritable(Context const& context, SettingsFile const& file) {
    if (file.IsJb23()) {
        throw Failure("nothing was written: " + file.Name() + " cannot be written yet");
    }
    if (file.Path().empty()) {
        throw Failure(file.IsCfg() ? NoCfg() : NowhereToWrite(context, file.Name()));
    }
}

std::string WhyNotWritten(std::filesystem::path const& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        return "it is a folder";
    }
    errno = 0;
    std::fstream const file(path, std::ios::binary | std::ios::in | std::ios::out);
    return !file.is_open() && errno != 0 ? std::generic_category().message(errno)
                                         : "reading or writing it failed; the disk may be full";
}

ExitStatus Set(Context& context, SetArguments const& arguments) {
    NewValue const value = ValueToWrite(arguments);
    std::string const typedKey = Key(arguments.key);
    RequireLengths(typedKey, value);
    SettingsFile const before(context, FileName(arguments.file));
    RequireWritable(context, before);
    auto const was = before.Find(typedKey);
    std::string const key = was ? was->key : typedKey;
    if (IsRemoval(value) && (!was || was->file.empty())) {
        throw Failure("nothing to remove: " + arguments.key + " does not stand in " +
                      Shown(before.Path()));
    }

    std::filesystem::path const path = HostPath(before.Path());
    std::string const content = ContentOf(path);
    DroppedLines const dropped = LinesDroppedBy(key, content);
    if (!dropped.None() && !KeepCopy(path, content)) {
        throw Failure("nothing was written: lines would be dropped, and " + Shown(before.Path()) +
                      backupSuffix + ", which would keep them, cannot be made");
    }
    if (before.Write(key, value) != 0) {
        throw Failure(Shown(before.Path()) + " could not be written: " + WhyNotWritten(path));
    }
    SettingsFile const after(context, before.Name());
    Report(context, after, {key, IsRemoval(value), was, after.Find(key), dropped});
    return done;
}

} // namespace

void AddSetCommand(CommandLine& line) {
    auto const arguments = std::make_shared<SetArguments>();
    CLI::App& set = line.AddCommand(
        "set", "Write a key into the settings file that is in use",
        "The file keeps no comments: lines that are not KEY=VALUE are dropped, named on standard "
        "error,\nand kept in FILE.bak. JB23.PAR cannot be written yet.\n"
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
