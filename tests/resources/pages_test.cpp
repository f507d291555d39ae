// The settings pages on a real desktop, each in both languages: what a user sees of them, and that
// their keys go through them unchanged.
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "onebox.h"
#include "picture.h"
#include "shownvalue.h"
#include "support/pagewindow.h"
#include "support/projekt.h"
#include "support/window.h"

namespace {

using kvarn::SettingsControl;
using kvarn::SettingsKind;

constexpr std::size_t pageCount = std::size(kvarn::settingsPages);

SIZE SizeOf(PagePart const& part) {
    HDC const screen = GetDC(part.window);
    auto* const font = reinterpret_cast<HFONT>(SendMessageA(part.window, WM_GETFONT, 0, 0));
    HGDIOBJ const before = SelectObject(screen, font);
    RECT area = {};
    DrawTextA(screen, part.text.c_str(), -1, &area,
              DT_CALCRECT | DT_SINGLELINE | (part.prefix ? 0U : DT_NOPREFIX));
    SelectObject(screen, before);
    ReleaseDC(part.window, screen);
    return {area.right, area.bottom};
}

bool Holds(RECT const& outer, RECT const& inner) {
    RECT both;
    UnionRect(&both, &outer, &inner);
    return EqualRect(&both, &outer) != FALSE;
}

bool Overlap(RECT const& a, RECT const& b) {
    RECT both;
    return IntersectRect(&both, &a, &b) != FALSE;
}

// A group box and the parts that follow it in tab order.
struct Group {
    PagePart box;
    std::vector<PagePart> parts;
};

std::vector<Group> GroupsOf(std::vector<PagePart> const& parts) {
    std::vector<Group> groups;
    for (PagePart const& part : parts) {
        if (part.kind == PartKind::group) {
            groups.push_back({part, {}});
        } else if (!groups.empty()) {
            groups.back().parts.push_back(part);
        }
    }
    return groups;
}

void ExpectTextsFit(std::vector<PagePart> const& parts) {
    for (PagePart const& part : parts) {
        constexpr LONG checkMark = 17;
        constexpr LONG groupFrame = 18;
        LONG const beside = part.kind == PartKind::check   ? checkMark
                            : part.kind == PartKind::group ? groupFrame
                                                           : 0;
        SIZE const size = SizeOf(part);
        LONG const spare = size.cx * 15 / 100; // for the fonts of other systems
        EXPECT_LE(size.cx + spare + beside, part.area.right - part.area.left) << part.text;
        EXPECT_LE(size.cy, part.area.bottom - part.area.top) << part.text;
    }
}

// Parts lie within an area, none over another, each below or to the right of the one before.
void ExpectOrder(RECT const& area, std::vector<PagePart> const& parts) {
    for (std::size_t i = 0; i < parts.size(); ++i) {
        PagePart const& part = parts[i];
        SCOPED_TRACE(std::to_string(part.id) + part.text);
        EXPECT_TRUE(Holds(area, part.area));
        for (std::size_t other = 0; other < i; ++other) {
            EXPECT_FALSE(Overlap(part.area, parts[other].area)) << parts[other].text;
        }
        if (i > 0) {
            RECT const& before = parts[i - 1].area;
            EXPECT_TRUE(part.area.top >= before.bottom || part.area.left >= before.right);
        }
        if (part.kind == PartKind::box) { // after its label
            ASSERT_GT(i, 0U);
            EXPECT_EQ(parts[i - 1].kind, PartKind::text);
            EXPECT_TRUE(parts[i - 1].text.ends_with(':'));
            EXPECT_LE(parts[i - 1].area.right, part.area.left);
        }
    }
}

void ExpectOrderOfAll(HWND page, std::vector<PagePart> const& parts) {
    std::vector<PagePart> boxes;
    for (Group const& group : GroupsOf(parts)) {
        boxes.push_back(group.box);
        ExpectOrder(group.box.area, group.parts);
    }
    RECT whole;
    GetClientRect(page, &whole);
    ExpectOrder(whole, boxes);
}

// Where the first line of a box's own text begins, in the page.
LONG TextTop(PagePart const& box) {
    HWND const inner = GetWindow(box.window, GW_CHILD);
    HWND const edit = inner != nullptr ? inner : box.window; // of a combo box
    RECT format;
    SendMessageA(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&format));
    MapWindowPoints(edit, GetParent(box.window), reinterpret_cast<POINT*>(&format), 2);
    return format.top;
}

// Labels stand on the line of their fields' texts, in the same font.
void ExpectOneLine(std::vector<PagePart> const& parts) {
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (parts[i].kind == PartKind::box) {
            EXPECT_NEAR(parts[i - 1].area.top, TextTop(parts[i]), 1) << parts[i - 1].text;
        }
    }
}

void ExpectControlsOf(std::size_t page, std::vector<PagePart> const& parts) {
    std::vector<int> expected;
    for (SettingsControl const& control : kvarn::settingsControls) {
        if (static_cast<std::size_t>(control.page) == page) {
            expected.push_back(control.control);
        }
    }
    std::vector<int> found;
    for (PagePart const& part : parts) {
        if (part.kind == PartKind::box || part.kind == PartKind::check) {
            found.push_back(part.id);
        }
    }
    EXPECT_EQ(found, expected);
}

// What the list holds comes up in the box, with words and in the users' unit.
void ExpectEntries(HWND page, int resource, PageLanguage language) {
    std::map<int, int> count;
    for (InitialEntry const& entry : InitialEntries(LibraryModule(), resource)) {
        char text[64] = "";
        SendDlgItemMessageA(page, entry.control, CB_GETLBTEXT,
                            static_cast<WPARAM>(count[entry.control]++),
                            reinterpret_cast<LPARAM>(text));
        EXPECT_EQ(text, WithWords(InUsersUnit(entry.control, entry.text), language));
        EXPECT_FALSE(entry.text.empty()) << entry.control;
    }
    for (SettingsControl const& control : kvarn::settingsControls) {
        HWND const box = GetDlgItem(page, control.control);
        if (box != nullptr && control.kind == SettingsKind::combo) {
            EXPECT_EQ(SendMessageA(box, CB_GETCOUNT, 0, 0), count[control.control]) << control.key;
            EXPECT_GT(count[control.control], 0) << control.key;
        }
    }
}

class Pages : public ProjektTest, public testing::WithParamInterface<bool> {
  protected:
    static int Resource(std::size_t page) {
        return GetParam() ? kvarn::settingsPages[page].norwegian
                          : kvarn::settingsPages[page].swedish;
    }
    static PageLanguage Language() {
        return GetParam() ? PageLanguage::norwegian : PageLanguage::swedish;
    }
    static std::string Picture(std::size_t page) {
        std::filesystem::create_directories(PICTURES);
        std::string const number = std::to_string(page + 101).substr(1);
        return std::string(PICTURES "/") + (GetParam() ? "no-" : "sv-") + number + ".png";
    }
};

INSTANTIATE_TEST_SUITE_P(Language, Pages, testing::Bool(), [](auto const& language) {
    return language.param ? "Norwegian" : "Swedish";
});

TEST_P(Pages, LookAsTheyShould) {
    for (std::size_t page = 0; page < pageCount; ++page) {
        PageWindow const window(LibraryModule(), Resource(page));
        ASSERT_TRUE(window) << page;
        std::string const caption = WindowText(window.Handle());
        SCOPED_TRACE(caption);
        EXPECT_FALSE(caption.empty());
        std::vector<PagePart> const parts = window.Parts();
        ExpectControlsOf(page, parts);
        ExpectTextsFit(parts);
        ExpectOrderOfAll(window.Handle(), parts);
        ExpectOneLine(parts);
        ExpectEntries(window.Handle(), Resource(page), Language());
        ShowSettings(window.Handle(), page, m_inst); // the defaults
        window.Paint();
        EXPECT_TRUE(SavePicture({window.Frame()}, Picture(page).c_str()));
    }
}

// A value for every key: none that an entry holds, the longest, letters beyond ASCII, blanks.
std::string ValueOf(SettingsControl const& control, bool word) {
    if (control.kind == SettingsKind::check) {
        return control.control % 2 == 0 ? "JA" : "NEJ";
    }
    std::string const number = std::to_string(control.control);
    if (word) {
        return number + ".5";
    }
    switch (control.control % 4) {
    case 0:
        return " " + number + "  & \xC5\xC4\xD6 \xE6\xF8\x80 ";
    case 1:
        return std::string(254, 'x') + number;
    default:
        return "-" + number;
    }
}

TEST_P(Pages, EveryKeyGoesThroughUnchanged) {
    std::map<char const*, std::string> files;
    for (SettingsControl const& control : kvarn::settingsControls) {
        auto const& page = kvarn::settingsPages[control.page];
        bool const word = page.file == kvarn::SettingsFile::jb23Par;
        std::string& text = files[NameOf(page.file)];
        std::string const value = ValueOf(control, word);
        bool const step = std::string_view(control.key).ends_with("STEG");
        text += word ? value + (step ? "\r\n" : "   ") : control.key + ("=" + value) + "\r\n";
    }
    for (auto const& [name, text] : files) {
        Write(name, text);
    }
    // Another project, of defaults alone.
    m_folder.Write("annat/KVARNBOK.PAR", "OKAND=1\r\n");
    m_folder.Write("annat/KLIPPBOK.PAR", "OKAND=1\r\n");
    m_folder.Write("annat/JB23.PAR", "");
    CProjPath annat;
    annat.SetPath(m_folder.Api("annat").c_str());
    CKvarnInst other;
    other.Init(&m_ini, &annat);

    Boxes const boxes;
    for (std::size_t page = 0; page < pageCount; ++page) {
        PageWindow const window(LibraryModule(), Resource(page));
        ShowSettings(window.Handle(), page, m_inst);
        EXPECT_TRUE(SaveSettings(window.Handle(), page, m_inst));
        EXPECT_TRUE(SaveSettings(window.Handle(), page, other));
    }
    for (auto const& [name, text] : files) {
        EXPECT_EQ(Read(name), text);
    }
    for (SettingsControl const& control : kvarn::settingsControls) {
        char const* const file = NameOf(kvarn::settingsPages[control.page].file);
        EXPECT_EQ(other.ReadKey(file, control.key), m_inst.ReadKey(file, control.key))
            << file << ' ' << control.key;
    }
    EXPECT_TRUE(Boxes::Shown().empty());
}

constexpr std::size_t planPage = 1;
constexpr std::size_t cptPage = 4;
constexpr std::size_t jb23Page = 6;

TEST_P(Pages, AnotherWordThanJaAndNejIsKeptUntilTheUserChooses) {
    std::string const others = "PLANDJUP=ja\r\nPROFNAME=nej\r\n";
    Write("KVARNBOK.PAR", "PLANZ=kanske\r\n" + others);
    PageWindow const window(LibraryModule(), Resource(planPage));
    ShowSettings(window.Handle(), planPage, m_inst);
    EXPECT_EQ(IsDlgButtonChecked(window.Handle(), IDC_KVARNBOK_PLANZ), UINT{BST_INDETERMINATE});
    EXPECT_EQ(IsDlgButtonChecked(window.Handle(), IDC_KVARNBOK_PLANDJUP), UINT{BST_CHECKED});
    EXPECT_EQ(IsDlgButtonChecked(window.Handle(), IDC_KVARNBOK_PROFNAME), UINT{BST_UNCHECKED});
    EXPECT_TRUE(SaveSettings(window.Handle(), planPage, m_inst));
    EXPECT_EQ(Read("KVARNBOK.PAR"), "PLANZ=kanske\r\n" + others);
    CheckDlgButton(window.Handle(), IDC_KVARNBOK_PLANZ, BST_CHECKED);
    EXPECT_TRUE(SaveSettings(window.Handle(), planPage, m_inst));
    EXPECT_EQ(Read("KVARNBOK.PAR"), "PLANZ=JA\r\n" + others);
}

TEST_P(Pages, WordsAndTheUsersUnitAreWrittenAsTheFileHasThem) {
    Write("KVARNBOK.PAR", "LINJEBREDD=NEJ\r\nFTSKALA=0.10\r\nUSKALA=MAX\r\nFTSTEG=0.0200\r\n");
    PageWindow const texts(LibraryModule(), Resource(0));
    ShowSettings(texts.Handle(), 0, m_inst);
    SendDlgItemMessageA(texts.Handle(), IDC_KVARNBOK_LINJEBREDD, CB_SETCURSEL, 1, 0);
    EXPECT_EQ(WindowText(GetDlgItem(texts.Handle(), IDC_KVARNBOK_LINJEBREDD)),
              WithWords("F\xC4RG", Language()));
    EXPECT_TRUE(SaveSettings(texts.Handle(), 0, m_inst));

    PageWindow const cpt(LibraryModule(), Resource(cptPage));
    ShowSettings(cpt.Handle(), cptPage, m_inst);
    EXPECT_EQ(WindowText(GetDlgItem(cpt.Handle(), IDC_KVARNBOK_FTSTEG)), "20");
    EXPECT_EQ(WindowText(GetDlgItem(cpt.Handle(), IDC_KVARNBOK_USKALA)),
              WithWords("MAX", Language()));
    SetDlgItemTextA(cpt.Handle(), IDC_KVARNBOK_FTSKALA, "150");
    EXPECT_TRUE(SaveSettings(cpt.Handle(), cptPage, m_inst));
    EXPECT_EQ(Read("KVARNBOK.PAR"),
              "LINJEBREDD=F\xC4RG\r\nFTSKALA=0.15\r\nUSKALA=MAX\r\nFTSTEG=0.0200\r\n");
}

// In both languages the units of the two pages agree.
TEST_P(Pages, FrictionAndPorePressureHaveOneUnit) {
    std::multiset<std::string> units;
    for (std::size_t const page : {cptPage, jb23Page}) {
        PageWindow const window(LibraryModule(), Resource(page));
        for (PagePart const& part : window.Parts()) {
            if (part.text.ends_with("Pa") && part.text[0] == 'k') {
                units.insert(part.text);
            }
        }
    }
    EXPECT_EQ(units.count("kPa"), 5U);
}

TEST_P(Pages, AFieldForNumbersTakesNumbersItsCodesAndWhatTheFileHas) {
    struct {
        std::size_t page;
        int control;
        char const* text;
        bool taken;
    } const rows[] = {{planPage, IDC_KVARNBOK_HSKALA, "m\xE5nga", true}, // the file's
                      {planPage, IDC_KVARNBOK_HSKALA, "1,5", false},
                      {planPage, IDC_KVARNBOK_HSKALA, "MAX", false},
                      {planPage, IDC_KVARNBOK_HSKALA, "250", true},
                      {planPage, IDC_KVARNBOK_SEKTDIST, "", true},
                      {planPage, IDC_KVARNBOK_SEKTDIST, "fem", false},
                      {cptPage, IDC_KVARNBOK_QTSKALA, "MAX", true},
                      {cptPage, IDC_KVARNBOK_CPTSEKT, "vad som helst", true},
                      {0, IDC_KVARNBOK_FONT, "ROMANS", true}};
    Write("KVARNBOK.PAR", "HSKALA=m\xE5nga\r\n");
    for (auto const& row : rows) {
        PageWindow const window(LibraryModule(), Resource(row.page));
        ShowSettings(window.Handle(), row.page, m_inst);
        SetDlgItemTextA(window.Handle(), row.control, row.text);
        BadNumber const bad = FindBadNumber(window.Handle(), row.page, m_inst);
        EXPECT_EQ(bad.control, row.taken ? 0 : row.control) << row.text;
        EXPECT_EQ(FindBadNumber(window.Handle(), row.page, m_inst, IDC_KVARNBOK_LSKALA).control, 0);
        EXPECT_EQ(bad.text, row.taken ? "" : row.text);
        EXPECT_EQ(bad.field.empty() || bad.example.empty(), row.taken);
        EXPECT_EQ(bad.field.find_first_of("&:"), std::string::npos) << bad.field;
    }
}

TEST(Messages, APathIsBrokenBehindAFolderOnly) {
    struct {
        char const* text;
        char const* lines;
    } const rows[] = {
        {"Ingen s\xF6kv\xE4g", "Ingen s\xF6kv\xE4g"},
        {"Kan ej \xF6ppna v\xE4glinje : C:\\A\\B.VL", "Kan ej \xF6ppna v\xE4glinje :\nC:\\A\\B.VL"},
        {"Fel\nC:\\Projekt\\Den nya v\xE4gen till Lund\\Etapp 2\\VAG.VL\nAvbryter!",
         "Fel\nC:\\Projekt\\Den nya v\xE4gen till Lund\\Etapp 2\\\nVAG.VL\nAvbryter!"},
        {"C:\\ett namn som \xE4r l\xE4ngre \xE4n en hel rad i rutan\\VAG.VL",
         "C:\\ett namn som \xE4r l\xE4ngre \xE4n en hel rad i rutan\\\nVAG.VL"},
        {"\\\\server\\mapp", "\\\\server\\mapp"},
        {"", ""},
    };
    for (auto const& row : rows) {
        EXPECT_EQ(WithPathLines(row.text), row.lines);
    }
}

TEST_P(Pages, APageIsSavedWholeOrNotAtAll) {
    std::string const before = "PLANDJUP=JA\r\nPLANZ=NEJ\r\n";
    Write("KVARNBOK.PAR", before);
    PageWindow const window(LibraryModule(), Resource(planPage));
    ShowSettings(window.Handle(), planPage, m_inst);
    CheckDlgButton(window.Handle(), IDC_KVARNBOK_PLANZ, BST_CHECKED);
    CheckDlgButton(window.Handle(), IDC_KVARNBOK_PLANDJUP, BST_UNCHECKED);
    SetDlgItemTextA(window.Handle(), IDC_KVARNBOK_SEKTDIST, std::string(260, '1').c_str());
    EXPECT_FALSE(SaveSettings(window.Handle(), planPage, m_inst));
    EXPECT_EQ(Read("KVARNBOK.PAR"), before);
    SetDlgItemTextA(window.Handle(), IDC_KVARNBOK_SEKTDIST, "2.0");
    EXPECT_TRUE(SaveSettings(window.Handle(), planPage, m_inst));
    EXPECT_EQ(Read("KVARNBOK.PAR"), "PLANDJUP=NEJ\r\nPLANZ=JA\r\nSEKTDIST=2.0\r\n");
}

TEST_P(Pages, AShortFileOfScalesIsSavedWhole) {
    Write("JB23.PAR", "90   45\r\n");
    PageWindow const window(LibraryModule(), Resource(jb23Page));
    ShowSettings(window.Handle(), jb23Page, m_inst);
    SetDlgItemTextA(window.Handle(), IDC_JB23_USKALA, "700");
    SetDlgItemTextA(window.Handle(), IDC_JB23_SJUNKSTEG, "");
    EXPECT_TRUE(SaveSettings(window.Handle(), jb23Page, m_inst));
    EXPECT_EQ(Read("JB23.PAR"), "90   50\r\n40   10\r\n30   10\r\n100   25\r\n2   0.5\r\n"
                                "50   25\r\n10   2.5\r\n10   2.5\r\n14   2\r\n100   50\r\n"
                                "700   200\r\n");
    SetDlgItemTextA(window.Handle(), IDC_JB23_USKALA, "700 kPa");
    EXPECT_FALSE(SaveSettings(window.Handle(), jb23Page, m_inst));
}

TEST(Resources, WhatIsMissingIsEmptyAndShowsNothing) {
    Boxes const boxes;
    TestWindow const frame;
    constexpr int missing = 29999;
    EXPECT_EQ(CreateSettingsPage(LibraryModule(), missing, frame.m_hWnd), nullptr);
    EXPECT_TRUE(InitialEntries(LibraryModule(), missing).empty());
    EXPECT_TRUE(FillComboBoxes(frame.m_hWnd, LibraryModule(), missing));
    char text[8] = "x";
    EXPECT_EQ(AfxLoadString(missing, text, sizeof text), 0);
    EXPECT_TRUE(Boxes::Shown().empty());
}

TEST(Resources, LettersOfTheEntriesAreCodePage1252) {
    std::set<std::string> entries;
    for (InitialEntry const& entry : InitialEntries(LibraryModule(), IDD_KVARN_TEXTER_NO)) {
        if (entry.control == IDC_KVARNBOK_LINJEBREDD) {
            entries.insert(entry.text);
        }
    }
    EXPECT_EQ(entries, (std::set<std::string>{"NEJ", "F\xC4RG"}));
}

} // namespace
