#include "../core/messageout.h"
#include <new>

#include "../files/existence.h"
#include "../files/filecopy.h"
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

// Something else has the name, and keeps it.
bool IsBlocked(char const* path) {
    return kvarn::IsThere(path) && !kvarn::OpensForWriting(path);
}

// Puts the file's header and the first lines into its place by one step. While that goes on the old
// file is kept beside it under the name that other programs know; where the name is taken the
// header is lost, as it has always been. False when the message is to be shown.
bool Begin(kvarn::WritePass& pass, char const* path, std::string const& lines) try {
    auto const old = pass.MayBegin(path) ? kvarn::WholeFile(path) : std::nullopt;
    if (!old) {
        return false;
    }
    kvarn::LineReader reader{std::string_view(*old)};
    std::string const records = kvarn::InTextMode(lines);
    std::string const text = kvarn::InTextMode(kvarn::KodfilHeader(reader).text) + records;

    std::string const before = kvarn::TemporaryOf(path);
    bool const copied = kvarn::KeepCopy(path, before.c_str());
    if (!copied && !IsBlocked(before.c_str())) {
        return false;
    }
    bool const written =
        kvarn::RewriteFile(path, copied ? text : records) == kvarn::Rewritten::done;
    if (copied) {
        DeleteFileA(before.c_str());
    }
    return written && pass.BeginAtEnd(path) && copied;
} catch (std::bad_alloc const&) {
    return false;
}

} // namespace

int CKvarnInst::KodfilDatRead(char* code, char* text) {
    kvarn::ReadPass pass(m_fil, kvarn::PassKind::kodfil, m_notRead,
                         "Läsning av Markvida - kodfil.dat inställningar"_1252);
    if (pass.IsFree()) {
        pass.Open(kvarn::FirstFound(m_proj, m_ini, CProjPath::Kodfil));
        if (pass.File() != nullptr) {
            kvarn::SkipStarLines(*pass.File(), kvarn::kodfilHeaderStars);
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
    kvarn::WritePass pass(m_fil, kvarn::PassKind::kodfil, m_notRead);
    auto const path = [this] { return kvarn::FirstFound(m_proj, m_ini, CProjPath::Kodfil); };
    std::string lines;
    if (*kvarn::OrEmpty(code) != '\0') {
        lines = kvarn::KodpostLine(code, kvarn::OrEmpty(text));
    }
    lines += mode >= end ? kvarn::endLine : "";

    bool written = true;
    if (mode == begin || mode == beginAndEnd) {
        kvarn::ClosePass(m_fil); // before its file is looked for
        CString const file = path();
        written = file.IsEmpty() || Begin(pass, file, lines);
    } else if (pass.IsUnderWay()) {
        written = pass.Write(lines);
    }
    bool const isOver = mode >= end || (!written && mode != begin);
    if (isOver && pass.IsUnderWay()) {
        written = pass.End() && written;
    }
    if (!written) { // told once: the pass is over, but for one that lost its header
        CannotWrite(path());
    }
    return 0;
}
