#include "bergormatelista.h"

#include <map>
#include <utility>

#include "../formats/kodtexts.h"
#include "../formats/stenkod.h"
#include "../host/clienttext.h"
#include "../project/searchorder.h"
#include "../text/text.h"
#include "datafile.h"
#include "materialtable.h"

template class KVARNPROG_LIST_DEFINE list0<bergmattype>;

namespace {

using kvarn::Material;
using kvarn::MaterialKind;

MaterialKind KindOf(CBergOrMateLista const& list) {
    return list.m_slag == 0   ? MaterialKind::rock
           : list.m_slag == 1 ? MaterialKind::fill
                              : MaterialKind::soil;
}

bool IsNorwegian(CBergOrMateLista const& list) {
    return list.m_norsk == 1;
}

// The file that is in force; empty without one, and for a list without a section.
CString FileOf(CBergOrMateLista const& list) {
    return kvarn::HasSection(KindOf(list))
               ? kvarn::FirstFound(list.m_proj, list.m_ini,
                                   IsNorwegian(list) ? CBergOrMateLista::FILNAMNN
                                                     : CBergOrMateLista::FILNAMN)
               : CString();
}

bergmattype RecordOf(Material const& material) {
    static_assert(sizeof bergmattype::namn == kvarn::longestMaterialName + 1);
    static_assert(sizeof bergmattype::text == kvarn::longestMaterialText + 1);
    bergmattype record = {.nr = material.number,
                          .monster = material.pattern,
                          .flagga = material.flag,
                          .skala = material.scale,
                          .vinkel = material.angle,
                          .namn = "",
                          .text = ""};
    kvarn::CopyText(record.namn, sizeof record.namn, material.name);
    kvarn::CopyText(record.text, sizeof record.text, material.text);
    return record;
}

Material MaterialOf(bergmattype const& record) {
    return {.number = record.nr,
            .name = kvarn::FieldText(record.namn),
            .text = kvarn::FieldText(record.text),
            .scale = record.skala,
            .pattern = record.monster,
            .angle = record.vinkel,
            .flag = record.flagga};
}

// Makes the first entry with the number current; false when there is none.
bool GoTo(CBergOrMateLista& list, int number) {
    bool there = list.Home() == 0;
    while (there && list.Get_aktel()->nr != number) {
        there = list++ != nullptr;
    }
    return there;
}

// A built-in entry keeps its pattern, its flag and its name.
void Change(bergmattype& entry, Material const& line, bool withName) {
    entry.skala = line.scale;
    entry.vinkel = line.angle;
    kvarn::CopyText(entry.text, sizeof entry.text, line.text);
    if (withName) {
        kvarn::CopyText(entry.namn, sizeof entry.namn, line.name);
    }
}

// The first entry of each number: a file may have very many lines.
std::map<int, bergmattype*> FirstOfEach(CBergOrMateLista& list) {
    std::map<int, bergmattype*> entries;
    for (bool there = list.Home() == 0; there; there = list++ != nullptr) {
        entries.try_emplace(list.Get_aktel()->nr, list.Get_aktel());
    }
    return entries;
}

// From the table's count on a line gives its entry a name too.
void ReadSection(CBergOrMateLista& list, std::string_view text, std::size_t tableSize) {
    std::map<int, bergmattype*> entries = FirstOfEach(list);
    kvarn::LineReader lines(text);
    kvarn::MaterialReader section(lines, KindOf(list), IsNorwegian(list));
    int changed = 0; // by the last line: it leaves that entry current
    bool isChange = false;
    for (kvarn::MaterialLine line; section.Next(line);) {
        if (!line.IsRead() || line.isShift) {
            continue;
        }
        Material const material = line.Completed();
        auto const entry = line.changes ? entries.find(*line.changes) : entries.end();
        if (entry != entries.end()) {
            changed = entry->first;
            isChange = true;
            Change(*entry->second, material, material.number >= static_cast<int>(tableSize));
        } else {
            bergmattype record = RecordOf(material);
            list.Ny(1, &record);
            entries.try_emplace(record.nr, list.Get_aktel());
            isChange = false;
        }
    }
    if (isChange) {
        GoTo(list, changed);
    }
}

// Null gives an empty section.
template <class Text> std::string SectionText(CBergOrMateLista* list, Text textOf) {
    std::string text;
    for (bool there = list != nullptr && list->Home() == 0; there; there = (*list)++ != nullptr) {
        text += textOf(MaterialOf(*list->Get_aktel()));
    }
    kvarn::AppendTextMode(text, kvarn::endLine);
    return text;
}

} // namespace

CBergOrMateLista::CBergOrMateLista(CAutoIni* ini, CProjPath* projekt, int slag, int norsk)
    : m_slag(slag), m_norsk(norsk), m_ini(ini), m_proj(projekt) {}

CBergOrMateLista::~CBergOrMateLista() = default;

int CBergOrMateLista::Init() {
    auto const table = kvarn::MaterialTable(KindOf(*this), IsNorwegian(*this));
    std::int16_t number = 0;
    auto const add = [&](char const* name) {
        bergmattype record = RecordOf({.number = number++, .name = name});
        Ny(1, &record);
    };
    add(" ");
    for (char const* const name : table) {
        add(name);
    }
    CString const path = FileOf(*this);
    std::string text;
    if (!path.IsEmpty() && kvarn::ReadDataFile(path, text, m_notRead)) {
        ReadSection(*this, text, table.size());
    }
    return 0;
}

int CBergOrMateLista::Save(CBergOrMateLista* other) {
    CString const path = FileOf(*this);
    if (path.IsEmpty()) {
        return -1;
    }
    std::string text;
    CString notReadNow;
    bool const otherIsWhole = other == nullptr || other->m_notRead.IsEmpty();
    if (!otherIsWhole || !kvarn::ReadDataFile(path, text, notReadNow)) {
        return -2;
    }
    text = kvarn::BeforeSection(std::move(text), KindOf(*this));
    text += SectionText(this, kvarn::MaterialText);
    text += SectionText(other, [](Material const& material) {
        return kvarn::ShortMaterialText(material.number, material.name);
    });
    return kvarn::WriteDataFile(path, text, m_notRead) == kvarn::Rewritten::done ? 0 : -2;
}

CString CBergOrMateLista::Find(int nr) {
    return GoTo(*this, nr) ? kvarn::ToCString(kvarn::FieldText(m_aktpost->namn)) : CString("??");
}

int CBergOrMateLista::FindNr(CString& name) {
    for (bool there = Home() == 0; there; there = (*this)++ != nullptr) {
        if (kvarn::SameText(kvarn::FieldText(m_aktpost->namn), name.GetString())) {
            return m_aktpost->nr;
        }
    }
    return 0;
}
