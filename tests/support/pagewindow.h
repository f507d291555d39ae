// A settings page on the screen, and what stands on it.
#pragma once

#include <string>
#include <vector>

#include "settingspage.h"
#include "support/window.h"

enum class PartKind { group, text, box, check };

struct PagePart {
    HWND window;
    int id;
    PartKind kind;
    std::string text;
    RECT area;   // in the page
    bool prefix; // "&" marks an accelerator
};

class PageWindow {
  public:
    PageWindow(HINSTANCE library, int page) : m_page(CreateSettingsPage(library, page, m_frame)) {
        if (m_page == nullptr) {
            return;
        }
        RECT size;
        GetWindowRect(m_page, &size);
        RECT frame = {0, 0, size.right - size.left, size.bottom - size.top};
        AdjustWindowRect(&frame, frameStyle, FALSE);
        SetWindowTextA(m_frame, WindowText(m_page).c_str());
        SetWindowPos(m_frame, HWND_TOP, 10, 10, frame.right - frame.left, frame.bottom - frame.top,
                     SWP_SHOWWINDOW);
        FillComboBoxes(m_page, library, page);
        ShowWindow(m_page, SW_SHOW);
    }
    ~PageWindow() { DestroyWindow(m_frame); }
    PageWindow(PageWindow const&) = delete;
    PageWindow& operator=(PageWindow const&) = delete;

    explicit operator bool() const { return m_page != nullptr; }
    HWND Handle() const { return m_page; }
    HWND Frame() const { return m_frame; }

    // In tab order.
    std::vector<PagePart> Parts() const {
        std::vector<PagePart> parts;
        for (HWND child = GetWindow(m_page, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            parts.push_back(PartOf(child));
        }
        return parts;
    }

    // Lets the windows paint themselves.
    void Paint() const {
        RedrawWindow(m_frame, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        for (int i = 0; i < 10; ++i) {
            MSG message;
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
                DispatchMessageA(&message);
            }
            Sleep(10);
        }
    }

  private:
    PagePart PartOf(HWND child) const {
        auto const style = static_cast<DWORD>(GetWindowLongA(child, GWL_STYLE));
        bool const text = WindowClass(child) == "Static";
        bool const button = WindowClass(child) == "Button";
        bool const group = button && (style & BS_TYPEMASK) == BS_GROUPBOX;
        RECT area;
        GetWindowRect(child, &area);
        MapWindowPoints(nullptr, m_page, reinterpret_cast<POINT*>(&area), 2);
        return {child,
                GetDlgCtrlID(child),
                group    ? PartKind::group
                : text   ? PartKind::text
                : button ? PartKind::check
                         : PartKind::box,
                text || button ? WindowText(child) : "",
                area,
                !text || (style & SS_NOPREFIX) == 0};
    }

    static constexpr DWORD frameStyle = WS_POPUP | WS_CAPTION;

    HWND m_frame = CreateWindowExA(0, "STATIC", "", frameStyle, 0, 0, 0, 0, nullptr, nullptr,
                                   GetModuleHandleA(nullptr), nullptr);
    HWND m_page;
};
