// Pages of the rock-drilling program.
#include "list.h"

namespace pages {

namespace {

using enum Kind;
using enum Side;

Text const step = {"Steg:", "Trinn:"};
Text const most = {"Max:", "Maks:"};

Page Texts() {
    return {8,
            "KLIPPBOK_TEXTER",
            File::klippbok,
            {"Klippbok: texter och skalor", "Klippbok: tekster og målestokker"},
            {
                {left,
                 {"Texthöjder i sektion", "Teksthøyder i snitt"},
                 {
                     {{2301, "IDHOJD", combo, "Id:", "mm", heights}},
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
                 {"Text och linjer", "Tekst og linjer"},
                 {
                     {{2314, "FONT", combo, {"Typsnitt:", "Skrifttype:"}, {}, {"TEXT"}}},
                     {{2312, "TXTVIDD", combo, {"Textvidd:", "Tekstvidde:"}, {}, factors}},
                     {{2313, "DECIMAL", combo, {"Decimaler:", "Desimaler:"}, {}, decimals}},
                     {{2315,
                       "LINJEBREDD",
                       combo,
                       {"Linjebredd:", "Linjebredde:"},
                       {},
                       {"NEJ", "FÄRG"}}},
                 }},
                {right,
                 {"Skalor", "Målestokker"},
                 {
                     {{2308, "HSKALA", combo, {"Höjd 1:", "Høyde 1:"}, {}, drawingScales}},
                     {{2309, "LSKALA", combo, {"Längd 1:", "Lengde 1:"}, {}, drawingScales}},
                     {{2310, "DSKALA", combo, "D-skala:", {}, factors}},
                     {{2311, "BREDDLSP", combo, {"Bredd LSP:", "Bredde LSP:"}, {}, factors}},
                 }},
            }};
}

Page Curves() {
    return {9,
            "KLIPPBOK_KURVOR",
            File::klippbok,
            {"Klippbok: kurvor", "Klippbok: kurver"},
            {
                {whole,
                 {"Största värde och steg", "Største verdi og trinn"},
                 {
                     {{2316, "JBMAX", number, "Jord-bergsondering (Jb):"}},
                     {{2317, "VFMAX", number, "Vf:"}, {2318, "VFSTEG", number, step}},
                     {{2319, "RBMAX", number, "Rb:"}, {2320, "RBSTEG", number, step}},
                     {{2321, "RBHMAX", number, "Rb, hastighet:"}, {2322, "RBHSTEG", number, step}},
                     {{2323, "RBKMAX", number, {"Rb, matningskraft:", "Rb, matekraft:"}},
                      {2324, "RBKSTEG", number, step}},
                     {{2325, "RBVMAX", number, {"Rb, varvtal:", "Rb, omdreiningstall:"}},
                      {2326, "RBVSTEG", number, step}},
                     {{2327, "RBSMAX", number, {"Rb, spoltryck:", "Rb, spyletrykk:"}},
                      {2328, "RBSSTEG", number, step}},
                     {{2329, "RBFMAX", number, {"Rb, spolflöde:", "Rb, spylestrøm:"}},
                      {2330, "RBFSTEG", number, step}},
                     {{2331, "RBMMAX", number, {"Rb, hammartryck:", "Rb, hammertrykk:"}},
                      {2332, "RBMSTEG", number, step}},
                     {{2333, "RBVMMAX", number, {"Rb, vridmoment:", "Rb, dreiemoment:"}},
                      {2334, "RBVMSTEG", number, step}},
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
                     {{2338, "KBNAMN1", name, "1:"},
                      {2342, "KBMAX1", number, most},
                      {2343, "KBSTEG1", number, step}},
                     {{2339, "KBNAMN2", name, "2:"},
                      {2344, "KBMAX2", number, most},
                      {2345, "KBSTEG2", number, step}},
                     {{2340, "KBNAMN3", name, "3:"},
                      {2346, "KBMAX3", number, most},
                      {2347, "KBSTEG3", number, step}},
                     {{2341, "KBNAMN4", name, "4:"},
                      {2348, "KBMAX4", number, most},
                      {2349, "KBSTEG4", number, step}},
                 }},
                {whole,
                 {"Kurvor Jb2/Jb3: namn", "Kurver Jb2/Jb3: navn"},
                 {
                     {{2350, "JB23NAMN1", name, {"Namn 1:", "Navn 1:"}}},
                     {{2351, "JB23NAMN2", name, {"Namn 2:", "Navn 2:"}}},
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
