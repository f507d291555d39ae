#include "picture.h"

#include <objidl.h>
// gdiplus.h needs the two headers above
#include <gdiplus.h>

namespace {

class GdiPlus {
  public:
    GdiPlus() {
        Gdiplus::GdiplusStartupInput const input;
        Gdiplus::GdiplusStartup(&m_token, &input, nullptr);
    }
    ~GdiPlus() { Gdiplus::GdiplusShutdown(m_token); }
    GdiPlus(GdiPlus const&) = delete;
    GdiPlus& operator=(GdiPlus const&) = delete;

  private:
    ULONG_PTR m_token = 0;
};

bool SavePng(HBITMAP bitmap, char const* path) {
    constexpr CLSID png = {
        0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};
    wchar_t widePath[MAX_PATH];
    if (MultiByteToWideChar(CP_ACP, 0, path, -1, widePath, MAX_PATH) == 0) {
        return false;
    }
    GdiPlus const library;
    Gdiplus::Bitmap picture(bitmap, nullptr);
    return picture.Save(widePath, &png, nullptr) == Gdiplus::Ok;
}

RECT AreaOf(HWND window) {
    RECT area = {};
    GetWindowRect(window, &area);
    return area;
}

} // namespace

bool SavePicture(std::vector<HWND> const& windows, char const* path) {
    RECT all = {};
    for (HWND const window : windows) {
        RECT const area = AreaOf(window);
        UnionRect(&all, &all, &area);
    }
    HDC const screen = GetDC(nullptr);
    HDC const copy = CreateCompatibleDC(screen);
    HBITMAP const bitmap =
        CreateCompatibleBitmap(screen, all.right - all.left, all.bottom - all.top);
    HGDIOBJ const before = SelectObject(copy, bitmap);
    bool copied =
        PatBlt(copy, 0, 0, all.right - all.left, all.bottom - all.top, WHITENESS) != FALSE;
    for (HWND const window : windows) {
        RECT const area = AreaOf(window);
        copied = BitBlt(copy, area.left - all.left, area.top - all.top, area.right - area.left,
                        area.bottom - area.top, screen, area.left, area.top, SRCCOPY) != FALSE &&
                 copied;
    }
    SelectObject(copy, before);
    bool const saved = copied && SavePng(bitmap, path);
    DeleteObject(bitmap);
    DeleteDC(copy);
    ReleaseDC(nullptr, screen);
    return saved;
}
