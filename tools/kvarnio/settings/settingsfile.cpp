#include "settingsfile.h"

#include <algorithm>
#include <cstdint>

#include <files/filerewrite.h>
#include <files/pathparts.h>
#include <formats/checks/checks.h>
#include <formats/checks/keyvalues.h>
#include <formats/checks/linechecker.h>
#include <formats/jb23.h>
#include <kvarnfiles/parfile.h>
#include <text/codepage.h>
#include <text/format.h>
#include <text/scan.h>

#include "../shared/backup.h"
#include "../shared/copies.h"

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

// As the facade prints them for one key; "MAX" is the facade's.
std::string Printed(NewEntry const& entry, bool throughFacade) {
    if (int const* const number = std::get_if<int>(&entry.value)) {
        bool const isOpen =
            throughFacade && *number == -1 && entry.key.find("SKALA") != std::string::npos;
        return isOpen ? "MAX" : std::to_string(*number);
    }
    if (Decimal const* const number = std::get_if<Decimal>(&entry.value)) {
        return kvarn::Format("%.*lf", number->decimals, number->value);
    }
    return std::get<std::string>(entry.value);
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

    Locate();
    // One that was found is there, though it may not open.
    m_content = IsCfg() ? ReadIfThere(m_path) : m_path.empty() ? "" : ReadWhole(m_path);
    m_records = IsJb23() ? ScaleRecords() : KeyRecords();
}

void SettingsFile::Locate() {
    CAutoIni const& ini = m_context->ini;
    m_standard = kvarn::DefaultsOf(m_name);
    if (m_name == CProjPath::KvarnParNamn) {
        m_path = kvarn::kvarnPar.InForce(&ini, &m_context->project);
    } else if (m_name == CProjPath::StenParNamn) {
        m_path = kvarn::stenPar.InForce(&ini, &m_context->project);
    } else if (IsJb23()) {
        m_path = InForce(*m_context, m_name).value_or(Copy{}).path;
    } else if (ini.m_iniFil.ReverseFind('\\') >= 0) {
        // It lies beside Markvida.ini; without one the library would look in the drive's root.
        m_path = kvarn::KvarnCfgPath(ini);
    }
}

std::vector<SettingsFile::Record> SettingsFile::KeyRecords() const {
    std::vector<Record> records;
    kvarn::LineReader lines(m_content);
    for (std::string_view text; lines.ReadLine(text);) {
        kvarn::KeyLine const line(text);
        if (line.MakesRecord()) {
            records.push_back({std::string(line.key), std::string(line.value)});
        }
    }
    return records;
}

std::vector<SettingsFile::Record> SettingsFile::ScaleRecords() const {
    std::vector<Record> records;
    for (kvarn::KeyDefault const& row : m_standard) {
        kvarn::LineReader lines(m_content);
        std::string word = kvarn::ScaleAt(lines, kvarn::ScalePlace(row.nyckel));
        if (!word.empty()) {
            records.push_back({row.nyckel, std::move(word)});
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

std::vector<Finding> SettingsFile::Check(std::span<NewEntry const> entries) const {
    if (IsJb23()) {
        return kvarn::CheckJb23(m_content, ScaleLinesOf(entries));
    }
    std::vector<std::string> keys;
    for (NewEntry const& entry : entries) {
        keys.push_back(entry.key);
    }
    return kvarn::CheckKeys(m_content, m_standard, keys);
}

int SettingsFile::LineCount() const {
    return static_cast<int>(kvarn::LinesOf(m_content).size());
}

std::optional<int> SettingsFile::Int(Entry const& entry) const {
    std::int32_t number = 0;
    bool const isNumber = kvarn::Scan(entry.value, number) == 1;
    if (!isNumber && (IsCfg() || !Same(entry.value, "MAX"))) {
        return std::nullopt;
    }
    return IsCfg() ? number : m_context->settings.ReadKeyInt(m_name.c_str(), entry.key.c_str(), 0);
}

std::optional<double> SettingsFile::Double(Entry const& entry) const {
    double number = 0;
    return kvarn::Scan(entry.value, number) == 1 ? std::optional(number) : std::nullopt;
}

std::vector<Finding> SettingsFile::Check(std::string_view content) const {
    return IsJb23() ? kvarn::CheckJb23(content) : kvarn::CheckKeys(content, m_standard);
}

kvarn::Fault SettingsFile::FaultOf(NewEntry const& entry) const {
    return kvarn::ValueFault(m_standard, entry.key, Printed(entry, !IsCfg()));
}

bool SettingsFile::IsKnown(std::string const& key) const {
    return m_standard.empty() || kvarn::IsKnownKey(m_standard, key) || Stored(key) != nullptr;
}

std::string SettingsFile::Nearest(std::string const& key) const {
    return std::string(kvarn::NearestKey(m_standard, key));
}

std::optional<Entry> SettingsFile::After(NewEntry const& entry) const {
    std::string const value = Printed(entry, !IsCfg());
    if (!value.empty()) {
        return Entry{entry.key, value, m_path};
    }
    kvarn::KeyDefault const* const standard = Standard(entry.key);
    return standard != nullptr ? std::optional(Entry{entry.key, standard->varde, ""})
                               : std::nullopt;
}

int SettingsFile::Write(std::span<NewEntry const> entries) const {
    if (!IsJb23()) {
        return WriteKeys(entries);
    }
    std::string const path =
        m_path.empty() ? kvarn::PathOf(m_context->ini.m_cfgKat.GetString(), m_name) : m_path;
    auto const result =
        kvarn::RewriteFile(path.c_str(), WithScales(entries), kvarn::TemporaryOf(path).c_str());
    return result == kvarn::Rewritten::done ? 0 : -1;
}

int SettingsFile::WriteKeys(std::span<NewEntry const> entries) const {
    std::vector<std::string> values;
    for (NewEntry const& entry : entries) {
        values.push_back(Printed(entry, !IsCfg()));
    }
    std::vector<nyckelvarde> keys;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        keys.push_back({entries[i].key.c_str(), values[i].c_str(), 0});
    }
    int const count = static_cast<int>(keys.size());
    return IsCfg() ? CKvarnCFG(&m_context->ini).WriteKeys(keys.data(), count)
                   : m_context->settings.WriteKeys(m_name.c_str(), keys.data(), count);
}

int SettingsFile::ScaleLineOf(std::string const& key) const {
    return kvarn::ScalePlace(Standard(key)->nyckel).line;
}

std::vector<int> SettingsFile::ScaleLinesOf(std::span<NewEntry const> entries) const {
    std::vector<int> lines;
    for (NewEntry const& entry : entries) {
        lines.push_back(ScaleLineOf(entry.key));
    }
    return lines;
}

int SettingsFile::MissingScales(std::span<NewEntry const> entries) const {
    return std::max(std::ranges::max(ScaleLinesOf(entries)) - LineCount(), 0);
}

std::string SettingsFile::WithScales(std::span<NewEntry const> entries) const {
    std::string text = m_content;
    auto const put = [&text](std::string_view key, std::string_view word) {
        kvarn::LineReader lines{std::string_view(text)};
        text = kvarn::WithScale(lines, kvarn::ScalePlace(key), word);
    };
    std::vector<int> const written = ScaleLinesOf(entries);
    int const lines = LineCount();
    for (kvarn::KeyDefault const& row : m_standard) {
        kvarn::ScalePlace const place(row.nyckel);
        bool const missing = place.line > lines && place.line <= std::ranges::max(written);
        bool const alone = std::ranges::find(written, place.line) != written.end() &&
                           !place.isStep && Stored(row.nyckel) == nullptr;
        if (missing || alone) {
            put(row.nyckel, row.varde);
        }
    }
    for (NewEntry const& entry : entries) {
        put(entry.key, Printed(entry, true));
    }
    return text;
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
