#include "tablelayout.h"

#include <algorithm>
#include <array>
#include <charconv>

#include <text/codepage.h>

#include "../shared/arguments.h"
#include "../shared/failure.h"
#include "../shared/output.h"
#include "csvfields.h"

#include <neighbours/road/station.h>

namespace kvarnio {
namespace {

using Quantities = std::vector<Quantity const*>;

// The texts between commas.
std::vector<std::string> SplitColumns(std::string const& typed) {
    std::vector<std::string_view> fields;
    SplitFields(typed, ',', fields);
    std::vector<std::string> columns(fields.size());
    std::transform(fields.begin(), fields.end(), columns.begin(), Held);
    return columns;
}

std::string Lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), kvarn::Lower1252);
    return text;
}

// In code page 1252 and small letters, whichever encoding the table is in.
std::string Heading(std::string_view field) {
    std::string_view const held = Held(field);
    return Lowered(kvarn::FromUtf8(held).value_or(std::string(held)));
}

// The same without the unit after it: "X (m)", "Sektion [km/m]".
std::string HeadingWithoutUnit(std::string_view field) {
    std::string const heading = Heading(field);
    return std::string(Held(std::string_view(heading).substr(0, heading.find_first_of("(["))));
}

class LayoutFinder {
  public:
    LayoutFinder(std::string const& name, std::string_view content, TableOptions const& options,
                 Quantities const& asked)
        : m_name(name), m_content(content), m_options(options), m_asked(asked) {}

    TableLayout Find() {
        if (!m_options.columns.empty() &&
            SplitColumns(m_options.columns).size() != m_asked.size()) {
            throw UsageError("--columns \"" + m_options.columns + "\" names " +
                             Count(SplitColumns(m_options.columns).size(), "column") + "; wanted " +
                             NamesOf(m_asked, ","));
        }
        m_layout.separator = Separator();
        CsvReader reader(m_content, m_layout.separator);
        if (!NextLine(reader, m_first)) {
            return m_layout;
        }
        m_hasSecond = NextLine(reader, m_second);
        m_options.columns.empty() ? FindColumns() : TakeColumns();
        m_layout.width = m_first.fields.size();
        if (m_layout.hasHeading && m_hasSecond) {
            m_layout.width = std::max(m_layout.width, m_second.fields.size());
        }
        return m_layout;
    }

  private:
    static bool NextLine(CsvReader& reader, CsvRecord& record) {
        while (reader.Next(record)) {
            if (!record.isPassed) {
                return true;
            }
        }
        return false;
    }

    static std::string Count(std::size_t count, char const* thing) {
        return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
    }

    std::string At(CsvRecord const& record) const {
        return m_name + ':' + std::to_string(record.line);
    }

    std::string Example() const { return m_asked.size() == 1 ? "--columns 2" : "--columns 2,3"; }

    char Separator() const {
        if (!m_options.separator.empty()) {
            char const given = kvarnio::Separator(m_options.separator);
            if (given == ',' && m_options.decimalComma) {
                throw UsageError("--decimal-comma: a comma cannot be both the separator and the "
                                 "decimal sign");
            }
            return given;
        }
        constexpr std::array<char, 3> usual = {';', '\t', ','}; // a comma may be in a text
        CsvRecord line;
        CsvReader reader(m_content, usual[0]);
        if (!NextLine(reader, line)) {
            return usual[0];
        }
        for (char const separator : usual) {
            std::vector<std::string_view> fields;
            SplitFields(line.text, separator, fields);
            if (fields.size() > 1 && separator == ',' && m_options.decimalComma) {
                throw UsageError(At(line) + ": the fields are separated by commas, and a comma "
                                            "cannot be the decimal sign as well; leave out "
                                            "--decimal-comma, or give --separator");
            }
            if (fields.size() > 1) {
                return separator;
            }
        }
        if (m_asked.size() > 1) {
            throw UsageError(At(line) + ": no semicolon, tab or comma separates fields; give "
                                        "--separator");
        }
        return usual[0];
    }

    bool IsNumber(std::string_view field, Quantity const& quantity) const {
        return NumberIn(field, quantity, m_options.decimalComma).has_value();
    }

    // The columns of the line that hold a number of any kind that is asked.
    std::vector<std::size_t> NumbersOf(CsvRecord const& record) const {
        std::vector<std::size_t> columns;
        for (std::size_t i = 0; i < record.fields.size(); ++i) {
            if (std::any_of(m_asked.begin(), m_asked.end(), [&](Quantity const* quantity) {
                    return IsNumber(record.fields[i], *quantity);
                })) {
                columns.push_back(i);
            }
        }
        return columns;
    }

    // --- As the user says ---

    void TakeColumns() {
        bool isNamed = false;
        for (std::string const& column : SplitColumns(m_options.columns)) {
            std::size_t number = 0;
            char const* const end = column.data() + column.size();
            auto const parsed = std::from_chars(column.data(), end, number);
            bool const isNumber = parsed.ec == std::errc() && parsed.ptr == end;
            isNamed = isNamed || !isNumber;
            m_layout.columns.push_back(isNumber ? Numbered(number) : Named(column));
        }
        m_layout.hasHeading = isNamed || HasWordsThere();
    }

    std::size_t Numbered(std::size_t number) const {
        std::size_t const most = std::max(m_first.fields.size(), m_second.fields.size());
        if (number < 1 || number > most) {
            throw UsageError("--columns " + m_options.columns + ": " + At(m_first) + " has " +
                             Count(m_first.fields.size(), "column") + ", counted from 1");
        }
        return number - 1;
    }

    std::size_t Named(std::string const& column) const {
        std::string const wanted = Heading(column);
        std::string headings;
        for (std::size_t i = 0; i < m_first.fields.size(); ++i) {
            if (Heading(m_first.fields[i]) == wanted) {
                return i;
            }
            headings += (i == 0 ? "" : ", ") + ShownField(m_first.fields[i]);
        }
        throw UsageError("--columns " + m_options.columns + ": " + At(m_first) +
                         " has no heading \"" + column + "\"; it has " + headings);
    }

    // A first line that is spoilt is no heading as long as one number is left.
    bool HasWordsThere() const {
        for (std::size_t i = 0; i < m_asked.size(); ++i) {
            std::size_t const column = m_layout.columns[i];
            if (column >= m_first.fields.size() || Held(m_first.fields[column]).empty() ||
                IsNumber(m_first.fields[column], *m_asked[i])) {
                return false;
            }
        }
        return true;
    }

    // --- As the table says ---

    void FindColumns() {
        bool const hasNumbers = !NumbersOf(m_first).empty();
        if (FindHeadings(hasNumbers)) {
            m_layout.hasHeading = true;
            return;
        }
        m_layout.hasHeading = !hasNumbers;
        if (!m_layout.hasHeading || m_hasSecond) {
            TakeNumbers(m_layout.hasHeading ? m_second : m_first);
        }
    }

    // Each quantity under its name. In a line with numbers a name may be the name of a point.
    bool FindHeadings(bool hasNumbers) {
        std::vector<std::size_t> columns;
        Quantity const* missing = nullptr;
        for (Quantity const* quantity : m_asked) {
            std::vector<std::size_t> const named = Headed(*quantity);
            if (named.size() > 1 && !hasNumbers) {
                throw UsageError(At(m_first) + " has " + Count(named.size(), "column") + " for " +
                                 quantity->name + ": " + ShownField(m_first.fields[named[0]]) +
                                 " and " + ShownField(m_first.fields[named[1]]) +
                                 "; name the ones to take, as in " + Example());
            }
            if (named.size() == 1) {
                columns.push_back(named[0]);
            } else {
                missing = quantity;
            }
        }
        if (missing != nullptr && !columns.empty() && !hasNumbers) {
            throw UsageError(At(m_first) + " has no heading for " + missing->name +
                             "; name the columns, as in " + Example());
        }
        m_layout.columns = missing == nullptr ? columns : std::vector<std::size_t>();
        return missing == nullptr;
    }

    std::vector<std::size_t> Headed(Quantity const& quantity) const {
        std::vector<std::size_t> columns;
        for (std::size_t i = 0; i < m_first.fields.size(); ++i) {
            std::string const heading = HeadingWithoutUnit(m_first.fields[i]);
            if (std::any_of(quantity.headings.begin(), quantity.headings.end(),
                            [&](char const* name) { return heading == name; })) {
                columns.push_back(i);
            }
        }
        return columns;
    }

    void TakeNumbers(CsvRecord const& data) {
        m_layout.columns = NumbersOf(data);
        if (m_layout.columns.size() != m_asked.size()) {
            throw UsageError(At(data) + " has " + Count(m_layout.columns.size(), "number") +
                             ", and no heading tells " + NamesOf(m_asked, " and ") +
                             "; name the columns, as in " + Example());
        }
    }

    std::string const& m_name;
    std::string_view m_content;
    TableOptions const& m_options;
    Quantities const& m_asked;
    CsvRecord m_first;
    CsvRecord m_second;
    bool m_hasSecond = false;
    TableLayout m_layout;
};

} // namespace

TableLayout LayoutOf(std::string const& name, std::string_view content, TableOptions const& options,
                     std::vector<Quantity const*> const& asked) {
    return LayoutFinder(name, content, options, asked).Find();
}

std::optional<double> NumberIn(std::string_view field, Quantity const& quantity,
                               bool decimalComma) {
    std::string_view const held = Held(field);
    auto const read = quantity.isStation ? ReadStation : ReadNumber;
    if (!decimalComma) {
        return read(held);
    }
    if (held.find('.') != std::string_view::npos) {
        return std::nullopt;
    }
    std::string text(held);
    std::replace(text.begin(), text.end(), ',', '.');
    return read(text);
}

std::string ShownField(std::string_view field) {
    return OneLine(kvarn::FromUtf8(field).value_or(std::string(field)));
}

} // namespace kvarnio
