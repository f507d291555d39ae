#include "keyfile.h"

#include <iterator>

namespace {

constexpr char const* keys[] = {
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
constexpr char const* values[] = {"100", "1.0", "NEJ", "ORG", "2.5", "STANDARD", "0.02"};

} // namespace

Settings KeyFile(std::size_t count) {
    Settings settings;
    settings.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        std::string const key = i < std::size(keys) ? keys[i] : "NYCKEL" + std::to_string(i);
        settings.push_back({key, values[i % std::size(values)]});
    }
    return settings;
}

Settings Page() {
    constexpr std::size_t count = 78;
    return KeyFile(count);
}

std::string KeyLines(Settings const& settings) {
    std::string lines;
    for (Setting const& setting : settings) {
        lines.append(setting.key).append("=").append(setting.value).append("\r\n");
    }
    return lines;
}

std::string KeyLinesInSection(Settings const& settings) {
    return std::string("[").append(sectionName).append("]\r\n").append(KeyLines(settings));
}
