#include "registry.h"

#include <cstddef>
#include <cstring>

#include "../host/calls.h"

namespace {

constexpr DWORD longestText = 255; // bytes, with the zero
constexpr DWORD noOptions = 0;

// A key that is open for one operation, closed with its scope.
class OpenKey {
  public:
    OpenKey(HKEY parent, CString const& path, REGSAM access)
        : m_result(RegOpenKeyExA(parent, path.GetString(), noOptions, access, &m_key)) {}
    ~OpenKey() {
        if (m_key != nullptr) {
            RegCloseKey(m_key);
        }
    }
    OpenKey(OpenKey const&) = delete;
    OpenKey& operator=(OpenKey const&) = delete;

    // Opens the key; makes it, with those above it, if it is missing.
    static OpenKey Made(HKEY root, CString const& path, REGSAM access) {
        HKEY key = nullptr;
        LSTATUS const made =
            RegCreateKeyExA(root, path.GetString(), 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                            nullptr, &key, nullptr);
        return {key, made};
    }

    LSTATUS Result() const { return m_result; }
    bool IsOpen() const { return m_result == ERROR_SUCCESS; }
    HKEY Get() const { return m_key; }

    LSTATUS Query(CString const& name, DWORD* type, void* data, DWORD* size) const {
        return IsOpen() ? RegQueryValueExA(m_key, name.GetString(), nullptr, type,
                                           static_cast<BYTE*>(data), size)
                        : m_result;
    }

  private:
    OpenKey(HKEY key, LSTATUS result) : m_key(key), m_result(result) {}

    HKEY m_key = nullptr;
    LSTATUS m_result;
};

// A value's bytes as a text; the text stays on failure. Stored texts may lack the zero at their end
// (RegQueryValueEx in the Windows documentation), so the buffer has room for one more.
LSTATUS QueryText(OpenKey const& key, CString const& name, CString& text) {
    char bytes[longestText + 1] = "";
    DWORD size = longestText;
    LSTATUS const read = key.Query(name, nullptr, bytes, &size);
    if (read == ERROR_SUCCESS) {
        text = bytes;
    }
    return read;
}

// The memory of a COleDateTime, as it has always been stored: the padding is written too.
struct DateTimeImage {
    double date;
    std::int32_t status;
    std::int32_t padding;
};
static_assert(sizeof(DateTimeImage) == 16 && sizeof(LOGFONTA) == 60);

} // namespace

CRegistry::CRegistry() : m_root(HKEY_CURRENT_USER) {}

CRegistry::CRegistry(CRegistry const&) = default;

CRegistry& CRegistry::operator=(CRegistry const&) = default;

CRegistry::~CRegistry() {
    ClearKey();
}

int CRegistry::SetRootKey(HKEY root) {
    if (root != HKEY_CLASSES_ROOT && root != HKEY_CURRENT_USER && root != HKEY_LOCAL_MACHINE &&
        root != HKEY_USERS) {
        return 0;
    }
    m_root = root;
    return 1;
}

HKEY CRegistry::GetRootKey() {
    return m_root;
}

void CRegistry::Flush(HKEY key) {
    if (m_deferFlush == 0) {
        RegFlushKey(key);
    }
}

int CRegistry::SetKey(CString path, int create, REGSAM access) {
    if (path.IsEmpty()) {
        m_path = "";
        return 1;
    }
    if (create != 0) {
        return MakeKey(path, access);
    }
    OpenKey const key(m_root, path, access);
    m_lastError = key.Result();
    if (!key.IsOpen()) {
        return 0;
    }
    Flush(key.Get());
    m_path = path;
    return 1;
}

int CRegistry::MakeKey(CString const& path, REGSAM access) {
    OpenKey const key = OpenKey::Made(m_root, path, access);
    if (!key.IsOpen()) {
        return 0;
    }
    Flush(key.Get());
    m_path = path;
    return 1;
}

int CRegistry::CreateKey(CString path) {
    return MakeKey(path, KEY_ALL_ACCESS);
}

int CRegistry::DeleteKey(CString path) {
    return KeyExists(path) == 0 || RegDeleteKeyA(m_root, path.GetString()) == ERROR_SUCCESS ? 1 : 0;
}

int CRegistry::KeyExists(CString path, HKEY parent) {
    return OpenKey(parent != nullptr ? parent : m_root, path, KEY_ALL_ACCESS).IsOpen() ? 1 : 0;
}

int CRegistry::PathIsValid() {
    return m_path.IsEmpty() ? 0 : 1;
}

CString CRegistry::GetCurrentPath() {
    return m_path;
}

int CRegistry::ClearKey() {
    m_path = "";
    m_root = HKEY_CURRENT_USER;
    m_deferFlush = 1;
    return 1;
}

int CRegistry::ValueExists(CString name) {
    OpenKey const key(m_root, m_path, KEY_ALL_ACCESS);
    return key.Query(name, nullptr, nullptr, nullptr) == ERROR_SUCCESS ? 1 : 0;
}

int CRegistry::DeleteValue(CString name) {
    OpenKey const key(m_root, m_path, KEY_SET_VALUE);
    return key.IsOpen() && RegDeleteValueA(key.Get(), name.GetString()) == ERROR_SUCCESS ? 1 : 0;
}

int CRegistry::GetDataSize(CString name) {
    OpenKey const key(m_root, m_path, KEY_QUERY_VALUE);
    DWORD size = 0;
    bool const found = key.Query(name, nullptr, nullptr, &size) == ERROR_SUCCESS;
    return found ? static_cast<int>(size) : -1;
}

DWORD CRegistry::GetDataType(CString name) {
    OpenKey const key(m_root, m_path, KEY_QUERY_VALUE);
    DWORD type = 0;
    m_lastError = key.Query(name, &type, nullptr, nullptr);
    return m_lastError == ERROR_SUCCESS ? type : 0;
}

int CRegistry::Count(bool values) {
    OpenKey const key(m_root, m_path, KEY_ALL_ACCESS);
    char keyClass[256];
    DWORD classSize = sizeof keyClass - 1;
    DWORD keyCount = 0;
    DWORD valueCount = 0;
    bool const known =
        key.IsOpen() &&
        RegQueryInfoKeyA(key.Get(), keyClass, &classSize, nullptr, &keyCount, nullptr, nullptr,
                         &valueCount, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    return known ? static_cast<int>(values ? valueCount : keyCount) : -1;
}

int CRegistry::GetSubKeyCount() {
    return Count(false);
}

int CRegistry::GetValueCount() {
    return Count(true);
}

void CRegistry::RenameValue(CString, CString) {}

CString CRegistry::ReadString(CString name, CString standard) {
    DWORD const type = GetDataType(name);
    if (type == REG_SZ || type == REG_EXPAND_SZ) {
        m_lastError = QueryText(OpenKey(m_root, m_path, KEY_READ), name, standard);
    }
    return standard;
}

CString CRegistry::ReadStringKey3264(CString path, CString name, CString standard) {
    OpenKey const own(m_root, path, KEY_READ);
    m_lastError =
        own.IsOpen() ? QueryText(own, name, standard)
                     : QueryText(OpenKey(m_root, path, KEY_READ | KEY_WOW64_64KEY), name, standard);
    return standard;
}

// Reads up to `size` bytes; a shorter value leaves the rest of the data as it was.
bool CRegistry::Read(CString const& name, void* data, DWORD size) {
    return OpenKey(m_root, m_path, KEY_READ).Query(name, nullptr, data, &size) == ERROR_SUCCESS;
}

int CRegistry::ReadInt(CString name, int standard) {
    std::int32_t value = 0;
    return Read(name, &value, sizeof value) ? value : standard;
}

BOOL CRegistry::ReadBool(CString name, BOOL standard) {
    return ReadInt(name, standard);
}

COLORREF CRegistry::ReadColor(CString name, COLORREF standard) {
    return ReadDword(name, standard);
}

DWORD CRegistry::ReadDword(CString name, DWORD standard) {
    return static_cast<DWORD>(ReadInt(name, static_cast<int>(standard)));
}

double CRegistry::ReadFloat(CString name, double standard) {
    double value = 0;
    return Read(name, &value, sizeof value) ? value : standard;
}

COleDateTime CRegistry::ReadDateTime(CString name, COleDateTime standard) {
    DateTimeImage image{};
    if (!Read(name, &image, sizeof image)) {
        return standard;
    }
    COleDateTime value;
    value.m_dt = image.date;
    value.m_status = static_cast<COleDateTime::DateTimeStatus>(image.status);
    return value;
}

int CRegistry::ReadSize(CString name, CSize* size) {
    return Read(name, static_cast<SIZE*>(size), sizeof(SIZE)) ? 1 : 0;
}

int CRegistry::ReadPoint(CString name, CPoint* point) {
    return Read(name, static_cast<POINT*>(point), sizeof(POINT)) ? 1 : 0;
}

int CRegistry::ReadRect(CString name, CRect* rect) {
    return Read(name, static_cast<RECT*>(rect), sizeof(RECT)) ? 1 : 0;
}

int CRegistry::ReadFont(CString name, CFont* font) {
    LOGFONTA description{};
    if (!Read(name, &description, sizeof description)) {
        return 0;
    }
    HFONT const made = CreateFontIndirectA(&description);
    if (made == nullptr) {
        return 0;
    }
    font->Detach();
    font->Attach(made);
    return 1;
}

int CRegistry::Write(CString const& name, DWORD type, void const* data, DWORD size) {
    OpenKey const key(m_root, m_path, KEY_WRITE);
    if (!key.IsOpen() || RegSetValueExA(key.Get(), name.GetString(), 0, type,
                                        static_cast<BYTE const*>(data), size) != ERROR_SUCCESS) {
        return 0;
    }
    Flush(key.Get());
    return 1;
}

int CRegistry::WriteString(CString name, CString value) {
    auto const length = static_cast<DWORD>(value.GetLength());
    return length < longestText ? Write(name, REG_SZ, value.GetString(), length + 1) : 0;
}

int CRegistry::WriteInt(CString name, int value) {
    return Write(name, REG_BINARY, &value, sizeof value);
}

int CRegistry::WriteBool(CString name, BOOL value) {
    return WriteInt(name, value);
}

int CRegistry::WriteColor(CString name, COLORREF value) {
    return WriteDword(name, value);
}

int CRegistry::WriteDword(CString name, DWORD value) {
    return WriteInt(name, static_cast<int>(value));
}

int CRegistry::WriteFloat(CString name, double value) {
    return Write(name, REG_BINARY, &value, sizeof value);
}

int CRegistry::WriteDateTime(CString name, COleDateTime value) {
    DateTimeImage const image = {value.m_dt, value.m_status, 0};
    return Write(name, REG_BINARY, &image, sizeof image);
}

int CRegistry::WriteSize(CString name, CSize* size) {
    return Write(name, REG_BINARY, static_cast<SIZE*>(size), sizeof(SIZE));
}

int CRegistry::WritePoint(CString name, CPoint* point) {
    return Write(name, REG_BINARY, static_cast<POINT*>(point), sizeof(POINT));
}

int CRegistry::WriteRect(CString name, CRect* rect) {
    return Write(name, REG_BINARY, static_cast<RECT*>(rect), sizeof(RECT));
}

int CRegistry::WriteFont(CString name, CFont* font) {
    LOGFONTA description{};
    GetObjectA(font->GetSafeHandle(), sizeof description, &description);
    return Write(name, REG_BINARY, &description, sizeof description);
}
