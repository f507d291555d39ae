#include "script.h"

#include "layout.h"
#include "names.h"
#include "octal.h"

namespace pages {

namespace {

std::string Rectangle(Item const& item) {
    return std::to_string(item.x) + ", " + std::to_string(item.y) + ", " +
           std::to_string(item.width) + ", " + std::to_string(item.height);
}

std::string Statement(File file, Item const& item) {
    std::string const text = '"' + item.text + "\", ";
    std::string const id = item.field != nullptr ? ControlName(file, *item.field) : "-1";
    switch (item.part) {
    case Part::group:
        return "GROUPBOX " + text + id + ", " + Rectangle(item);
    case Part::label:
        return "LTEXT " + text + id + ", " + Rectangle(item);
    case Part::unit:
        return "LTEXT " + text + id + ", " + Rectangle(item) + ", SS_NOPREFIX";
    case Part::check:
        return "AUTOCHECKBOX " + text + id + ", " + Rectangle(item);
    case Part::combo:
        return "COMBOBOX " + id + ", " + Rectangle(item) +
               ", CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP";
    case Part::edit:
    default:
        return "EDITTEXT " + id + ", " + Rectangle(item) + ", ES_AUTOHSCROLL";
    }
}

std::string Dialog(Page const& page, Language language, std::vector<Item> const& items) {
    std::string script = PageName(page, language) + " DIALOGEX 0, 0, " + std::to_string(pageWidth) +
                         ", " + std::to_string(pageHeight) + "\n";
    script += "STYLE DS_SHELLFONT | WS_CHILD | WS_CAPTION\n";
    script += "CAPTION \"" + std::string(page.caption[language]) + "\"\n";
    script += "FONT 8, \"MS Shell Dlg\", 400, 0, 1\nBEGIN\n";
    for (Item const& item : items) {
        script += "    " + Statement(page.file, item) + "\n";
    }
    return script + "END\n";
}

std::string Entry(std::string const& control, std::string_view utf8) {
    std::size_t const size = CodePage1252(utf8).size() + 1;
    return "    " + control + ", 0x403, " + std::to_string(size) + ", 0, \"" + Octal(utf8) +
           "\\000\",\n";
}

// What the combo boxes hold, as a program's dialog class reads it: the control's number, the
// message that 16-bit Windows had for adding a text (0x403), a length of two words, lower first,
// the bytes; a zero after the last.
std::string Contents(Page const& page, Language language, std::vector<Item> const& items) {
    std::string script = PageName(page, language) + " 240\nBEGIN\n";
    for (Item const& item : items) {
        if (item.field != nullptr) {
            for (std::string_view const entry : item.field->entries) {
                script += Entry(ControlName(page.file, *item.field), entry);
            }
        }
    }
    return script + "    0\nEND\n";
}

} // namespace

std::string Script(std::vector<Page> const& pages, Language language) {
    std::string script = language == swedish
                             ? "LANGUAGE LANG_SWEDISH, SUBLANG_DEFAULT\n"
                             : "LANGUAGE LANG_NORWEGIAN, SUBLANG_NORWEGIAN_BOKMAL\n";
    for (Page const& page : pages) {
        std::vector<Item> const items = LaidOut(page, language);
        script += '\n' + Dialog(page, language, items);
        script += '\n' + Contents(page, language, items);
    }
    return script;
}

} // namespace pages
