// MFC's small value classes and its font object, for toolchains without MFC. Names and behaviour
// are those that MFC documents, for the part of them that clients of the registry class use.
#pragma once

#include "../../compat/types.h"
#if !defined(_WIN32)
#include "../win32/gdi.h"
#endif

#include "../../export.h"

// One spelling on both hosts, as in app.h.
#if !defined(_WIN32)
#define CreateFontIndirect CreateFontIndirectA
#endif

class CSize : public SIZE {
  public:
    CSize() : SIZE() {}
    CSize(int width, int height) : SIZE() {
        cx = width;
        cy = height;
    }
    bool operator==(SIZE other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(SIZE other) const { return !(*this == other); }
};

class CPoint : public POINT {
  public:
    CPoint() : POINT() {}
    CPoint(int left, int top) : POINT() {
        x = left;
        y = top;
    }
    bool operator==(POINT other) const { return x == other.x && y == other.y; }
    bool operator!=(POINT other) const { return !(*this == other); }
};

class CRect : public RECT {
  public:
    CRect() : RECT() {}
    CRect(int l, int t, int r, int b) : RECT() {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    bool operator==(RECT const& other) const {
        return left == other.left && top == other.top && right == other.right &&
               bottom == other.bottom;
    }
    bool operator!=(RECT const& other) const { return !(*this == other); }
};

// A point in time: days since 30 December 1899, the fraction being the time of day.
class COleDateTime {
  public:
    enum DateTimeStatus : int { error = -1, valid = 0, invalid = 1, null = 2 };

    COleDateTime() : m_dt(0), m_status(valid) {}
    explicit COleDateTime(double date) : m_dt(date), m_status(valid) {}

    DateTimeStatus GetStatus() const { return m_status; }
    void SetStatus(DateTimeStatus status) { m_status = status; }

    double m_dt;
    DateTimeStatus m_status;
};

// A font, which is freed with the object.
class KVARNPROG_API CFont {
  public:
    CFont() = default;
    ~CFont();
    CFont(CFont const&) = delete;
    CFont& operator=(CFont const&) = delete;

    // False without a handle.
    BOOL Attach(HGDIOBJ font);
    HGDIOBJ Detach();
    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    BOOL DeleteObject();
    BOOL CreateFontIndirect(LOGFONTA const* description);
    // The bytes of the description that were copied, 0 without a font.
    int GetLogFont(LOGFONTA* description) const;

    HGDIOBJ m_hObject = nullptr;
};
