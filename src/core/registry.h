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
    CRegistry(CRegistry const&);
    CRegistry& operator=(CRegistry const&);
    ~CRegistry();

    // Takes HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE and HKEY_USERS; returns 0 for
    // any other key, and the root key stays.
    int SetRootKey(HKEY root);
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
    int PathIsValid(); // 1 when a path is chosen
    CString GetCurrentPath();
    // Restores the state after construction. Returns 1.
    int ClearKey();

    // Opens the key for full access, as do the two counts.
    int ValueExists(CString name);
    int DeleteValue(CString name);
    // In bytes; -1 when the value is missing.
    int GetDataSize(CString name);
    // A type such as REG_SZ; 0 when the value is missing.
    DWORD GetDataType(CString name);
    // -1 on failure.
    int GetSubKeyCount();
    int GetValueCount();
    // Known quirk, kept on purpose: does nothing.
    void RenameValue(CString from, CString to);

    // A text of at most 254 characters, and the default for other types. REG_EXPAND_SZ is not
    // expanded.
    CString ReadString(CString name, CString standard);
    // Reads from an explicit path below the root key, and from the registry's 64-bit view when the
    // program's own view has no such key. Any type of value is read. The chosen path stays.
    CString ReadStringKey3264(CString path, CString name, CString standard);
    int ReadInt(CString name, int standard);
    BOOL ReadBool(CString name, BOOL standard);
    COLORREF ReadColor(CString name, COLORREF standard);
    DWORD ReadDword(CString name, DWORD standard);
    double ReadFloat(CString name, double standard);
    COleDateTime ReadDateTime(CString name, COleDateTime standard);
    // These three fill the caller's object; after 0 its content is undefined.
    int ReadSize(CString name, CSize* size);
    int ReadPoint(CString name, CPoint* point);
    int ReadRect(CString name, CRect* rect);
    // Gives the object a new font; the old one is detached and not deleted. After 0 the object is
    // unchanged.
    int ReadFont(CString name, CFont* font);

    // Texts of 255 characters or more are refused.
    int WriteString(CString name, CString value);
    int WriteInt(CString name, int value);
    int WriteBool(CString name, BOOL value);
    int WriteColor(CString name, COLORREF value);
    int WriteDword(CString name, DWORD value);
    int WriteFloat(CString name, double value);
    int WriteDateTime(CString name, COleDateTime value);
    int WriteSize(CString name, CSize* size);
    int WritePoint(CString name, CPoint* point);
    int WriteRect(CString name, CRect* rect);
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
