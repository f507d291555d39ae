// One of the settings files, as the library read it at one moment: which file was taken, what
// it holds, and what a key's value is. Texts are in code page 1252.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <formats/checks/linechecker.h>
#include <kvarnfiles/defaults.h>

#include "../shared/context.h"
#include "../shared/failure.h"
#include "../shared/finding.h"
#include "../shared/output.h"

namespace kvarnio {

struct Entry {
    std::string key;
    std::string value;
    std::string file; // that holds the value; empty for a built-in default
};

struct Decimal {
    double value;
    int decimals;
};

using NewValue = std::variant<std::string, int, Decimal>;

struct NewEntry {
    std::string key;
    NewValue value;
};

class SettingsFile {
  public:
    // The file of that name, in any case. Throws UsageError for a name that is none of them, and
    // Failure for a file that cannot be read.
    SettingsFile(Context& context, std::string const& name);

    // Every settings file that can be named, and what a help text says of that.
    static std::vector<std::string> Names();
    static std::string Help();

    std::string const& Name() const { return m_name; }
    // Empty where no file was found.
    std::string const& Path() const { return m_path; }
    bool IsCfg() const;
    bool IsJb23() const;

    // The key, spelt as the file or else the table of defaults does, with its value; nothing when
    // it has neither a value in the file nor a default.
    std::optional<Entry> Find(std::string const& key) const;
    // Every key: those with a default first, then the others that the file holds.
    std::vector<Entry> Entries() const;
    // -1 for "MAX"; nothing when the value does not begin with a number.
    std::optional<int> Int(Entry const& entry) const;
    std::optional<double> Double(Entry const& entry) const;

    // What programs can make of a value that is to be written.
    kvarn::Fault FaultOf(NewEntry const& entry) const;
    // False where the file's keys are known, and this is none of them; then the one that it is
    // like, which may be none.
    bool IsKnown(std::string const& key) const;
    std::string Nearest(std::string const& key) const;
    // The key as it would be after the writing; nothing when it would have no value.
    std::optional<Entry> After(NewEntry const& entry) const;

    // What is wrong with the file when the keys are about to be written.
    std::vector<Finding> Check(std::span<NewEntry const> entries) const;
    // Of another content of the file.
    std::vector<Finding> Check(std::string_view content) const;
    int LineCount() const;
    std::string const& Content() const { return m_content; }

    // Writes the keys into the file by one step, all or none, as the library does, with its result.
    // Into the file of the scales, whose keys have lines of two words, the defaults of what is
    // missing up to the keys' last line are written by the same step: the library alone appends a
    // missing line after the last, whichever it is, and takes a step alone for a scale.
    int Write(std::span<NewEntry const> entries) const;
    // How many lines of scales it adds.
    int MissingScales(std::span<NewEntry const> entries) const;

  private:
    struct Record {
        std::string key;
        std::string value;
    };
    void Locate();
    std::vector<Record> KeyRecords() const;
    std::vector<Record> ScaleRecords() const;
    int WriteKeys(std::span<NewEntry const> entries) const;
    int ScaleLineOf(std::string const& key) const;
    std::vector<int> ScaleLinesOf(std::span<NewEntry const> entries) const;
    std::string WithScales(std::span<NewEntry const> entries) const;
    Record const* Stored(std::string const& key) const;
    kvarn::KeyDefault const* Standard(std::string const& key) const;

    Context* m_context;
    std::string m_name;
    std::string m_path;
    std::string m_content;
    std::span<kvarn::KeyDefault const> m_standard;
    std::vector<Record> m_records; // of each line that is read, in their order
};

// Why there is no CFG file to look into.
std::string NoCfg();
// Why a key has no value, and what can be done.
std::string NoValue(SettingsFile const& file, std::string const& key);

// File, key, value and source; the source "default" is a built-in one.
Json ToJson(SettingsFile const& file, Entry const& entry);
std::string Source(Entry const& entry);

} // namespace kvarnio
