#include "../core/messageout.h"
#include "../files/filerewrite.h"
#include "../files/pathparts.h"
#include "../formats/kodfil.h"
#include "../host/calls.h"
#include "../project/searchorder.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "clientbuffer.h"
#include "codepass.h"
#include "kvarninst.h"

namespace {

void CannotWrite(char const* path) {
    kvarn::DesktopMessage(kvarn::Format("Kan inte öppna -filen\n%s\n%s\nAvbryter!"_1252, path,
                                        kvarn::TemporaryOf(path))
                              .c_str(),
                          "Skrivning av Kvarnbok - kodfil.dat inställningar"_1252);
}

// The header of a file into the pass.
bool CarryHeaderOver(kvarn::WritePass& pass, char const* from) {
    kvarn::TextReader file(from);
    kvarn::KodfilHeader const header(file);
    return file.IsOpen() && !file.Failed() && pass.Write(header.text);
}

// Makes the file anew with its old header, which is read from a copy beside it. Where the header
// is lost on the way the copy stays: it is all there is of the old file.
void BeginKodfil(kvarn::WritePass& pass, char const* path) {
    std::string const before = kvarn::TemporaryOf(path);
    std::optional<std::string> const content = kvarn::WholeFile(path);
    bool const copied =
        content && kvarn::RewriteFile(before.c_str(), *content) == kvarn::Rewritten::done;
    bool const opened = pass.Begin(path);
    bool const lost = copied && opened && !CarryHeaderOver(pass, before.c_str());
    if (lost) {
        pass.End();
    } else if (copied) {
        DeleteFileA(before.c_str());
    }
    if (!copied || !opened || lost) {
        CannotWrite(path);
    }
}

} // namespace

int CKvarnInst::KodfilDatRead(char* code, char* text) {
    kvarn::ReadPass pass(m_fil, kvarn::PassKind::kodfil);
    if (pass.IsFree()) {
        pass.Open(kvarn::FirstFound(m_proj, m_ini, CProjPath::Kodfil),
                  "Läsning av Markvida - kodfil.dat inställningar"_1252);
        if (pass.File() != nullptr) {
            kvarn::KodfilHeader const header(*pass.File());
        }
    }
    kvarn::Kodpost post;
    if (pass.File() != nullptr && kvarn::NextKodpost(*pass.File(), post)) {
        kvarn::PutText(code, post.kod);
        kvarn::PutText(text, post.text);
        return 0;
    }
    pass.End();
    return -1;
}

int CKvarnInst::KodfilDatWrite(int mode, char const* code, char const* text) {
    constexpr int begin = 1;
    constexpr int end = 2;
    constexpr int beginAndEnd = 3;
    kvarn::WritePass pass(m_fil, kvarn::PassKind::kodfil);
    auto const path = [this] { return kvarn::FirstFound(m_proj, m_ini, CProjPath::Kodfil); };
    if (mode == begin || mode == beginAndEnd) {
        kvarn::ClosePass(m_fil); // before its file is looked for
        if (CString const file = path(); !file.IsEmpty()) {
            BeginKodfil(pass, file);
        }
    }
    bool const underWay = pass.IsUnderWay();
    bool written = true;
    if (*kvarn::OrEmpty(code) != '\0') {
        written = pass.Write(kvarn::KodpostLine(code, kvarn::OrEmpty(text)));
    }
    if (mode >= end) {
        written = pass.Write(kvarn::endLine) && written;
        written = pass.End() && written;
    }
    if (underWay && !written) { // told once: the pass is over
        pass.End();
        CannotWrite(path());
    }
    return 0;
}
