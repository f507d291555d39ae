// Pages of the drawing program: soundings and tests. A unit is shown where the trade has one for
// the quantity and the default fits it.
#include "list.h"

namespace pages {

namespace {

using enum Kind;
using enum Side;

Text const step = {"Steg:", "Trinn:"};
Text const drawing = {"Ritning:", "Tegning:"};

std::vector<std::string_view> const small = {"20", "50", "100", "MAX"};
std::vector<std::string_view> const large = {"50", "100", "200", "300", "MAX"};
std::vector<std::string_view> const open = {"-1", "50", "100", "200", "MAX"};

Page Soundings() {
    return {3,
            "SONDERING",
            File::kvarnbok,
            "Sondering",
            {
                {whole,
                 {"Skalor", "Skalaer"},
                 {
                     {{2004,
                       "VIMSKALA",
                       combo,
                       {"Viktsondering (Vim):", "Vektsondering (Vim):"},
                       "hv/0,2 m",
                       small}},
                     {{2005, "SLBSKALA", combo, "Slagsondering (Slb):", "s/0,2 m", small}},
                     {{2006,
                       "HFASKALA",
                       combo,
                       {"Hejarsondering (HfA):", "Ramsondering (HfA):"},
                       "slag/0,2 m",
                       large}},
                     {{2007, "JBSKALA", combo, "Jord-bergsondering (Jb):", "s/0,2 m", large}},
                     {{2008,
                       "TRSKALA",
                       combo,
                       {"Trycksondering (Tr):", "Trykksondering (Tr):"},
                       {},
                       {"7", "14", "28", "MAX"}}},
                     {{2009, "TRSTEG", number, {"Steg för Tr:", "Trinn for Tr:"}}},
                 }},
                {whole,
                 {"Redovisning", "Presentasjon"},
                 {
                     {{2042, "VIMFILTER", number, {"Filter för Vim:", "Filter for Vim:"}}},
                     {{2045, "HFAVRID", number, {"Vridning vid HfA:", "Dreining ved HfA:"}}},
                 }},
            }};
}

Page Laboratory() {
    return {
        4,
        "LABORATORIUM",
        File::kvarnbok,
        "Laboratorium",
        {
            {whole,
             {"Skalor", "Skalaer"},
             {
                 {{2011,
                   "TAUSKALA",
                   combo,
                   {"Skjuvhållfasthet:", "Skjærstyrke:"},
                   "kPa",
                   {"20", "40", "80", "100", "MAX"}},
                  {2012, "TAUSTEG", number, step}},
                 {{2013, "SENSSKALA", combo, "Sensitivitet:", {}, {"40", "80", "160", "MAX"}},
                  {2014, "SENSSTEG", number, step}},
                 {{2015,
                   "VASKALA",
                   combo,
                   {"Vattenkvot:", "Vanninnhold:"},
                   "%",
                   {"40", "80", "160", "MAX"}},
                  {2016, "VASTEG", number, step}},
                 {{2017, "DENSSKALA", combo, "Densitet:", "t/m³", {"2.0", "2.5", "3.0", "MAX"}},
                  {2018, "DENSSTEG", number, step}},
             }},
            {whole,
             {"Redovisning", "Presentasjon"},
             {
                 {{2043, "LABTEXT", number, {"Laboratorietext:", "Laboratorietekst:"}}},
                 {{2019, "SGFLAB", check, {"Laboratorium enligt SGF", "Laboratorium etter SGF"}}},
             }},
        }};
}

Page CptAndTotal() {
    return {5,
            "CPT_TOTAL",
            File::kvarnbok,
            {"CPT och totalsondering", "CPT og totalsondering"},
            {
                {whole,
                 {"CPT, skalor", "CPT, skalaer"},
                 {
                     {{2070,
                       "QTSKALA",
                       combo,
                       {"Spetstryck qt:", "Spissmotstand qt:"},
                       "MPa",
                       {"5", "10", "20", "MAX"}},
                      {2071, "QTSTEG", number, step}},
                     {{2072,
                       "FTSKALA",
                       combo,
                       {"Mantelfriktion ft:", "Sidefriksjon ft:"},
                       "MPa",
                       {"0.05", "0.10", "0.20", "MAX"}},
                      {2073, "FTSTEG", number, step}},
                     {{2074,
                       "USKALA",
                       combo,
                       {"Portryck u:", "Poretrykk u:"},
                       "MPa",
                       {"0.4", "0.8", "1.6", "MAX"}},
                      {2076, "USTEG", number, step}},
                 }},
                {left,
                 "CPT",
                 {
                     {{2077, "U0", number, {"Portryck u0:", "Poretrykk u0:"}}},
                     {{2066, "CPTTEGNING", combo, drawing, {}, factors}},
                     {{2051, "CPTSEKT", combo, {"CPT i sektion:", "CPT i snitt:"}, {}, {"ORG"}}},
                 }},
                {right,
                 "Totalsondering",
                 {
                     {{2050, "TOTALSEKT", combo, {"Tot i sektion:", "Tot i snitt:"}, {}, {"ORG"}}},
                     {{2078, "TOTROTASJON", number, {"Rotation:", "Rotasjon:"}}},
                     {{2079, "TOTSPYLE", number, {"Spolning:", "Spyling:"}}},
                     {{2080, "ARSPYLE", number, {"Spolning AR:", "Spyling AR:"}}},
                 }},
            }};
}

// The methods keep their Norwegian names where Swedish has none.
Page NorwegianSoundings() {
    return {
        6,
        "NORSKA",
        File::kvarnbok,
        {"Norska sonderingar", "Norske sonderinger"},
        {
            {whole,
             {"Skala och ritning", "Skala og tegning"},
             {
                 {{2053, "DREIESKALA", combo, "Dreiesondering:", {}, large},
                  {2060, "DREIETEGNING", number, drawing}},
                 {{2054,
                   "DTRYKKSKALA",
                   combo,
                   "Dreietrykksondering:",
                   {},
                   {"15", "30", "60", "MAX"}},
                  {2061, "DTRYKKTEGNING", number, drawing}},
                 {{2055, "FJELLSKALA", combo, "Fjellkontrollboring:", {}, large},
                  {2062, "FJELLTEGNING", number, drawing}},
                 {{2056, "PORESKALA", combo, {"Portryck:", "Poretrykk:"}, {}, open},
                  {2063, "PORETEGNING", number, drawing}},
                 {{2057, "P1SKALA", combo, "P1:", {}, small}, {2064, "P1TEGNING", number, drawing}},
                 {{2058, "P2SKALA", combo, "P2:", {}, small}, {2065, "P2TEGNING", number, drawing}},
                 {{2059, "ENKELSKALA", combo, "Enkel sondering:", {}, large},
                  {2067, "ENKELTEGNING", number, drawing}},
                 {{2068, "VBSKALA", combo, {"Vingborrning:", "Vingeboring:"}, {}, open},
                  {2069, "VBTEGNING", number, drawing}},
             }},
            {whole,
             "Dreiesondering",
             {
                 {{2052, "DREIESEKT", combo, {"I sektion:", "I snitt:"}, {}, {"ORG"}}},
             }},
        }};
}

// In the order of the file's lines: a program that writes a short file must write them in turn.
Page Jb23() {
    return {
        7,
        "JB23",
        File::jb23,
        "Jb2/Jb3",
        {
            {whole,
             {"Skalor och steg", "Skalaer og trinn"},
             {
                 {{2201, "SJUNKSKALA", combo, {"Sjunkning:", "Synk:"}, "s/0,2 m", large},
                  {2202, "SJUNKSTEG", number, step}},
                 {{2203, "HASTSKALA", combo, "Hastighet:", {}, {"20", "40", "80", "MAX"}},
                  {2204, "HASTSTEG", number, step}},
                 {{2205,
                   "KRAFTSKALA",
                   combo,
                   {"Matningskraft:", "Matekraft:"},
                   "kN",
                   {"15", "30", "60", "MAX"}},
                  {2206, "KRAFTSTEG", number, step}},
                 {{2207,
                   "RPMSKALA",
                   combo,
                   {"Varvtal:", "Omdreiningstall:"},
                   {"varv/min", "omdr/min"},
                   large},
                  {2208, "RPMSTEG", number, step}},
                 {{2209,
                   "SPOLSKALA",
                   combo,
                   {"Spoltryck:", "Spyletrykk:"},
                   "MPa",
                   {"1", "2", "4", "MAX"}},
                  {2210, "SPOLSTEG", number, step}},
                 {{2211,
                   "FLODESKALA",
                   combo,
                   {"Spolflöde:", "Spylestrøm:"},
                   "l/min",
                   {"25", "50", "100", "MAX"}},
                  {2212, "FLODESTEG", number, step}},
                 {{2213,
                   "HAMMARSKALA",
                   combo,
                   {"Hammartryck:", "Hammertrykk:"},
                   "MPa",
                   {"5", "10", "20", "MAX"}},
                  {2214, "HAMMARSTEG", number, step}},
                 {{2215, "TRYCKSKALA", combo, {"Tryck:", "Trykk:"}, {}, {"5", "10", "20", "MAX"}},
                  {2216, "TRYCKSTEG", number, step}},
                 {{2217,
                   "QTSKALA",
                   combo,
                   {"Spetstryck qt:", "Spissmotstand qt:"},
                   "MPa",
                   {"7", "14", "28", "MAX"}},
                  {2218, "QTSTEG", number, step}},
                 {{2219,
                   "FTSKALA",
                   combo,
                   {"Mantelfriktion ft:", "Sidefriksjon ft:"},
                   "kPa",
                   large},
                  {2220, "FTSTEG", number, step}},
                 {{2221,
                   "USKALA",
                   combo,
                   {"Portryck u:", "Poretrykk u:"},
                   "kPa",
                   {"300", "600", "1200", "MAX"}},
                  {2222, "USTEG", number, step}},
             }},
        }};
}

} // namespace

std::vector<Page> SoundingPages() {
    return {Soundings(), Laboratory(), CptAndTotal(), NorwegianSoundings(), Jb23()};
}

} // namespace pages
