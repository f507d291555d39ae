// Settings in the Windows registry, and how they are stored there.
#pragma once

#include <cstdint>

#include "../export.h"
#include "../host/host.h"

// A root key and the path of a key below it. Every read and write opens the key, does one thing and
// closes it: no key stays open between calls.
//
// Results are 1 for success and 0 for failure where nothing else is said. A missing key, a missing
// value, access that is refused and data that is too long fail alike; nothing is shown or thrown.
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

    // HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE or HKEY_USERS; any other is refused
    // with 0, and the root key stays.
    int SetRootKey(HKEY root);
    HKEY GetRootKey();

    // Chooses the path, without a leading backslash; with create not 0 the key is made where it is
    // missing. The key is opened once with the access mask, such as KEY_READ; when that fails the
    // path stays as it was. An empty path is always taken: values are then those of the root key.
    int SetKey(CString path, int create, REGSAM access);
    // Makes the key, with those above it, and chooses it.
    int CreateKey(CString path);
    // Deletes a key that has none below it. 1 also for a key that is missing, or that cannot be
    // opened for full access. The path that is chosen stays.
    int DeleteKey(CString path);
    // Whether the key below the parent (null: below the root key) can be opened for full access: a
    // restricted user gets 0 for keys of the machine that are there.
    int KeyExists(CString path, HKEY parent = nullptr);
    int PathIsValid(); // 1 when a path is chosen
    CString GetCurrentPath();
    // As after construction. Returns 1.
    int ClearKey();

    // Opens the key for full access, as do the two counts.
    int ValueExists(CString name);
    int DeleteValue(CString name);
    // In bytes; -1 when there is none.
    int GetDataSize(CString name);
    // A type such as REG_SZ; 0 when there is no value.
    DWORD GetDataType(CString name);
    // -1 on failure.
    int GetSubKeyCount();
    int GetValueCount();
    // Does nothing, and never has: both values keep their names.
    void RenameValue(CString from, CString to);

    // A text of at most 254 characters, REG_EXPAND_SZ not expanded; the default for other types.
    CString ReadString(CString name, CString standard);
    // The same of an explicit path below the root key, also in the registry's 64-bit view, whatever
    // the value's type. The path that is chosen stays.
    CString ReadStringKey3264(CString path, CString name, CString standard);
    int ReadInt(CString name, int standard);
    BOOL ReadBool(CString name, BOOL standard);
    COLORREF ReadColor(CString name, COLORREF standard);
    DWORD ReadDword(CString name, DWORD standard);
    double ReadFloat(CString name, double standard);
    COleDateTime ReadDateTime(CString name, COleDateTime standard);
    // Into the caller's object, which is not to be relied on after 0.
    int ReadSize(CString name, CSize* size);
    int ReadPoint(CString name, CPoint* point);
    int ReadRect(CString name, CRect* rect);
    // The object gets a new font; the one that it held is detached and not deleted. After 0 the
    // object is as it was.
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
    int MakeKey(CString const& path, REGSAM access);
    void Flush(HKEY key);
    int Count(bool values);
    bool Read(CString const& name, void* data, DWORD size);
    int Write(CString const& name, DWORD type, void const* data, DWORD size);

    std::int32_t m_lastError = 0; // result of the last call that keeps it
    HKEY m_root;
    std::int32_t m_deferFlush = 1; // 0: flush after every change
    CString m_path;
};
