#include "vag2.h"

#include <cmath>

#include "../core/message.h"
#include "../files/textfil.h"
#include "../text/format.h"
#include "../text/scan.h"
#include "../text/text.h"
#include "vagfil.h"

namespace {

constexpr char stjarna = '*';

// A plan or a profile, by the header and, where that does not tell, by the first two lines.
std::int32_t Slag(kvarn::Vaghuvud const& huvud, std::string_view andraRaden) {
    constexpr double lika = 0.1; // metres, between the two stations of a profile's vertex
    if (huvud.HarTyp() && (huvud.typ == kvarn::vagtypPlan || huvud.typ == kvarn::vagtypProfil)) {
        return huvud.typ;
    }
    kovltype andra{};
    bool const profil = huvud.HarVertex() && std::fabs(huvud.y - huvud.sektion) <= lika &&
                        kvarn::LasVertex(andraRaden, andra) &&
                        std::fabs(andra.y - andra.sektion) < lika;
    return profil ? kvarn::vagtypProfil : kvarn::vagtypPlan;
}

// What follows the stars: height, station and bulge a line.
void LasProfildel(kvarn::LineReader& rader, CVaglinje& profil) {
    constexpr int alla = 3;
    std::string_view rad;
    kovltype vertex{}; // keeps the numbers of the line before where a bad line is kept
    while (rader.ReadLine(rad)) {
        if (kvarn::Scan(rad, vertex.x, vertex.y, vertex.bulge) != alla &&
            *MessageBuffer() != stjarna) {
            kvarn::AnmalFelRad(rad);
            continue;
        }
        vertex.sektion = vertex.y;
        profil.Ny(1, &vertex);
    }
}

void SkrivProfildel(std::string& ut, CVaglinje& profil) {
    bool finns = profil.Home() == 0;
    kvarn::AppendTextMode(ut, finns ? "*\nProfil\n*\n" : "");
    for (; finns; finns = profil++ != nullptr) {
        kovltype const& v = *profil.Get_aktel();
        kvarn::AppendTextMode(ut, kvarn::Format("%.4lf %.4lf %.4lf\n", v.x, v.y, v.bulge));
    }
}

} // namespace

CVag2::CVag2() : filnamn(), omrSekFran(0), omrSekTill(0), omrAvstMin(-30), omrAvstMax(30), namn() {
    plan.typ = kvarn::vagtypPlan;
    profil.typ = kvarn::vagtypProfil;
}

CVag2::~CVag2() = default;

int CVag2::Init(char const* path) {
    if (path == nullptr) {
        return 0;
    }
    std::string text;
    if (!kvarn::LasVagfil(path, text, m_ejLast)) {
        return -1;
    }
    kvarn::TaFilnamn(filnamn, path);

    std::int32_t slag = 0;
    std::string_view rad;
    kvarn::LineReader borjan{std::string_view(text)};
    if (borjan.ReadLine(rad)) {
        kvarn::Vaghuvud const huvud = kvarn::LasVaghuvud(rad);
        kvarn::CopyText(namn, sizeof namn, huvud.namn);
        slag = Slag(huvud, borjan.ReadLine(rad) ? rad : std::string_view());
    }

    CVaglinje& linje = slag == kvarn::vagtypPlan ? plan : profil;
    kvarn::LineReader rader{std::string_view(text)};
    while (rader.ReadLine(rad)) {
        kovltype vertex{};
        if (kvarn::LasVertex(rad, vertex)) {
            linje.Ny(1, &vertex);
        } else if (rad.starts_with(stjarna)) {
            rader.ReadLine(rad); // "Profil"
            rader.ReadLine(rad); // "*"
            LasProfildel(rader, profil);
        } else {
            kvarn::AnmalFelRad(rad);
        }
    }
    plan.Reset();
    profil.Reset();
    return 0;
}

int CVag2::Init(CString path) {
    return Init(path.GetString());
}

int CVag2::Uppdat(char const* path) {
    bool const baraProfil = plan.Home() != 0 && profil.Home() == 0;
    std::string text;
    if (baraProfil) {
        kvarn::CopyText(profil.namn, sizeof profil.namn, kvarn::FieldText(namn));
        kvarn::AppendLine(text, profil, kvarn::FieldText(namn));
    } else {
        kvarn::AppendLine(text, plan, kvarn::FieldText(namn));
        SkrivProfildel(text, profil);
    }
    return kvarn::SkrivVagfil(path != nullptr ? path : "", text, m_ejLast);
}

int CVag2::Uppdat(CString path) {
    return Uppdat(path.GetString());
}
