// Pictures of windows as users see them, for documentation and tests.
#pragma once

#include <windows.h>

// Saves a window as the screen shows it, with all that lies over it, as a PNG file. False when that
// fails.
bool SavePicture(HWND window, char const* path);
