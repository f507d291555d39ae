// How a host program takes part in the library's messages: its status bar, a replacement for the
// message box, and the texts that the library keeps.
#pragma once

#include "../export.h"
#include "../host/host.h"

// Hands the host's status bar to the library, which shows bad lines of data files in its pane 0.
// With null, as at load, or a bar whose window is gone these texts are dropped. The host keeps the
// ownership of the bar.
KVARNPROG_API void SetStatusBar(CStatusBar* bar);

// A message box that the library wants to show. The texts are in code page 1252 and valid during
// the call.
struct MessageBoxRequest {
    char const* text;    // what to show
    char const* caption; // null: the application title
    unsigned style;      // of MessageBox: buttons, icon and flags
    int owned;           // 1: over the main window, 0: owned by the desktop
};

// What a host shows messages with; the result is the button's id.
using MessageBoxHandler = int (*)(MessageBoxRequest const&);

// Shows every later message through the handler, which returns the button's id (IDOK is 1, IDYES 6,
// IDNO 7). Null restores the message box. The handler must stay valid until it is replaced.
KVARNPROG_API void SetMessageBoxHandler(MessageBoxHandler handler);

// The shared message buffer: 2,048 bytes, zero-filled at load and never cleared. It holds the last
// text that was made for a box or for the status bar, except for bad lines of data files (see
// LastMessage) and boxes with their own captions. Two readers of data files look at it.
KVARNPROG_API char* MessageBuffer();

// The text of the last bad line of a data file; empty at load.
KVARNPROG_API char const* LastMessage();

// The module that holds the library's string resources.
KVARNPROG_API HINSTANCE LibraryModule();
