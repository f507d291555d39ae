#include "pointtable.h"

#include <algorithm>
#include <iostream>
#include <iterator>

#include <files/filerewrite.h>
#include <text/codepage.h>

#include "../shared/backup.h"
#include "../shared/output.h"
#include "../shared/platform.h"
#include "../shared/progress.h"
#include "csvfields.h"

#include <neighbours/road/station.h>

namespace kvarnio {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

struct Input {
    std::string name; // for messages
    std::string content;
};

Input Read(std::string const& typed) {
    if (!typed.empty()) {
        std::string const path = LibraryPath(typed);
        return {Shown(path), ReadWhole(path)};
    }
    Input input{"standard input", {}};
    input.content.reserve(SizeOfInput());
    constexpr std::size_t block = 1 << 16;
    std::string buffer(block, '\0');
    while (std::cin.read(buffer.data(), block) || std::cin.gcount() > 0) {
        input.content.append(buffer, 0, static_cast<std::size_t>(std::cin.gcount()));
    }
    if (std::cin.bad()) {
        throw IoFailure("standard input cannot be read");
    }
    return input;
}

void RefuseUtf16(Input const& input) {
    if (input.content.starts_with("\xFF\xFE") || input.content.starts_with("\xFE\xFF")) {
        throw IoFailure(input.name + " is in UTF-16; save it as UTF-8 or ANSI text");
    }
}

// Standard output in blocks as it comes, or a file at the end.
class Output {
  public:
    explicit Output(std::string const& typed) : m_typed(typed) {}

    std::string& Text() { return m_text; }

    void LineIsDone() {
        constexpr std::size_t block = 1 << 16;
        if (m_typed.empty() && m_text.size() >= block) {
            WriteOut();
        }
    }
    void Finish() {
        if (m_typed.empty()) {
            WriteOut();
            return;
        }
        std::string const path = LibraryPath(m_typed);
        if (kvarn::RewriteFile(path.c_str(), m_text) != kvarn::Rewritten::done) {
            throw IoFailure(NotWritten(path));
        }
        std::cout << m_typed << '\n';
    }

  private:
    void WriteOut() {
        if (!std::cout.write(m_text.data(), static_cast<std::streamsize>(m_text.size()))) {
            throw IoFailure("standard output cannot be written");
        }
        m_text.clear();
    }

    std::string const& m_typed;
    std::string m_text;
};

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        if (!kvarn::TakeCodePoint(text)) {
            return false;
        }
    }
    return true;
}

class TableAnswerer {
  public:
    TableAnswerer(AskedRoads const& roads, Question const& question, Input const& input,
                  std::string_view table, TableOptions const& options)
        : m_roads(roads), m_question(question), m_input(input), m_options(options),
          m_layout(LayoutOf(input.name, table, options, question.asked)),
          m_namesAreUtf8(!roads.AreSeveral() || IsUtf8(table)),
          m_headingIsNext(m_layout.hasHeading) {}

    // Appends the line and what is answered; false where something is missing.
    bool Append(CsvRecord const& record, std::string& out) {
        out += record.text;
        std::string reason;
        if (record.isPassed) {
            // It stays as it is.
        } else if (m_headingIsNext) {
            m_headingIsNext = false;
            Pad(record, out);
            AppendHeadings(out);
        } else if (record.quotes == Quotes::open) {
            reason = "a quoted field has no end"; // and what is appended would be part of it
        } else {
            Pad(record, out);
            Answer const answer = AnswerOf(record);
            AppendAnswer(answer, out);
            reason = answer.reason;
        }
        out += record.end;
        if (!reason.empty()) {
            std::cerr << m_input.name + ':' + std::to_string(record.line) + ": " + reason + '\n';
        }
        return reason.empty();
    }

    char Separator() const { return m_layout.separator; }

  private:
    // The answers of all lines are in the same columns.
    void Pad(CsvRecord const& record, std::string& out) const {
        if (record.fields.size() < m_layout.width) {
            out.append(m_layout.width - record.fields.size(), m_layout.separator);
        }
    }

    void AppendHeadings(std::string& out) const {
        for (Quantity const* quantity : m_question.answered) {
            (out += m_layout.separator) += quantity->name;
        }
        if (m_roads.HasHeight()) {
            (out += m_layout.separator) += "height";
        }
        if (m_roads.AreSeveral()) {
            (out += m_layout.separator) += "road";
        }
    }

    Answer AnswerOf(CsvRecord const& record) {
        std::string fault = FaultOf(record);
        return fault.empty() ? m_roads.Ask(m_numbers) : Answer{.reason = std::move(fault)};
    }

    // Why the line is not understood; empty when it is, and its numbers are then known.
    std::string FaultOf(CsvRecord const& record) {
        if (record.quotes == Quotes::followed) {
            return "text follows the end of a quoted field";
        }
        if (record.fields.size() > m_layout.width) {
            return "the line has " + std::to_string(record.fields.size()) + " columns, the table " +
                   std::to_string(m_layout.width);
        }
        m_numbers.clear();
        for (std::size_t i = 0; i < m_question.asked.size(); ++i) {
            Quantity const& quantity = *m_question.asked[i];
            std::size_t const column = m_layout.columns[i];
            std::string_view const field =
                column < record.fields.size() ? record.fields[column] : std::string_view();
            auto const number = NumberIn(field, quantity, m_options.decimalComma);
            if (!number) {
                return NoNumber(field, quantity);
            }
            m_numbers.push_back(*number);
        }
        return {};
    }

    std::string NoNumber(std::string_view field, Quantity const& quantity) const {
        if (Held(field).empty()) {
            return std::string(quantity.name) + " is empty";
        }
        bool const decimalSign = NumberIn(field, quantity, !m_options.decimalComma).has_value();
        std::string const what =
            std::string(quantity.name) + " \"" + ShownField(Held(field)) + "\" is no number";
        return what + (!decimalSign             ? ""
                       : m_options.decimalComma ? ": --decimal-comma is given, and it has a point"
                                                : ": its decimal sign is a comma; "
                                                  "--decimal-comma reads such numbers");
    }

    void AppendNumber(std::string const& printed, std::string& out) const {
        std::size_t const begin = out.size();
        AppendField(out += m_layout.separator, printed, m_layout.separator);
        if (m_options.decimalComma) {
            std::replace(out.begin() + static_cast<std::ptrdiff_t>(begin) + 1, out.end(), '.', ',');
        }
    }

    void AppendAnswer(Answer const& answer, std::string& out) const {
        for (std::size_t i = 0; i < m_question.answered.size(); ++i) {
            if (answer.values.empty()) {
                out += m_layout.separator;
            } else if (m_question.answered[i]->isStation && m_roads.InKilometres()) {
                AppendNumber(StationText(answer.values[i], 3), out);
            } else {
                AppendNumber(Printed(answer.values[i]), out);
            }
        }
        if (m_roads.HasHeight()) {
            answer.height ? AppendNumber(Printed(*answer.height), out)
                          : void(out += m_layout.separator);
        }
        if (m_roads.AreSeveral()) {
            out += m_layout.separator;
            if (answer.road != nullptr) {
                AppendField(out, InTheTablesLetters(*answer.road), m_layout.separator);
            }
        }
    }

    // A table that is not UTF-8 is taken to be in code page 1252.
    std::string InTheTablesLetters(std::string const& utf8) const {
        return m_namesAreUtf8 ? utf8 : kvarn::FromUtf8(utf8).value_or(utf8);
    }

    AskedRoads const& m_roads;
    Question const& m_question;
    Input const& m_input;
    TableOptions const& m_options;
    TableLayout m_layout;
    bool m_namesAreUtf8;
    bool m_headingIsNext;
    std::vector<double> m_numbers;
};

void RefuseToOverwrite(AskedRoads const& roads, TableArguments const& arguments) {
    if (arguments.output.empty()) {
        return;
    }
    std::filesystem::path const output = HostPath(LibraryPath(arguments.output));
    std::error_code notThere;
    bool const isInput =
        arguments.input.empty()
            ? IsStandardInput(output)
            : std::filesystem::equivalent(output, HostPath(LibraryPath(arguments.input)), notThere);
    if (isInput || roads.Includes(output)) {
        throw UsageError("the answers would take the place of " +
                         std::string(isInput ? "the table" : "a road file") +
                         "; give -o another name");
    }
}

} // namespace

ExitStatus AnswerTable(AskedRoads const& roads, Question const& question,
                       TableArguments const& arguments) {
    UseStreamsAsTheyAre();
    RefuseToOverwrite(roads, arguments);
    Input const input = Read(arguments.input);
    RefuseUtf16(input);
    std::string_view table = input.content;
    Output output(arguments.output);
    if (table.starts_with(byteOrderMark)) {
        table.remove_prefix(byteOrderMark.size());
        output.Text() = byteOrderMark;
    }
    TableAnswerer answerer(roads, question, input, table, arguments.options);
    constexpr std::uintmax_t between = 1024; // an answer takes less time than a look at the clock
    Progress progress("lines", table.size(), between);
    bool isWhole = true;
    CsvReader reader(table, answerer.Separator());
    for (CsvRecord record; reader.Next(record);) {
        isWhole = answerer.Append(record, output.Text()) && isWhole;
        output.LineIsDone();
        progress.Advance(record.text.size() + record.end.size());
    }
    output.Finish();
    return isWhole ? done : failed;
}

} // namespace kvarnio
