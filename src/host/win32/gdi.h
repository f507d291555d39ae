// Points, rectangles, colours and fonts of Windows, for hosts that are not Windows. A font is the
// description that it was made from.
#pragma once

#include "../../compat/win32/types.h"
#include "../../export.h"

struct POINT {
    LONG x;
    LONG y;
};
struct SIZE {
    LONG cx;
    LONG cy;
};
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

using COLORREF = DWORD;
using BYTE = std::uint8_t;

constexpr int LF_FACESIZE = 32;

struct tagLOGFONTA {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE];
};
using LOGFONTA = tagLOGFONTA;

struct HFONT__;
using HFONT = HFONT__*;
using HGDIOBJ = void*;

KVARNPROG_API HFONT CreateFontIndirectA(LOGFONTA const* description);
// Copies a font's description, `size` bytes of it. Returns the bytes copied, 0 without a font.
KVARNPROG_API int GetObjectA(HGDIOBJ object, int size, void* description);
KVARNPROG_API BOOL DeleteObject(HGDIOBJ object);
