#include "registry.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "../../files/filerewrite.h"
#include "../../files/wholefile.h"
#include "../../compat/win32/files.h"
#include "../../compat/win32/paths.h"
#include "../../compat/win32/process.h"
#include "regstore.h"
#include "../../text/utf16.h"

struct HKEY__ {
    std::u16string path;
};

namespace {

constexpr LSTATUS writeFault = 29;   // ERROR_WRITE_FAULT
constexpr LSTATUS invalidName = 123; // ERROR_INVALID_NAME

// The store's file as a path of the library; empty when its name is not in code page 1252.
std::string StorePath() {
    return kvarn::FromHostPath(kvarn::RegistryFile()).value_or("");
}

// Nothing for a file that is there and cannot be read.
std::optional<kvarn::RegStore> Load(std::string const& path) {
    std::optional<std::string> const bytes = kvarn::WholeFile(path.c_str());
    if (bytes) {
        return kvarn::RegStore(*bytes);
    }
    bool const missing =
        GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND;
    return missing ? std::optional(kvarn::RegStore()) : std::nullopt;
}

// One program at a time changes the store: a file beside it, kept open, is the token.
class Turn {
  public:
    explicit Turn(std::string const& path) {
        constexpr int attempts = 250; // five seconds
        constexpr DWORD pause = 20;
        constexpr DWORD alone = FILE_SHARE_READ;
        std::string const token = path + ".lock";
        for (int i = 0; i < attempts; ++i) {
            m_file = CreateFileA(token.c_str(), GENERIC_WRITE, alone, nullptr, OPEN_ALWAYS,
                                 FILE_ATTRIBUTE_NORMAL, nullptr);
            if (m_file != INVALID_HANDLE_VALUE || GetLastError() != ERROR_SHARING_VIOLATION) {
                return;
            }
            Sleep(pause);
        }
    }
    ~Turn() {
        if (m_file != INVALID_HANDLE_VALUE) {
            CloseHandle(m_file);
        }
    }
    Turn(Turn const&) = delete;
    Turn& operator=(Turn const&) = delete;

    bool Taken() const { return m_file != INVALID_HANDLE_VALUE; }

  private:
    HANDLE m_file = INVALID_HANDLE_VALUE;
};

using Change = std::function<LSTATUS(kvarn::RegStore&)>;

LSTATUS ReadStore(Change const& look) {
    std::optional<kvarn::RegStore> store = Load(StorePath());
    return store ? look(*store) : ERROR_BADDB;
}

LSTATUS ChangeStore(Change const& change) {
    std::error_code failed;
    std::filesystem::create_directories(std::filesystem::path(kvarn::RegistryFile()).parent_path(),
                                        failed);
    std::string const path = StorePath();
    if (path.empty()) {
        return writeFault;
    }
    Turn const turn(path);
    std::optional<kvarn::RegStore> store = Load(path);
    if (!turn.Taken() || !store || !store->Whole()) {
        return ERROR_BADDB;
    }
    std::string const before = store->Bytes();
    LSTATUS const result = change(*store);
    std::string const after = store->Bytes();
    if (result != ERROR_SUCCESS || after == before) {
        return result;
    }
    if (!kvarn::RegStore(after).Whole()) { // a name that no line can hold
        return invalidName;
    }
    return kvarn::RewriteFile(path.c_str(), after) == kvarn::Rewritten::done ? ERROR_SUCCESS
                                                                             : writeFault;
}

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

bool Exists(kvarn::RegStore& store, std::u16string const& path) {
    bool const isRoot = path.find(u'\\') == std::u16string::npos; // roots are always there
    return isRoot || store.Find(path) != nullptr;
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

kvarn::RegValue* FindValue(kvarn::RegStore& store, HKEY key, LPCSTR name) {
    kvarn::RegKey* const found = store.Find(PathOf(key));
    return found != nullptr ? found->Find(kvarn::ToUtf16(name != nullptr ? name : "")) : nullptr;
}

void Give(DWORD* out, std::size_t value) {
    if (out != nullptr) {
        *out = static_cast<DWORD>(value);
    }
}

} // namespace

LSTATUS RegOpenKeyExA(HKEY parent, LPCSTR path, DWORD, REGSAM, HKEY* key) {
    std::u16string const full = PathOf(parent, path);
    return ReadStore([&](kvarn::RegStore& store) {
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
    if (RegOpenKeyExA(parent, path, noOptions, KEY_ALL_ACCESS, key) == ERROR_SUCCESS) {
        return ERROR_SUCCESS;
    }
    std::u16string const full = PathOf(parent, path);
    LSTATUS const result = ChangeStore([&](kvarn::RegStore& store) {
        store.Make(full);
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
    if (result == ERROR_SUCCESS) {
        *key = new HKEY__{full};
    }
    return result;
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
    return ChangeStore([&](kvarn::RegStore& store) {
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
    return ReadStore([&](kvarn::RegStore& store) {
        kvarn::RegKey* const found = store.Find(PathOf(key));
        Give(keys, store.CountKeysBelow(PathOf(key)));
        Give(values, found != nullptr ? found->values.size() : 0);
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, DWORD*, DWORD* type, std::uint8_t* data,
                         DWORD* size) {
    return ReadStore([&](kvarn::RegStore& store) {
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
    return ChangeStore([&](kvarn::RegStore& store) {
        kvarn::RegKey& found = store.Make(PathOf(key));
        std::string const bytes(data, data + size);
        std::u16string const name16 = kvarn::ToUtf16(name != nullptr ? name : "");
        kvarn::RegValue* value = found.Find(name16);
        if (value == nullptr) {
            value = &found.values.emplace_back();
            value->name = name16;
        }
        value->type = type;
        value->data = IsText(type) ? kvarn::ToBytes(kvarn::ToUtf16(bytes)) : bytes;
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}

LSTATUS RegDeleteValueA(HKEY key, LPCSTR name) {
    return ChangeStore([&](kvarn::RegStore& store) {
        kvarn::RegValue const* const value = FindValue(store, key, name);
        if (value == nullptr) {
            return static_cast<LSTATUS>(ERROR_FILE_NOT_FOUND);
        }
        auto& values = store.Find(PathOf(key))->values;
        values.erase(values.begin() + (value - values.data()));
        return static_cast<LSTATUS>(ERROR_SUCCESS);
    });
}
