#include "linechecker.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "../../text/scan.h"
#include "../../text/shown.h"
#include "../../text/text.h"
#include "../kodtexts.h"

#include "doubtfulletters.h"

namespace kvarn {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool IsUtf16(std::string_view content) {
    return content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF");
}

std::string Digits(double number) {
    return Shortest(number);
}
std::string Digits(std::int32_t number) {
    return std::to_string(number);
}

template <class T> Fault FaultOf(std::string_view word, char const* kind) {
    T number{};
    char rest[2] = "";
    int const count = Scan(word, number, rest);
    if (count == 1) {
        return {};
    }
    std::string const shown = '"' + OneLine(word) + '"';
    if (count < 1) {
        return {Rule::notANumber, shown + " is no " + kind};
    }
    std::string const read = shown + " is read as " + Digits(number);
    return word.find(',') != std::string_view::npos
               ? Fault{Rule::decimalComma, read + ", for the decimal sign is a point"}
               : Fault{Rule::partOfANumber, read};
}

} // namespace

std::vector<TextLine> LinesOf(std::string_view content) {
    std::vector<TextLine> lines;
    LineReader reader(content);
    for (TextLine line; reader.ReadLine(line);) {
        lines.push_back(line);
    }
    return lines;
}

std::optional<TextLine> BeyondEnd(std::string_view content) {
    std::size_t const end = content.find(endOfText);
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view const text = content.substr(0, end);
    auto const ended = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    constexpr std::string_view ignored = "\r\n \t\x1A";
    std::string_view beyond = content.substr(end);
    beyond.remove_prefix(std::min(beyond.find_first_not_of(ignored), beyond.size()));
    return beyond.empty() ? std::nullopt
                          : std::optional(TextLine{ended + 1, LinesOf(beyond).front().text});
}

std::vector<Word> Words(std::string_view text) {
    constexpr char const* blanks = " \t\v\f\r";
    std::vector<Word> words;
    for (std::size_t at = text.find_first_not_of(blanks); at != std::string_view::npos;) {
        std::size_t const end = std::min(text.find_first_of(blanks, at), text.size());
        words.push_back({at, text.substr(at, end - at)});
        at = text.find_first_not_of(blanks, end);
    }
    return words;
}

Fault NumberFault(std::string_view word) {
    return FaultOf<double>(word, "number");
}

Fault WholeNumberFault(std::string_view word) {
    return FaultOf<std::int32_t>(word, "whole number");
}

LineChecker::LineChecker(std::string_view content) : m_isReadable(!IsUtf16(content)) {
    if (!m_isReadable) {
        Add(1, Rule::utf16,
            "saved as UTF-16: the file must be in code page 1252, and nothing of it is read");
        return;
    }
    m_lines = LinesOf(content);
    LookAtEncoding(content);
    for (TextLine const& line : m_lines) {
        if (line.afterZero) {
            Add(line.number, Rule::afterZero, "text after a zero byte", Loss::line,
                *line.afterZero);
        }
        LookAtControls(line);
    }
    LookBeyondEnd(content);
}

void LineChecker::LookBeyondEnd(std::string_view content) {
    if (auto const beyond = BeyondEnd(content)) {
        Add(beyond->number, Rule::afterEndOfFile, "everything after the end-of-file character 0x1A",
            Loss::line, beyond->text);
    }
}

void LineChecker::LookAtEncoding(std::string_view content) {
    if (content.starts_with(byteOrderMark)) {
        Add(1, Rule::byteOrderMark,
            "a byte-order mark, which is read as the first three letters of the line");
    }
    for (TextLine const& line : m_lines) {
        if (IsUtf8(line.text)) {
            Add(line.number, Rule::utf8, "UTF-8, where code page 1252 is read", Loss::none,
                line.text);
        }
    }
}

void LineChecker::LookAtControls(TextLine const& line) {
    bool const found = std::any_of(line.text.begin(), line.text.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' && c != '\t';
    });
    if (found) {
        Add(line.number, Rule::controlCharacter,
            "a control character, which is read as part of the line", Loss::none, line.text);
    }
}

void LineChecker::Add(std::size_t line, Rule rule, std::string what, Loss loss,
                      std::string_view text) {
    m_findings.push_back({line, rule, std::move(what), loss, std::string(text)});
}

void LineChecker::LookAtLetters(std::size_t line, std::string_view text, Letters letters) {
    if (IsUtf8(text)) {
        return; // and said
    }
    if (letters == Letters::kept && HoldsDosLetters(text)) {
        Add(line, Rule::dosLetters, "DOS letters, which are not converted here", Loss::none, text);
    } else if (letters == Letters::converted && ConversionSpoils(text)) {
        Add(line, Rule::spoiltLetters,
            "converted as if in DOS letters, and read as \"" + OneLine(Converted(text)) + '"',
            Loss::none, text);
    }
}

void LineChecker::LookAtLength(std::size_t line, char const* what, std::string_view text) {
    if (text.size() > longestKodtext) {
        Add(line, Rule::tooLong,
            std::string(what) + " has " + std::to_string(text.size()) + " characters, and " +
                std::to_string(longestKodtext) + " are read",
            Loss::line, text.substr(longestKodtext));
    }
}

void LineChecker::AddOnce(std::vector<TextLine> const& lines, Rule rule, std::string what,
                          Loss loss) {
    if (lines.empty()) {
        return;
    }
    if (lines.size() > 1) {
        what += ", this line and " + std::to_string(lines.size() - 1) + " more";
    }
    Add(lines.front().number, rule, std::move(what), loss, lines.front().text);
}

void LineChecker::AddAfterEnd(std::size_t last, char const* where) {
    std::vector<TextLine> unread;
    for (TextLine const& line : m_lines) {
        if (line.number > last && !IsBlank(line.text)) {
            unread.push_back(line);
        }
    }
    AddOnce(unread, Rule::afterEnd, where, Loss::line);
}

void LineChecker::LookAtStar(TextLine const& line, char const* what, Loss loss) {
    if (line.text.size() > 1) {
        Add(line.number, Rule::starText, std::string("text on ") + what + " \"*\"", loss,
            line.text.substr(1));
    }
}

void LineChecker::LookAtRecords(void (*look)(LineChecker&, TextLine const&,
                                             std::vector<Word> const&)) {
    constexpr char const* emptyLine =
        "a blank line is a bad line here, after which programs may stop";
    std::size_t blank = 0; // the last line, if it is blank
    for (TextLine const& line : m_lines) {
        bool const isEnd = IsStarLine(line.text);
        auto const words = Words(line.text);
        if (blank != 0 && !words.empty() && !isEnd) {
            Add(blank, Rule::blankLine, emptyLine);
        }
        blank = words.empty() ? line.number : 0;
        if (words.empty()) {
            AddBlank(line);
        } else if (!isEnd) {
            look(*this, line, words);
        } else {
            LookAtStar(line, "the end line");
            AddAfterEnd(line.number, "after the end line \"*\"");
            return;
        }
    }
}

std::vector<Finding> LineChecker::Take() {
    m_findings.resize(m_isReadable ? m_findings.size() : 1); // of other text nothing else is true
    std::stable_sort(m_findings.begin(), m_findings.end(),
                     [](Finding const& a, Finding const& b) { return a.line < b.line; });
    return std::move(m_findings);
}

} // namespace kvarn
