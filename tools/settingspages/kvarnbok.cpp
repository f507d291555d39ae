// Pages of the drawing program: how a drawing looks. What a key does is the business of the
// programs: a label says what its name and default tell, and no more.
#include "list.h"

namespace pages {

namespace {

using enum Kind;
using enum Side;

Page Texts() {
    return {
        1,
        "TEXTER",
        File::kvarnbok,
        {"Texter", "Tekster"},
        {
            {left,
             {"Texthöjder i sektion", "Teksthøyder i snitt"},
             {
                 {{2021, "IDHOJD", combo, {"Id i sektion:", "Id i snitt:"}, "mm", heights}},
                 {{2022, "METHOJD", combo, {"Metod:", "Metode:"}, "mm", heights}},
                 {{2023, "PROVHOJD", combo, {"Prov:", "Prøve:"}, "mm", heights}},
                 {{2024, "SKALHOJD", combo, "Skala:", "mm", heights}},
             }},
            {left,
             {"Texthöjder i plan", "Teksthøyder i plan"},
             {
                 {{2025, "PLHOJDID", combo, "Id i plan:", "mm", heights}},
                 {{2026, "PLHOJDNIV", combo, "Nivå:", "mm", heights}},
             }},
            {right,
             {"Text", "Tekst"},
             {
                 {{2036, "FONT", combo, {"Typsnitt:", "Font:"}, {}, {"TEXT"}}},
                 {{2034, "TXTVIDD", combo, {"Textvidd:", "Tekstbredde:"}, {}, factors}},
                 {{2035, "DECIMAL", combo, {"Decimaler:", "Desimaler:"}, {}, decimals}},
                 {{2028, "LTSCALE", combo, {"Linjetypsskala:", "Linjetypeskala:"}, {}, factors}},
             }},
            {right,
             {"Ordning", "Rekkefølge"},
             {
                 {{2046, "IDSORT", number, "Id-sortering:"}},
                 {{2048, "FILTER", number, "Filter:"}},
             }},
            {whole,
             {"Linjer och ritning", "Linjer og tegning"},
             {
                 {{2037,
                   "LINJEBREDD",
                   combo,
                   {"Linjebredd:", "Strektykkelse:"},
                   {},
                   {"NEJ", "FÄRG"}},
                  {2029, "STAMPVAL", number, {"Stämpelval:", "Tittelfelt:"}}},
             }},
        }};
}

Page PlanAndSection() {
    return {2,
            "PLAN_SEKTION",
            File::kvarnbok,
            {"Plan och sektion", "Plan og snitt"},
            {
                {left,
                 "Plan",
                 {
                     {{2027, "PLSCALE", combo, "Planskala:", {}, factors}},
                     {{2047, "PLSYMBFAC", combo, "Symbolfaktor:", {}, factors}},
                     {{2030, "PLANZ", check, "Nivå (Z) i plan"}},
                     {{2031, "PLANDJUP", check, {"Djup i plan", "Dybde i plan"}}},
                     {{2032, "PLANLAGER", check, {"Lager i plan", "Lag i plan"}}},
                     {{2033, "PROFNAME", check, {"Profilnamn", "Profilnavn"}}},
                 }},
                {right,
                 {"Skalor", "Skalaer"},
                 {
                     {{2001, "HSKALA", combo, {"Höjd 1:", "Høyde 1:"}, {}, drawingScales}},
                     {{2002, "LSKALA", combo, {"Längd 1:", "Lengde 1:"}, {}, drawingScales}},
                     {{2075, "DSKALA", combo, "D-skala:", {}, factors}},
                     {{2003, "BREDDLSP", combo, {"Bredd LSP:", "Bredde LSP:"}, {}, factors}},
                     {{2010, "SHOWDZ", check, {"Visa dZ", "Vis dZ"}}},
                 }},
                {whole,
                 {"Punkter i sektion", "Punkter i snitt"},
                 {
                     {{2038, "SEKTDIST", number, {"Avstånd:", "Avstand:"}, "m"},
                      {2039, "SEKTFIXDIST", number, {"Fast avstånd:", "Fast avstand:"}, "m"}},
                     {{2049, "SEKTSTOLPE", number, "Stolpe:"}},
                 }},
            }};
}

} // namespace

std::vector<Page> KvarnbokPages() {
    return {Texts(), PlanAndSection()};
}

} // namespace pages
