// The one gate through which every message of the library goes to the user. Internal: host programs
// use message.h.
#pragma once

#include <string>
#include <string_view>

#include "../host/host.h"

// Shows a message box over the client's main window and brings it to the foreground. Without a live
// main window the desktop owns the box. Buttons and icon are styles of MessageBox. Without a
// caption the application title is shown: the client's string resource 57344, else the library's.
// Returns the button's id.
//
// Over the main window the first form is the framework's own message box, which always shows the
// application title; a caption is used there by the second form alone.
int MessageOut(char const* text, unsigned buttons, unsigned icon, char const* caption);
int MessageOut(CString text, unsigned buttons, unsigned icon, CString const* caption);

// Shows a text in pane 0 of the host's status bar at once; does nothing without a status bar.
void StatusText(char const* text);

namespace kvarn {

// A string resource, cut at 254 characters; empty without a module and for an unknown id.
std::string ResourceText(HINSTANCE module, unsigned id);

// Keeps the text that LastMessage returns.
void SetLastMessage(std::string_view text);

constexpr std::size_t messageBufferSize = 2048;

// The caption of a box over the main window: the framework's, which is the application's name where
// it has one, or always the application title.
enum class Caption { application, title };

// Tells the user with the exclamation icon and the OK button, through the shared message buffer.
void Notify(std::string_view text, Caption caption = Caption::application);

// Shows the same box with this caption, owned by the desktop even when there is a main window. The
// shared message buffer stays as it was.
void DesktopMessage(char const* text, char const* caption);

// Puts a text into the shared message buffer, cut to fit, and returns the buffer.
char const* ToMessageBuffer(std::string_view text);

} // namespace kvarn
