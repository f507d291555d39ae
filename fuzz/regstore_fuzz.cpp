// The registry's text: any bytes are read, what is understood comes back unchanged once it was
// written, and values that are set are found again.
#include <cstdint>
#include <string>

#include "check.h"
#include "host/win32/registry.h"
#include "host/win32/regstore.h"
#include "input.h"
#include "text/utf16.h"

namespace {

void CheckWriting(kvarn::RegStore const& store) {
    std::string const bytes = store.Bytes();
    kvarn::RegStore const again(bytes);
    Check(again.Whole(), "what was written is understood");
    Check(again.Bytes() == bytes, "what was written comes back");
}

// A name without the control characters that no line can hold.
std::u16string Name(Input& provider) {
    constexpr std::size_t longest = 20;
    std::string name = provider.Text(longest);
    std::erase_if(name, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\\'; });
    return kvarn::ToUtf16(name);
}

void CheckSetting(kvarn::RegStore& store, Input& provider) {
    constexpr std::size_t longest = 300;
    std::u16string const path = u"HKEY_CURRENT_USER\\k" + Name(provider); // never empty
    std::u16string const name = Name(provider);
    auto const type = provider.Number<DWORD>(0, 12);
    std::string const data = provider.Text(longest);
    kvarn::RegValue& made = store.Make(path).Make(name);
    made.type = type;
    made.data = data;
    kvarn::RegStore const again(store.Bytes());
    kvarn::RegKey const* const found = again.Find(path);
    Check(found != nullptr, "the key is found");
    kvarn::RegValue const* const value = found->Find(name);
    Check(value != nullptr, "the value is found");
    Check(value->type == type && value->data == data, "and is what was set");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    Input provider(data, size);
    bool const withHeader = provider.Bool();
    bool const setting = provider.Bool();
    if (setting) {
        kvarn::RegStore store;
        for (int i = 0; i < 4 && provider.Remaining() > 0; ++i) {
            CheckSetting(store, provider);
        }
        CheckWriting(store);
        return 0;
    }
    std::string const header = withHeader ? "Windows Registry Editor Version 5.00\n" : "";
    kvarn::RegStore const store(header + provider.Rest());
    if (store.Whole()) {
        CheckWriting(store);
    }
    return 0;
}
