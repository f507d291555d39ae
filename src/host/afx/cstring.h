// MFC's 8-bit string, for toolchains without MFC. Names, signatures and behaviour are those that
// MFC documents, for the part of it that the library and its clients use. Text is in code page
// 1252.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

#include "../../export.h"

class CString {
  public:
    CString() = default;
    CString(char const* text) : m_text(text != nullptr ? text : "") {}
    CString(char const* text, int length) : m_text(text, Size(length)) {}
    explicit CString(char c, int repeat = 1) : m_text(Size(repeat), c) {}

    CString& operator=(char const* text) {
        // assign() copes with a text that lies inside this one.
        m_text.assign(text != nullptr ? text : "");
        return *this;
    }

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    char GetAt(int i) const { return m_text[Size(i)]; }
    void SetAt(int i, char c) { m_text[Size(i)] = c; }
    char operator[](int i) const { return m_text[Size(i)]; }
    char const* GetString() const { return m_text.c_str(); }
    operator char const*() const { return m_text.c_str(); }

    // A buffer for at least minLength characters and a zero, valid until ReleaseBuffer. That sets
    // the length: as given, or up to the first zero.
    char* GetBuffer(int minLength = 0) {
        if (minLength > GetLength()) {
            m_text.resize(Size(minLength));
        }
        return &m_text[0];
    }
    void ReleaseBuffer(int newLength = -1) {
        m_text.resize(newLength < 0 ? std::strlen(m_text.c_str()) : Size(newLength));
    }

    CString& operator+=(CString const& other) {
        m_text += other.m_text;
        return *this;
    }
    CString& operator+=(char const* text) {
        m_text += text != nullptr ? text : "";
        return *this;
    }
    CString& operator+=(char c) {
        m_text += c;
        return *this;
    }

    int Compare(char const* other) const { return std::strcmp(m_text.c_str(), other); }
    // Folds the letters of code page 1252.
    KVARNPROG_API int CompareNoCase(char const* other) const;

    // -1 when nothing is found.
    int Find(char c, int start = 0) const { return Index(m_text.find(c, Size(start))); }
    int Find(char const* part, int start = 0) const {
        return Index(m_text.find(part, Size(start)));
    }
    int FindOneOf(char const* set) const { return Index(m_text.find_first_of(set)); }
    int ReverseFind(char c) const { return Index(m_text.rfind(c)); }

    // Parts that reach beyond either end are cut there.
    CString Left(int count) const { return Part(0, count); }
    CString Right(int count) const {
        return Part(GetLength() - (count < GetLength() ? count : GetLength()), count);
    }
    CString Mid(int first) const { return Part(first, GetLength()); }
    CString Mid(int first, int count) const { return Part(first, count); }

    // Without an argument they trim white space, else the characters of the set, or the character.
    CString& TrimLeft() { return TrimLeft(" \t\n\v\f\r"); }
    CString& TrimLeft(char const* set) {
        m_text.erase(0, m_text.find_first_not_of(set));
        return *this;
    }
    CString& TrimRight() { return TrimRight(" \t\n\v\f\r"); }
    CString& TrimRight(char const* set) {
        m_text.erase(m_text.find_last_not_of(set) + 1);
        return *this;
    }
    CString& TrimRight(char c) { return TrimRight(CString(c).GetString()); }
    CString& Trim() { return TrimRight().TrimLeft(); }

    KVARNPROG_API CString& MakeUpper();
    KVARNPROG_API CString& MakeLower();

    // Formats as printf does, in the numeric locale of the process. Pass GetString() for a "%s".
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    void
    Format(char const* format, ...) {
        std::va_list arguments;
        va_start(arguments, format);
        FormatV(format, arguments);
        va_end(arguments);
    }
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 0)))
#endif
    void
    FormatV(char const* format, std::va_list arguments) {
        std::va_list again;
        va_copy(again, arguments);
        int const length = std::vsnprintf(nullptr, 0, format, arguments);
        std::string text(length > 0 ? Size(length) + 1 : 1, '\0');
        std::vsnprintf(&text[0], text.size(), format, again);
        va_end(again);
        text.pop_back();
        m_text.swap(text); // only now: an argument may lie in the old text
    }

    friend CString operator+(CString left, CString const& right) {
        return left += right;
    }
    friend CString operator+(CString left, char const* right) {
        return left += right;
    }
    friend CString operator+(char const* left, CString const& right) {
        return CString(left) += right;
    }
    friend CString operator+(CString left, char right) {
        return left += right;
    }

    friend bool operator==(CString const& a, CString const& b) {
        return a.m_text == b.m_text;
    }
    friend bool operator==(CString const& a, char const* b) {
        return a.Compare(b) == 0;
    }
    friend bool operator==(char const* a, CString const& b) {
        return b.Compare(a) == 0;
    }
    friend bool operator!=(CString const& a, CString const& b) {
        return !(a == b);
    }
    friend bool operator!=(CString const& a, char const* b) {
        return !(a == b);
    }
    friend bool operator!=(char const* a, CString const& b) {
        return !(a == b);
    }
    friend bool operator<(CString const& a, CString const& b) {
        return a.m_text < b.m_text;
    }

  private:
    static std::size_t Size(int n) {
        return n > 0 ? static_cast<std::size_t>(n) : 0;
    }
    static int Index(std::size_t found) {
        return found == std::string::npos ? -1 : static_cast<int>(found);
    }
    CString Part(int first, int count) const {
        std::size_t const from = Size(first) < m_text.size() ? Size(first) : m_text.size();
        CString part;
        part.m_text = m_text.substr(from, Size(count));
        return part;
    }

    std::string m_text;
};
