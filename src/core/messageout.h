// The one gate through which every message of the library goes to the user. Internal: host programs
// use message.h.
#pragma once

#include <string>
#include <string_view>

#include "../host/host.h"

// Shows a message box over the client's main window, brought to the foreground, or one owned by the
// desktop where there is no live main window. Buttons and icon are styles of MessageBox. Without a
// caption the application title is shown: the client's string resource 57344, else the library's.
// Returns the button's id.
//
// Over the main window the first form is the framework's own message box, which always shows the
// application title; a caption is used there by the second form alone.
int MessageOut(char const* text, unsigned buttons, unsigned icon, char const* caption);
int MessageOut(CString text, unsigned buttons, unsigned icon, CString const* caption);

// Shows a text in pane 0 of the host's status bar at once; dropped where there is none.
void StatusText(char const* text);

namespace kvarn {

constexpr unsigned messageOk = 0;           // MB_OK
constexpr unsigned messageExclamation = 48; // MB_ICONEXCLAMATION

// A box that quotes its caption: owned by the desktop whatever main window there is, with the OK
// button and the exclamation icon.
void DesktopMessage(char const* text, char const* caption);

// A string resource, cut at 254 characters; empty without a module, and where it has none.
std::string ResourceText(HINSTANCE module, unsigned id);

// Keeps the text that LastMessage returns.
void SetLastMessage(std::string_view text);

constexpr std::size_t messageBufferSize = 2048;

// Tells the user with the exclamation icon and the OK button, through the shared message buffer.
// Over the main window it is the framework's own box; the second form's is the window's, whose
// caption is the application title also where the application has another name.
void Notify(std::string_view text);
void NotifyTitled(std::string_view text);

// Puts a text into the shared message buffer, cut to fit, and returns the buffer.
char const* ToMessageBuffer(std::string_view text);

} // namespace kvarn
