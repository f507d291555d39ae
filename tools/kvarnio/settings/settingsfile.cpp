#include "settingsfile.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>

#include <formats/checks/checks.h>
#include <formats/jb23.h>
#include <text/codepage.h>

#include "../shared/copies.h"
#include "../shared/messages.h"

namespace kvarnio {
namespace {

bool Same(std::string_view a, std::string_view b) {
    return kvarn::CompareNoCase1252(a, b) == 0;
}

std::string Joined(std::vector<std::string> const& names) {
    std::string text;
    for (std::string const& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

// As the facade prints them, for the file that it does not know, and to compare.
std::string Printed(std::string const& key, NewValue const& value) {
    if (int const* const number = std::get_if<int>(&value)) {
        bool const isOpen = *number == -1 && key.find("SKALA") != std::string::npos;
        return isOpen ? "MAX" : std::to_string(*number);
    }
    if (Decimal const* const number = std::get_if<Decimal>(&value)) {
        std::string text(400, '\0');
        auto const end = std::to_chars(text.data(), text.data() + text.size(), number->value,
                                       std::chars_format::fixed, number->decimals);
        text.resize(static_cast<std::size_t>(end.ptr - text.data()));
        return text;
    }
    return std::get<std::string>(value);
}

} // namespace

std::vector<std::string> SettingsFile::Names() {
    return {CProjPath::KvarnParNamn, CProjPath::StenParNamn, CProjPath::Jb23ParNamn,
            CProjPath::KvarnCfgNamn};
}

std::string SettingsFile::Help() {
    return "One of " + Joined(Names());
}

SettingsFile::SettingsFile(Context& context, std::string const& name) : m_context(&context) {
    std::vector<std::string> const names = Names();
    auto const found = std::find_if(names.begin(), names.end(),
                                    [&](std::string const& known) { return Same(known, name); });
    if (found == names.end()) {
        throw UsageError("FILE must be one of " + Joined(names) + ", not \"" + kvarn::ToUtf8(name) +
                         "\"; --project DIR names the folder");
    }
    m_name = *found;

    if (m_name == CProjPath::KvarnParNamn) {
        CKvarnPAR par(&context.ini, &context.project);
        m_path = par.GetParFilNamn();
        m_records = Records(par);
        m_standard = kvarn::kvarnDefaults;
    } else if (m_name == CProjPath::StenParNamn) {
        constexpr int rockDrilling = 1;
        CKvarnPAR par(&context.ini, &context.project, rockDrilling);
        m_path = par.GetParFilNamn();
        m_records = Records(par);
        m_standard = kvarn::stenDefaults;
    } else if (IsJb23()) {
        m_standard = kvarn::jb23Defaults;
        m_path = InForce(context, m_name).value_or(Copy{}).path;
        m_records = ScaleRecords();
    } else if (context.ini.m_iniFil.ReverseFind('\\') >= 0) {
        // It lies beside Markvida.ini; without one the library would look in the drive's root.
        CKvarnCFG cfg(&context.ini);
        m_path = cfg.m_filnamn;
        m_records = Records(cfg);
    }
    if (MessageWasShown()) {
        throw Failure(m_name + " cannot be read");
    }
}

template <class List> std::vector<SettingsFile::Record> SettingsFile::Records(List& list) {
    std::vector<Record> records;
    for (bool more = list.Home() == 0; more; more = list++ != nullptr) {
        records.push_back({list.Get_aktel()->nyckel, list.Get_aktel()->varde});
    }
    return records;
}

// The words that stand in the file of the scales.
std::vector<SettingsFile::Record> SettingsFile::ScaleRecords() const {
    std::vector<Record> records;
    for (kvarn::KeyDefault const& row : m_standard) {
        CString const word = m_context->settings.Jb23ReadKey(row.nyckel);
        if (MessageWasShown()) {
            throw Failure(m_name + " cannot be read");
        }
        if (!word.IsEmpty()) {
            records.push_back({row.nyckel, word.GetString()});
        }
    }
    return records;
}

bool SettingsFile::IsCfg() const {
    return m_name == CProjPath::KvarnCfgNamn;
}
bool SettingsFile::IsJb23() const {
    return m_name == CProjPath::Jb23ParNamn;
}

// The first record of a key counts, and one without a value is none.
SettingsFile::Record const* SettingsFile::Stored(std::string const& key) const {
    auto const found = std::find_if(m_records.begin(), m_records.end(),
                                    [&](Record const& record) { return Same(record.key, key); });
    return found != m_records.end() && !found->value.empty() ? &*found : nullptr;
}

kvarn::KeyDefault const* SettingsFile::Standard(std::string const& key) const {
    auto const found =
        std::find_if(m_standard.begin(), m_standard.end(),
                     [&](kvarn::KeyDefault const& row) { return Same(row.nyckel, key); });
    return found != m_standard.end() ? &*found : nullptr;
}

std::optional<Entry> SettingsFile::Find(std::string const& key) const {
    if (Record const* const record = Stored(key)) {
        return Entry{record->key, record->value, m_path};
    }
    kvarn::KeyDefault const* const row = Standard(key);
    return row != nullptr ? std::optional(Entry{row->nyckel, row->varde, ""}) : std::nullopt;
}

std::vector<Entry> SettingsFile::Entries() const {
    std::vector<std::string> keys;
    for (kvarn::KeyDefault const& row : m_standard) {
        keys.emplace_back(row.nyckel);
    }
    for (Record const& record : m_records) {
        bool const listed = std::any_of(keys.begin(), keys.end(), [&](std::string const& key) {
            return Same(key, record.key);
        });
        if (!listed && Stored(record.key) != nullptr) {
            keys.push_back(record.key);
        }
    }
    std::vector<Entry> entries;
    entries.reserve(keys.size());
    for (std::string const& key : keys) {
        entries.push_back(*Find(key));
    }
    return entries;
}

std::string SettingsFile::Text(Entry const& entry) const {
    return IsCfg() ? entry.value
                   : m_context->settings.ReadKey(m_name.c_str(), entry.key.c_str()).GetString();
}

std::size_t SettingsFile::ScaleLine(std::string const& key) const {
    constexpr std::size_t columns = 2;
    return static_cast<std::size_t>(Standard(key) - m_standard.data()) / columns + 1;
}

std::vector<Finding> SettingsFile::Check(std::string_view content, std::string const& key) const {
    return IsJb23() ? kvarn::CheckJb23(content, kvarn::ScalePlace(Standard(key)->nyckel).line)
                    : kvarn::CheckKeys(content, m_standard, key);
}

std::optional<int> SettingsFile::Int(Entry const& entry) const {
    constexpr int base = 10;
    char* end = nullptr;
    long const number = std::strtol(entry.value.c_str(), &end, base);
    if (end == entry.value.c_str() && (IsCfg() || !Same(entry.value, "MAX"))) {
        return std::nullopt;
    }
    return IsCfg() ? static_cast<int>(std::clamp<long>(number, INT32_MIN, INT32_MAX))
                   : m_context->settings.ReadKeyInt(m_name.c_str(), entry.key.c_str(), 0);
}

std::optional<double> SettingsFile::Double(Entry const& entry) const {
    char* end = nullptr;
    double const number = std::strtod(entry.value.c_str(), &end);
    if (end == entry.value.c_str()) {
        return std::nullopt;
    }
    return IsCfg() ? number
                   : m_context->settings.ReadKeyDouble(m_name.c_str(), entry.key.c_str(), 0);
}

int SettingsFile::Write(std::string const& key, NewValue const& value) const {
    if (IsCfg()) {
        // "MAX" is the facade's.
        std::string const text = Printed("", value);
        return CKvarnCFG(&m_context->ini).WriteKey(key.c_str(), text.c_str());
    }
    int const result = WriteThroughFacade(key, value);
    if (!IsJb23() || result != 0) {
        return result;
    }
    // The facade does not tell whether it was written.
    return Printed(key, value) == m_context->settings.Jb23ReadKey(key.c_str()).GetString() ? 0 : -1;
}

int SettingsFile::WriteThroughFacade(std::string const& key, NewValue const& value) const {
    CKvarnInst& settings = m_context->settings;
    if (int const* const number = std::get_if<int>(&value)) {
        return settings.WriteKey(m_name.c_str(), key.c_str(), *number);
    }
    if (Decimal const* const number = std::get_if<Decimal>(&value)) {
        return settings.WriteKey(m_name.c_str(), key.c_str(), number->value, number->decimals);
    }
    return settings.WriteKey(m_name.c_str(), key.c_str(),
                             CString(std::get<std::string>(value).c_str()));
}

std::size_t SettingsFile::FillScales(std::string const& key, std::size_t lines) const {
    constexpr std::size_t columns = 2;
    std::size_t const line = ScaleLine(key);
    auto const write = [this](kvarn::KeyDefault const& row) {
        if (Write(row.nyckel, std::string(row.varde)) != 0) {
            throw Failure(std::string(row.nyckel) + " could not be written to " + m_name);
        }
    };
    for (std::size_t i = lines * columns; i < line * columns; ++i) {
        write(m_standard[i]);
    }
    kvarn::KeyDefault const& scale = m_standard[(line - 1) * columns];
    if (m_context->settings.Jb23ReadKey(scale.nyckel).IsEmpty()) {
        write(scale);
    }
    return line > lines ? line - lines : 0;
}

std::string NoCfg() {
    return "there is no Markvida.ini in the main folder, which KVARNBOK.CFG lies beside; --home "
           "DIR "
           "names the folder";
}

std::string NoValue(SettingsFile const& file, std::string const& key) {
    if (file.IsCfg() && file.Path().empty()) {
        return NoCfg();
    }
    return key + " has no value in " + file.Name() + (file.IsCfg() ? "" : " and no default") +
           "; kvarnio list " + file.Name() + " shows the keys";
}

Json ToJson(SettingsFile const& file, Entry const& entry) {
    return {{"file", file.Name()},
            {"key", kvarn::ToUtf8(entry.key)},
            {"value", kvarn::ToUtf8(entry.value)},
            {"source", Source(entry)}};
}

std::string Source(Entry const& entry) {
    return entry.file.empty() ? "default" : Shown(entry.file);
}

} // namespace kvarnio
