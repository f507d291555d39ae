// Points, rectangles, colours and fonts of Windows, for hosts that are not Windows. A font is the
// description that it was made from.
#pragma once

#include "../../compat/win32/types.h"
#include "../../export.h"

// A place: x to the right, y down.
struct POINT {
    LONG x;
    LONG y;
};
// A width and a height.
struct SIZE {
    LONG cx;
    LONG cy;
};
// A rectangle by its edges.
struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

// A colour as 0x00bbggrr.
using COLORREF = DWORD;
using BYTE = std::uint8_t;

constexpr int LF_FACESIZE = 32;

// The description of a font; the name is cut at 31 characters and a zero.
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

// Makes a font of a description, which is copied and not null. DeleteObject frees it.
KVARNPROG_API HFONT CreateFontIndirectA(LOGFONTA const* description);
// Copies a font's description, `size` bytes of it. Returns the bytes copied, 0 without a font.
KVARNPROG_API int GetObjectA(HGDIOBJ object, int size, void* description);
// Frees a font. FALSE for null.
KVARNPROG_API BOOL DeleteObject(HGDIOBJ object);
