#include "keyfile.h"

#include <array>

std::vector<std::string> const& Keys() {
    static std::vector<std::string> const keys = {
        "HSKALA",        "LSKALA",       "BREDDLSP",    "VIMSKALA",   "SLBSKALA",    "HFASKALA",
        "JBSKALA",       "TRSKALA",      "TRSTEG",      "SHOWDZ",     "TAUSKALA",    "TAUSTEG",
        "SENSSKALA",     "SENSSTEG",     "VASKALA",     "VASTEG",     "DENSSKALA",   "DENSSTEG",
        "SGFLAB",        "IDHOJD",       "METHOJD",     "PROVHOJD",   "SKALHOJD",    "PLHOJDID",
        "PLHOJDNIV",     "PLSCALE",      "LTSCALE",     "STAMPVAL",   "PLANZ",       "PLANDJUP",
        "PLANLAGER",     "PROFNAME",     "DSKALA",      "TXTVIDD",    "DECIMAL",     "FONT",
        "LINJEBREDD",    "SEKTDIST",     "SEKTFIXDIST", "KODTYP",     "VIMFILTER",   "LABTEXT",
        "MTRLKOD",       "HFAVRID",      "IDSORT",      "PLSYMBFAC",  "FILTER",      "SEKTSTOLPE",
        "TOTALSEKT",     "CPTSEKT",      "DREIESEKT",   "DREIESKALA", "DTRYKKSKALA", "FJELLSKALA",
        "PORESKALA",     "P1SKALA",      "P2SKALA",     "ENKELSKALA", "VBSKALA",     "DREIETEGNING",
        "DTRYKKTEGNING", "FJELLTEGNING", "PORETEGNING", "P1TEGNING",  "P2TEGNING",   "ENKELTEGNING",
        "CPTTEGNING",    "VBTEGNING",    "TOTROTASJON", "TOTSPYLE",   "ARSPYLE",     "QTSKALA",
        "QTSTEG",        "FTSKALA",      "FTSTEG",      "USKALA",     "USTEG",       "U0",
        "PROJEKTNR",     "UPPDRAG",      "KOORDSYSTEM", "HOJDSYSTEM"};
    return keys;
}

std::string KeyLines() {
    constexpr std::array values = {"100", "1.0", "NEJ", "ORG", "2.5", "STANDARD", "0.02"};
    std::string lines;
    for (std::size_t i = 0; std::string const& key : Keys()) {
        lines.append(key).append("=").append(values[i++ % values.size()]).append("\r\n");
    }
    return lines;
}

std::string KeyLinesInSection() {
    return std::string("[").append(sectionName).append("]\r\n").append(KeyLines());
}
