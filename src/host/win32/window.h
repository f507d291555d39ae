// Windows and message boxes, for hosts without a desktop. A box is a text on standard error, and
// any window handle but null is a live window.
#pragma once

#include "boxstyles.h"

BOOL IsWindow(HWND window);
// Prints caption and text and answers with the default button of the style.
int MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT style);
