#include "csvfields.h"

#include <algorithm>

namespace kvarnio {
namespace {

constexpr char quote = '"';
constexpr std::string_view blanks = " \t";

// The index after a quoted field's last quote, or npos. The line begins with the first one.
std::size_t EndOfQuoted(std::string_view line) {
    std::size_t at = 1;
    while (true) {
        at = line.find(quote, at);
        if (at == std::string_view::npos) {
            return at;
        }
        if (line.substr(at + 1, 1) != std::string_view(&quote, 1)) {
            return at + 1;
        }
        at += 2;
    }
}

bool IsPassed(CsvRecord const& record) {
    std::size_t const first = record.text.find_first_not_of(blanks);
    return first == std::string_view::npos || record.text[first] == '#' ||
           std::all_of(record.fields.begin(), record.fields.end(),
                       [](std::string_view field) { return Held(field).empty(); });
}

} // namespace

Quotes SplitFields(std::string_view line, char separator, std::vector<std::string_view>& fields) {
    Quotes quotes = Quotes::closed;
    fields.clear();
    while (true) {
        std::size_t from = 0;
        if (line.starts_with(quote)) {
            from = EndOfQuoted(line);
            if (from == std::string_view::npos) {
                fields.push_back(line);
                return Quotes::open;
            }
            if (from < line.size() && line[from] != separator) {
                quotes = Quotes::followed;
            }
        }
        std::size_t const end = line.find(separator, from);
        fields.push_back(line.substr(0, end));
        if (end == std::string_view::npos) {
            return quotes;
        }
        line.remove_prefix(end + 1);
    }
}

std::string_view Held(std::string_view field) {
    auto const trim = [&field] {
        field.remove_prefix(std::min(field.find_first_not_of(blanks), field.size()));
        field = field.substr(0, field.find_last_not_of(blanks) + 1);
    };
    trim();
    if (field.size() > 1 && field.front() == quote && field.back() == quote) {
        field = field.substr(1, field.size() - 2);
        trim();
    }
    return field;
}

void AppendField(std::string& out, std::string_view text, char separator) {
    if (text.find(separator) == std::string_view::npos &&
        text.find(quote) == std::string_view::npos) {
        out += text;
        return;
    }
    out += quote;
    for (char const c : text) {
        out.append(c == quote ? 2 : 1, c);
    }
    out += quote;
}

void CsvReader::Take(std::size_t lines, CsvRecord& record) const {
    std::size_t end = 0;
    for (std::size_t i = 0; i < lines && end < m_rest.size(); ++i) {
        end = std::min(m_rest.find('\n', end), m_rest.size() - 1) + 1;
    }
    std::string_view const whole = m_rest.substr(0, end);
    std::size_t textEnd = end - (whole.ends_with('\n') ? 1U : 0U);
    textEnd -= whole.substr(0, textEnd).ends_with('\r') ? 1U : 0U;
    record.line = m_line;
    record.text = whole.substr(0, textEnd);
    record.end = whole.substr(textEnd);
    record.quotes = SplitFields(record.text, m_separator, record.fields);
}

bool CsvReader::Next(CsvRecord& record) {
    if (m_rest.empty()) {
        return false;
    }
    Take(1, record);
    record.isPassed = IsPassed(record);
    constexpr std::size_t most = 50; // a quote that nothing ends must not swallow the table
    for (std::size_t lines = 2; record.quotes == Quotes::open && !record.isPassed && lines <= most;
         ++lines) {
        Take(lines, record);
    }
    if (record.quotes != Quotes::closed) {
        Take(1, record);
    }
    std::string_view const whole = m_rest.substr(0, record.text.size() + record.end.size());
    m_line += static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '\n'));
    m_rest.remove_prefix(whole.size());
    return true;
}

} // namespace kvarnio
