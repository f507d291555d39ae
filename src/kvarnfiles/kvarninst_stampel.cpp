#include "../formats/stampel.h"
#include "../text/codepage.h"
#include "../text/letters.h"
#include "cannotopen.h"
#include "clientbuffer.h"
#include "codepass.h"
#include "kvarninst.h"

int CKvarnInst::StampParRead(char const* path, char* word1, char* word2, double* num1, double* num2,
                             double* num3) {
    kvarn::ReadPass pass(m_fil, kvarn::PassKind::stampel, m_notRead,
                         "Läsning av Kvarnbok - Stämpel inställningar"_1252);
    if (pass.IsFree() && !pass.Open(kvarn::OrEmpty(path))) {
        return -1;
    }
    std::string_view text;
    if (!pass.NextLine(text)) {
        return 0;
    }
    kvarn::StampelLine const line(text);
    enum { ord1 = 1, ord2, number1 }; // what a line has at least with so many values
    if (line.count >= ord1) {
        kvarn::PutText(word1, line.ord1);
    }
    if (line.count >= ord2) {
        kvarn::PutText(word2, line.ord2);
    }
    if (line.count >= number1) {
        *num1 = line.number1;
    }
    if (!line.IsRead()) {
        return -2;
    }
    *num2 = line.number2;
    *num3 = line.number3;
    OemToAnsiNordic(word1);
    return 1;
}

int CKvarnInst::StampParWrite(char const* path, int mode, char const* s1, char const* s2,
                              char const* s3, char const* s4, char const* s5) {
    enum { begin = 1, line = 2, end = 3 };
    kvarn::WritePass pass(m_fil, kvarn::PassKind::stampel, m_notRead);
    if (mode == begin) {
        if (!pass.Begin(kvarn::OrEmpty(path))) {
            kvarn::CannotWrite(path, "Skrivning av Kvarnbok - Stämpel inställningar"_1252);
        }
        return 0;
    }
    if (!pass.IsUnderWay()) {
        return -1;
    }
    bool written = true;
    if (mode == line) {
        written = pass.Write(kvarn::StampelText(kvarn::OrEmpty(s1), kvarn::OrEmpty(s2),
                                                kvarn::OrEmpty(s3), kvarn::OrEmpty(s4),
                                                kvarn::OrEmpty(s5)));
    } else if (mode == end) {
        written = pass.End();
    }
    return written ? 0 : -1;
}
