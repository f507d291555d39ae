// kvarnio get, kvarnio list.
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <text/codepage.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "settingsfile.h"

namespace kvarnio {
namespace {

enum class As { text, integer, decimal };

struct GetArguments {
    std::string file;
    std::string key;
    bool integer = false;
    bool decimal = false;

    As Kind() const { return integer ? As::integer : decimal ? As::decimal : As::text; }
};

std::string NoNumber(SettingsFile const& file, Entry const& entry, char const* kind) {
    return kvarn::ToUtf8(entry.key) + " in " + file.Name() + " is \"" + OneLine(entry.value) +
           "\", not " + kind;
}

// The value as it is asked for: a text or a number.
Json ValueAs(SettingsFile const& file, Entry const& entry, As kind) {
    switch (kind) {
    case As::integer:
        if (auto const number = file.Int(entry)) {
            return *number;
        }
        throw Failure(NoNumber(file, entry, "a whole number"));
    case As::decimal:
        if (auto const number = file.Double(entry)) {
            return *number;
        }
        throw Failure(NoNumber(file, entry, "a number"));
    case As::text:
    default:
        return kvarn::ToUtf8(entry.value);
    }
}

std::string Plain(Json const& value) {
    if (!value.is_number_float()) {
        return value.is_string() ? value.get<std::string>() : value.dump();
    }
    return Shortest(value.get<double>());
}

ExitStatus Get(Context& context, GetArguments const& arguments) {
    std::string const key = Key(arguments.key);
    SettingsFile const file(context, FileName(arguments.file));
    auto const entry = file.Find(key);
    if (!entry) {
        throw Failure(NoValue(file, arguments.key));
    }
    Json const value = ValueAs(file, *entry, arguments.Kind());
    if (context.json) {
        Json json = ToJson(file, *entry);
        json["value"] = value;
        PrintJson(json);
    } else {
        std::cout << Plain(value) << '\n';
    }
    return done;
}

std::vector<SettingsFile> FilesToList(Context& context, std::string const& name) {
    std::vector<SettingsFile> files;
    if (!name.empty()) {
        files.emplace_back(context, FileName(name));
        SettingsFile const& file = files.front();
        if (file.Entries().empty()) {
            throw Failure(file.Path().empty() ? NoCfg()
                                              : "there are no keys in " + Shown(file.Path()));
        }
        return files;
    }
    for (std::string const& known : SettingsFile::Names()) {
        files.emplace_back(context, known);
    }
    return files;
}

ExitStatus List(Context& context, std::string const& name) {
    bool const oneFile = !name.empty();
    Json json = Json::array();
    std::vector<std::vector<std::string>> rows = {{"KEY", "VALUE", "SOURCE"}};
    if (!oneFile) {
        rows = {{"FILE", "KEY", "VALUE", "SOURCE"}};
    }
    for (SettingsFile const& file : FilesToList(context, name)) {
        for (Entry const& entry : file.Entries()) {
            json.push_back(ToJson(file, entry));
            std::vector<std::string> row = {OneLine(entry.key), OneLine(entry.value),
                                            Source(entry)};
            if (!oneFile) {
                row.insert(row.begin(), file.Name());
            }
            rows.push_back(std::move(row));
        }
    }
    context.json ? PrintJson(json) : PrintTable(rows);
    return done;
}

} // namespace

void AddGetCommand(CommandLine& line) {
    auto const arguments = std::make_shared<GetArguments>();
    CLI::App& get = line.AddCommand("get", "Print the value of a key, or its built-in default",
                                    "Example: kvarnio get KVARNBOK.PAR HSKALA --project .");
    get.add_option("FILE", arguments->file, SettingsFile::Help())->required();
    get.add_option("KEY", arguments->key, "Key, in any case")->required();
    CLI::Option* const integer = get.add_flag(
        "--int", arguments->integer, "Print the whole number that programs read; MAX is -1");
    get.add_flag("--double", arguments->decimal, "Print the number that programs read")
        ->excludes(integer);
    line.Run(get, [arguments](Context& context) { return Get(context, *arguments); });
}

void AddListCommand(CommandLine& line) {
    auto const file = std::make_shared<std::string>();
    CLI::App& list =
        line.AddCommand("list", "Show every key with its value and the file that it comes from",
                        "Example: kvarnio list KVARNBOK.PAR --project .");
    list.add_option("FILE", *file, SettingsFile::Help() + "; without it, all four");
    line.Run(list, [file](Context& context) { return List(context, *file); });
}

} // namespace kvarnio
