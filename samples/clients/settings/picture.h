// Pictures of windows as users see them, for documentation and tests.
#pragma once

#include <windows.h>

// Saves what the screen shows of a window, and of all that lies over it, as a PNG file. False when
// that failed.
bool SavePicture(HWND window, char const* path);
