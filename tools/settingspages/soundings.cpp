// Pages of the drawing program: soundings and tests. A unit is shown where the trade has one for
// the quantity and the default fits it.
#include "list.h"

namespace pages {

namespace {

using enum Kind;
using enum Side;

// Friction and pore pressure have one unit for users, whichever the file has.
constexpr Common kiloPascals = {"kPa", 3};

Text const drawings[] = {{"1. Ritning:", "1. Tegning:"}, {"2. Ritning:", "2. Tegning:"},
                         {"3. Ritning:", "3. Tegning:"}, {"4. Ritning:", "4. Tegning:"},
                         {"5. Ritning:", "5. Tegning:"}, {"6. Ritning:", "6. Tegning:"},
                         {"7. Ritning:", "7. Tegning:"}, {"8. Ritning:", "8. Tegning:"}};

std::vector<std::string_view> const small = {"20", "50", "100", "MAX"};
std::vector<std::string_view> const large = {"50", "100", "200", "300", "MAX"};
std::vector<std::string_view> const open = {"50", "100", "200", "-1"}; // its default is -1
std::vector<std::string_view> const drawn = {"0.5", "1.0", "2.0", "5.0"};
std::vector<std::string_view> const pressures = {"7", "14", "28", "MAX"};

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
                       {"hv/0,2 m", "½ omdr/0,2 m"},
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
                       pressures}},
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
        {"Laboratorium och koder", "Laboratorium og koder"},
        {
            {whole,
             {"Skalor och steg", "Skalaer og trinn"},
             {
                 {{2011,
                   "TAUSKALA",
                   combo,
                   {"1. Skjuvhållfasthet:", "1. Skjærstyrke:"},
                   "kPa",
                   {"20", "40", "80", "100", "MAX"}},
                  {2012, "TAUSTEG", number, steps[0]}},
                 {{2013, "SENSSKALA", combo, "2. Sensitivitet:", {}, {"40", "80", "160", "MAX"}},
                  {2014, "SENSSTEG", number, steps[1]}},
                 {{2015,
                   "VASKALA",
                   combo,
                   {"3. Vattenkvot:", "3. Vanninnhold:"},
                   "%",
                   {"40", "80", "160", "MAX"}},
                  {2016, "VASTEG", number, steps[2]}},
                 {{2017, "DENSSKALA", combo, "4. Densitet:", "t/m³", {"2.0", "2.5", "3.0", "MAX"}},
                  {2018, "DENSSTEG", number, steps[3]}},
             }},
            {whole,
             {"Redovisning", "Presentasjon"},
             {
                 {{2043, "LABTEXT", number, {"Laboratorietext:", "Laboratorietekst:"}}},
                 {{2019, "SGFLAB", check, {"Laboratorium enligt SGF", "Laboratorium etter SGF"}}},
             }},
            {whole,
             {"Koder", "Koder"},
             {
                 {{2041, "KODTYP", combo, {"Kodtyp:", "Kodetype:"}, {}, {"SGF"}}},
                 {{2044, "MTRLKOD", combo, {"Materialkod:", "Materialkode:"}, {}, {"STANDARD"}}},
             }},
        }};
}

Page CptAndTotal() {
    return {
        5,
        "CPT_TOTAL",
        File::kvarnbok,
        {"CPT och totalsondering", "CPT og totalsondering"},
        {
            {whole,
             {"CPT: skalor och steg", "CPT: skalaer og trinn"},
             {
                 {{2070,
                   "QTSKALA",
                   combo,
                   {"1. Spetstryck qt:", "1. Spissmotstand qt:"},
                   "MPa",
                   {"5", "10", "20", "MAX"}},
                  {2071, "QTSTEG", number, steps[0]}},
                 {{2072,
                   "FTSKALA",
                   combo,
                   {"2. Mantelfriktion ft:", "2. Sidefriksjon ft:"},
                   "MPa",
                   {"0.05", "0.10", "0.20", "MAX"},
                   kiloPascals},
                  {2073, "FTSTEG", number, steps[1], {}, {}, kiloPascals}},
                 {{2074,
                   "USKALA",
                   combo,
                   {"3. Portryck u:", "3. Poretrykk u:"},
                   "MPa",
                   {"0.4", "0.8", "1.6", "MAX"},
                   kiloPascals},
                  {2076, "USTEG", number, steps[2], {}, {}, kiloPascals}},
             }},
            {left,
             "CPT",
             {
                 {{2077, "U0", number, {"Portryck u0:", "Poretrykk u0:"}, "MPa", {}, kiloPascals}},
                 {{2066, "CPTTEGNING", combo, {"Ritning:", "Tegning:"}, {}, drawn}},
                 {{2051, "CPTSEKT", combo, {"I sektion:", "I snitt:"}, {}, {"ORG"}}},
             }},
            {right,
             "Totalsondering",
             {
                 {{2050, "TOTALSEKT", combo, {"I sektion:", "I snitt:"}, {}, {"ORG"}}},
                 {{2078, "TOTROTASJON", number, {"Rotation:", "Rotasjon:"}}},
                 {{2079, "TOTSPYLE", number, {"Spolning:", "Spyling:"}}},
                 {{2080, "ARSPYLE", number, {"Spolning AR:", "Spyling AR:"}}},
             }},
        }};
}

// The methods keep their Norwegian names where Swedish has none.
Page NorwegianSoundings() {
    return {6,
            "NORSKA",
            File::kvarnbok,
            {"Norska sonderingar", "Norske sonderinger"},
            {
                {whole,
                 {"Skalor och ritning", "Skalaer og tegning"},
                 {
                     {{2053, "DREIESKALA", combo, "1. Dreiesondering:", {}, large},
                      {2060, "DREIETEGNING", combo, drawings[0], {}, drawn}},
                     {{2054,
                       "DTRYKKSKALA",
                       combo,
                       "2. Dreietrykksondering:",
                       {},
                       {"15", "30", "60", "MAX"}},
                      {2061, "DTRYKKTEGNING", combo, drawings[1], {}, drawn}},
                     {{2055, "FJELLSKALA", combo, "3. Fjellkontrollboring:", {}, large},
                      {2062, "FJELLTEGNING", combo, drawings[2], {}, drawn}},
                     {{2056, "PORESKALA", combo, {"4. Portryck:", "4. Poretrykk:"}, {}, open},
                      {2063, "PORETEGNING", combo, drawings[3], {}, drawn}},
                     {{2057, "P1SKALA", combo, "5. Sondering P1:", {}, small},
                      {2064, "P1TEGNING", combo, drawings[4], {}, drawn}},
                     {{2058, "P2SKALA", combo, "6. Sondering P2:", {}, small},
                      {2065, "P2TEGNING", combo, drawings[5], {}, drawn}},
                     {{2059, "ENKELSKALA", combo, "7. Enkel sondering:", {}, large},
                      {2067, "ENKELTEGNING", combo, drawings[6], {}, drawn}},
                     {{2068, "VBSKALA", combo, {"8. Vingborrning:", "8. Vingeboring:"}, {}, open},
                      {2069, "VBTEGNING", combo, drawings[7], {}, drawn}},
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
                 {{2201, "SJUNKSKALA", combo, {"1. Sjunkning:", "1. Synkning:"}, "s/0,2 m", large},
                  {2202, "SJUNKSTEG", number, steps[0]}},
                 {{2203, "HASTSKALA", combo, "2. Hastighet:", {}, {"20", "40", "80", "MAX"}},
                  {2204, "HASTSTEG", number, steps[1]}},
                 {{2205,
                   "KRAFTSKALA",
                   combo,
                   {"3. Matningskraft:", "3. Matekraft:"},
                   "kN",
                   {"15", "30", "60", "MAX"}},
                  {2206, "KRAFTSTEG", number, steps[2]}},
                 {{2207,
                   "RPMSKALA",
                   combo,
                   {"4. Varvtal (rpm):", "4. Turtall (rpm):"},
                   {"varv/min", "omdr/min"},
                   large},
                  {2208, "RPMSTEG", number, steps[3]}},
                 {{2209,
                   "SPOLSKALA",
                   combo,
                   {"5. Spoltryck:", "5. Spyletrykk:"},
                   "MPa",
                   {"1", "2", "4", "MAX"}},
                  {2210, "SPOLSTEG", number, steps[4]}},
                 {{2211,
                   "FLODESKALA",
                   combo,
                   {"6. Spolflöde:", "6. Spylemengde:"},
                   "l/min",
                   {"25", "50", "100", "MAX"}},
                  {2212, "FLODESTEG", number, steps[5]}},
                 {{2213,
                   "HAMMARSKALA",
                   combo,
                   {"7. Hammartryck:", "7. Hammertrykk:"},
                   "MPa",
                   {"5", "10", "20", "MAX"}},
                  {2214, "HAMMARSTEG", number, steps[6]}},
                 {{2215,
                   "TRYCKSKALA",
                   combo,
                   {"8. Tryck:", "8. Trykk:"},
                   {},
                   {"5", "10", "20", "MAX"}},
                  {2216, "TRYCKSTEG", number, steps[7]}},
                 {{2217,
                   "QTSKALA",
                   combo,
                   {"9. Spetstryck qt:", "9. Spissmotstand qt:"},
                   "MPa",
                   pressures},
                  {2218, "QTSTEG", number, steps[8]}},
                 {{2219,
                   "FTSKALA",
                   combo,
                   {"10. Mantelfriktion ft:", "10. Sidefriksjon ft:"},
                   "kPa",
                   large},
                  {2220, "FTSTEG", number, steps[9]}},
                 {{2221,
                   "USKALA",
                   combo,
                   {"11. Portryck u:", "11. Poretrykk u:"},
                   "kPa",
                   {"300", "600", "1200", "MAX"}},
                  {2222, "USTEG", number, steps[10]}},
             }},
        }};
}

} // namespace

std::vector<Page> SoundingPages() {
    return {Soundings(), Laboratory(), CptAndTotal(), NorwegianSoundings(), Jb23()};
}

} // namespace pages
