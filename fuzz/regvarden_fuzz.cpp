// The values of the registry: of any type and size, read in every form and judged by the stored
// bytes; what is written reads back and changes nothing else, and a store that is not understood is
// never written.
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

#include "check.h"
#include "core/registry.h"
#include "folder.h"
#include "host/win32/regstore.h"
#include "input.h"
#include "text/utf16.h"

namespace {

constexpr char const* nyckel = "Software\\Program";
constexpr std::size_t longestText = 255; // with its zero

class Store {
  public:
    Store() { setenv("KVARNPROG_REGISTRY", m_path.c_str(), 1); }

    void Write(std::string const& bytes) const { std::ofstream(m_path, std::ios::binary) << bytes; }
    std::string Read() const {
        std::ifstream file(m_path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    Folder m_folder{"/dev/shm"};
    std::string m_path = m_folder.Path() + "/store.reg";
};

// Without the characters that no line of the store can hold.
std::string Name(Input& in, std::size_t longest) {
    std::string name = in.Text(longest);
    std::erase_if(name, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    return name;
}

// What RegQueryValueExA gives of a value.
struct Value {
    DWORD type;
    std::string bytes;

    bool IsText() const { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }
    bool operator==(Value const&) const = default;
};
using Values = std::map<std::u16string, Value>; // by their names in capitals

Value ValueOf(kvarn::RegValue const& stored) {
    Value value{stored.type, stored.data};
    if (value.IsText()) {
        value.bytes = kvarn::FromUtf16(kvarn::FromBytes(stored.data));
    }
    return value;
}

Values Stored(std::string const& bytes) {
    kvarn::RegStore const store(bytes);
    Values values;
    auto const* const key = store.Find(u"HKEY_CURRENT_USER\\" + kvarn::ToUtf16(nyckel));
    if (key != nullptr) {
        for (auto const& [number, value] : key->Values()) {
            values[kvarn::Capitals(value.name)] = ValueOf(value);
        }
    }
    return values;
}

// The stored bytes over the first of an object's own.
template <class T> std::optional<T> Over(T object, std::optional<Value> const& value) {
    if (!value || value->bytes.size() > sizeof(T)) {
        return std::nullopt;
    }
    value->bytes.copy(reinterpret_cast<char*>(&object), sizeof(T));
    return object;
}
template <class T> bool SameBytes(T const& a, T const& b) {
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

std::string TextOf(std::optional<Value> const& value, bool isRead, char const* standard) {
    bool const fits = value && isRead && value->bytes.size() <= longestText;
    return fits ? value->bytes.substr(0, value->bytes.find('\0')) : standard;
}

void CheckTexts(CRegistry& registry, char const* name, std::optional<Value> const& value) {
    bool const isText = value && (value->type == REG_SZ || value->type == REG_EXPAND_SZ);
    Check(registry.ReadString(name, "standard").GetString() == TextOf(value, isText, "standard"),
          "a text, or the default");
    Check(registry.ReadStringKey3264(nyckel, name, "standard").GetString() ==
              TextOf(value, true, "standard"),
          "a text of any type");
    Check(registry.ValueExists(name) == (value ? 1 : 0), "it exists");
    Check(registry.GetDataSize(name) == (value ? static_cast<int>(value->bytes.size()) : -1),
          "its size");
    Check(registry.GetDataType(name) == (value ? value->type : 0), "its type");
}

void CheckNumbers(CRegistry& registry, char const* name, std::optional<Value> const& value) {
    constexpr int standard = -7;
    constexpr DWORD otherwise = 0xFFFFFFF9;
    int const number = Over<std::int32_t>(0, value).value_or(standard);
    Check(registry.ReadInt(name, standard) == number, "an integer");
    Check(registry.ReadBool(name, standard) == number, "a truth value");
    Check(registry.ReadDword(name, otherwise) == static_cast<DWORD>(number), "a double word");
    Check(registry.ReadColor(name, otherwise) == static_cast<DWORD>(number), "a colour");
    Check(SameBytes(registry.ReadFloat(name, 2.5), Over<double>(0, value).value_or(2.5)),
          "a double");

    struct Image {
        double days;
        std::int32_t status;
        std::int32_t unused;
    };
    Image const image = Over<Image>({}, value).value_or(Image{2.5, COleDateTime::valid, 0});
    COleDateTime const date = registry.ReadDateTime(name, COleDateTime(2.5));
    Check(SameBytes(date.m_dt, image.days) && date.GetStatus() == image.status, "a date");
}

template <class T, class Base>
void CheckShape(CRegistry& registry, char const* name, std::optional<Value> const& value,
                int (CRegistry::*read)(CString, T*), Base const& before) {
    T object;
    static_cast<Base&>(object) = before;
    std::optional<Base> const expected = Over(before, value);
    Check((registry.*read)(name, &object) == (expected ? 1 : 0), "the stated result");
    Check(!expected || SameBytes(static_cast<Base&>(object), *expected), "a shape");
}

void CheckFont(CRegistry& registry, char const* name, std::optional<Value> const& value) {
    LOGFONTA before{};
    before.lfHeight = 12;
    CFont font;
    font.CreateFontIndirect(&before);
    HGDIOBJ const old = font.GetSafeHandle();
    std::optional<LOGFONTA> const expected = Over(LOGFONTA{}, value);
    Check(registry.ReadFont(name, &font) == (expected ? 1 : 0), "the stated result");
    LOGFONTA now{};
    font.GetLogFont(&now);
    Check(SameBytes(now, expected.value_or(before)), "a font");
    Check((font.GetSafeHandle() == old) == !expected, "a new one, or the old");
    if (expected) {
        DeleteObject(old); // the object gave it up
    }
}

// Every call reads the store's file: an input tries a few of them.
void CheckReaders(CRegistry& registry, std::string const& name, Values const& values, Input& in) {
    auto const found = values.find(kvarn::Capitals(kvarn::ToUtf16(name)));
    std::optional<Value> const value =
        found != values.end() ? std::optional(found->second) : std::nullopt;
    switch (in.Number(0, 3)) {
    case 0:
        CheckTexts(registry, name.c_str(), value);
        break;
    case 1:
        CheckNumbers(registry, name.c_str(), value);
        break;
    case 2:
        CheckShape<CSize, SIZE>(registry, name.c_str(), value, &CRegistry::ReadSize, {3, 4});
        CheckShape<CPoint, POINT>(registry, name.c_str(), value, &CRegistry::ReadPoint, {3, 4});
        CheckShape<CRect, RECT>(registry, name.c_str(), value, &CRegistry::ReadRect, {3, 4, 5, 6});
        break;
    default:
        CheckFont(registry, name.c_str(), value);
        Check(registry.GetValueCount() == static_cast<int>(values.size()), "values are counted");
    }
}

template <class T> std::string BytesOf(T const& object) {
    return {reinterpret_cast<char const*>(&object), sizeof object};
}

// One of the writers; what should be stored then, nothing for a text that is refused.
std::optional<Value> Written(CRegistry& registry, char const* name, Input& in, int& result) {
    auto const number = in.Number<std::int32_t>();
    auto const bits = in.Number<std::uint64_t>();
    double decimal = 0;
    std::memcpy(&decimal, &bits, sizeof decimal);
    CRect rect(number, number / -2, 3, 4);
    CPoint point(number, 1);
    CSize size(2, number);
    COleDateTime date(decimal);
    switch (in.Number(0, 7)) {
    case 0: {
        std::string const text = in.Text(longestText + 10).c_str();
        result = registry.WriteString(name, text.c_str());
        bool const fits = text.size() < longestText;
        return fits ? std::optional(Value{REG_SZ, text + '\0'}) : std::nullopt;
    }
    case 1:
        result = registry.WriteInt(name, number);
        return Value{REG_BINARY, BytesOf(number)};
    case 2:
        result = registry.WriteColor(name, static_cast<DWORD>(number));
        return Value{REG_BINARY, BytesOf(number)};
    case 3:
        result = registry.WriteFloat(name, decimal);
        return Value{REG_BINARY, BytesOf(decimal)};
    case 4:
        result = registry.WriteDateTime(name, date);
        return Value{REG_BINARY, BytesOf(decimal) + std::string(8, '\0')};
    case 5:
        result = registry.WriteSize(name, &size);
        return Value{REG_BINARY, BytesOf(static_cast<SIZE&>(size))};
    case 6:
        result = registry.WritePoint(name, &point);
        return Value{REG_BINARY, BytesOf(static_cast<POINT&>(point))};
    default:
        result = registry.WriteRect(name, &rect);
        return Value{REG_BINARY, BytesOf(static_cast<RECT&>(rect))};
    }
}

void CheckWriting(CRegistry& registry, Store const& store, std::string const& name, Input& in) {
    std::string const before = store.Read();
    Values values = Stored(before);
    int result = -1;
    std::optional<Value> const value = Written(registry, name.c_str(), in, result);
    std::string const after = store.Read();
    bool const writes = value && kvarn::RegStore(before).Whole();
    Check(result == (writes ? 1 : 0), "the stated result");
    if (writes) {
        values[kvarn::Capitals(kvarn::ToUtf16(name))] = *value;
        Check(Stored(after) == values, "one value changes");
    }
    Check(writes || after == before, "a refused write changes nothing");
}

// Any path: a key that was made is there and can be deleted again.
void CheckKeys(CRegistry& registry, Store const& store, std::string const& path) {
    std::string const before = store.Read();
    bool const existed = registry.KeyExists(path.c_str()) != 0;
    bool const isMade = registry.CreateKey(path.c_str()) != 0;
    Check(isMade == (registry.KeyExists(path.c_str()) != 0), "a key that was made is there");
    Check(!isMade || registry.GetCurrentPath().GetString() == path, "and is chosen");
    Check(!existed || store.Read() == before, "what is there is not made");
    if (isMade && !existed) {
        Check(registry.DeleteKey(path.c_str()) == 1, "it can be deleted");
        Check(registry.KeyExists(path.c_str()) == 0, "and is gone");
    }
    Check(registry.DeleteKey("Software") == 0 || registry.KeyExists(nyckel) == 0,
          "a key with others below it stays");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr std::size_t longestName = 12;
    static Store const store;
    Input in(data, size);
    std::string const names[] = {Name(in, longestName), Name(in, longestName), ""};
    std::string const path = Name(in, 2 * longestText);
    if (in.Bool()) {
        kvarn::RegStore content;
        kvarn::RegKey& key = content.Make(u"HKEY_CURRENT_USER\\" + kvarn::ToUtf16(nyckel));
        for (int i = in.Number(0, 3); i > 0; --i) {
            kvarn::RegValue& value = key.Make(kvarn::ToUtf16(in.Pick(names)));
            value.type = in.Bool() ? in.Number<DWORD>(0, 12) : in.Number<DWORD>();
            value.data = in.Text(2 * longestText + 4);
        }
        store.Write(content.Bytes());
    } else {
        std::size_t const kept = in.Remaining() - std::min<std::size_t>(in.Remaining(), 16);
        store.Write("Windows Registry Editor Version 5.00\n[HKEY_CURRENT_USER\\" +
                    std::string(nyckel) + "]\n" + in.Bytes(kept));
    }
    CRegistry registry;
    Check(registry.SetKey(nyckel, 0, KEY_READ) == 1, "the key is there");
    std::string const name = in.Pick(names);
    CheckReaders(registry, name, Stored(store.Read()), in);
    if (in.Bool()) {
        CheckWriting(registry, store, name, in);
    } else {
        CheckKeys(registry, store, path);
    }
    return 0;
}
