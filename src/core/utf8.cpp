#include "utf8.h"

#include "text/codepage.h"

namespace {

std::string_view OrEmpty(char const* text) {
    return text != nullptr ? text : "";
}

} // namespace

CString TextToUtf8(char const* text) {
    return kvarn::ToUtf8(OrEmpty(text)).c_str();
}

int TextFromUtf8(char const* utf8, CString& text) {
    auto const converted = kvarn::FromUtf8(OrEmpty(utf8));
    if (!converted) {
        return -1;
    }
    text = converted->c_str();
    return 0;
}
