#include "stodpunkt.h"

#include <algorithm>
#include <cstring>

#include "../core/message.h"
#include "../core/messageout.h"
#include "../formats/kodtexts.h"
#include "../formats/stodpunkt.h"
#include "../host/clienttext.h"
#include "../text/codepage.h"
#include "../text/format.h"
#include "../text/text.h"
#include "datafile.h"

template class KVARNPROG_LIST_DEFINE list0<stdpkttype>;

stdhuvudtype CStodPunkt::m_standardhuvud{};

namespace {

// The path without its extension of four characters holds the name: as many characters from its
// right end as there are up to its last "$".
std::string_view NameOf(std::string_view path) {
    constexpr std::size_t extension = 4; // ".xxx"
    std::string_view const stem = path.substr(0, std::max(path.size(), extension) - extension);
    std::size_t const dollar = stem.rfind('$');
    std::size_t const count = dollar == std::string_view::npos ? 0 : dollar + 1;
    return stem.substr(stem.size() - count);
}

// Known quirk, kept on purpose: the double lies over the float and the four bytes after it, as
// programs have always read it.
void LayOver(stdhuvudtype& header, double number) {
    static_assert(sizeof number == sizeof header.varde6 + sizeof header.ovrigt);
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    std::memcpy(&header.varde6, bytes, sizeof header.varde6);
    std::memcpy(header.ovrigt, bytes + sizeof header.varde6, sizeof header.ovrigt);
}

void TakeOver(stdhuvudtype& header, kvarn::StodpunktHeader const& read) {
    for (std::size_t i = 0; i < std::size(header.varden); ++i) {
        if (read.numbers[i].HoldsNumber()) {
            read.numbers[i].Read(header.varden[i]);
        }
    }
    kvarn::StodpunktLine const& sixth = read.numbers.back();
    double number = 0;
    if (!sixth.HoldsNumber()) {
        header.varde6 = 0;
    } else if (sixth.Read(number)) {
        LayOver(header, number);
    }
}

stdpkttype PointOf(kvarn::StodpunktBlock const& block) {
    static_assert(sizeof stdpkttype::namn == kvarn::longestStodpunkt + 1);
    stdpkttype point{};
    kvarn::CopyText(point.namn, sizeof point.namn, block.Name());
    block.level.Read(point.niva);
    if (!block.rest.line.text.empty()) { // known quirk, kept on purpose: not read from here
        kvarn::ReadValues({MessageBuffer(), kvarn::messageBufferSize}, point.varden);
    }
    return point;
}

} // namespace

CStodPunkt::CStodPunkt(char const* path) : m_huvud(m_standardhuvud), m_gvy(0), m_skrivkrok(1) {
    std::string text;
    if (path == nullptr) {
        return;
    }
    if (!kvarn::ReadDataFile(path, text, m_notRead)) {
        kvarn::Notify(kvarn::Format("Kan ej öppna stödpunkt : %s"_1252, path));
        return;
    }
    m_filnamn = path;
    m_namn = kvarn::ToCString(NameOf(path));
    kvarn::LineReader lines{std::string_view(text)};
    TakeOver(m_huvud, kvarn::StodpunktHeader(lines));
    kvarn::StodpunktReader blocks(lines);
    for (kvarn::StodpunktBlock block; blocks.Next(block);) {
        if (block.IsGvy()) {
            block.level.Read(m_gvy);
        } else {
            stdpkttype point = PointOf(block);
            Ny(1, &point);
        }
    }
}

CStodPunkt::~CStodPunkt() = default;

int CStodPunkt::Uppdat(char const* path) {
    path = path != nullptr ? path : m_filnamn.GetString();
    std::string text = kvarn::StodpunktHeaderText(m_huvud.varden, m_huvud.varde6);
    text += kvarn::GvyText(m_gvy);
    bool const hasPoints = Home() == 0;
    for (bool there = hasPoints; there; there = (*this)++ != nullptr) {
        text += kvarn::StodpunktText(kvarn::FieldText(m_aktpost->namn), m_aktpost->niva,
                                     m_aktpost->varden);
    }
    kvarn::AppendTextMode(text, hasPoints ? kvarn::endLine : "");
    kvarn::Rewritten const result = kvarn::WriteDataFile(path, text, m_notRead);
    if (result == kvarn::Rewritten::cannotOpen) {
        kvarn::Notify(kvarn::Format("Kan ej skapa/uppdatera stödpunkt : %s"_1252, path));
    }
    return result == kvarn::Rewritten::done ? 0 : -1;
}

int CStodPunkt::Uppdat(CString path) {
    return Uppdat(path.GetString());
}
