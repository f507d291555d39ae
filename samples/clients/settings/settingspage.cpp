#include "settingspage.h"

#include <algorithm>
#include <cstring>

#include "shownvalue.h"

namespace {

using kvarn::SettingsControl;
using kvarn::SettingsFile;
using kvarn::SettingsKind;

constexpr int initialData = 240; // the resource's type
constexpr unsigned addToCombo = 0x403;
constexpr std::size_t longestValue = 258; // longer values are lost at the next reading

struct Resource {
    Resource(HINSTANCE library, int page, char const* type) {
        HRSRC const found = FindResourceA(library, MAKEINTRESOURCEA(page), type);
        if (HGLOBAL const loaded = found != nullptr ? LoadResource(library, found) : nullptr) {
            bytes = static_cast<char const*>(LockResource(loaded));
            size = SizeofResource(library, found);
        }
    }
    char const* bytes = nullptr;
    std::size_t size = 0;
};

// Values in a row, at any address.
class Reader {
  public:
    explicit Reader(Resource const& data) : m_rest(data.bytes), m_left(data.size) {}

    template <class Value> bool Take(Value& value) {
        if (m_left < sizeof value) {
            return false;
        }
        std::memcpy(&value, m_rest, sizeof value);
        Skip(sizeof value);
        return true;
    }
    bool TakeText(std::string& text, std::size_t size) { // ends at its zero
        if (m_left < size) {
            return false;
        }
        text.assign(m_rest, std::find(m_rest, m_rest + size, '\0'));
        Skip(size);
        return true;
    }

  private:
    void Skip(std::size_t size) {
        m_rest += size;
        m_left -= size;
    }

    char const* m_rest;
    std::size_t m_left;
};

std::string TextOf(HWND control) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(control)) + 1, '\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextA(control, &text[0], static_cast<int>(text.size()))));
    return text;
}

bool Same(char const* a, char const* b) {
    return lstrcmpiA(a, b) == 0;
}

char const* FileOf(std::size_t page) {
    return NameOf(kvarn::settingsPages[page].file);
}

template <class Do> void ForEachControl(std::size_t page, Do const& act) {
    for (SettingsControl const& control : kvarn::settingsControls) {
        if (static_cast<std::size_t>(control.page) == page) {
            act(control);
        }
    }
}

void ShowCheck(HWND box, char const* value) {
    bool const yes = Same(value, "JA");
    bool const known = yes || Same(value, "NEJ");
    if (!known) { // the user can choose the third state again
        SendMessageA(box, BM_SETSTYLE, BS_AUTO3STATE, TRUE);
    }
    WPARAM const state = yes ? BST_CHECKED : known ? BST_UNCHECKED : BST_INDETERMINATE;
    SendMessageA(box, BM_SETCHECK, state, 0);
}

std::string ShownCheck(HWND box, char const* before) {
    LRESULT const state = SendMessageA(box, BM_GETCHECK, 0, 0);
    char const* const value = state == BST_CHECKED ? "JA" : "NEJ";
    return state == BST_INDETERMINATE || Same(before, value) ? before : value;
}

std::string EntryOf(HWND box, int place) {
    LRESULT const length = SendMessageA(box, CB_GETLBTEXTLEN, static_cast<WPARAM>(place), 0);
    std::string text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, '\0');
    LRESULT const read = SendMessageA(box, CB_GETLBTEXT, static_cast<WPARAM>(place),
                                      reinterpret_cast<LPARAM>(&text[0]));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(read, 0)));
    return text;
}

// The entry of a combo box whose code the text is; no entry, and in other boxes, an empty text.
std::string EntryWithCode(HWND box, std::string const& code) {
    auto const count = static_cast<int>(SendMessageA(box, CB_GETCOUNT, 0, 0));
    for (int place = 0; place < count; ++place) {
        std::string entry = EntryOf(box, place);
        if (WithoutWords(entry) == code) {
            return entry;
        }
    }
    return {};
}

// A value of the file as the user sees it.
std::string Shown(HWND box, SettingsControl const& control, std::string const& value) {
    std::string const number = InUsersUnit(control.control, value);
    std::string const entry =
        control.kind == SettingsKind::combo ? EntryWithCode(box, number) : std::string();
    return entry.empty() ? number : entry;
}

// What the user sees, as it is written to the file: what is as before stays to the letter.
std::string ValueOf(HWND dialog, SettingsControl const& control, std::string const& before) {
    HWND const box = GetDlgItem(dialog, control.control);
    if (control.kind == SettingsKind::check) {
        return ShownCheck(box, before.c_str());
    }
    std::string const text = TextOf(box);
    return text == Shown(box, control, before) ? before
                                               : InFilesUnit(control.control, WithoutWords(text));
}

PageLanguage LanguageOf(int page) {
    bool const norwegian =
        std::any_of(std::begin(kvarn::settingsPages), std::end(kvarn::settingsPages),
                    [page](kvarn::SettingsPage const& row) { return row.norwegian == page; });
    return norwegian ? PageLanguage::norwegian : PageLanguage::swedish;
}

// The page names the file's unit behind the control: users see the common one.
void ShowUnits(HWND dialog) {
    for (kvarn::SettingsUnit const& row : kvarn::settingsUnits) {
        HWND const box = GetDlgItem(dialog, row.control);
        HWND const next = box != nullptr ? GetWindow(box, GW_HWNDNEXT) : nullptr;
        if (next != nullptr && (GetWindowLongA(next, GWL_STYLE) & SS_NOPREFIX) != 0) {
            SetWindowTextA(next, row.unit);
        }
    }
}

// A field's label without the stroke and the colon.
std::string LabelOf(HWND box) {
    std::string label = TextOf(GetWindow(box, GW_HWNDPREV));
    label.erase(std::remove_if(label.begin(), label.end(),
                               [](char letter) { return letter == '&' || letter == ':'; }),
                label.end());
    return label;
}

// Whether a field takes a text that was typed: a number where the default is one.
bool Takes(HWND box, std::string const& text, std::string const& byDefault) {
    std::string const value = WithoutWords(text);
    return value.empty() || !IsNumber(byDefault) || IsNumber(value) ||
           !EntryWithCode(box, value).empty();
}

struct Setting {
    char const* key;
    std::string value;
};

// All of them by one rewriting of the file, or none.
bool Save(CKvarnInst& inst, char const* file, std::vector<Setting> const& settings) {
    std::vector<nyckelvarde> keys;
    for (Setting const& setting : settings) {
        keys.push_back({setting.key, setting.value.c_str(), 0});
    }
    return inst.WriteKeys(file, keys.data(), static_cast<int>(keys.size())) == 0;
}

// Values are words of a line, and a short file grows by one line a value: all of them are written,
// in their order.
bool SaveScales(CKvarnInst& inst, char const* file, std::vector<Setting> settings) {
    for (Setting& setting : settings) {
        if (setting.value.find_first_of(" \t\v\f") != std::string::npos) {
            return false;
        }
        if (setting.value.empty()) {
            setting.value = inst.Default(file, setting.key).GetString();
        }
    }
    return Save(inst, file, settings);
}

} // namespace

std::vector<InitialEntry> InitialEntries(HINSTANCE library, int page) {
    Reader data(Resource(library, page, MAKEINTRESOURCEA(initialData)));
    std::vector<InitialEntry> entries;
    WORD control = 0;
    WORD message = 0;
    DWORD length = 0;
    std::string text;
    while (data.Take(control) && control != 0 && data.Take(message) && data.Take(length) &&
           data.TakeText(text, length)) {
        entries.push_back({control, message, text});
    }
    return entries;
}

HWND CreateSettingsPage(HINSTANCE library, int page, HWND parent) {
    Resource const resource(library, page, MAKEINTRESOURCEA(5)); // RT_DIALOG
    if (resource.size == 0) {
        return nullptr;
    }
    // A property page has a caption for its tab, which a child window would draw.
    constexpr std::size_t styleOffset = 12;
    std::vector<DWORD> dialog((resource.size + sizeof(DWORD) - 1) / sizeof(DWORD));
    std::memcpy(dialog.data(), resource.bytes, resource.size);
    DWORD& style = dialog[styleOffset / sizeof(DWORD)];
    style = (style & ~DWORD{WS_CAPTION}) | WS_CHILD | DS_CONTROL;
    return CreateDialogIndirectParamA(
        library, reinterpret_cast<DLGTEMPLATE const*>(dialog.data()), parent,
        [](HWND self, UINT message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
            if (message == WM_COMMAND) {
                SendMessageA(GetParent(self), message, wParam, lParam);
            }
            return message == WM_INITDIALOG;
        },
        0);
}

bool FillComboBoxes(HWND dialog, HINSTANCE library, int page) {
    bool filled = true;
    PageLanguage const language = LanguageOf(page);
    ShowUnits(dialog);
    for (InitialEntry const& entry : InitialEntries(library, page)) {
        if (entry.message == addToCombo) {
            std::string const shown = WithWords(InUsersUnit(entry.control, entry.text), language);
            filled = SendDlgItemMessageA(dialog, entry.control, CB_ADDSTRING, 0,
                                         reinterpret_cast<LPARAM>(shown.c_str())) >= 0 &&
                     filled;
        }
    }
    return filled;
}

void ShowSettings(HWND dialog, std::size_t page, CKvarnInst& inst) {
    ForEachControl(page, [&](SettingsControl const& control) {
        CString const value = inst.ReadKey(FileOf(page), control.key);
        HWND const box = GetDlgItem(dialog, control.control);
        if (control.kind == SettingsKind::check) {
            ShowCheck(box, value);
            return;
        }
        SendMessageA(box, control.kind == SettingsKind::combo ? CB_LIMITTEXT : EM_LIMITTEXT,
                     longestValue, 0);
        SetWindowTextA(box, Shown(box, control, value.GetString()).c_str());
    });
}

BadNumber FindBadNumber(HWND dialog, std::size_t page, CKvarnInst& inst, int control) {
    BadNumber found;
    ForEachControl(page, [&](SettingsControl const& field) {
        bool const asked = control == 0 || control == field.control;
        if (found.control != 0 || !asked || field.kind == SettingsKind::check) {
            return;
        }
        HWND const box = GetDlgItem(dialog, field.control);
        std::string const text = TextOf(box);
        std::string const byDefault = inst.Default(FileOf(page), field.key).GetString();
        if (!Takes(box, text, byDefault) &&
            text != Shown(box, field, inst.ReadKey(FileOf(page), field.key).GetString())) {
            found = {field.control, LabelOf(box), text, InUsersUnit(field.control, byDefault)};
        }
    });
    return found;
}

bool SaveSettings(HWND dialog, std::size_t page, CKvarnInst& inst) {
    char const* const file = FileOf(page);
    std::vector<Setting> all;
    std::vector<Setting> changed;
    ForEachControl(page, [&](SettingsControl const& control) {
        std::string const before = inst.ReadKey(file, control.key).GetString();
        all.push_back({control.key, ValueOf(dialog, control, before)});
        if (all.back().value != before) {
            changed.push_back(all.back());
        }
    });
    bool const scales = kvarn::settingsPages[page].file == SettingsFile::jb23Par;
    return scales && !changed.empty() ? SaveScales(inst, file, all) : Save(inst, file, changed);
}
