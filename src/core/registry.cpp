#include "registry.h"

#include <cstddef>
#include <cstring>

namespace {

constexpr DWORD longestText = 255; // bytes, with the zero
constexpr DWORD noOptions = 0;

BYTE const* Bytes(void const* data) {
    return static_cast<BYTE const*>(data);
}

// A value's bytes as a text, whether they end in a zero or not; the text stays on failure.
LSTATUS QueryText(HKEY key, CString const& name, CString& text) {
    char bytes[longestText + 1] = "";
    DWORD size = longestText;
    LSTATUS const read = RegQueryValueExA(key, name.GetString(), nullptr, nullptr,
                                          reinterpret_cast<BYTE*>(bytes), &size);
    if (read == ERROR_SUCCESS) {
        text = bytes;
    }
    return read;
}

// The memory of a date and time: an 8-byte double, a 32-bit status, padding.
struct DateTimeImage {
    double date;
    std::int32_t status;
    std::int32_t padding;
};
static_assert(sizeof(DateTimeImage) == 16 && sizeof(LOGFONTA) == 60);

} // namespace

CRegistry::CRegistry() : m_rot(HKEY_CURRENT_USER) {}

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
    m_rot = root;
    return 1;
}

HKEY CRegistry::GetRootKey() {
    return m_rot;
}

LSTATUS CRegistry::Open(CString const& path, REGSAM access, HKEY* key) {
    return RegOpenKeyExA(m_rot, path.GetString(), noOptions, access, key);
}

void CRegistry::Close(HKEY key, bool changed) {
    if (changed && m_senareSkrivning == 0) {
        RegFlushKey(key);
    }
    RegCloseKey(key);
}

int CRegistry::SetKey(CString path, int create, REGSAM access) {
    if (path.IsEmpty()) {
        m_sokvag = "";
        return 1;
    }
    HKEY key = nullptr;
    if (create != 0) {
        if (RegCreateKeyExA(m_rot, path.GetString(), 0, nullptr, REG_OPTION_NON_VOLATILE, access,
                            nullptr, &key, nullptr) != ERROR_SUCCESS) {
            return 0;
        }
    } else {
        m_sistaFel = Open(path, access, &key);
        if (m_sistaFel != ERROR_SUCCESS) {
            return 0;
        }
    }
    m_sokvag = path;
    Close(key, true);
    return 1;
}

int CRegistry::CreateKey(CString path) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(m_rot, path.GetString(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &key, nullptr) != ERROR_SUCCESS) {
        return 0;
    }
    Close(key, true);
    m_sokvag = path;
    return 1;
}

int CRegistry::DeleteKey(CString path) {
    return KeyExists(path) == 0 || RegDeleteKeyA(m_rot, path.GetString()) == ERROR_SUCCESS ? 1 : 0;
}

int CRegistry::KeyExists(CString path, HKEY parent) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(parent != nullptr ? parent : m_rot, path.GetString(), noOptions,
                      KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) {
        return 0;
    }
    RegCloseKey(key);
    return 1;
}

int CRegistry::PathIsValid() {
    return m_sokvag.IsEmpty() ? 0 : 1;
}

CString CRegistry::GetCurrentPath() {
    return m_sokvag;
}

int CRegistry::ClearKey() {
    m_sokvag = "";
    m_rot = HKEY_CURRENT_USER;
    m_senareSkrivning = 1;
    return 1;
}

int CRegistry::ValueExists(CString name) {
    HKEY key = nullptr;
    if (Open(m_sokvag, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) {
        return 0;
    }
    LSTATUS const found =
        RegQueryValueExA(key, name.GetString(), nullptr, nullptr, nullptr, nullptr);
    Close(key, false);
    return found == ERROR_SUCCESS ? 1 : 0;
}

int CRegistry::DeleteValue(CString name) {
    HKEY key = nullptr;
    if (Open(m_sokvag, KEY_SET_VALUE, &key) != ERROR_SUCCESS) {
        return 0;
    }
    LSTATUS const deleted = RegDeleteValueA(key, name.GetString());
    Close(key, false);
    return deleted == ERROR_SUCCESS ? 1 : 0;
}

int CRegistry::GetDataSize(CString name) {
    HKEY key = nullptr;
    if (Open(m_sokvag, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
        return -1;
    }
    DWORD size = 0;
    LSTATUS const found = RegQueryValueExA(key, name.GetString(), nullptr, nullptr, nullptr, &size);
    Close(key, false);
    return found == ERROR_SUCCESS ? static_cast<int>(size) : -1;
}

DWORD CRegistry::GetDataType(CString name) {
    HKEY key = nullptr;
    m_sistaFel = Open(m_sokvag, KEY_QUERY_VALUE, &key);
    if (m_sistaFel != ERROR_SUCCESS) {
        return 0;
    }
    DWORD type = 0;
    m_sistaFel = RegQueryValueExA(key, name.GetString(), nullptr, &type, nullptr, nullptr);
    Close(key, false);
    return m_sistaFel == ERROR_SUCCESS ? type : 0;
}

int CRegistry::Count(bool values) {
    HKEY key = nullptr;
    if (Open(m_sokvag, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) {
        return -1;
    }
    char keyClass[256];
    DWORD classSize = sizeof keyClass - 1;
    DWORD keyCount = 0;
    DWORD valueCount = 0;
    LSTATUS const known =
        RegQueryInfoKeyA(key, keyClass, &classSize, nullptr, &keyCount, nullptr, nullptr,
                         &valueCount, nullptr, nullptr, nullptr, nullptr);
    Close(key, false);
    return known == ERROR_SUCCESS ? static_cast<int>(values ? valueCount : keyCount) : -1;
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
    if (type != REG_SZ && type != REG_EXPAND_SZ) {
        return standard;
    }
    HKEY key = nullptr;
    m_sistaFel = Open(m_sokvag, KEY_READ, &key);
    if (m_sistaFel != ERROR_SUCCESS) {
        return standard;
    }
    m_sistaFel = QueryText(key, name, standard);
    Close(key, false);
    return standard;
}

CString CRegistry::ReadStringKey3264(CString path, CString name, CString standard) {
    HKEY key = nullptr;
    m_sistaFel = Open(path, KEY_READ, &key);
    if (m_sistaFel != ERROR_SUCCESS) {
        m_sistaFel = Open(path, KEY_READ | KEY_WOW64_64KEY, &key);
    }
    if (m_sistaFel != ERROR_SUCCESS) {
        return standard;
    }
    m_sistaFel = QueryText(key, name, standard);
    Close(key, false);
    return standard;
}

// Up to `size` bytes; what lies beyond the value's own stays as it was.
bool CRegistry::Read(CString const& name, void* data, DWORD size) {
    HKEY key = nullptr;
    if (Open(m_sokvag, KEY_READ, &key) != ERROR_SUCCESS) {
        return false;
    }
    LSTATUS const read =
        RegQueryValueExA(key, name.GetString(), nullptr, nullptr, static_cast<BYTE*>(data), &size);
    Close(key, false);
    return read == ERROR_SUCCESS;
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
    HKEY key = nullptr;
    if (Open(m_sokvag, KEY_WRITE, &key) != ERROR_SUCCESS) {
        return 0;
    }
    LSTATUS const written = RegSetValueExA(key, name.GetString(), 0, type, Bytes(data), size);
    Close(key, written == ERROR_SUCCESS);
    return written == ERROR_SUCCESS ? 1 : 0;
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
