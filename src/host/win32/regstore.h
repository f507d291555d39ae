// The registry's content as text, for hosts that are not Windows: the export form of the Windows
// registry editor, version 5, which it can import.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "../../compat/win32/types.h"

namespace kvarn {

struct RegValue {
    std::u16string name; // empty: the key's default value
    DWORD type = 0;
    std::string data; // texts are UTF-16, as stored by Windows
    std::u16string comment;
};

class RegKey {
  public:
    RegValue const* Find(std::u16string_view name) const;
    // The value; made after the others if it is missing.
    RegValue& Make(std::u16string_view name);
    void Delete(std::u16string_view name);
    // Numbered in the order in which they were made.
    std::map<std::size_t, RegValue> const& Values() const { return m_values; }

    std::u16string path; // with the root's full name
    std::u16string comment;

  private:
    std::map<std::size_t, RegValue> m_values;
    std::map<std::u16string, std::size_t> m_numbers; // by the names in capitals
};

// Names of keys and values are compared without regard to case, for the letters of code page 1252.
class RegStore {
  public:
    RegStore() = default;
    // Reads UTF-16 with its mark, UTF-8, or code page 1252. Skips a line that it does not
    // understand.
    explicit RegStore(std::string_view bytes);

    // The lines that were not understood, counted from 1: writing the store would lose them.
    std::vector<std::size_t> const& BadLines() const { return m_badLines; }
    bool Whole() const { return m_badLines.empty(); }
    // UTF-16 with its mark; lines end in CR LF. Comments (lines that begin with a semicolon) stay
    // before the key or value that followed them.
    std::string Bytes() const;

    RegKey const* Find(std::u16string_view path) const;
    // The key; made with those above it if it is missing.
    RegKey& Make(std::u16string_view path);
    void Delete(std::u16string_view path);
    std::size_t CountKeysBelow(std::u16string_view path) const;

  private:
    void Read(std::u16string_view text);
    bool ReadKeyLine(std::u16string_view line);
    bool ReadValueLine(std::u16string_view line);

    std::map<std::u16string, RegKey> m_keys; // by their paths in capitals
    std::vector<std::size_t> m_badLines;
    RegKey* m_current = nullptr; // while reading
    std::u16string m_comment;    // before the next key or value; after reading, the file's last
};

} // namespace kvarn
