// How a host program takes part in the library's messages: its status bar, a replacement for the
// message box, and the texts that the library keeps.
#pragma once

#include "../export.h"
#include "../host/host.h"

// Hands the host's status bar to the library, which shows bad lines of data files in its pane 0.
// Null, as at load, or a bar whose window is gone: such texts are dropped. The bar stays the
// host's.
KVARNPROG_API void SetStatusBar(CStatusBar* bar);

// A message box that the library wants to show. The texts are in code page 1252 and valid during
// the call.
struct MessageBoxRequest {
    char const* text;
    char const* caption; // null: the application title
    unsigned style;      // of MessageBox: buttons, icon and flags
    int owned;           // 1: over the main window, 0: owned by the desktop
};

using MessageBoxHandler = int (*)(MessageBoxRequest const&);

// Shows every later message through the handler, which returns the button's id (IDOK is 1, IDYES 6,
// IDNO 7). Null restores the message box. The handler must stay valid until it is replaced.
KVARNPROG_API void SetMessageBoxHandler(MessageBoxHandler handler);

// The shared message buffer: 2,048 bytes, zero-filled at load and never cleared. It holds the text
// that was last made for a box over the main window or for the status bar, but for bad lines of
// data files (see LastMessage) and boxes with a caption of their own. Two readers of data files
// look at it.
KVARNPROG_API char* MessageBuffer();

// The text of the last bad line of a data file; empty at load.
KVARNPROG_API char const* LastMessage();

// The module that holds the library's string resources.
KVARNPROG_API HINSTANCE LibraryModule();
