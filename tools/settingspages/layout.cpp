#include "layout.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "accelerators.h"
#include "textwidth.h"

namespace pages {

namespace {

constexpr int margin = 7;
constexpr int groupGap = 5;  // between groups
constexpr int groupSide = 6; // from a group's frame to its rows
constexpr int groupTop = 12;
constexpr int groupBottom = 6;
constexpr int rowPitch = 16;
constexpr int boxHeight = 14; // edit and combo boxes
constexpr int textHeight = 8;
constexpr int textDrop = 2; // on one line with the text of a box
constexpr int checkHeight = 10;
constexpr int checkDrop = 2;
constexpr int checkMark = 14; // before its text
constexpr int labelGap = 4;   // from a label to its box
constexpr int unitGap = 3;
constexpr int cellGap = 10; // between the fields of a row
constexpr int titleRoom = 12;
constexpr int entryHeight = 10; // of a combo box that is open

int BoxWidth(Field const& field, Language language) {
    constexpr int number = 28;
    constexpr int name = 60;
    constexpr int least = 38; // of a combo box
    constexpr int arrow = 18; // and the frame
    int combo = least;
    for (std::string_view const entry : field.entries) {
        combo = std::max(combo, TextWidth(Shown(entry, language)) + arrow);
    }
    return field.kind == Kind::combo ? combo : field.kind == Kind::name ? name : number;
}

// The columns that the rows of a page's side share.
struct Column {
    int label = 0;
    int box = 0;
    int unit = 0;

    int Width() const { return label + labelGap + box + (unit > 0 ? unitGap + unit : 0); }
};

using Columns = std::vector<Column>;

int Width(Columns const& columns) {
    int width = columns.empty() ? 0 : cellGap * (static_cast<int>(columns.size()) - 1);
    for (Column const& column : columns) {
        width += column.Width();
    }
    return width;
}

struct Place {
    int x;
    int y;
    int width;
};

class Layout {
  public:
    Layout(Page const& page, Language language) : m_page(page), m_language(language) {
        std::vector<std::string_view> labels;
        ForEachField(page, [&](Field const& field) { labels.push_back(field.label[language]); });
        m_labels = WithAccelerators(labels, language);
    }

    std::vector<Item> Items() {
        int left = margin;
        int right = margin;
        for (Group const& group : m_page.groups) {
            int& y = group.side == Side::right ? right : left;
            if (group.side == Side::whole) {
                y = std::max(left, right);
                EndSides(y);
            }
            AddGroup(group, y);
            y += Height(group) + groupGap;
            if (group.side == Side::whole) {
                right = left;
            }
        }
        int const end = std::max(left, right);
        EndSides(end);
        if (end - groupGap > pageHeight - margin) {
            Fail("is too high by " + std::to_string(end - groupGap - pageHeight + margin));
        }
        return std::move(m_items);
    }

  private:
    [[noreturn]] void Fail(std::string const& what) const {
        throw std::runtime_error(std::string("page ") + m_page.name + ' ' + what);
    }

    static int Height(Group const& group) {
        return groupTop + rowPitch * static_cast<int>(group.rows.size()) - (rowPitch - boxHeight) +
               groupBottom;
    }
    static Place PlaceOf(Side side, int y) {
        constexpr int whole = pageWidth - 2 * margin;
        constexpr int half = (whole - groupGap) / 2;
        return {side == Side::right ? pageWidth - margin - half : margin, y,
                side == Side::whole ? whole : half};
    }

    // Two sides that lie beside each other end at the same height.
    void EndSides(int y) {
        for (std::size_t const last : {m_lastOf[0], m_lastOf[1]}) {
            if (last < m_items.size()) {
                m_items[last].height = y - groupGap - m_items[last].y;
            }
        }
        m_lastOf[0] = m_lastOf[1] = nothing;
    }

    // A row of fewer fields takes the room to its right where its box is wider than the column's.
    Columns ColumnsOf(Side side) const {
        Columns columns(MostFields(side));
        for (Group const& group : m_page.groups) {
            if (group.side != side) {
                continue;
            }
            for (Row const& row : group.rows) {
                for (std::size_t i = 0; i < row.size(); ++i) {
                    Widen(columns[i], row[i], row.size() == columns.size());
                }
            }
        }
        return columns;
    }
    std::size_t MostFields(Side side) const {
        std::size_t most = 0;
        for (Group const& group : m_page.groups) {
            for (Row const& row : group.rows) {
                most = std::max(most, group.side == side ? row.size() : 0);
            }
        }
        return most;
    }
    void Widen(Column& column, Field const& field, bool full) const {
        if (field.kind == Kind::check) {
            return;
        }
        column.label = std::max(column.label, TextWidth(field.label[m_language]));
        if (full) {
            column.box = std::max(column.box, BoxWidth(field, m_language));
            column.unit = std::max(
                {column.unit, TextWidth(field.unit[m_language]), TextWidth(field.common.unit)});
        }
    }

    void AddGroup(Group const& group, int y) {
        Place const place = PlaceOf(group.side, y);
        if (group.side != Side::whole) {
            m_lastOf[group.side == Side::right ? 1 : 0] = m_items.size();
        }
        std::string const title(group.title[m_language]);
        m_items.push_back(
            {Part::group, title, nullptr, place.x, place.y, place.width, Height(group)});
        int const room = place.width - 2 * groupSide;
        Columns columns = ColumnsOf(group.side);
        int const missing =
            std::max(Width(columns), TextWidth(title) + titleRoom - 2 * groupSide) - room;
        if (missing > 0) {
            Fail("is too wide by " + std::to_string(missing) + " at \"" + title + '"');
        }
        int const gap = Spread(columns, room);
        int row = place.y + groupTop;
        for (Row const& fields : group.rows) {
            AddRow(fields, columns, gap, {place.x + groupSide, row, room});
            row += rowPitch;
        }
    }
    // The room that is left goes to the labels of the first column and between the fields, as far
    // as a label is still seen with its box; returns the distance between fields.
    static int Spread(Columns& columns, int room) {
        constexpr int most = 24;
        int const shares = static_cast<int>(columns.size()) + 1;
        int const share = std::min(most, (room - Width(columns)) / shares);
        columns.front().label += share;
        return cellGap + share;
    }

    void AddRow(Row const& row, Columns const& columns, int gap, Place place) {
        int x = place.x;
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (row[i].kind == Kind::check) {
                AddCheck(row[i], {x, place.y, place.x + place.width - x});
            } else {
                Column column = columns[i];
                if (row.size() < columns.size()) {
                    column.box = std::max(column.box, BoxWidth(row[i], m_language));
                }
                AddField(row[i], column, {x, place.y, place.x + place.width - x});
            }
            x += columns[i].Width() + gap;
        }
    }
    void AddCheck(Field const& field, Place place) {
        std::string const label = TakeLabel();
        int const width = checkMark + TextWidth(field.label[m_language]);
        if (width > place.width) {
            Fail("has no room for " + label);
        }
        m_items.push_back(
            {Part::check, label, &field, place.x, place.y + checkDrop, width, checkHeight});
    }
    void AddField(Field const& field, Column const& column, Place place) {
        std::string const label = TakeLabel();
        if (column.Width() > place.width) {
            Fail("has no room for " + label);
        }
        int const y = place.y;
        m_items.push_back(
            {Part::label, label, nullptr, place.x, y + textDrop, column.label, textHeight});
        int x = place.x + column.label + labelGap;
        bool const combo = field.kind == Kind::combo;
        int const open = combo ? entryHeight * (static_cast<int>(field.entries.size()) + 1) : 0;
        m_items.push_back(
            {combo ? Part::combo : Part::edit, "", &field, x, y, column.box, boxHeight + open});
        x += column.box + unitGap;
        std::string_view const unit = field.unit[m_language];
        if (!unit.empty()) {
            m_items.push_back(
                {Part::unit, std::string(unit), nullptr, x, y + textDrop, column.unit, textHeight});
        }
    }
    std::string TakeLabel() { return m_labels[m_taken++]; }

    static constexpr std::size_t nothing = static_cast<std::size_t>(-1);

    Page const& m_page;
    Language m_language;
    std::vector<std::string> m_labels; // in the order of the fields
    std::size_t m_taken = 0;
    std::vector<Item> m_items;
    std::size_t m_lastOf[2] = {nothing, nothing}; // the last group of each side
};

} // namespace

std::string Shown(std::string_view entry, Language language) {
    auto const* const found = std::ranges::find(meanings, entry, &Meaning::code);
    std::string const words =
        found != std::end(meanings) ? " – " + std::string(found->words[language]) : "";
    return std::string(entry) + words;
}

std::vector<Item> LaidOut(Page const& page, Language language) {
    return Layout(page, language).Items();
}

} // namespace pages
