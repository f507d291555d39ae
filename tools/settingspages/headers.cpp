#include "headers.h"

#include "names.h"
#include "octal.h"

namespace pages {

namespace {

std::string Define(std::string const& name, int number) {
    return "#define " + name + ' ' + std::to_string(number) + '\n';
}

char const* KindName(Kind kind) {
    return kind == Kind::check   ? "SettingsKind::check"
           : kind == Kind::combo ? "SettingsKind::combo"
                                 : "SettingsKind::edit";
}

char const* FileMember(File file) {
    return file == File::kvarnbok ? "SettingsFile::kvarnPar"
           : file == File::jb23   ? "SettingsFile::jb23Par"
                                  : "SettingsFile::stenPar";
}

constexpr char const* resourceHead =
    R"(// The settings pages in the library's resources (LibraryModule): dialogs, in Swedish and in
// Norwegian, and their controls, which have the same numbers in both. The numbers stay from release
// to release. settingspages.h says which key a control shows. Made by tools/settingspages.
#pragma once

)";

constexpr char const* tableHead =
    R"(// Which settings pages there are, and which key each of their controls shows: what a program needs
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
)";

std::string WordsRow(Meaning const& meaning) {
    return "    {\"" + Octal(meaning.code) + "\", \"" + Octal(meaning.words[swedish]) + "\", \"" +
           Octal(meaning.words[norwegian]) + "\"},\n";
}

std::string UnitRow(File file, Field const& field) {
    return "    {" + ControlName(file, field) + ", " + std::to_string(field.common.power) + ", \"" +
           std::string(field.common.unit) + "\"},\n";
}

std::string PageRow(Page const& page) {
    return "    {" + PageName(page, swedish) + ", " + PageName(page, norwegian) + ", " +
           FileMember(page.file) + "},\n";
}

} // namespace

std::string ResourceHeader(std::vector<Page> const& pages) {
    std::string header = resourceHead;
    for (Language const language : {swedish, norwegian}) {
        for (Page const& page : pages) {
            header += Define(PageName(page, language), PageNumber(page, language));
        }
        header += '\n';
    }
    for (Page const& page : pages) {
        header += std::string("// ") + page.name + '\n';
        ForEachField(page, [&](Field const& field) {
            header += Define(ControlName(page.file, field), field.number);
        });
    }
    return header;
}

std::string TableHeader(std::vector<Page> const& pages) {
    std::string header = tableHead;
    header += "constexpr SettingsPage settingsPages[] = {\n";
    for (Page const& page : pages) {
        header += PageRow(page);
    }
    header += "};\n\n// In tab order.\nconstexpr SettingsControl settingsControls[] = {\n";
    int number = 0;
    for (Page const& page : pages) {
        ForEachField(page, [&](Field const& field) {
            header += "    {" + std::to_string(number) + ", " + ControlName(page.file, field) +
                      ", \"" + field.key + "\", " + KindName(field.kind) + "},\n";
        });
        ++number;
    }
    header += "};\n\nconstexpr SettingsWords settingsWords[] = {\n";
    for (Meaning const& meaning : meanings) {
        header += WordsRow(meaning);
    }
    header += "};\n\nconstexpr SettingsUnit settingsUnits[] = {\n";
    for (Page const& page : pages) {
        ForEachField(page, [&](Field const& field) {
            header += field.common.unit.empty() ? "" : UnitRow(page.file, field);
        });
    }
    return header + "};\n// clang-format on\n\n} // namespace kvarn\n";
}

} // namespace pages
