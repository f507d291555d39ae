// Pictures of windows as users see them, for documentation and tests.
#pragma once

#include <vector>

#include <windows.h>

// Saves windows as the screen shows them, with all that lies over them, on white, as a PNG file.
// False when that fails.
bool SavePicture(std::vector<HWND> const& windows, char const* path);
