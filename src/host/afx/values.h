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

// A width and a height.
class CSize : public SIZE {
  public:
    // Both 0.
    CSize() : SIZE() {}
    // With these values.
    CSize(int width, int height) : SIZE() {
        cx = width;
        cy = height;
    }
    // True when both values are equal.
    bool operator==(SIZE other) const { return cx == other.cx && cy == other.cy; }
    // True when they differ.
    bool operator!=(SIZE other) const { return !(*this == other); }
};

// A place.
class CPoint : public POINT {
  public:
    // Both coordinates 0.
    CPoint() : POINT() {}
    // At these coordinates.
    CPoint(int left, int top) : POINT() {
        x = left;
        y = top;
    }
    // True when both coordinates are equal.
    bool operator==(POINT other) const { return x == other.x && y == other.y; }
    // True when they differ.
    bool operator!=(POINT other) const { return !(*this == other); }
};

// A rectangle, by its four edges.
class CRect : public RECT {
  public:
    // All edges 0.
    CRect() : RECT() {}
    // With these edges: left, top, right and bottom.
    CRect(int l, int t, int r, int b) : RECT() {
        left = l;
        top = t;
        right = r;
        bottom = b;
    }
    // True when all edges are equal.
    bool operator==(RECT const& other) const {
        return left == other.left && top == other.top && right == other.right &&
               bottom == other.bottom;
    }
    // True when they differ.
    bool operator!=(RECT const& other) const { return !(*this == other); }
};

// A point in time: days since 30 December 1899, the fraction being the time of day.
class COleDateTime {
  public:
    // Whether it is a time at all.
    enum DateTimeStatus : int { error = -1, valid = 0, invalid = 1, null = 2 };

    // 30 December 1899, valid.
    COleDateTime() : m_dt(0), m_status(valid) {}
    // That many days after it, valid.
    explicit COleDateTime(double date) : m_dt(date), m_status(valid) {}

    // The status that was set; the time is not looked at.
    DateTimeStatus GetStatus() const { return m_status; }
    // Sets the status; the time stays.
    void SetStatus(DateTimeStatus status) { m_status = status; }

    double m_dt;             // days
    DateTimeStatus m_status; // of the time
};

// A font, which is freed with the object.
class KVARNPROG_API CFont {
  public:
    // Without a font.
    CFont() = default;
    // Deletes the font.
    ~CFont();
    CFont(CFont const&) = delete;
    CFont& operator=(CFont const&) = delete;

    // Takes a font, which the object owns from now on; one that it had is not deleted. FALSE
    // without a handle.
    BOOL Attach(HGDIOBJ font);
    // Gives the font up, to be deleted by the caller. Null without one.
    HGDIOBJ Detach();
    // The font's handle, which stays the object's; null without one.
    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    // Deletes the font. FALSE without one.
    BOOL DeleteObject();
    // Makes a font of the description. FALSE when the host cannot.
    BOOL CreateFontIndirect(LOGFONTA const* description);
    // Copies the font's description. Returns the bytes that were copied, 0 without a font.
    int GetLogFont(LOGFONTA* description) const;

    HGDIOBJ m_hObject = nullptr; // owned
};
