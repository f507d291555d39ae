#include "vagfil.h"

#include "../core/messageout.h"
#include "../files/textfil.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "datafil.h"

namespace kvarn {
namespace {

void AnmalEjOppnad(char const* path) {
    Notify(Format("Kan ej öppna väglinje : %s"_1252, path));
}

} // namespace

Vaghuvud LasVaghuvud(std::string_view rad) {
    std::string text(rad);
    OemToAnsiNordic(text.data());
    Vaghuvud huvud{};
    huvud.antal = Scan(text, huvud.x, huvud.y, huvud.bulge, huvud.sektion, huvud.typ);
    std::size_t const dollar = text.find('$');
    if (dollar != std::string::npos) {
        huvud.namn = text.substr(dollar + 1, text.find('$', dollar + 1) - dollar - 1);
    }
    return huvud;
}

bool LasVertex(std::string_view rad, kovltype& vertex) {
    constexpr int alla = 4;
    return Scan(rad, vertex.x, vertex.y, vertex.bulge, vertex.sektion) == alla;
}

std::string Header(std::int32_t typ, std::string_view namn) {
    return Format(" %d $%s\n", typ, namn);
}

void AppendVertex(std::string& out, kovltype const& vertex, std::string_view end) {
    out += Format("%.4lf %.4lf %.4lf %.4lf", vertex.x, vertex.y, vertex.bulge, vertex.sektion);
    AppendTextMode(out, end);
}

bool LasVagfil(char const* path, std::string& text, CString& ejLast) {
    bool const last = LasDatafil(path, text, ejLast);
    if (!last) {
        AnmalEjOppnad(path);
    }
    return last;
}

int SkrivVagfil(char const* path, std::string_view text, CString const& ejLast) {
    Rewritten const resultat = SkrivDatafil(path, text, ejLast);
    if (resultat == Rewritten::cannotOpen) {
        AnmalEjOppnad(path);
    }
    return resultat == Rewritten::done ? 0 : -1;
}

void AnmalFelRad(std::string_view rad) {
    SetLastMessage(Format("Fel rad : %s", rad));
    StatusText(std::string(rad).c_str());
}

} // namespace kvarn
