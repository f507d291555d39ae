#include "window.h"

#include <array>
#include <cstdio>
#include <string>

#include "../../text/codepage.h"

namespace {

// The buttons of each style, from the left; the default button is one of them. A button that a
// style lacks is its first.
constexpr std::array<std::array<int, 3>, 6> buttonsOf = {{{IDOK, IDOK, IDOK},
                                                          {IDOK, IDCANCEL, IDOK},
                                                          {IDABORT, IDRETRY, IDIGNORE},
                                                          {IDYES, IDNO, IDCANCEL},
                                                          {IDYES, IDNO, IDYES},
                                                          {IDRETRY, IDCANCEL, IDRETRY}}};

} // namespace

BOOL IsWindow(HWND window) {
    return window != nullptr ? TRUE : FALSE;
}

int MessageBoxA(HWND, LPCSTR text, LPCSTR caption, UINT style) {
    std::string const title =
        kvarn::ToUtf8(caption != nullptr ? caption : "Error"); // as on Windows
    std::fprintf(stderr, "%s: %s\n", title.c_str(), kvarn::ToUtf8(text).c_str());
    UINT const buttons = style & MB_TYPEMASK;
    UINT const standard = (style & MB_DEFMASK) / MB_DEFBUTTON2;
    return buttons < buttonsOf.size() && standard < 3 ? buttonsOf[buttons][standard] : IDOK;
}
