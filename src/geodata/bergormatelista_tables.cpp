// CBergOrMateLista: the built-in materials. Their spellings are those of the files and drawings
// there are, and differ on purpose where they do.
#include "../formats/stenkod.h"
#include "../text/codepage.h"
#include "bergormatelista.h"
#include "materialtable.h"

char const* const CBergOrMateLista::FILNAMN = kvarn::stenkodFile;
char const* const CBergOrMateLista::FILNAMNN = kvarn::stenkodFileNorwegian;

char const* const CBergOrMateLista::BERGARTER[] = {"Ss", "Ks", "Sk",      "Kv", "Kk", "Gs", "Gn",
                                                   "Lt", "Gg", "Gö"_1252, "Gr", "Pf", "Db", "My",
                                                   "Mg", "Br", "Am",      "Ap", "Pm", "Ga", "Kf"};

char const* const CBergOrMateLista::JORDARTER[] = {"f  ", "mu ", "gy ", "t  ", "let", "le ",
                                                   "si ", "sa ", "gr ", "st ", "fr ", "mn "};

char const* const CBergOrMateLista::FYLLNAD[] = {"ka", "kl", "gf", "ta", "fe", "kv", "ep",
                                                 "ho", "fs", "su", "le", "jo", "of"};

char const* const CBergOrMateLista::BERGARTERN[] = {"Alunskifer",
                                                    "Amfibolitt",
                                                    "Amfibolittisk_gneis",
                                                    "Andesitt",
                                                    "Anortositt",
                                                    "Arkose",
                                                    "Basalt",
                                                    "Breksje",
                                                    "Båndgneis"_1252,
                                                    "Charnockitt",
                                                    "Diabas",
                                                    "Dioritt",
                                                    "Dolomitt",
                                                    "Eklogitt",
                                                    "Epidot",
                                                    "Fylitt",
                                                    "Gabbro",
                                                    "Gips",
                                                    "Glimmer",
                                                    "Glimmergneis",
                                                    "Glimmerskifer",
                                                    "Gneis",
                                                    "Grafitt",
                                                    "Granitt",
                                                    "Granittisk_gneis",
                                                    "Granodioritt",
                                                    "GrusOgSand",
                                                    "Gråvake"_1252,
                                                    "Grønnstein"_1252,
                                                    "Hornfels",
                                                    "Kalkspat",
                                                    "Kalkstein",
                                                    "Kleberstein",
                                                    "Kloritt",
                                                    "Knollekalk",
                                                    "Kvarts",
                                                    "Kvartsitt",
                                                    "Kvartskeratofyr",
                                                    "Leire",
                                                    "Leire,svellende",
                                                    "Leirinfisert_berg",
                                                    "Leirskifer",
                                                    "Leirstein",
                                                    "Lerie,innaktiv",
                                                    "Løsmasser"_1252,
                                                    "Marmor",
                                                    "Migmatitt",
                                                    "Monzonitt",
                                                    "Mylonitt",
                                                    "Olivin",
                                                    "Pegmatitt",
                                                    "Rombeporfyr",
                                                    "Ryolitt",
                                                    "Sandstein",
                                                    "Serpentin",
                                                    "Skifer",
                                                    "Svartskifer",
                                                    "Syenitt",
                                                    "Talk",
                                                    "Tonalitt",
                                                    "Tuff",
                                                    "Ultrabasitt",
                                                    "Øyegneis"_1252,
                                                    ""};

char const* const CBergOrMateLista::JORDARTERN[] = {"f  ", "mu ", "gy ", "t  ", "let", "le ",
                                                    "si ", "sa ", "gr ", "st ", "fr ", "mn "};

char const* const CBergOrMateLista::FYLLNADN[] = {"ka", "kl", "gf", "ta", "fe", "kv", "ep",
                                                  "ho", "fs", "su", "le", "jo", "of"};

char const* const CBergOrMateLista::APPBERGARTERN[] = {"Alunskifer",
                                                       "Amfibolitt",
                                                       "Amfibolittisk gneis",
                                                       "Andesitt",
                                                       "Anortositt",
                                                       "Arkose",
                                                       "Basalt",
                                                       "Breksje",
                                                       "Båndgneis"_1252,
                                                       "Charnockitt",
                                                       "Diabas",
                                                       "Dioritt",
                                                       "Dolomitt",
                                                       "Eklogitt",
                                                       "Fylitt",
                                                       "Gabbro",
                                                       "Glimmergneis",
                                                       "Glimmerskifer",
                                                       "Gneis",
                                                       "Granitt",
                                                       "Granittisk gneis",
                                                       "Granodioritt",
                                                       "Grønnstein"_1252,
                                                       "Gråvakke"_1252,
                                                       "Hornfels",
                                                       "Kalkstein",
                                                       "Kleberstein",
                                                       "Knollekalk",
                                                       "Konglomerat",
                                                       "Kvartsitt",
                                                       "Kvartskeratofyr",
                                                       "Leirskifer",
                                                       "Leirstein",
                                                       "Løsmasser"_1252,
                                                       "Marmor",
                                                       "Migmatitt",
                                                       "Monzonitt",
                                                       "Mylonitt",
                                                       "Olivin",
                                                       "Pegmatitt",
                                                       "Rombeporfyr",
                                                       "Ryolitt",
                                                       "Sandstein",
                                                       "Skifer",
                                                       "Svartskifer",
                                                       "Syenitt",
                                                       "Tonalitt",
                                                       "Tuff",
                                                       "Ultrabasitt",
                                                       "Øyegneis"_1252,
                                                       "Leire",
                                                       "Leire, innaktiv",
                                                       "Leire, svellende",
                                                       "Kloritt",
                                                       "Talk",
                                                       "Grafitt",
                                                       "Serpentin",
                                                       "Kalkspat",
                                                       "Gips",
                                                       "Epidot",
                                                       "Glimmer",
                                                       "Kvarts",
                                                       "Grus og sand",
                                                       "Leirinfisert berg"};

namespace kvarn {

MaterialNames MaterialTable(MaterialKind kind, bool norwegian) {
    using List = CBergOrMateLista;
    switch (kind) {
    case MaterialKind::rock: // without the empty name at the end of the Norwegian table
        return norwegian ? std::span(List::BERGARTERN, std::size(List::BERGARTERN) - 1)
                         : MaterialNames(List::BERGARTER);
    case MaterialKind::fill:
        return norwegian ? List::FYLLNADN : List::FYLLNAD;
    default:
        return norwegian ? List::JORDARTERN : List::JORDARTER;
    }
}

} // namespace kvarn
