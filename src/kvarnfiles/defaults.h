// The built-in defaults of the settings files' keys. The first row of a key counts. What the keys
// mean is the business of the drawing programs.
#pragma once

#include <span>
#include <string_view>

#include "../formats/keyfile.h"
#include "../project/projpath.h"
#include "../text/codepage.h"
#include "../text/text.h"

namespace kvarn {

// The drawing program's "KVARNBOK.PAR".
inline constexpr KeyDefault kvarnDefaults[] = {
    {"HSKALA", "100"},        {"LSKALA", "100"},       {"BREDDLSP", "1.0"},
    {"VIMSKALA", "50"},       {"SLBSKALA", "50"},      {"HFASKALA", "200"},
    {"JBSKALA", "100"},       {"TRSKALA", "14"},       {"TRSTEG", "2"},
    {"SHOWDZ", "JA"},         {"TAUSKALA", "40"},      {"TAUSTEG", "10"},
    {"SENSSKALA", "80"},      {"SENSSTEG", "20"},      {"VASKALA", "80"},
    {"VASTEG", "20"},         {"DENSSKALA", "2.0"},    {"DENSSTEG", "0.5"},
    {"SGFLAB", "NEJ"},        {"IDHOJD", "3.5"},       {"METHOJD", "2.5"},
    {"PROVHOJD", "1.8"},      {"SKALHOJD", "2.5"},     {"PLHOJDID", "3.0"},
    {"PLHOJDNIV", "2.0"},     {"PLSCALE", "1.0"},      {"LTSCALE", "1.0"},
    {"STAMPVAL", "1"},        {"PLANZ", "NEJ"},        {"PLANDJUP", "NEJ"},
    {"PLANLAGER", "NEJ"},     {"PROFNAME", "NEJ"},     {"DSKALA", "1.5"},
    {"TXTVIDD", "1.0"},       {"DECIMAL", "2"},        {"FONT", "TEXT"},
    {"LINJEBREDD", "NEJ"},    {"SEKTDIST", "5.0"},     {"SEKTFIXDIST", "0.0"},
    {"KODTYP", "SGF"},        {"VIMFILTER", "3"},      {"LABTEXT", "0"},
    {"MTRLKOD", "STANDARD"},  {"HFAVRID", "10"},       {"IDSORT", "1"},
    {"PLSYMBFAC", "1.0"},     {"FILTER", "1"},         {"SEKTSTOLPE", "0"},
    {"TOTALSEKT", "ORG"},     {"CPTSEKT", "ORG"},      {"DREIESEKT", "ORG"},
    {"DREIESKALA", "300"},    {"DTRYKKSKALA", "30"},   {"FJELLSKALA", "300"},
    {"PORESKALA", "-1"},      {"P1SKALA", "50"},       {"P2SKALA", "50"},
    {"ENKELSKALA", "200"},    {"VBSKALA", "-1"},       {"DREIETEGNING", "1.0"},
    {"DTRYKKTEGNING", "5.0"}, {"FJELLTEGNING", "1.0"}, {"PORETEGNING", "1.0"},
    {"P1TEGNING", "1.0"},     {"P2TEGNING", "1.0"},    {"ENKELTEGNING", "1.0"},
    {"CPTTEGNING", "1.0"},    {"VBTEGNING", "1.0"},    {"TOTROTASJON", "35"},
    {"TOTSPYLE", "100"},      {"ARSPYLE", "1"},        {"QTSKALA", "10"},
    {"QTSTEG", "2"},          {"FTSKALA", "0.10"},     {"FTSTEG", "0.02"},
    {"USKALA", "0.8"},        {"USTEG", "0.2"},        {"U0", "0.1"},
};

// The Jb2/Jb3 scales "JB23.PAR"; the CPT keys differ from those above on purpose.
inline constexpr KeyDefault jb23Defaults[] = {
    {"SJUNKSKALA", "100"}, {"SJUNKSTEG", "50"},   {"HASTSKALA", "40"},  {"HASTSTEG", "10"},
    {"KRAFTSKALA", "30"},  {"KRAFTSTEG", "10"},   {"RPMSKALA", "100"},  {"RPMSTEG", "25"},
    {"SPOLSKALA", "2"},    {"SPOLSTEG", "0.5"},   {"FLODESKALA", "50"}, {"FLODESTEG", "25"},
    {"HAMMARSKALA", "10"}, {"HAMMARSTEG", "2.5"}, {"TRYCKSKALA", "10"}, {"TRYCKSTEG", "2.5"},
    {"QTSKALA", "14"},     {"QTSTEG", "2"},       {"FTSKALA", "100"},   {"FTSTEG", "50"},
    {"USKALA", "600"},     {"USTEG", "200"},
};

// The rock-drilling program's "KLIPPBOK.PAR".
inline constexpr KeyDefault stenDefaults[] = {
    {"IDHOJD", "3.5"},     {"METHOJD", "2.5"},  {"PROVHOJD", "1.8"},
    {"SKALHOJD", "2.5"},   {"PLHOJDID", "3.0"}, {"PLHOJDNIV", "2.0"},
    {"PLSCALE", "1.0"},    {"HSKALA", "100"},   {"LSKALA", "100"},
    {"DSKALA", "1.5"},     {"BREDDLSP", "1.0"}, {"TXTVIDD", "1.0"},
    {"DECIMAL", "2"},      {"FONT", "TEXT"},    {"LINJEBREDD", "FÄRG"_1252},
    {"JBMAX", "100"},      {"VFMAX", "40"},     {"VFSTEG", "10"},
    {"RBMAX", "100"},      {"RBSTEG", "50"},    {"RBHMAX", "40"},
    {"RBHSTEG", "10"},     {"RBKMAX", "15"},    {"RBKSTEG", "5"},
    {"RBVMAX", "100"},     {"RBVSTEG", "25"},   {"RBSMAX", "2"},
    {"RBSSTEG", "0.5"},    {"RBFMAX", "50"},    {"RBFSTEG", "25"},
    {"RBMMAX", "10"},      {"RBMSTEG", "2.5"},  {"RBVMMAX", "15"},
    {"RBVMSTEG", "5"},     {"SEISL0", "4500"},  {"SEISL1", "3500"},
    {"PROJICERAD", "NEJ"}, {"KBNAMN1", ""},     {"KBNAMN2", ""},
    {"KBNAMN3", ""},       {"KBNAMN4", ""},     {"KBMAX1", "0.0"},
    {"KBSTEG1", "0.0"},    {"KBMAX2", "0.0"},   {"KBSTEG2", "0.0"},
    {"KBMAX3", "0.0"},     {"KBSTEG3", "0.0"},  {"KBMAX4", "0.0"},
    {"KBSTEG4", "0.0"},    {"JB23NAMN1", ""},   {"JB23NAMN2", ""},
    {"TUNPXYTOL", "1.0"},
};

// The table of a settings file, by its plain name; empty for any other file.
inline std::span<KeyDefault const> DefaultsOf(std::string_view file) {
    if (SameText(file, CProjPath::KvarnParNamn)) {
        return kvarnDefaults;
    }
    if (SameText(file, CProjPath::Jb23ParNamn)) {
        return jb23Defaults;
    }
    if (SameText(file, CProjPath::StenParNamn)) {
        return stenDefaults;
    }
    return {};
}

} // namespace kvarn
