// kvarnio registry: what a key of the registry holds, in every form in which programs read it.
#include <algorithm>
#include <array>
#include <cstring>
#include <iostream>
#include <memory>
#include <utility>

#include <CLI/CLI.hpp>
#include <host/calls.h>
#include <text/codepage.h>
#include <text/format.h>

#include "../commands.h"
#include "../shared/arguments.h"
#include "../shared/output.h"

namespace kvarnio {
namespace {

struct RegistryArguments {
    std::string key;
    std::string name;
};

HKEY Root(std::string const& name) {
    std::array<std::pair<char const*, HKEY>, 8> const roots = {
        {{"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
         {"HKCR", HKEY_CLASSES_ROOT},
         {"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
         {"HKCU", HKEY_CURRENT_USER},
         {"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
         {"HKLM", HKEY_LOCAL_MACHINE},
         {"HKEY_USERS", HKEY_USERS},
         {"HKU", HKEY_USERS}}};
    auto const* const root = std::find_if(roots.begin(), roots.end(), [&](auto const& known) {
        return kvarn::CompareNoCase1252(known.first, name) == 0;
    });
    if (root == roots.end()) {
        throw UsageError("a key begins with HKCU, HKLM, HKCR or HKU, not with \"" + name + '"');
    }
    return root->second;
}

struct Key {
    HKEY root;
    std::string path; // in code page 1252
};

// The key, as HKCU\Software\...
Key KeyOf(std::string const& typed) {
    std::size_t const separator = std::min(typed.size(), typed.find('\\'));
    std::string const path = separator < typed.size() ? typed.substr(separator + 1) : "";
    return {Root(typed.substr(0, separator)), Text("KEY", path)};
}

CRegistry Open(Key const& key, std::string const& typed) {
    CRegistry registry;
    registry.SetRootKey(key.root);
    if (registry.SetKey(key.path.c_str(), 0, KEY_READ) == 0) {
        throw Failure("there is no key " + typed);
    }
    return registry;
}

// Of the key's values, the default one's being empty.
std::vector<std::string> ValueNames(Key const& key) {
    std::vector<std::string> names;
    HKEY opened = nullptr;
    constexpr DWORD noOptions = 0;
    if (RegOpenKeyExA(key.root, key.path.c_str(), noOptions, KEY_READ, &opened) != ERROR_SUCCESS) {
        return names;
    }
    std::vector<char> name(16384); // characters, the most that one has
    auto size = static_cast<DWORD>(name.size());
    while (RegEnumValueA(opened, static_cast<DWORD>(names.size()), name.data(), &size, nullptr,
                         nullptr, nullptr, nullptr) == ERROR_SUCCESS) {
        names.emplace_back(name.data(), size);
        size = static_cast<DWORD>(name.size());
    }
    RegCloseKey(opened);
    return names;
}

std::string TypeName(DWORD type) {
    switch (type) {
    case REG_SZ:
        return "REG_SZ";
    case REG_EXPAND_SZ:
        return "REG_EXPAND_SZ";
    case REG_BINARY:
        return "REG_BINARY";
    case REG_DWORD:
        return "REG_DWORD";
    default:
        return std::to_string(type);
    }
}

// The forms that a value of that type and size can have, read as programs read them.
Json Forms(CRegistry& registry, CString const& name) {
    DWORD const type = registry.GetDataType(name);
    int const size = registry.GetDataSize(name);
    Json forms = Json::object();
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        forms["text"] = kvarn::ToUtf8(registry.ReadString(name, "").GetString());
        return forms;
    }
    if (size == 4) {
        DWORD const dword = registry.ReadDword(name, 0);
        forms["int"] = registry.ReadInt(name, 0);
        forms["dword"] = dword;
        forms["bool"] = dword != 0;
        forms["color"] = {
            {"red", dword & 0xFFU}, {"green", dword >> 8U & 0xFFU}, {"blue", dword >> 16U & 0xFFU}};
    } else if (size == 8) {
        CPoint point;
        registry.ReadPoint(name, &point);
        forms["float"] = registry.ReadFloat(name, 0);
        forms["point"] = {{"x", point.x}, {"y", point.y}};
    } else if (size == 16) {
        CRect rect;
        registry.ReadRect(name, &rect);
        COleDateTime const date = registry.ReadDateTime(name, COleDateTime());
        forms["rect"] = {
            {"left", rect.left}, {"top", rect.top}, {"right", rect.right}, {"bottom", rect.bottom}};
        forms["date"] = {{"days", date.m_dt}, {"status", static_cast<int>(date.GetStatus())}};
    } else if (size == 60) {
        CFont font;
        LOGFONTA description{};
        registry.ReadFont(name, &font);
        font.GetLogFont(&description);
        std::string const name1252(description.lfFaceName, // which need not end in a zero
                                   strnlen(description.lfFaceName, LF_FACESIZE));
        forms["font"] = {{"name", kvarn::ToUtf8(name1252)},
                         {"height", description.lfHeight},
                         {"weight", description.lfWeight}};
    }
    return forms;
}

// In its first form; bytes that have none are counted.
std::string OnOneRow(Json const& forms, int size) {
    if (forms.empty()) {
        return std::to_string(size) + (size == 1 ? " byte" : " bytes");
    }
    Json const& first = *forms.begin();
    return first.is_string() ? first.get<std::string>() : first.dump();
}

ExitStatus ShowKey(Context& context, CRegistry& registry, Key const& key,
                   std::string const& typed) {
    int const keys = registry.GetSubKeyCount(); // -1: they cannot be counted without full access
    Json values = Json::array();
    std::vector<std::vector<std::string>> rows = {{"NAME", "TYPE", "VALUE"}};
    for (std::string const& name : ValueNames(key)) {
        CString const asked(name.c_str());
        Json const forms = Forms(registry, asked);
        std::string const type = TypeName(registry.GetDataType(asked));
        std::string const shown = name.empty() ? "@" : kvarn::ToUtf8(name);
        values.push_back({{"name", shown}, {"type", type}, {"as", forms}});
        rows.push_back({shown, type, OnOneRow(forms, registry.GetDataSize(asked))});
    }
    if (context.json) {
        PrintJson({{"key", typed}, {"values", values}, {"keys", keys < 0 ? Json() : Json(keys)}});
        return done;
    }
    PrintTable({{"KEY", typed}, {"KEYS", keys < 0 ? "not told" : std::to_string(keys)}});
    if (!values.empty()) {
        std::cout << '\n';
        PrintTable(rows);
    }
    return done;
}

ExitStatus Registry(Context& context, RegistryArguments const& arguments) {
    Key const key = KeyOf(arguments.key);
    CRegistry registry = Open(key, arguments.key);
    if (arguments.name.empty()) {
        return ShowKey(context, registry, key, arguments.key);
    }
    CString const name(arguments.name == "@" ? "" : Text("NAME", arguments.name).c_str());
    int const size = registry.GetDataSize(name);
    if (size < 0) {
        throw Failure("there is no value " + arguments.name + " in " + arguments.key);
    }
    Json const forms = Forms(registry, name);
    std::string const type = TypeName(registry.GetDataType(name));
    if (context.json) {
        PrintJson({{"key", arguments.key},
                   {"name", arguments.name},
                   {"type", type},
                   {"bytes", size},
                   {"as", forms}});
        return done;
    }
    std::vector<std::vector<std::string>> rows = {
        {"FORM", "VALUE"}, {"type", type}, {"bytes", std::to_string(size)}};
    for (auto const& [form, value] : forms.items()) {
        rows.push_back({form, value.is_string() ? value.get<std::string>() : value.dump()});
    }
    PrintTable(rows);
    return done;
}

} // namespace

void AddRegistryCommand(CommandLine& line) {
    auto const arguments = std::make_shared<RegistryArguments>();
    CLI::App& registry = line.AddCommand(
        "registry",
        "Show the values of a key of the registry, or one in every form in which programs "
        "read it",
        "A number is stored as bytes, and may be an integer, a colour or a truth value: all that "
        "fit are shown.\n"
        "Example: kvarnio registry 'HKCU\\Software\\Orsakor\\Vallentra\\Markvida\\Samlaren' "
        "ACADVER");
    registry.add_option("KEY", arguments->key, "Key, beginning with HKCU, HKLM, HKCR or HKU")
        ->required();
    registry.add_option("NAME", arguments->name,
                        "Value; @ for the default one, without it all are listed");
    line.Run(registry, [arguments](Context& context) { return Registry(context, *arguments); });
}

} // namespace kvarnio
