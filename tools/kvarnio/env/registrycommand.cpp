// kvarnio registry: what a key of the registry holds, in every form in which programs read it.
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>

#include <CLI/CLI.hpp>
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

// The key, as HKCU\Software\...
CRegistry Open(std::string const& typed) {
    std::size_t const separator = std::min(typed.size(), typed.find('\\'));
    CRegistry registry;
    registry.SetRootKey(Root(typed.substr(0, separator)));
    std::string const path = separator < typed.size() ? typed.substr(separator + 1) : "";
    if (registry.SetKey(Text("KEY", path).c_str(), 0, KEY_READ) == 0) {
        throw Failure("there is no key " + typed);
    }
    return registry;
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

ExitStatus ShowKey(Context& context, CRegistry& registry, std::string const& typed) {
    int const values = registry.GetValueCount();
    int const keys = registry.GetSubKeyCount();
    if (context.json) {
        PrintJson({{"key", typed}, {"values", values}, {"keys", keys}});
    } else { // -1: they cannot be counted without full access
        PrintTable({{"KEY", typed},
                    {"VALUES", values < 0 ? "not told" : std::to_string(values)},
                    {"KEYS", keys < 0 ? "not told" : std::to_string(keys)}});
    }
    return done;
}

ExitStatus Registry(Context& context, RegistryArguments const& arguments) {
    CRegistry registry = Open(arguments.key);
    if (arguments.name.empty()) {
        return ShowKey(context, registry, arguments.key);
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
        "registry", "Show a value of the registry in every form in which programs read it",
        "Example: kvarnio registry 'HKCU\\Software\\Orsakor\\Vallentra\\Markvida\\Samlaren' "
        "ACADVER\n"
        "A number is stored as bytes, and may be an integer, a colour or a truth value: all that "
        "fit "
        "are shown.");
    registry.add_option("KEY", arguments->key, "Key, beginning with HKCU, HKLM, HKCR or HKU")
        ->required();
    registry.add_option("NAME", arguments->name,
                        "Value; @ for the default one, without it the key's counts");
    line.Run(registry, [arguments](Context& context) { return Registry(context, *arguments); });
}

} // namespace kvarnio
