#include "stodpunkt.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "../core/message.h"
#include "../core/messageout.h"
#include "../files/textfil.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/letters.h"
#include "../text/scan.h"
#include "../text/text.h"
#include "datafil.h"

template class KVARNPROG_LIST_DEFINE list0<stdpkttype>;

stdhuvudtype CStodPunkt::m_standardhuvud{};

namespace {

std::string NamnUr(std::string_view path) {
    constexpr std::size_t tillagg = 4; // ".xxx"
    std::string_view const stam = path.substr(0, std::max(path.size(), tillagg) - tillagg);
    std::size_t const dollar = stam.rfind('$');
    std::size_t const antal = dollar == std::string_view::npos ? 0 : dollar + 1;
    return std::string(stam.substr(stam.size() - antal));
}

// Over the float and the four bytes after it, as the programs have always read it.
void LaggOver(stdhuvudtype& huvud, double tal) {
    static_assert(sizeof tal == sizeof huvud.varde6 + sizeof huvud.ovrigt);
    char bytes[sizeof tal];
    std::memcpy(bytes, &tal, sizeof tal);
    std::memcpy(&huvud.varde6, bytes, sizeof huvud.varde6);
    std::memcpy(huvud.ovrigt, bytes + sizeof huvud.varde6, sizeof huvud.ovrigt);
}

void LasHuvud(stdhuvudtype& huvud, kvarn::LineReader& rader) {
    auto const harTal = [](std::string_view rad) {
        return !rad.empty() && !kvarn::IsStarLine(rad);
    };
    std::string_view rad;
    for (double& varde : huvud.varden) {
        if (rader.ReadLine(rad) && harTal(rad)) {
            kvarn::Scan(rad, varde);
        }
    }
    double varde6 = 0;
    if (!rader.ReadLine(rad) || !harTal(rad)) {
        huvud.varde6 = 0;
    } else if (kvarn::Scan(rad, varde6) == 1) {
        LaggOver(huvud, varde6);
    }
    while (rader.ReadLine(rad) && harTal(rad)) {
    }
}

stdpkttype LasPunkt(std::string_view namn, kvarn::LineReader& rader) {
    stdpkttype punkt{};
    std::string_view ord;
    kvarn::Scan(namn, ord);
    kvarn::CopyText(punkt.namn, sizeof punkt.namn, ord);
    std::string_view rad;
    if (rader.ReadLine(rad)) {
        kvarn::Scan(rad, punkt.niva);
    }
    if (rader.ReadLine(rad) && !rad.empty()) {
        auto& v = punkt.varden;
        kvarn::Scan({MessageBuffer(), kvarn::messageBufferSize}, v[0], v[1], v[2], v[3], v[4],
                    v[5]);
    }
    return punkt;
}

} // namespace

CStodPunkt::CStodPunkt(char const* path) : m_huvud(m_standardhuvud), m_gvy(0), m_skrivkrok(1) {
    std::string text;
    if (path == nullptr) {
        return;
    }
    if (!kvarn::LasDatafil(path, text, m_ejLast)) {
        kvarn::Notify(kvarn::Format("Kan ej öppna stödpunkt : %s"_1252, path));
        return;
    }
    m_filnamn = path;
    m_namn = NamnUr(path).c_str();
    kvarn::LineReader rader{std::string_view(text)};
    LasHuvud(m_huvud, rader);
    std::string_view rad;
    while (rader.ReadLine(rad) && !kvarn::IsStarLine(rad)) {
        std::string namn(rad);
        OemToAnsiNordic(namn.data());
        if (kvarn::SameText(namn, "gvy")) {
            if (rader.ReadLine(rad)) {
                kvarn::Scan(rad, m_gvy);
            }
            rader.ReadLine(rad);
        } else {
            stdpkttype punkt = LasPunkt(namn, rader);
            Ny(1, &punkt);
        }
    }
}

CStodPunkt::~CStodPunkt() = default;

int CStodPunkt::Uppdat(char const* path) {
    char const* const fil = path != nullptr ? path : m_filnamn.GetString();
    auto const& h = m_huvud.varden;
    std::string rader =
        kvarn::Format("%f\n%f\n%f\n%f\n%f\n%f\n*\n", h[0], h[1], h[2], h[3], h[4], m_huvud.varde6);
    if (std::fabs(m_gvy) > 0) {
        rader += kvarn::Format("gvy\n%9.4f\n\n", m_gvy);
    }
    bool const nagon = Home() == 0;
    for (bool finns = nagon; finns; finns = (*this)++ != nullptr) {
        auto const& v = m_aktpost->varden;
        rader += kvarn::Format("%s\n%9.4f\n%6.2f %6.2f %6.2f %6.2f %6.2f %6.2f\n",
                               kvarn::FieldText(m_aktpost->namn), m_aktpost->niva, v[0], v[1], v[2],
                               v[3], v[4], v[5]);
    }
    rader += nagon ? "*\n" : "";
    kvarn::Rewritten const resultat = kvarn::SkrivDatafil(fil, kvarn::InTextMode(rader), m_ejLast);
    if (resultat == kvarn::Rewritten::cannotOpen) {
        kvarn::Notify(kvarn::Format("Kan ej skapa/uppdatera stödpunkt : %s"_1252, fil));
    }
    return resultat == kvarn::Rewritten::done ? 0 : -1;
}

int CStodPunkt::Uppdat(CString path) {
    return Uppdat(path.GetString());
}
