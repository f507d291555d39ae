// What can be wrong with the lines of any text file of the programs, and what the formats' checks
// share.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "../../text/lines.h"
#include "finding.h"

namespace kvarn {

// Of a file with this content, which the caller keeps.
std::vector<TextLine> LinesOf(std::string_view content);

// The first line after the end-of-file character, with the number of the line that it ends; nothing
// without such a line.
std::optional<TextLine> BeyondEnd(std::string_view content);

struct Word {
    std::size_t column; // counted from 0
    std::string_view text;
};

// The words of a text: what is between blanks.
std::vector<Word> Words(std::string_view text);

// What is wrong with a word.
struct Fault {
    Rule rule;
    std::string what; // empty: nothing

    explicit operator bool() const { return !what.empty(); }
};

// Of one where a number is read.
Fault NumberFault(std::string_view word);
// The same for a whole number.
Fault WholeNumberFault(std::string_view word);

inline bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t") == std::string_view::npos;
}

class LineChecker {
  public:
    // Of a file with this content, which the caller keeps. Finds what no format reads: text after a
    // zero byte or the end-of-file character, other encodings, control characters.
    explicit LineChecker(std::string_view content);

    // False for a text in UTF-16, which has no lines then.
    bool IsReadable() const { return m_isReadable; }
    std::vector<TextLine> const& Lines() const { return m_lines; }
    std::size_t LastLine() const { return m_lines.empty() ? 1 : m_lines.size(); }

    void Add(std::size_t line, Rule rule, std::string what, Loss loss = Loss::none,
             std::string_view text = {});
    void Add(TextLine const& line, Fault const& fault, Loss loss = Loss::none) {
        Add(line.number, fault.rule, fault.what, loss, line.text);
    }
    // A blank line that is gone when the file is written.
    void AddBlank(TextLine const& line) { Add(line.number, Rule::blankLine, "", Loss::blank); }

    enum class Letters { kept, converted };
    // Looks at the letters of a text that programs show.
    void LookAtLetters(std::size_t line, std::string_view text, Letters letters);
    // What becomes of a word that is longer than programs' buffers.
    void LookAtLength(std::size_t line, char const* what, std::string_view text);
    // What is to be said of all these lines, said once, at the first; nothing without any.
    void AddOnce(std::vector<TextLine> const& lines, Rule rule, std::string what,
                 Loss loss = Loss::none);
    // The lines after one, which are not read.
    void AddAfterEnd(std::size_t last, char const* where);
    // What follows the star of a line that ends something.
    void LookAtStar(TextLine const& line, char const* what, Loss loss = Loss::line);

    // The records of a file that a line "*" ends: where one cannot be read, programs may stop.
    void LookAtRecords(void (*look)(LineChecker&, TextLine const&, std::vector<Word> const&));

    // In the order of the lines.
    std::vector<Finding> Take();

  private:
    void LookAtEncoding(std::string_view content);
    void LookAtControls(TextLine const& line);
    void LookBeyondEnd(std::string_view content);

    bool m_isReadable;
    std::vector<TextLine> m_lines;
    std::vector<Finding> m_findings;
};

} // namespace kvarn
