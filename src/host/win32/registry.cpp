#include "registry.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "../../compat/win32/files.h"
#include "../../text/utf16.h"
#include "regfile.h"
#include "regstore.h"

struct HKEY__ {
    std::u16string path;
};

namespace {

char16_t const* RootName(HKEY key) {
    return key == HKEY_CLASSES_ROOT     ? u"HKEY_CLASSES_ROOT"
           : key == HKEY_CURRENT_USER   ? u"HKEY_CURRENT_USER"
           : key == HKEY_LOCAL_MACHINE  ? u"HKEY_LOCAL_MACHINE"
           : key == HKEY_USERS          ? u"HKEY_USERS"
           : key == HKEY_CURRENT_CONFIG ? u"HKEY_CURRENT_CONFIG"
                                        : nullptr;
}

std::u16string PathOf(HKEY key) {
    char16_t const* const root = RootName(key);
    return root != nullptr ? root : key->path;
}

std::u16string PathOf(HKEY parent, LPCSTR path) {
    std::u16string below = kvarn::ToUtf16(path != nullptr ? path : "");
    while (below.ends_with(u'\\')) {
        below.pop_back();
    }
    return below.empty() ? PathOf(parent) : PathOf(parent) + u'\\' + below;
}

bool HasTooLongName(std::u16string_view path) {
    constexpr std::size_t longest = 255; // "Registry element size limits", Windows documentation
    while (path.size() > longest) {
        std::size_t const end = path.find(u'\\');
        if (std::min(end, path.size()) > longest) {
            return true;
        }
        path.remove_prefix(end + 1);
    }
    return false;
}

bool Exists(kvarn::RegStore const& store, std::u16string const& path) {
    bool const isRoot = path.find(u'\\') == std::u16string::npos; // roots are always there
    return isRoot || store.Find(path) != nullptr;
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

std::u16string ValueName(LPCSTR name) {
    return kvarn::ToUtf16(name != nullptr ? name : "");
}

kvarn::RegValue const* FindValue(kvarn::RegStore const& store, HKEY key, LPCSTR name) {
    kvarn::RegKey const* const found = store.Find(PathOf(key));
    return found != nullptr ? found->Find(ValueName(name)) : nullptr;
}

void Give(DWORD* out, std::size_t value) {
    if (out != nullptr) {
        *out = static_cast<DWORD>(value);
    }
}

} // namespace

LSTATUS RegOpenKeyExA(HKEY parent, LPCSTR path, DWORD, REGSAM, HKEY* key) {
    std::u16string const full = PathOf(parent, path);
    if (HasTooLongName(full)) {
        return ERROR_INVALID_PARAMETER;
    }
    return kvarn::ReadStore([&](kvarn::RegStore const& store) {
        if (!Exists(store, full)) {
            return static_cast<LSTATUS>(ERROR_FILE_NOT_FOUND);
        }
        *key = new HKEY__{full};
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegCreateKeyExA(HKEY parent, LPCSTR path, DWORD, LPSTR, DWORD, REGSAM,
                        SECURITY_ATTRIBUTES const*, HKEY* key, DWORD*) {
    constexpr DWORD noOptions = 0;
    LSTATUS const opened = RegOpenKeyExA(parent, path, noOptions, KEY_ALL_ACCESS, key);
    if (opened != ERROR_FILE_NOT_FOUND) {
        return opened;
    }
    std::u16string const full = PathOf(parent, path);
    LSTATUS const made = kvarn::ChangeStore([&](kvarn::RegStore& store) {
        store.Make(full);
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
    if (made == ERROR_SUCCESS) {
        *key = new HKEY__{full};
    }
    return made;
}

LSTATUS RegCloseKey(HKEY key) {
    if (RootName(key) == nullptr) {
        delete key;
    }
    return ERROR_SUCCESS;
}

LSTATUS RegFlushKey(HKEY) {
    return ERROR_SUCCESS; // every change is on the disk when its call returns
}

LSTATUS RegDeleteKeyA(HKEY parent, LPCSTR path) {
    std::u16string const full = PathOf(parent, path);
    return kvarn::ChangeStore([&](kvarn::RegStore& store) {
        bool const isRoot = full.find(u'\\') == std::u16string::npos;
        if (isRoot || store.Find(full) == nullptr) {
            return static_cast<LSTATUS>(ERROR_FILE_NOT_FOUND);
        }
        if (store.CountKeysBelow(full) > 0) {
            return static_cast<LSTATUS>(ERROR_ACCESS_DENIED);
        }
        store.Delete(full);
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegQueryInfoKeyA(HKEY key, LPSTR keyClass, DWORD* classSize, DWORD*, DWORD* keys, DWORD*,
                         DWORD*, DWORD* values, DWORD*, DWORD*, DWORD*, FILETIME*) {
    if (keyClass != nullptr) {
        *keyClass = '\0';
    }
    Give(classSize, 0);
    return kvarn::ReadStore([&](kvarn::RegStore const& store) {
        kvarn::RegKey const* const found = store.Find(PathOf(key));
        Give(keys, store.CountKeysBelow(PathOf(key)));
        Give(values, found != nullptr ? found->Values().size() : 0);
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, DWORD* nameSize, DWORD*, DWORD*,
                      std::uint8_t*, DWORD*) {
    return kvarn::ReadStore([&](kvarn::RegStore const& store) {
        kvarn::RegKey const* const found = store.Find(PathOf(key));
        if (found == nullptr || index >= found->Values().size()) {
            return static_cast<LSTATUS>(ERROR_NO_MORE_ITEMS);
        }
        std::string const text =
            kvarn::FromUtf16(std::next(found->Values().begin(), index)->second.name);
        if (text.size() >= *nameSize) {
            return ERROR_MORE_DATA;
        }
        *std::copy(text.begin(), text.end(), name) = '\0';
        *nameSize = static_cast<DWORD>(text.size());
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, DWORD*, DWORD* type, std::uint8_t* data,
                         DWORD* size) {
    return kvarn::ReadStore([&](kvarn::RegStore const& store) {
        kvarn::RegValue const* const value = FindValue(store, key, name);
        if (value == nullptr) {
            return static_cast<LSTATUS>(ERROR_FILE_NOT_FOUND);
        }
        std::string const bytes =
            IsText(value->type) ? kvarn::FromUtf16(kvarn::FromBytes(value->data)) : value->data;
        Give(type, value->type);
        std::size_t const room = size != nullptr ? *size : 0;
        Give(size, bytes.size());
        if (data == nullptr) {
            return static_cast<LSTATUS>(ERROR_SUCCESS);
        }
        if (bytes.size() > room) {
            return ERROR_MORE_DATA;
        }
        std::copy(bytes.begin(), bytes.end(), data);
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegSetValueExA(HKEY key, LPCSTR name, DWORD, DWORD type, std::uint8_t const* data,
                       DWORD size) {
    return kvarn::ChangeStore([&](kvarn::RegStore& store) {
        std::string const bytes(data, data + size);
        kvarn::RegValue& value = store.Make(PathOf(key)).Make(ValueName(name));
        value.type = type;
        value.data = IsText(type) ? kvarn::ToBytes(kvarn::ToUtf16(bytes)) : bytes;
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegDeleteValueA(HKEY key, LPCSTR name) {
    return kvarn::ChangeStore([&](kvarn::RegStore& store) {
        if (FindValue(store, key, name) == nullptr) {
            return static_cast<LSTATUS>(ERROR_FILE_NOT_FOUND);
        }
        store.Make(PathOf(key)).Delete(ValueName(name));
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}
