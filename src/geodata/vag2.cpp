#include "vag2.h"

#include <new>

#include "../core/message.h"
#include "../text/text.h"
#include "roadfile.h"

namespace {

// Known quirk, kept on purpose: a bad line of the profile part is a vertex while the message buffer
// begins with a star.
bool IsKept(kvarn::VagfilLine const& line) {
    return line.kind == kvarn::VagfilLine::Kind::badProfileVertex && *MessageBuffer() == '*';
}

void AppendProfilePart(std::string& text, CVaglinje& profil) {
    bool there = profil.Home() == 0;
    text += there ? kvarn::profileHeading : "";
    for (; there; there = profil++ != nullptr) {
        kvarn::AppendProfileVertex(text, *profil.Get_aktel());
    }
}

} // namespace

CVag2::CVag2() : filnamn(), omrSekFran(0), omrSekTill(0), omrAvstMin(-30), omrAvstMax(30), namn() {
    plan.typ = kvarn::vagtypPlan;
    profil.typ = kvarn::vagtypProfil;
}

CVag2::~CVag2() = default;

int CVag2::Init(char const* path) {
    using Kind = kvarn::VagfilLine::Kind;
    if (path == nullptr) {
        return 0;
    }
    std::string text;
    if (!kvarn::ReadRoadFile(path, text, m_notRead)) {
        return -1;
    }
    kvarn::KeepFileName(filnamn, path);
    kvarn::VagfilReader lines(text);
    if (lines.Header()) {
        kvarn::CopyText(namn, sizeof namn, lines.Header()->Name());
    }
    for (kvarn::VagfilLine line; lines.Next(line);) {
        if (line.kind == Kind::vertex) {
            plan.Ny(1, &line.vertex);
        } else if (line.kind == Kind::profileVertex || IsKept(line)) {
            profil.Ny(1, &line.vertex);
        } else if (line.kind == Kind::bad || line.kind == Kind::badProfileVertex) {
            kvarn::ReportBadLine(line.line.text);
        }
    }
    plan.Reset();
    profil.Reset();
    return 0;
}

int CVag2::Init(CString path) {
    return Init(path.GetString());
}

int CVag2::Uppdat(char const* path) try {
    bool const isProfileAlone = plan.Home() != 0 && profil.Home() == 0;
    std::string text;
    if (isProfileAlone) {
        kvarn::CopyText(profil.namn, sizeof profil.namn, kvarn::FieldText(namn));
        kvarn::AppendLine(text, profil, kvarn::FieldText(namn));
    } else {
        kvarn::AppendLine(text, plan, kvarn::FieldText(namn));
        AppendProfilePart(text, profil);
    }
    return kvarn::WriteRoadFile(path, text, m_notRead);
} catch (std::bad_alloc const&) {
    return -1;
}

int CVag2::Uppdat(CString path) {
    return Uppdat(path.GetString());
}
