#include "vagfil.h"

#include "../compat/codepage.h"
#include "../core/format.h"
#include "../core/messageout.h"
#include "../core/scan.h"
#include "../core/textfil.h"
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

void SkrivVaglinje(std::string& ut, CVaglinje& linje, std::string_view namn) {
    std::string const huvud = Format(" %d $%s\n", linje.typ, namn); // ends the first line
    std::string_view slut = huvud;
    for (bool finns = linje.Home() == 0; finns; finns = linje++ != nullptr) {
        kovltype const& v = *linje.Get_aktel();
        ut += Format("%.4lf %.4lf %.4lf %.4lf", v.x, v.y, v.bulge, v.sektion);
        AppendTextMode(ut, slut);
        slut = "\n";
    }
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
