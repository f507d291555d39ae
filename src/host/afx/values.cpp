#include "values.h"

CFont::~CFont() {
    DeleteObject();
}

BOOL CFont::Attach(HGDIOBJ font) {
    m_hObject = font;
    return font != nullptr;
}

HGDIOBJ CFont::Detach() {
    HGDIOBJ const font = m_hObject;
    m_hObject = nullptr;
    return font;
}

BOOL CFont::DeleteObject() {
    return m_hObject != nullptr ? ::DeleteObject(Detach()) : FALSE;
}

BOOL CFont::CreateFontIndirect(LOGFONTA const* description) {
    return Attach(::CreateFontIndirectA(description));
}

int CFont::GetLogFont(LOGFONTA* description) const {
    return ::GetObjectA(m_hObject, sizeof *description, description);
}
