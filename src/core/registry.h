// Settings in the Windows registry, and how they are stored there.
#pragma once

#include <cstdint>

#include "../export.h"
#include "../host/host.h"

namespace kvarn {
struct RegistryResult; // tells the library whether a value is missing or could not be read
}

// A root key and the path of a key below it. Every read and write opens the key, does one thing and
// closes it: no key stays open between calls.
//
// Results are 1 for success and 0 for failure unless the operation says otherwise. A missing key, a
// missing value, refused access and data that is too long fail alike; nothing is shown or thrown.
//
// Values are stored as follows, the least significant byte first:
//
//     String                    REG_SZ      text in code page 1252 and its zero
//     Int, Dword, Bool, Color   REG_BINARY   4 bytes: the number (a colour as 0x00bbggrr)
//     Float                     REG_BINARY   8 bytes: a double
//     Size, Point               REG_BINARY   8 bytes: cx and cy, x and y
//     Rect                      REG_BINARY  16 bytes: left, top, right, bottom
//     DateTime                  REG_BINARY  16 bytes: days since 30 December 1899 as a double, the
//                                           status, 4 bytes of zeros
//     Font                      REG_BINARY  60 bytes: a LOGFONTA
//
// The readers of numbers do not look at the type: a REG_DWORD is read as well. Data that is shorter
// than the value fills its first bytes.
//
// On hosts other than Windows the registry is a text file in the registry editor's export form:
// $KVARNPROG_REGISTRY, by default kvarnprog/registry.reg in the user's configuration folder.
class KVARNPROG_API CRegistry {
  public:
    // HKEY_CURRENT_USER and no path.
    CRegistry();
    // A copy of the chosen root key and path.
    CRegistry(CRegistry const&);
    // Becomes such a copy.
    CRegistry& operator=(CRegistry const&);
    ~CRegistry();

    // Takes HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE and HKEY_USERS; returns 0 for
    // any other key, and the root key stays.
    int SetRootKey(HKEY root);
    // The root key that was last taken.
    HKEY GetRootKey();

    // Chooses the path, without a leading backslash. The key is opened once with the access mask,
    // such as KEY_READ, and made first if it is missing and create is not 0; when that fails the
    // path stays as it was. An empty path is always accepted: values are then those of the root
    // key.
    int SetKey(CString path, int create, REGSAM access);
    // Makes the key, with those above it, and chooses it.
    int CreateKey(CString path);
    // Deletes a key without keys below it. Returns 1 also for a key that is missing or cannot be
    // opened for full access. The chosen path stays.
    int DeleteKey(CString path);
    // Whether the key below the parent (null: below the root key) can be opened for full access. A
    // restricted user gets 0 for the machine's keys even when they exist.
    int KeyExists(CString path, HKEY parent = nullptr);
    // 1 when a path is chosen, else 0.
    int PathIsValid();
    // The chosen path; empty without one.
    CString GetCurrentPath();
    // Restores the state after construction. Returns 1.
    int ClearKey();

    // Whether the chosen key, which is opened for full access, has the value.
    int ValueExists(CString name);
    // Deletes a value. 0 when it is missing.
    int DeleteValue(CString name);
    // In bytes; -1 when the value is missing.
    int GetDataSize(CString name);
    // A type such as REG_SZ; 0 when the value is missing.
    DWORD GetDataType(CString name);
    // How many keys are directly below the chosen one, which is opened for full access; -1 on
    // failure.
    int GetSubKeyCount();
    // How many values the chosen key has, in the same way.
    int GetValueCount();
    // Known quirk, kept on purpose: does nothing.
    void RenameValue(CString from, CString to);

    // A text of at most 254 characters, and the default (standard, here and below) on failure and
    // for other types. REG_EXPAND_SZ is not expanded.
    CString ReadString(CString name, CString standard);
    // Reads from an explicit path below the root key, and from the registry's 64-bit view when the
    // program's own view has no such key. Any type of value is read. The chosen path stays.
    CString ReadStringKey3264(CString path, CString name, CString standard);
    // A whole number.
    int ReadInt(CString name, int standard);
    // A truth value: the number that is stored.
    BOOL ReadBool(CString name, BOOL standard);
    // A colour.
    COLORREF ReadColor(CString name, COLORREF standard);
    // A number without a sign.
    DWORD ReadDword(CString name, DWORD standard);
    // A number with decimals.
    double ReadFloat(CString name, double standard);
    // A point in time, with its status.
    COleDateTime ReadDateTime(CString name, COleDateTime standard);
    // Fills the caller's object; after 0 its content is undefined. So do the two below.
    int ReadSize(CString name, CSize* size);
    // As ReadSize.
    int ReadPoint(CString name, CPoint* point);
    // As ReadSize.
    int ReadRect(CString name, CRect* rect);
    // Gives the object a new font; the old one is detached and not deleted. After 0 the object is
    // unchanged.
    int ReadFont(CString name, CFont* font);

    // Writes a text. 0, and nothing is written, for one of 255 characters or more. A value of that
    // name is replaced whatever its type was, here and below.
    int WriteString(CString name, CString value);
    // Writes a whole number.
    int WriteInt(CString name, int value);
    // Writes a truth value, as the number that it is.
    int WriteBool(CString name, BOOL value);
    // Writes a colour.
    int WriteColor(CString name, COLORREF value);
    // Writes a number without a sign.
    int WriteDword(CString name, DWORD value);
    // Writes a number with decimals.
    int WriteFloat(CString name, double value);
    // Writes a point in time with its status.
    int WriteDateTime(CString name, COleDateTime value);
    // Writes a size, which is not null.
    int WriteSize(CString name, CSize* size);
    // Writes a point, which is not null.
    int WritePoint(CString name, CPoint* point);
    // Writes a rectangle, which is not null.
    int WriteRect(CString name, CRect* rect);
    // Writes the description of a font: zeros for an object without one.
    int WriteFont(CString name, CFont* font);

  private:
    friend struct kvarn::RegistryResult;

    int MakeKey(CString const& path, REGSAM access);
    void Flush(HKEY key);
    int Count(bool values);
    bool Read(CString const& name, void* data, DWORD size);
    int Write(CString const& name, DWORD type, void const* data, DWORD size);

    std::int32_t m_lastError = 0; // result of the last call that keeps it
    HKEY m_root;
    // 0: flush after every change. Known quirk, kept on purpose: no operation sets it, so Windows
    // writes to the disk in its own time. Clients' objects have room for it.
    std::int32_t m_deferFlush = 1;
    CString m_path;
};
