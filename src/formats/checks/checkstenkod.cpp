#include <algorithm>
#include <map>

#include "../../text/format.h"
#include "../../text/scan.h"
#include "../../text/shown.h"
#include "../../text/text.h"
#include "../stenkod.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

// The words of a line.
enum { number, name, text, scale, pattern, angle, flag, all = MaterialLine::all };

bool IsWhole(int word) {
    return word == pattern || word == flag;
}

std::string Numbered(int value) {
    return "number " + std::to_string(value);
}

// A list's lines, one after another.
class ListChecker {
  public:
    ListChecker(LineChecker& checker, MaterialNames table, bool norwegian)
        : m_checker(checker), m_table(table), m_norwegian(norwegian) {
        for (std::size_t i = 0; i <= table.size(); ++i) { // from entry 0 on
            m_numbers.push_back(static_cast<int>(i));
        }
    }

    void Look(MaterialLine const& line) {
        m_line = &line;
        m_words = Words(line.line.text);
        if (m_words.empty()) {
            m_checker.AddBlank(line.line);
        } else if (!line.IsRead()) {
            LookAtIgnored();
        } else if (line.isShift) {
            Add(Rule::shiftLine,
                "the extra number, from which on the file's numbers are one higher than the "
                "list's; a written file has neither",
                Loss::line, line.line.text);
        } else {
            FindEntry();
            LookAtRead();
        }
    }

  private:
    // The entry that the line changes, or becomes.
    void FindEntry() {
        auto const found = m_line->changes
                               ? std::find(m_numbers.begin(), m_numbers.end(), *m_line->changes)
                               : m_numbers.end();
        m_isNew = found == m_numbers.end();
        m_entry = static_cast<std::size_t>(found - m_numbers.begin());
        if (m_isNew) {
            m_numbers.push_back(m_line->asWritten.number);
        }
    }

    void LookAtRead() {
        if (NumberIsRead()) {
            LookAtTexts();
            LookAtRepeated();
            LookAtShift();
            LookAtNumbers();
            LookAtBuiltIn();
        }
    }

    void Add(Rule rule, std::string what, Loss loss = Loss::none, std::string_view found = {}) {
        m_checker.Add(m_line->line.number, rule, std::move(what), loss, found);
    }

    void LookAtIgnored() {
        bool const nameless = m_words.size() == 1 && m_words[number].text == "0";
        if (!nameless) { // as the library writes it
            Add(Rule::tooFewWords, "fewer than two values, number and name", Loss::line,
                m_line->line.text);
        }
    }

    bool NumberIsRead() {
        std::int32_t typed = 0;
        Fault fault = WholeNumberFault(m_words[number].text);
        if (!fault && Scan(m_words[number].text, typed) == 1 && typed != m_line->asWritten.number) {
            fault = {Rule::outOfRange,
                     Numbered(typed) + " is read as " + std::to_string(m_line->asWritten.number)};
        }
        if (fault) {
            m_checker.Add(m_line->line, fault);
        }
        return !fault;
    }

    void LookAtTexts() {
        LookAtText("the name", m_line->asWritten.name, longestMaterialName);
        LookAtText("the text", m_line->asWritten.text, longestMaterialText);
    }
    void LookAtText(char const* what, std::string_view found, std::size_t longest) {
        if (found.size() > longest) {
            Add(Rule::tooLong,
                Format("%s has %d characters, and %d are read", what,
                       static_cast<int>(found.size()), static_cast<int>(longest)),
                Loss::line, found.substr(longest));
        }
        m_checker.LookAtLetters(m_line->line.number, found, LineChecker::Letters::kept);
    }

    // Negative numbers are all kept.
    void LookAtRepeated() {
        auto const [first, isFirst] =
            m_lineOf.try_emplace(m_line->asWritten.number, m_line->line.number);
        if (!isFirst) {
            Add(Rule::repeatedNumber,
                Numbered(m_line->asWritten.number) + " stands on line " +
                    std::to_string(first->second) + " already: " +
                    (m_isNew ? "both are kept, and programs find the first" : "this line counts"),
                Loss::none, m_line->line.text);
        }
    }

    void LookAtShift() {
        bool const meant = SameText(m_line->asWritten.name.substr(0, shiftName.size()), shiftName);
        if (meant && m_line->asWritten.number == shiftNumber) { // and not taken for it
            Add(Rule::shiftLine,
                m_norwegian ? "does not begin with \"Ikke\": no number is shifted"
                            : "only StenkodN.dat has the extra number",
                Loss::none, m_line->line.text);
        }
    }

    // What was typed for a value. Values that stand together, as "10-2", are read as two and are
    // one word.
    std::string_view Typed(int word) const {
        auto const place = static_cast<std::size_t>(word);
        return place < m_words.size() ? m_words[place].text : m_line->line.text;
    }

    // What follows a word that is no number is not read as it was meant.
    void LookAtNumbers() {
        for (int word = scale; word < all && word < static_cast<int>(m_words.size()); ++word) {
            std::string_view const typed = Typed(word);
            if (Fault const fault = IsWhole(word) ? WholeNumberFault(typed) : NumberFault(typed)) {
                m_checker.Add(m_line->line, fault);
                return;
            }
        }
        LookAtLimits();
        if (m_words.size() > all) {
            Add(Rule::extraWords, "words after the flag", Loss::line,
                m_line->line.text.substr(m_words[all].column));
        }
    }
    void LookAtLimits() {
        if (m_line->count > scale && !(m_line->asWritten.scale >= leastScale)) {
            Add(Rule::outOfRange, "the scale is below 0.01, and 1 is read", Loss::none,
                Typed(scale));
        }
        if (m_line->count > pattern &&
            (m_line->asWritten.pattern < 1 || m_line->asWritten.pattern > mostPattern)) {
            Add(Rule::outOfRange, "the pattern is not within 1 to 256, and 4 is read", Loss::none,
                Typed(pattern));
        }
        if (m_line->asWritten.number >= 0 && m_line->asWritten.flag != 0) {
            Add(Rule::notKept, "the flag, which negative numbers alone have", Loss::line,
                Typed(flag));
        }
    }

    // A built-in entry keeps its pattern, and below the count its name.
    void LookAtBuiltIn() {
        if (m_isNew || m_entry > m_table.size()) {
            return;
        }
        bool const named = m_line->asWritten.number >= static_cast<int>(m_table.size());
        std::string_view const name = m_entry == 0 ? " " : m_table[m_entry - 1];
        if (!named && !SameText(m_line->asWritten.name, name)) {
            Add(Rule::builtIn,
                "the name, for " + Numbered(static_cast<int>(m_entry)) + " is \"" + OneLine(name) +
                    "\" in the list",
                Loss::line, m_line->asWritten.name);
        }
        if (m_line->count > pattern && m_line->asWritten.pattern != Material().pattern) {
            Add(Rule::builtIn, "the pattern, for a built-in number keeps its own", Loss::line,
                Typed(pattern));
        }
    }

    LineChecker& m_checker;
    MaterialNames m_table;
    bool m_norwegian;
    std::vector<int> m_numbers; // of the entries
    std::size_t m_entry = 0;
    bool m_isNew = false;
    std::map<int, std::size_t> m_lineOf;
    MaterialLine const* m_line = nullptr;
    std::vector<Word> m_words;
};

// Of the lines that hold an angle, said once.
void LookAtAngles(LineChecker& checker, std::vector<MaterialLine> const& lines) {
    std::vector<TextLine> turned;
    std::string first;
    for (MaterialLine const& line : lines) {
        if (line.count > angle && line.degrees != 0) {
            if (turned.empty()) {
                first = "an angle is read in degrees and written in radians: " +
                        Shortest(line.degrees) + " comes back as " +
                        Format("%.3lf", line.degrees * radiansPerDegree);
            }
            turned.push_back(line.line);
        }
    }
    checker.AddOnce(turned, Rule::angleUnit, first);
}

void LookAtList(LineChecker& checker, std::string_view content, MaterialKind kind,
                MaterialNames table, bool norwegian) {
    LineReader reader(content);
    MaterialReader section(reader, kind, norwegian);
    std::vector<MaterialLine> lines;
    ListChecker list(checker, table, norwegian);
    for (MaterialLine line; section.Next(line);) {
        list.Look(line);
        lines.push_back(line);
    }
    LookAtAngles(checker, lines);
    if (kind == MaterialKind::fill) {
        std::vector<TextLine> longForms;
        for (MaterialLine const& line : lines) {
            if (line.count > text) {
                longForms.push_back(line.line);
            }
        }
        checker.AddOnce(longForms, Rule::notKept,
                        "all but number and name, where a program saves the list of rock",
                        Loss::line);
    }
}

void LookAtSections(LineChecker& checker) {
    constexpr int untilRock = StarsBefore(MaterialKind::rock);
    constexpr int untilFill = StarsBefore(MaterialKind::fill);
    int stars = 0;
    std::vector<TextLine> dropped;
    for (TextLine const& line : checker.Lines()) {
        if (line.text.starts_with('*')) {
            ++stars;
            // Saving keeps the first two as they are.
            if (stars >= untilFill) {
                checker.LookAtStar(line, "a line");
            }
        } else if (stars > untilFill && !IsBlank(line.text)) {
            dropped.push_back(line);
        }
    }
    checker.AddOnce(dropped, Rule::afterEnd, "after fill, where a program saves the list of rock",
                    Loss::line);
    if (stars < untilFill) {
        checker.Add(checker.LastLine(), Rule::endsEarly,
                    "the file ends after " + std::to_string(stars) +
                        " of three lines \"*\": there is no section of " +
                        (stars < untilRock ? "rock, and none of fill" : "fill"));
    }
}

} // namespace

std::vector<Finding> CheckStenkod(std::string_view content, MaterialNames rock, MaterialNames fill,
                                  bool norwegian) {
    LineChecker checker(content);
    LookAtSections(checker);
    std::string_view const readable = checker.IsReadable() ? content : std::string_view();
    LookAtList(checker, readable, MaterialKind::rock, rock, norwegian);
    LookAtList(checker, readable, MaterialKind::fill, fill, norwegian);
    return checker.Take();
}

} // namespace kvarn
