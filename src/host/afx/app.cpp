#include "app.h"

#include <cstdlib>

#if defined(_WIN32)
#include <commctrl.h>
#else
#include "../win32/modules.h"
#include "../win32/profile.h"
#include "../win32/resources.h"
#include "../win32/window.h"
#endif

namespace {

CWinApp* application = nullptr;

// The module that this code lies in: the library.
HMODULE OwnModule() {
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<char const*>(&application), &module);
    return module;
}

void FreeName(char const* name) {
    std::free(const_cast<char*>(name));
}

char const* CopyName(char const* name) {
    std::size_t const size = std::strlen(name) + 1;
    void* const copy = std::malloc(size);
    return copy != nullptr ? static_cast<char const*>(std::memcpy(copy, name, size)) : nullptr;
}

} // namespace

CWnd::~CWnd() = default;

bool CWnd::Attach(HWND window) {
    m_hWnd = window;
    return window != nullptr;
}

HWND CWnd::Detach() {
    HWND const window = m_hWnd;
    m_hWnd = nullptr;
    return window;
}

int CWnd::MessageBox(char const* text, char const* caption, UINT style) {
    return ::MessageBoxA(m_hWnd, text, caption, style);
}

void CWnd::UpdateWindow() {
#if defined(_WIN32)
    ::UpdateWindow(m_hWnd);
#endif
}

CStatusBar::~CStatusBar() = default;

BOOL CStatusBar::SetPaneText(int pane, char const* text, BOOL update) {
    if (pane < 0 || pane >= panes) {
        return FALSE;
    }
    m_texts[pane] = text;
#if defined(_WIN32)
    if (m_hWnd != nullptr) {
        SendMessageA(m_hWnd, SB_SETTEXTA, static_cast<WPARAM>(pane),
                     reinterpret_cast<LPARAM>(text));
    }
#endif
    if (update != FALSE) {
        UpdateWindow();
    }
    return TRUE;
}

CString CStatusBar::GetPaneText(int pane) const {
    return pane >= 0 && pane < panes ? m_texts[pane] : CString();
}

CWinThread::~CWinThread() = default;

CWnd* CWinThread::GetMainWnd() {
    return m_pMainWnd;
}

CWinApp::CWinApp(char const* name) : m_pszAppName(name != nullptr ? CopyName(name) : nullptr) {
    if (application == nullptr) {
        application = this;
    }
}

CWinApp::~CWinApp() {
    if (application == this) {
        application = nullptr;
    }
    FreeName(m_pszAppName);
    FreeName(m_pszProfileName);
}

CString CWinApp::GetProfileString(char const* section, char const* key, char const* standard) {
    char value[4096]; // as MFC's own
    GetPrivateProfileStringA(section, key, standard != nullptr ? standard : "", value, sizeof value,
                             m_pszProfileName);
    return value;
}

BOOL CWinApp::WriteProfileString(char const* section, char const* key, char const* value) {
    return WritePrivateProfileStringA(section, key, value, m_pszProfileName);
}

CWinApp* AfxGetApp() {
    return application;
}

CWinThread* AfxGetThread() {
    return application;
}

CWnd* AfxGetMainWnd() {
    return application != nullptr ? application->GetMainWnd() : nullptr;
}

int AfxMessageBox(char const* text, UINT style, UINT) {
    char title[256] = "";
    AfxLoadString(AFX_IDS_APP_TITLE, title, sizeof title);
    bool const named = application != nullptr && application->m_pszAppName != nullptr;
    CWnd const* const owner = AfxGetMainWnd();
    return ::MessageBoxA(owner != nullptr ? owner->m_hWnd : nullptr, text,
                         named ? application->m_pszAppName : title, style);
}

int AfxLoadString(UINT id, char* buffer, UINT size) {
    int const room = static_cast<int>(size);
    int const length = LoadStringA(GetModuleHandleA(nullptr), id, buffer, room);
    return length > 0 ? length : LoadStringA(OwnModule(), id, buffer, room);
}
