// Which settings pages there are, and which key each of their controls shows: what a program needs
// to fill and save them. Made by tools/settingspages.
//
// A page is a property page: a DIALOGEX resource of LibraryModule(), whose caption is its tab's
// text, with the contents of its combo boxes in a resource of the same number and type 240, which
// MFC's dialogs load by themselves. What the keys mean is the business of the programs.
//
// A value that no entry of a combo box holds is shown as it is: the boxes take any text. A check
// box stands for "JA" and "NEJ"; a program keeps any other value until the user clicks the box.
// The combo boxes hold values as the files have them; settingsWords says what some of them stand
// for, to be shown beside them: the value that is written is the code alone. A field whose default
// is a number takes numbers, with a decimal point, and the codes of its list.
//
// JB23.PAR has its values on numbered lines, and a file that is too short grows by one line a
// write: save all of its page, in the order of the table. An empty text, or one with a blank, is no
// value there.
#pragma once

#include "../project/projpath.h"
#include "resource.h"

namespace kvarn {

enum class SettingsFile { kvarnPar, jb23Par, stenPar };

// The plain name by which CKvarnInst knows it.
inline char const* NameOf(SettingsFile file) {
    return file == SettingsFile::kvarnPar  ? CProjPath::KvarnParNamn
           : file == SettingsFile::jb23Par ? CProjPath::Jb23ParNamn
                                           : CProjPath::StenParNamn;
}

enum class SettingsKind {
    edit,
    combo, // takes other texts than its entries
    check, // "JA" and "NEJ"
};

struct SettingsPage {
    int swedish; // the page's number in each language
    int norwegian;
    SettingsFile file;
};

struct SettingsControl {
    int page; // its place in settingsPages
    int control;
    char const* key;
    SettingsKind kind;
};

// What a code of the combo boxes stands for, in code page 1252.
struct SettingsWords {
    char const* code;
    char const* swedish;
    char const* norwegian;
};

// A quantity that the files have in different units, and the unit that all of them can be shown in:
// the number shown is the file's times 10 to the power. The page has the file's unit, in a text
// that follows the control in tab order (a step has none).
struct SettingsUnit {
    int control;
    int power;
    char const* unit;
};

// One a line.
// clang-format off
constexpr SettingsPage settingsPages[] = {
    {IDD_KVARN_TEXTER_SV, IDD_KVARN_TEXTER_NO, SettingsFile::kvarnPar},
    {IDD_KVARN_PLAN_SEKTION_SV, IDD_KVARN_PLAN_SEKTION_NO, SettingsFile::kvarnPar},
    {IDD_KVARN_SONDERING_SV, IDD_KVARN_SONDERING_NO, SettingsFile::kvarnPar},
    {IDD_KVARN_LABORATORIUM_SV, IDD_KVARN_LABORATORIUM_NO, SettingsFile::kvarnPar},
    {IDD_KVARN_CPT_TOTAL_SV, IDD_KVARN_CPT_TOTAL_NO, SettingsFile::kvarnPar},
    {IDD_KVARN_NORSKA_SV, IDD_KVARN_NORSKA_NO, SettingsFile::kvarnPar},
    {IDD_KVARN_JB23_SV, IDD_KVARN_JB23_NO, SettingsFile::jb23Par},
    {IDD_KVARN_KLIPPBOK_TEXTER_SV, IDD_KVARN_KLIPPBOK_TEXTER_NO, SettingsFile::stenPar},
    {IDD_KVARN_KLIPPBOK_KURVOR_SV, IDD_KVARN_KLIPPBOK_KURVOR_NO, SettingsFile::stenPar},
    {IDD_KVARN_KLIPPBOK_EGNA_SV, IDD_KVARN_KLIPPBOK_EGNA_NO, SettingsFile::stenPar},
};

// In tab order.
constexpr SettingsControl settingsControls[] = {
    {0, IDC_KVARNBOK_IDHOJD, "IDHOJD", SettingsKind::combo},
    {0, IDC_KVARNBOK_METHOJD, "METHOJD", SettingsKind::combo},
    {0, IDC_KVARNBOK_PROVHOJD, "PROVHOJD", SettingsKind::combo},
    {0, IDC_KVARNBOK_SKALHOJD, "SKALHOJD", SettingsKind::combo},
    {0, IDC_KVARNBOK_PLHOJDID, "PLHOJDID", SettingsKind::combo},
    {0, IDC_KVARNBOK_PLHOJDNIV, "PLHOJDNIV", SettingsKind::combo},
    {0, IDC_KVARNBOK_FONT, "FONT", SettingsKind::combo},
    {0, IDC_KVARNBOK_TXTVIDD, "TXTVIDD", SettingsKind::combo},
    {0, IDC_KVARNBOK_DECIMAL, "DECIMAL", SettingsKind::combo},
    {0, IDC_KVARNBOK_LTSCALE, "LTSCALE", SettingsKind::combo},
    {0, IDC_KVARNBOK_IDSORT, "IDSORT", SettingsKind::edit},
    {0, IDC_KVARNBOK_FILTER, "FILTER", SettingsKind::edit},
    {0, IDC_KVARNBOK_LINJEBREDD, "LINJEBREDD", SettingsKind::combo},
    {0, IDC_KVARNBOK_STAMPVAL, "STAMPVAL", SettingsKind::edit},
    {1, IDC_KVARNBOK_PLSCALE, "PLSCALE", SettingsKind::combo},
    {1, IDC_KVARNBOK_PLSYMBFAC, "PLSYMBFAC", SettingsKind::combo},
    {1, IDC_KVARNBOK_PLANZ, "PLANZ", SettingsKind::check},
    {1, IDC_KVARNBOK_PLANDJUP, "PLANDJUP", SettingsKind::check},
    {1, IDC_KVARNBOK_PLANLAGER, "PLANLAGER", SettingsKind::check},
    {1, IDC_KVARNBOK_PROFNAME, "PROFNAME", SettingsKind::check},
    {1, IDC_KVARNBOK_HSKALA, "HSKALA", SettingsKind::combo},
    {1, IDC_KVARNBOK_LSKALA, "LSKALA", SettingsKind::combo},
    {1, IDC_KVARNBOK_DSKALA, "DSKALA", SettingsKind::combo},
    {1, IDC_KVARNBOK_BREDDLSP, "BREDDLSP", SettingsKind::combo},
    {1, IDC_KVARNBOK_SHOWDZ, "SHOWDZ", SettingsKind::check},
    {1, IDC_KVARNBOK_SEKTDIST, "SEKTDIST", SettingsKind::edit},
    {1, IDC_KVARNBOK_SEKTFIXDIST, "SEKTFIXDIST", SettingsKind::edit},
    {1, IDC_KVARNBOK_SEKTSTOLPE, "SEKTSTOLPE", SettingsKind::edit},
    {2, IDC_KVARNBOK_VIMSKALA, "VIMSKALA", SettingsKind::combo},
    {2, IDC_KVARNBOK_SLBSKALA, "SLBSKALA", SettingsKind::combo},
    {2, IDC_KVARNBOK_HFASKALA, "HFASKALA", SettingsKind::combo},
    {2, IDC_KVARNBOK_JBSKALA, "JBSKALA", SettingsKind::combo},
    {2, IDC_KVARNBOK_TRSKALA, "TRSKALA", SettingsKind::combo},
    {2, IDC_KVARNBOK_TRSTEG, "TRSTEG", SettingsKind::edit},
    {2, IDC_KVARNBOK_VIMFILTER, "VIMFILTER", SettingsKind::edit},
    {2, IDC_KVARNBOK_HFAVRID, "HFAVRID", SettingsKind::edit},
    {3, IDC_KVARNBOK_TAUSKALA, "TAUSKALA", SettingsKind::combo},
    {3, IDC_KVARNBOK_TAUSTEG, "TAUSTEG", SettingsKind::edit},
    {3, IDC_KVARNBOK_SENSSKALA, "SENSSKALA", SettingsKind::combo},
    {3, IDC_KVARNBOK_SENSSTEG, "SENSSTEG", SettingsKind::edit},
    {3, IDC_KVARNBOK_VASKALA, "VASKALA", SettingsKind::combo},
    {3, IDC_KVARNBOK_VASTEG, "VASTEG", SettingsKind::edit},
    {3, IDC_KVARNBOK_DENSSKALA, "DENSSKALA", SettingsKind::combo},
    {3, IDC_KVARNBOK_DENSSTEG, "DENSSTEG", SettingsKind::edit},
    {3, IDC_KVARNBOK_LABTEXT, "LABTEXT", SettingsKind::edit},
    {3, IDC_KVARNBOK_SGFLAB, "SGFLAB", SettingsKind::check},
    {3, IDC_KVARNBOK_KODTYP, "KODTYP", SettingsKind::combo},
    {3, IDC_KVARNBOK_MTRLKOD, "MTRLKOD", SettingsKind::combo},
    {4, IDC_KVARNBOK_QTSKALA, "QTSKALA", SettingsKind::combo},
    {4, IDC_KVARNBOK_QTSTEG, "QTSTEG", SettingsKind::edit},
    {4, IDC_KVARNBOK_FTSKALA, "FTSKALA", SettingsKind::combo},
    {4, IDC_KVARNBOK_FTSTEG, "FTSTEG", SettingsKind::edit},
    {4, IDC_KVARNBOK_USKALA, "USKALA", SettingsKind::combo},
    {4, IDC_KVARNBOK_USTEG, "USTEG", SettingsKind::edit},
    {4, IDC_KVARNBOK_U0, "U0", SettingsKind::edit},
    {4, IDC_KVARNBOK_CPTTEGNING, "CPTTEGNING", SettingsKind::combo},
    {4, IDC_KVARNBOK_CPTSEKT, "CPTSEKT", SettingsKind::combo},
    {4, IDC_KVARNBOK_TOTALSEKT, "TOTALSEKT", SettingsKind::combo},
    {4, IDC_KVARNBOK_TOTROTASJON, "TOTROTASJON", SettingsKind::edit},
    {4, IDC_KVARNBOK_TOTSPYLE, "TOTSPYLE", SettingsKind::edit},
    {4, IDC_KVARNBOK_ARSPYLE, "ARSPYLE", SettingsKind::edit},
    {5, IDC_KVARNBOK_DREIESKALA, "DREIESKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_DREIETEGNING, "DREIETEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_DTRYKKSKALA, "DTRYKKSKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_DTRYKKTEGNING, "DTRYKKTEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_FJELLSKALA, "FJELLSKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_FJELLTEGNING, "FJELLTEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_PORESKALA, "PORESKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_PORETEGNING, "PORETEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_P1SKALA, "P1SKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_P1TEGNING, "P1TEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_P2SKALA, "P2SKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_P2TEGNING, "P2TEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_ENKELSKALA, "ENKELSKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_ENKELTEGNING, "ENKELTEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_VBSKALA, "VBSKALA", SettingsKind::combo},
    {5, IDC_KVARNBOK_VBTEGNING, "VBTEGNING", SettingsKind::combo},
    {5, IDC_KVARNBOK_DREIESEKT, "DREIESEKT", SettingsKind::combo},
    {6, IDC_JB23_SJUNKSKALA, "SJUNKSKALA", SettingsKind::combo},
    {6, IDC_JB23_SJUNKSTEG, "SJUNKSTEG", SettingsKind::edit},
    {6, IDC_JB23_HASTSKALA, "HASTSKALA", SettingsKind::combo},
    {6, IDC_JB23_HASTSTEG, "HASTSTEG", SettingsKind::edit},
    {6, IDC_JB23_KRAFTSKALA, "KRAFTSKALA", SettingsKind::combo},
    {6, IDC_JB23_KRAFTSTEG, "KRAFTSTEG", SettingsKind::edit},
    {6, IDC_JB23_RPMSKALA, "RPMSKALA", SettingsKind::combo},
    {6, IDC_JB23_RPMSTEG, "RPMSTEG", SettingsKind::edit},
    {6, IDC_JB23_SPOLSKALA, "SPOLSKALA", SettingsKind::combo},
    {6, IDC_JB23_SPOLSTEG, "SPOLSTEG", SettingsKind::edit},
    {6, IDC_JB23_FLODESKALA, "FLODESKALA", SettingsKind::combo},
    {6, IDC_JB23_FLODESTEG, "FLODESTEG", SettingsKind::edit},
    {6, IDC_JB23_HAMMARSKALA, "HAMMARSKALA", SettingsKind::combo},
    {6, IDC_JB23_HAMMARSTEG, "HAMMARSTEG", SettingsKind::edit},
    {6, IDC_JB23_TRYCKSKALA, "TRYCKSKALA", SettingsKind::combo},
    {6, IDC_JB23_TRYCKSTEG, "TRYCKSTEG", SettingsKind::edit},
    {6, IDC_JB23_QTSKALA, "QTSKALA", SettingsKind::combo},
    {6, IDC_JB23_QTSTEG, "QTSTEG", SettingsKind::edit},
    {6, IDC_JB23_FTSKALA, "FTSKALA", SettingsKind::combo},
    {6, IDC_JB23_FTSTEG, "FTSTEG", SettingsKind::edit},
    {6, IDC_JB23_USKALA, "USKALA", SettingsKind::combo},
    {6, IDC_JB23_USTEG, "USTEG", SettingsKind::edit},
    {7, IDC_KLIPPBOK_IDHOJD, "IDHOJD", SettingsKind::combo},
    {7, IDC_KLIPPBOK_METHOJD, "METHOJD", SettingsKind::combo},
    {7, IDC_KLIPPBOK_PROVHOJD, "PROVHOJD", SettingsKind::combo},
    {7, IDC_KLIPPBOK_SKALHOJD, "SKALHOJD", SettingsKind::combo},
    {7, IDC_KLIPPBOK_PLHOJDID, "PLHOJDID", SettingsKind::combo},
    {7, IDC_KLIPPBOK_PLHOJDNIV, "PLHOJDNIV", SettingsKind::combo},
    {7, IDC_KLIPPBOK_PLSCALE, "PLSCALE", SettingsKind::combo},
    {7, IDC_KLIPPBOK_FONT, "FONT", SettingsKind::combo},
    {7, IDC_KLIPPBOK_TXTVIDD, "TXTVIDD", SettingsKind::combo},
    {7, IDC_KLIPPBOK_DECIMAL, "DECIMAL", SettingsKind::combo},
    {7, IDC_KLIPPBOK_HSKALA, "HSKALA", SettingsKind::combo},
    {7, IDC_KLIPPBOK_LSKALA, "LSKALA", SettingsKind::combo},
    {7, IDC_KLIPPBOK_DSKALA, "DSKALA", SettingsKind::combo},
    {7, IDC_KLIPPBOK_BREDDLSP, "BREDDLSP", SettingsKind::combo},
    {7, IDC_KLIPPBOK_LINJEBREDD, "LINJEBREDD", SettingsKind::combo},
    {8, IDC_KLIPPBOK_JBMAX, "JBMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_VFMAX, "VFMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_VFSTEG, "VFSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBMAX, "RBMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBSTEG, "RBSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBHMAX, "RBHMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBHSTEG, "RBHSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBKMAX, "RBKMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBKSTEG, "RBKSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBVMAX, "RBVMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBVSTEG, "RBVSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBSMAX, "RBSMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBSSTEG, "RBSSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBFMAX, "RBFMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBFSTEG, "RBFSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBMMAX, "RBMMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBMSTEG, "RBMSTEG", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBVMMAX, "RBVMMAX", SettingsKind::edit},
    {8, IDC_KLIPPBOK_RBVMSTEG, "RBVMSTEG", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBNAMN1, "KBNAMN1", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBMAX1, "KBMAX1", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBSTEG1, "KBSTEG1", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBNAMN2, "KBNAMN2", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBMAX2, "KBMAX2", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBSTEG2, "KBSTEG2", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBNAMN3, "KBNAMN3", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBMAX3, "KBMAX3", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBSTEG3, "KBSTEG3", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBNAMN4, "KBNAMN4", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBMAX4, "KBMAX4", SettingsKind::edit},
    {9, IDC_KLIPPBOK_KBSTEG4, "KBSTEG4", SettingsKind::edit},
    {9, IDC_KLIPPBOK_JB23NAMN1, "JB23NAMN1", SettingsKind::edit},
    {9, IDC_KLIPPBOK_JB23NAMN2, "JB23NAMN2", SettingsKind::edit},
    {9, IDC_KLIPPBOK_SEISL0, "SEISL0", SettingsKind::edit},
    {9, IDC_KLIPPBOK_SEISL1, "SEISL1", SettingsKind::edit},
    {9, IDC_KLIPPBOK_TUNPXYTOL, "TUNPXYTOL", SettingsKind::edit},
    {9, IDC_KLIPPBOK_PROJICERAD, "PROJICERAD", SettingsKind::check},
};

constexpr SettingsWords settingsWords[] = {
    {"MAX", "\366ppen", "\345pen"},
    {"-1", "\366ppen", "\345pen"},
    {"NEJ", "ingen", "ingen"},
    {"F\304RG", "efter f\344rg", "etter farge"},
    {"SGF", "SGF:s koder", "SGFs koder"},
    {"STANDARD", "standardkoder", "standardkoder"},
};

constexpr SettingsUnit settingsUnits[] = {
    {IDC_KVARNBOK_FTSKALA, 3, "kPa"},
    {IDC_KVARNBOK_FTSTEG, 3, "kPa"},
    {IDC_KVARNBOK_USKALA, 3, "kPa"},
    {IDC_KVARNBOK_USTEG, 3, "kPa"},
    {IDC_KVARNBOK_U0, 3, "kPa"},
};
// clang-format on

} // namespace kvarn
