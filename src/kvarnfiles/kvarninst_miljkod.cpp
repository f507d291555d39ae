#include "../core/messageout.h"
#include "../files/filerewrite.h"
#include "../formats/miljkod.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "cannotopen.h"
#include "clientbuffer.h"
#include "codepass.h"
#include "kvarninst.h"

namespace {

char const* const readCaption = "Läsning av Kvarnbok - Miljkod.dat inställningar"_1252;
char const* const writeCaption = "Skrivning av Kvarnbok - Miljkod.dat inställningar"_1252;

void ShowBadLine(std::string_view line) {
    kvarn::Notify(kvarn::Format("Fel rad, namn är för långt\n%s"_1252, line));
}

} // namespace

int CKvarnInst::MiljkodRead(int section, char* code, char* text, int* max, int* step) {
    bool const exists = section >= 0 && section < kvarn::miljkodSections;
    kvarn::ReadPass pass(m_fil, kvarn::PassKind::miljkod, m_notRead, readCaption,
                         exists ? section : 0);
    if (pass.IsFree()) {
        pass.Open(kvarn::FirstFound(m_proj, m_ini, CProjPath::Miljkod));
        if (pass.File() != nullptr) {
            kvarn::SkipToMiljkodSection(*pass.File(), section);
        }
    }
    bool const withLimits = max != nullptr && step != nullptr;
    auto const post = pass.File() != nullptr
                          ? kvarn::NextMiljkod(*pass.File(), withLimits, ShowBadLine)
                          : std::nullopt;
    if (!post) {
        pass.End();
        return -1;
    }
    kvarn::PutText(code, post->kod);
    kvarn::PutText(text, post->text);
    if (withLimits) {
        *max = post->max;
        *step = post->step;
    }
    return 0;
}

int CKvarnInst::MiljKodWrite(int mode, char const* code, char const* text, int max, int step) {
    enum { begin = 1, metod, metodEnd, tolkning, tolkningEnd, klass, end };
    kvarn::WritePass pass(m_fil, kvarn::PassKind::miljkod, m_notRead);
    if (mode == begin) {
        CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Miljkod);
        if (!pass.Begin(path)) {
            kvarn::CannotWrite(path, writeCaption);
        }
        return !pass.IsUnderWay() || pass.Write(kvarn::emptyMiljkodBeginning) ? 0 : -1;
    }
    if (!pass.IsUnderWay()) {
        return -1;
    }
    bool written = true;
    if (mode == metod || mode == tolkning) {
        written = pass.Write(kvarn::MiljkodText(kvarn::OrEmpty(code), kvarn::OrEmpty(text)));
    } else if (mode == klass) {
        written =
            pass.Write(kvarn::MiljkodText(kvarn::OrEmpty(code), kvarn::OrEmpty(text), max, step));
    } else if (mode == metodEnd || mode == tolkningEnd || mode == end) {
        written = pass.Write(kvarn::endLine);
    }
    if (mode == end) {
        written = pass.End() && written;
    }
    return written ? 0 : -1;
}

int CKvarnInst::MiljkodUppdatX() {
    kvarn::ClosePass(m_fil);
    CString const path = kvarn::FirstFound(m_proj, m_ini, CProjPath::Miljkod);
    if (path.IsEmpty()) {
        return 0;
    }
    std::optional<std::string> sections;
    { // closed again before it is replaced
        kvarn::TextReader file(path);
        if (!file.IsOpen()) {
            kvarn::CannotRead(path, readCaption);
            return 0;
        }
        sections = kvarn::WithObligatoryMiljkod(file, ShowBadLine);
        if (file.Failed()) {
            kvarn::CannotRead(path, readCaption);
            return 0;
        }
    }
    if (sections) {
        std::string const text = kvarn::InTextMode(kvarn::emptyMiljkodBeginning + *sections);
        if (kvarn::RewriteFile(path, text) != kvarn::Rewritten::done) {
            kvarn::CannotWrite(path, writeCaption);
        }
    }
    return 0;
}
