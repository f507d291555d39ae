// Styles and buttons of message boxes, for hosts that are not Windows. A client's message handler
// gets the styles and returns a button.
#pragma once

#include "../../compat/win32/types.h"

constexpr UINT MB_OK = 0x00;
constexpr UINT MB_OKCANCEL = 0x01;
constexpr UINT MB_ABORTRETRYIGNORE = 0x02;
constexpr UINT MB_YESNOCANCEL = 0x03;
constexpr UINT MB_YESNO = 0x04;
constexpr UINT MB_RETRYCANCEL = 0x05;
constexpr UINT MB_TYPEMASK = 0x0F;
constexpr UINT MB_ICONEXCLAMATION = 0x30;
constexpr UINT MB_DEFBUTTON2 = 0x100;
constexpr UINT MB_DEFMASK = 0xF00;
constexpr UINT MB_SETFOREGROUND = 0x10000;

constexpr int IDOK = 1;
constexpr int IDCANCEL = 2;
constexpr int IDABORT = 3;
constexpr int IDRETRY = 4;
constexpr int IDIGNORE = 5;
constexpr int IDYES = 6;
constexpr int IDNO = 7;
