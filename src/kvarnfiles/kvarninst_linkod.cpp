#include "../formats/linkod.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "cannotopen.h"
#include "clientbuffer.h"
#include "codepass.h"
#include "kvarninst.h"

int CKvarnInst::LinkodRead(char* code, char* word, char* text, double* number, int* integer) {
    kvarn::ReadPass pass(m_fil, kvarn::PassKind::linkod, m_notRead,
                         "Läsning av Kvarnbok - Linkod.dat inställningar"_1252);
    if (pass.IsFree() && !pass.Open(kvarn::FirstFound(m_proj, m_ini, CProjPath::Linkod))) {
        return -1;
    }
    std::string_view lineText;
    if (!pass.NextLine(lineText)) {
        return 0;
    }
    kvarn::LinkodLine const line(lineText);
    if (line.count >= 1) {
        kvarn::PutText(code, line.kod);
    }
    if (line.count >= 2) {
        kvarn::PutText(word, line.ord);
    }
    if (!line.IsRead()) {
        return -2;
    }
    *number = line.number;
    *integer = line.whole;
    kvarn::PutText(text, line.text);
    OemToAnsiNordic(text);
    OemToAnsiNordic(code);
    kvarn::LinkodFamily const family(code);
    kvarn::PutText(code, family.kod);
    return family.kind;
}

int CKvarnInst::LinkodWrite(int mode, char const* a, char const* b, char const* c, char const* text,
                            char const* e) {
    enum { begin = 1, ordinary = 2, pv = 4, end = 5 };
    kvarn::WritePass pass(m_fil, kvarn::PassKind::linkod, m_notRead);
    if (mode == begin) {
        CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Linkod);
        if (!pass.Begin(path)) {
            kvarn::CannotWrite(path, "Skrivning av Kvarnbok - Linkod.par inställningar"_1252);
        }
        return 0;
    }
    if (!pass.IsUnderWay()) {
        return -1;
    }
    std::string const values =
        kvarn::Format("%s %s %s", kvarn::OrEmpty(a), kvarn::OrEmpty(b), kvarn::OrEmpty(c));
    bool written = true;
    if (mode == ordinary) {
        written = pass.Write(kvarn::LinkodText(values, kvarn::OrEmpty(text)));
    } else if (mode == pv) {
        written = pass.Write(kvarn::LinkodText(kvarn::Format("PV%s %s", values, kvarn::OrEmpty(e)),
                                               kvarn::OrEmpty(text)));
    } else if (mode == end) {
        bool const ended = pass.Write(kvarn::endLine);
        written = pass.End() && ended;
    }
    return written ? 0 : -1;
}
