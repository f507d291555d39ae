// MFC's 8-bit string, for toolchains without MFC. Names, signatures and behaviour are those that
// MFC documents, for the part of it that the library and its clients use. Text is in code page
// 1252.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

#include "../../export.h"

// Positions are counted from 0 and must lie in the text where nothing else is said; lengths are in
// characters, and one below 0 counts as 0. A null text counts as empty where nothing else is said.
class CString {
  public:
    // An empty text.
    CString() = default;
    // A copy of a text up to its zero.
    CString(char const* text) : m_text(text != nullptr ? text : "") {}
    // A copy of so many characters, zeros among them. The text is not null.
    CString(char const* text, int length) : m_text(text, Size(length)) {}
    // The character so many times.
    explicit CString(char c, int repeat = 1) : m_text(Size(repeat), c) {}

    // A copy of a text, which may be a part of this one.
    CString& operator=(char const* text) {
        // assign() copes with a text that lies inside this one.
        m_text.assign(text != nullptr ? text : "");
        return *this;
    }

    // In characters, without the zero.
    int GetLength() const { return static_cast<int>(m_text.size()); }
    // True without a character.
    bool IsEmpty() const { return m_text.empty(); }
    // Removes all characters.
    void Empty() { m_text.clear(); }
    // The character at a position.
    char GetAt(int i) const { return m_text[Size(i)]; }
    // Puts a character at a position.
    void SetAt(int i, char c) { m_text[Size(i)] = c; }
    // As GetAt.
    char operator[](int i) const { return m_text[Size(i)]; }
    // The text with its zero, valid until this object changes.
    char const* GetString() const { return m_text.c_str(); }
    // As GetString.
    operator char const*() const { return m_text.c_str(); }

    // A buffer for at least minLength characters and a zero, valid until ReleaseBuffer. That sets
    // the length: as given, or up to the first zero.
    char* GetBuffer(int minLength = 0) {
        if (minLength > GetLength()) {
            m_text.resize(Size(minLength));
        }
        return &m_text[0];
    }
    // Sets the length of a text that was written through GetBuffer; below 0: up to its first zero.
    void ReleaseBuffer(int newLength = -1) {
        m_text.resize(newLength < 0 ? std::strlen(m_text.c_str()) : Size(newLength));
    }

    // Appends a text.
    CString& operator+=(CString const& other) {
        m_text += other.m_text;
        return *this;
    }
    // Appends a text up to its zero.
    CString& operator+=(char const* text) {
        m_text += text != nullptr ? text : "";
        return *this;
    }
    // Appends a character.
    CString& operator+=(char c) {
        m_text += c;
        return *this;
    }

    // Below 0, 0 or above 0, as this text comes before the other, is equal or comes after it, by
    // the values of the bytes. The other is not null.
    int Compare(char const* other) const { return std::strcmp(m_text.c_str(), other); }
    // The same without regard to the case of the letters of code page 1252.
    KVARNPROG_API int CompareNoCase(char const* other) const;

    // The first position of the character, from `start` on; -1 when there is none.
    int Find(char c, int start = 0) const { return Index(m_text.find(c, Size(start))); }
    // The same of a part, which is not null.
    int Find(char const* part, int start = 0) const {
        return Index(m_text.find(part, Size(start)));
    }
    // The first position of any character of the set, which is not null; -1 when there is none.
    int FindOneOf(char const* set) const { return Index(m_text.find_first_of(set)); }
    // The last position of the character; -1 when there is none.
    int ReverseFind(char c) const { return Index(m_text.rfind(c)); }

    // The first characters. Here and below a part that reaches beyond an end is cut there.
    CString Left(int count) const { return Part(0, count); }
    // The last characters.
    CString Right(int count) const {
        return Part(GetLength() - (count < GetLength() ? count : GetLength()), count);
    }
    // All from a position on.
    CString Mid(int first) const { return Part(first, GetLength()); }
    // So many characters from a position on.
    CString Mid(int first, int count) const { return Part(first, count); }

    // Removes white space (9 to 13 and 32) at the beginning, and returns this text, as do those
    // below.
    CString& TrimLeft() { return TrimLeft(" \t\n\v\f\r"); }
    // Removes characters of the set, which is not null, at the beginning.
    CString& TrimLeft(char const* set) {
        m_text.erase(0, m_text.find_first_not_of(set));
        return *this;
    }
    // Removes white space at the end.
    CString& TrimRight() { return TrimRight(" \t\n\v\f\r"); }
    // Removes characters of the set, which is not null, at the end.
    CString& TrimRight(char const* set) {
        m_text.erase(m_text.find_last_not_of(set) + 1);
        return *this;
    }
    // Removes the character at the end, as often as it stands there.
    CString& TrimRight(char c) { return TrimRight(CString(c).GetString()); }
    // Removes white space at both ends.
    CString& Trim() { return TrimRight().TrimLeft(); }

    // Turns the letters of code page 1252 into capitals, and returns this text.
    KVARNPROG_API CString& MakeUpper();
    // Turns them into small letters.
    KVARNPROG_API CString& MakeLower();

    // Replaces the text by what printf gives, in the numeric locale of the process. Pass
    // GetString() for a "%s". A format that printf refuses gives an empty text.
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
    // The same with the arguments of a caller, who ends them.
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

    // Both texts, one after the other; so too the forms with a plain text or a character.
    friend CString operator+(CString left, CString const& right) {
        return left += right;
    }
    // As above.
    friend CString operator+(CString left, char const* right) {
        return left += right;
    }
    // As above.
    friend CString operator+(char const* left, CString const& right) {
        return CString(left) += right;
    }
    // As above.
    friend CString operator+(CString left, char right) {
        return left += right;
    }

    // True when both have the same bytes.
    friend bool operator==(CString const& a, CString const& b) {
        return a.m_text == b.m_text;
    }
    // The same with a plain text, which is not null, here and below.
    friend bool operator==(CString const& a, char const* b) {
        return a.Compare(b) == 0;
    }
    // As above.
    friend bool operator==(char const* a, CString const& b) {
        return b.Compare(a) == 0;
    }
    // True when they differ.
    friend bool operator!=(CString const& a, CString const& b) {
        return !(a == b);
    }
    // As above.
    friend bool operator!=(CString const& a, char const* b) {
        return !(a == b);
    }
    // As above.
    friend bool operator!=(char const* a, CString const& b) {
        return !(a == b);
    }
    // True when the first comes before the second, by the values of the bytes.
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
