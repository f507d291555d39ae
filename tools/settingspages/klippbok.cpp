// Pages of the rock-drilling program.
#include "list.h"

namespace pages {

namespace {

using enum Kind;
using enum Side;

Text const most[] = {{"1. Max:", "1. Maks:"},
                     {"2. Max:", "2. Maks:"},
                     {"3. Max:", "3. Maks:"},
                     {"4. Max:", "4. Maks:"}};

Page Texts() {
    return {8,
            "KLIPPBOK_TEXTER",
            File::klippbok,
            {"Klippbok: texter och skalor", "Klippbok: tekster og skalaer"},
            {
                {left,
                 {"Texthöjder i sektion", "Teksthøyder i snitt"},
                 {
                     {{2301, "IDHOJD", combo, {"Id i sektion:", "Id i snitt:"}, "mm", heights}},
                     {{2302, "METHOJD", combo, {"Metod:", "Metode:"}, "mm", heights}},
                     {{2303, "PROVHOJD", combo, {"Prov:", "Prøve:"}, "mm", heights}},
                     {{2304, "SKALHOJD", combo, "Skala:", "mm", heights}},
                 }},
                {left,
                 {"Plan: texter och skala", "Plan: tekster og skala"},
                 {
                     {{2305, "PLHOJDID", combo, "Id i plan:", "mm", heights}},
                     {{2306, "PLHOJDNIV", combo, "Nivå:", "mm", heights}},
                     {{2307, "PLSCALE", combo, "Planskala:", {}, factors}},
                 }},
                {right,
                 {"Text", "Tekst"},
                 {
                     {{2314, "FONT", combo, {"Typsnitt:", "Font:"}, {}, {"TEXT"}}},
                     {{2312, "TXTVIDD", combo, {"Textvidd:", "Tekstbredde:"}, {}, factors}},
                     {{2313, "DECIMAL", combo, {"Decimaler:", "Desimaler:"}, {}, decimals}},
                 }},
                {right,
                 {"Skalor", "Skalaer"},
                 {
                     {{2308, "HSKALA", combo, {"Höjd 1:", "Høyde 1:"}, {}, drawingScales}},
                     {{2309, "LSKALA", combo, {"Längd 1:", "Lengde 1:"}, {}, drawingScales}},
                     {{2310, "DSKALA", combo, "D-skala:", {}, factors}},
                     {{2311, "BREDDLSP", combo, {"Bredd LSP:", "Bredde LSP:"}, {}, factors}},
                 }},
                {whole,
                 {"Linjer", "Linjer"},
                 {
                     {{2315,
                       "LINJEBREDD",
                       combo,
                       {"Linjebredd:", "Strektykkelse:"},
                       {},
                       {"NEJ", "FÄRG"}}},
                 }},
            }};
}

Page Curves() {
    return {
        9,
        "KLIPPBOK_KURVOR",
        File::klippbok,
        {"Klippbok: kurvor", "Klippbok: kurver"},
        {
            {whole,
             {"Max och steg", "Maks og trinn"},
             {
                 {{2316, "JBMAX", number, "1. Jord-bergsondering (Jb):", "s/0,2 m"}},
                 {{2317, "VFMAX", number, {"2. Kurva Vf:", "2. Kurve Vf:"}},
                  {2318, "VFSTEG", number, steps[1]}},
                 {{2319, "RBMAX", number, {"3. Kurva Rb:", "3. Kurve Rb:"}},
                  {2320, "RBSTEG", number, steps[2]}},
                 {{2321, "RBHMAX", number, "4. Rb, hastighet:"},
                  {2322, "RBHSTEG", number, steps[3]}},
                 {{2323, "RBKMAX", number, {"5. Rb, matningskraft:", "5. Rb, matekraft:"}, "kN"},
                  {2324, "RBKSTEG", number, steps[4]}},
                 {{2325,
                   "RBVMAX",
                   number,
                   {"6. Rb, varvtal:", "6. Rb, turtall:"},
                   {"varv/min", "omdr/min"}},
                  {2326, "RBVSTEG", number, steps[5]}},
                 {{2327, "RBSMAX", number, {"7. Rb, spoltryck:", "7. Rb, spyletrykk:"}, "MPa"},
                  {2328, "RBSSTEG", number, steps[6]}},
                 {{2329, "RBFMAX", number, {"8. Rb, spolflöde:", "8. Rb, spylemengde:"}, "l/min"},
                  {2330, "RBFSTEG", number, steps[7]}},
                 {{2331, "RBMMAX", number, {"9. Rb, hammartryck:", "9. Rb, hammertrykk:"}, "MPa"},
                  {2332, "RBMSTEG", number, steps[8]}},
                 {{2333, "RBVMMAX", number, {"10. Rb, vridmoment:", "10. Rb, dreiemoment:"}},
                  {2334, "RBVMSTEG", number, steps[9]}},
             }},
        }};
}

Page OwnCurves() {
    return {10,
            "KLIPPBOK_EGNA",
            File::klippbok,
            {"Klippbok: egna kurvor", "Klippbok: egne kurver"},
            {
                {whole,
                 {"Kurvor KB: namn, max och steg", "Kurver KB: navn, maks og trinn"},
                 {
                     {{2338, "KBNAMN1", name, {"1. Kurva KB:", "1. Kurve KB:"}},
                      {2342, "KBMAX1", number, most[0]},
                      {2343, "KBSTEG1", number, steps[0]}},
                     {{2339, "KBNAMN2", name, {"2. Kurva KB:", "2. Kurve KB:"}},
                      {2344, "KBMAX2", number, most[1]},
                      {2345, "KBSTEG2", number, steps[1]}},
                     {{2340, "KBNAMN3", name, {"3. Kurva KB:", "3. Kurve KB:"}},
                      {2346, "KBMAX3", number, most[2]},
                      {2347, "KBSTEG3", number, steps[2]}},
                     {{2341, "KBNAMN4", name, {"4. Kurva KB:", "4. Kurve KB:"}},
                      {2348, "KBMAX4", number, most[3]},
                      {2349, "KBSTEG4", number, steps[3]}},
                 }},
                {whole,
                 {"Kurvor Jb2/Jb3: namn", "Kurver Jb2/Jb3: navn"},
                 {
                     {{2350, "JB23NAMN1", name, {"Första kurva:", "Første kurve:"}}},
                     {{2351, "JB23NAMN2", name, {"Andra kurva:", "Andre kurve:"}}},
                 }},
                {left,
                 {"Seismik", "Seismikk"},
                 {
                     {{2335, "SEISL0", number, {"Gräns L0:", "Grense L0:"}}},
                     {{2336, "SEISL1", number, {"Gräns L1:", "Grense L1:"}}},
                 }},
                {right,
                 {"Läge", "Plassering"},
                 {
                     {{2352, "TUNPXYTOL", number, {"Tolerans xy:", "Toleranse xy:"}}},
                     {{2337, "PROJICERAD", check, {"Projicerad", "Projisert"}}},
                 }},
            }};
}

} // namespace

std::vector<Page> KlippbokPages() {
    return {Texts(), Curves(), OwnCurves()};
}

} // namespace pages
