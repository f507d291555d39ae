#include "message.h"

#include <string>

#include "../host/calls.h"
#include "../text/text.h"
#include "messageout.h"

namespace {

CStatusBar* statusBar = nullptr;
MessageBoxHandler boxHandler = nullptr;
char messageBuffer[kvarn::messageBufferSize];
char lastMessage[kvarn::messageBufferSize];

// The client's main window while it is alive.
CWnd* MainWindow() {
    CWinThread* const thread = AfxGetThread();
    CWnd* const window = thread != nullptr ? thread->GetMainWnd() : nullptr;
    return window != nullptr && IsWindow(window->m_hWnd) != FALSE ? window : nullptr;
}

std::string ApplicationTitle() {
    char title[256] = "";
    AfxLoadString(AFX_IDS_APP_TITLE, title, sizeof title);
    return title;
}

// framework: AfxMessageBox. window: CWnd::MessageBox. desktop: a box without an owner.
enum class Box { framework, window, desktop };

int Show(Box box, CWnd* owner, MessageBoxRequest const& request) {
    std::string const caption =
        request.caption != nullptr ? std::string(request.caption) : ApplicationTitle();
    switch (box) {
    case Box::framework:
        return AfxMessageBox(request.text, request.style);
    case Box::window:
        return owner->MessageBox(request.text, caption.c_str(), request.style);
    case Box::desktop:
    default:
        return ::MessageBoxA(nullptr, request.text, caption.c_str(), request.style);
    }
}

// Every box passes here, so that the client's handler can take the place of each.
int Message(Box box, CWnd* owner, char const* text, char const* caption, unsigned style) {
    MessageBoxRequest const request = {text, caption, style, box == Box::desktop ? 0 : 1};
    return boxHandler != nullptr ? boxHandler(request) : Show(box, owner, request);
}

} // namespace

void SetStatusBar(CStatusBar* bar) {
    statusBar = bar;
}

void SetMessageBoxHandler(MessageBoxHandler handler) {
    boxHandler = handler;
}

char* MessageBuffer() {
    return messageBuffer;
}

char const* LastMessage() {
    return lastMessage;
}

HINSTANCE LibraryModule() {
    // Any address in the library tells its module; the handle holds no reference (GetModuleHandleEx
    // in the Windows documentation).
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       messageBuffer, &module);
    return module;
}

int MessageOut(char const* text, unsigned buttons, unsigned icon, char const* caption) {
    if (CWnd* const owner = MainWindow()) {
        return Message(Box::framework, owner, text, nullptr, buttons | icon | MB_SETFOREGROUND);
    }
    return Message(Box::desktop, nullptr, text, caption, buttons | icon);
}

int MessageOut(CString text, unsigned buttons, unsigned icon, CString const* caption) {
    char const* const title = caption != nullptr ? caption->GetString() : nullptr;
    if (CWnd* const owner = MainWindow()) {
        return Message(Box::window, owner, text.GetString(), title,
                       buttons | icon | MB_SETFOREGROUND);
    }
    return Message(Box::desktop, nullptr, text.GetString(), title, buttons | icon);
}

void StatusText(char const* text) {
    if (statusBar != nullptr && IsWindow(statusBar->m_hWnd) != FALSE) {
        constexpr int pane = 0;
        statusBar->SetPaneText(pane, text, TRUE);
    }
}

namespace kvarn {

void DesktopMessage(char const* text, char const* caption) {
    Message(Box::desktop, nullptr, text, caption, MB_OK | MB_ICONEXCLAMATION);
}

std::string ResourceText(HINSTANCE module, unsigned id) {
    char text[255] = ""; // the callers' limit, see the header
    if (module != nullptr) {
        LoadStringA(module, id, text, sizeof text);
    }
    return text;
}

void Notify(std::string_view text, Caption caption) {
    char const* const shown = ToMessageBuffer(text);
    if (caption == Caption::application) {
        MessageOut(shown, MB_OK, MB_ICONEXCLAMATION, nullptr);
    } else {
        MessageOut(CString(shown), MB_OK, MB_ICONEXCLAMATION, nullptr);
    }
}

void SetLastMessage(std::string_view text) {
    CopyText(lastMessage, sizeof lastMessage, text);
}

char const* ToMessageBuffer(std::string_view text) {
    CopyText(messageBuffer, sizeof messageBuffer, text);
    return messageBuffer;
}

} // namespace kvarn
