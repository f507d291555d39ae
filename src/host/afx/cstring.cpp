#include "cstring.h"

#include "../../text/codepage.h"

int CString::CompareNoCase(char const* other) const {
    return kvarn::CompareNoCase1252(m_text, other);
}

CString& CString::MakeUpper() {
    for (char& c : m_text) {
        c = kvarn::Upper1252(c);
    }
    return *this;
}

CString& CString::MakeLower() {
    for (char& c : m_text) {
        c = kvarn::Lower1252(c);
    }
    return *this;
}
