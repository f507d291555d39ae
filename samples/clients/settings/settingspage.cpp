#include "settingspage.h"

#include <algorithm>
#include <cstring>

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

template <class Do> bool ForEachControl(std::size_t page, Do const& act) {
    for (SettingsControl const& control : kvarn::settingsControls) {
        if (static_cast<std::size_t>(control.page) == page && !act(control)) {
            return false;
        }
    }
    return true;
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

// The value that the user sees, as it is written to the file.
std::string Shown(HWND dialog, SettingsControl const& control, std::string const& before) {
    HWND const box = GetDlgItem(dialog, control.control);
    return control.kind == SettingsKind::check ? ShownCheck(box, before.c_str()) : TextOf(box);
}

bool Save(CKvarnInst& inst, char const* file, char const* key, std::string const& value) {
    return inst.WriteKey(file, key, value.c_str()) == 0;
}

// Values are words of a line, and a short file grows by one line a write, so all values are written
// in their order.
bool SaveJb23(CKvarnInst& inst, char const* file, std::size_t page,
              std::vector<std::string> const& values) {
    auto value = values.begin();
    if (std::any_of(value, values.end(), [](std::string const& text) {
            return text.find_first_of(" \t\v\f") != std::string::npos;
        })) {
        return false;
    }
    return ForEachControl(page, [&](SettingsControl const& control) {
        std::string const word =
            value->empty() ? inst.Default(file, control.key).GetString() : *value;
        ++value;
        return Save(inst, file, control.key, word);
    });
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
        [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR { return message == WM_INITDIALOG; }, 0);
}

bool FillComboBoxes(HWND dialog, HINSTANCE library, int page) {
    bool filled = true;
    for (InitialEntry const& entry : InitialEntries(library, page)) {
        if (entry.message == addToCombo) {
            filled = SendDlgItemMessageA(dialog, entry.control, CB_ADDSTRING, 0,
                                         reinterpret_cast<LPARAM>(entry.text.c_str())) >= 0 &&
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
            return true;
        }
        SendMessageA(box, control.kind == SettingsKind::combo ? CB_LIMITTEXT : EM_LIMITTEXT,
                     longestValue, 0);
        SetWindowTextA(box, value);
        return true;
    });
}

bool SaveSettings(HWND dialog, std::size_t page, CKvarnInst& inst) {
    char const* const file = FileOf(page);
    bool const words = kvarn::settingsPages[page].file == SettingsFile::jb23Par;
    bool changed = false;
    std::vector<std::string> values;
    bool const saved = ForEachControl(page, [&](SettingsControl const& control) {
        std::string const before = inst.ReadKey(file, control.key).GetString();
        values.push_back(Shown(dialog, control, before));
        bool const differs = values.back() != before;
        changed = changed || differs;
        return !differs || words || Save(inst, file, control.key, values.back());
    });
    return words && changed ? SaveJb23(inst, file, page, values) : saved;
}
