#include "codeformat.h"

#include <cstdlib>
#include <utility>

#include <formats/checks/checks.h>
#include <formats/checks/doubtfulletters.h>
#include <formats/kodfil.h>
#include <formats/linkod.h>
#include <formats/miljkod.h>
#include <formats/stampel.h>
#include <kvarnprog.h>
#include <text/format.h>

#include "../shared/failure.h"
#include "../shared/output.h"

namespace kvarnio {
namespace {

using Type = Column::Type;

int ToInt(std::string const& digits) {
    return std::atoi(digits.c_str());
}

// As programs' buffers hold it.
std::string Cut(std::string_view text) {
    return std::string(text.substr(0, kvarn::longestKodtext));
}

std::string CutAndConverted(std::string_view text) {
    return kvarn::Converted(Cut(text));
}

void RefuseStar(CodeRecord const& record, std::size_t code) {
    if (record.cells[code].starts_with('*')) {
        throw UsageError("the code begins with \"*\", which ends the data in the file");
    }
}

// --- Codes ---------------------------------------------------------------------------------------

CodeRecords ReadKodfil(std::string_view content) {
    CodeRecords records;
    kvarn::LineReader lines(content);
    kvarn::KodfilHeader const header(lines);
    for (kvarn::Kodpost post; kvarn::NextKodpost(lines, post);) {
        records.push_back({{Cut(post.kod), Cut(post.text)}});
    }
    return records;
}

// Without the line that ends the header the codes would become part of it.
std::string WriteKodfil(std::string_view old, CodeRecords const& records) {
    kvarn::LineReader lines(old);
    kvarn::KodfilHeader const header(lines);
    if (!header.isEnded) {
        throw Failure("nothing was written: the file has no line \"*\", which ends its header. Add "
                      "one before the codes, and try again");
    }
    std::string text = header.text;
    for (CodeRecord const& record : records) {
        text += kvarn::KodpostLine(record.cells[0], record.cells[1]);
    }
    return kvarn::InTextMode(text + kvarn::endLine);
}

void TakeAll(CodeRecord&) {}

// --- Environmental codes -------------------------------------------------------------------------

using kvarn::miljkodClasses;

enum MilCell { milSection, milCode, milText, milMax, milStep };

CodeRecords ReadMiljkod(std::string_view content) {
    CodeRecords records;
    kvarn::LineReader lines(content);
    kvarn::SkipToMiljkodSection(lines, 1);
    for (int section = 1; section <= miljkodClasses; ++section) {
        bool const limits = section == miljkodClasses;
        while (auto const post = kvarn::NextMiljkod(lines, limits, nullptr)) {
            records.push_back({{std::to_string(section), post->kod, Cut(post->text),
                                limits ? std::to_string(post->max) : "",
                                limits ? std::to_string(post->step) : ""}});
        }
    }
    return records;
}

std::string WriteMiljkod(std::string_view old, CodeRecords const& records) {
    kvarn::LineReader lines(old);
    std::string text = kvarn::MiljkodBeginning(lines);
    for (int section = 1; section <= miljkodClasses; ++section) {
        for (CodeRecord const& record : records) {
            auto const& cells = record.cells;
            if (ToInt(cells[milSection]) == section) {
                kvarn::MiljkodPost const post = {cells[milCode], cells[milText],
                                                 ToInt(cells[milMax]), ToInt(cells[milStep])};
                text += kvarn::MiljkodText(post, section == miljkodClasses);
            }
        }
        text += kvarn::endLine;
    }
    return kvarn::InTextMode(text);
}

void CompleteMiljkod(CodeRecord& record) {
    RefuseStar(record, milCode);
    if (record.cells[milCode].size() > kvarn::longestMiljkod) {
        throw UsageError("the code has more than four characters");
    }
    if (record.cells[milText].empty()) {
        throw UsageError("TEXT is empty");
    }
    bool const isClass = ToInt(record.cells[milSection]) == miljkodClasses;
    if (!isClass && (!record.cells[milMax].empty() || !record.cells[milStep].empty())) {
        throw UsageError("only codes of section 3 have a maximum and a step");
    }
    for (auto const& [cell, limit] :
         {std::pair(milMax, kvarn::miljkodMax), std::pair(milStep, kvarn::miljkodStep)}) {
        if (isClass && record.cells[cell].empty()) {
            record.cells[cell] = std::to_string(limit.otherwise);
        }
    }
}

// --- Line codes ----------------------------------------------------------------------------------

enum LineCell { lineCode, lineWord, lineNumber, lineInteger, lineText };

char const* NameOf(kvarn::LinkodFamily const& family) {
    return family.kind == kvarn::LinkodFamily::narrow ? "PV up to 99"
           : family.kind == kvarn::LinkodFamily::wide ? "PV from 100"
                                                      : "";
}

// The lines up to the one that ends the file; look is called with each.
template <class Look> void EachLine(std::string_view content, Look look) {
    kvarn::LineReader lines(content);
    for (std::string_view line; lines.ReadLine(line) && !kvarn::IsStarLine(line);) {
        look(line);
    }
}

CodeRecords ReadLinkod(std::string_view content) {
    CodeRecords records;
    EachLine(content, [&](std::string_view text) {
        kvarn::LinkodLine const line(text);
        if (line.IsRead()) {
            std::string const code = CutAndConverted(line.kod);
            records.push_back({{code, Cut(line.ord), Shortest(line.number),
                                std::to_string(line.whole), CutAndConverted(line.text)},
                               NameOf(kvarn::LinkodFamily(code))});
        }
    });
    return records;
}

std::string WriteLinkod(std::string_view, CodeRecords const& records) {
    std::string text;
    for (CodeRecord const& record : records) {
        auto const& cells = record.cells;
        // The whole number is written even when it is 0: the text may begin with a digit.
        std::string const values =
            kvarn::Format("%s %s %s %s", kvarn::AsFirstWord(cells[lineCode]), cells[lineWord],
                          cells[lineNumber], cells[lineInteger]);
        text += kvarn::LinkodText(values, cells[lineText]);
    }
    return kvarn::InTextMode(text + kvarn::endLine);
}

void CompleteLinkod(CodeRecord& record) {
    constexpr std::size_t longest = kvarn::linkodTextColumn - 1; // and a blank before the text
    RefuseStar(record, lineCode);
    std::size_t length = 0;
    for (std::size_t const cell : {lineCode, lineWord, lineNumber, lineInteger}) {
        length += record.cells[cell].size() + (length > 0 ? 1 : 0);
    }
    if (length > longest) {
        throw UsageError("code, word and numbers have " + std::to_string(length) +
                         " characters together, and the line has room for " +
                         std::to_string(longest));
    }
}

// --- Title block ---------------------------------------------------------------------------------

CodeRecords ReadStamp(std::string_view content) {
    CodeRecords records;
    EachLine(content, [&](std::string_view text) {
        kvarn::StampelLine const line(text);
        if (line.IsRead()) {
            records.push_back({{CutAndConverted(line.ord1), Cut(line.ord2), Shortest(line.number1),
                                Shortest(line.number2), Shortest(line.number3)}});
        }
    });
    return records;
}

// An end line is kept; programs write none.
std::string WriteStamp(std::string_view old, CodeRecords const& records) {
    std::string text;
    for (CodeRecord const& record : records) {
        auto const& cells = record.cells;
        text += kvarn::StampelText(kvarn::AsFirstWord(cells[0]), cells[1], cells[2], cells[3],
                                   cells[4]);
    }
    kvarn::LineReader lines(old);
    return kvarn::InTextMode(text + (kvarn::SkipStarLines(lines, 1) ? kvarn::endLine : ""));
}

void CompleteStamp(CodeRecord& record) {
    RefuseStar(record, 0);
}

// -------------------------------------------------------------------------------------------------

CodeFormat Kodfil() {
    return {"kodfil",
            "Codes",
            CProjPath::Kodfil,
            {{.name = "code", .help = "Code, without blanks", .type = Type::word, .isKey = true},
             {.name = "text", .help = "Its text, one word", .type = Type::word}},
            false,
            ReadKodfil,
            WriteKodfil,
            kvarn::CheckKodfil,
            TakeAll};
}

CodeFormat Miljkod() {
    return {"miljkod",
            "Environmental codes",
            CProjPath::Miljkod,
            {{.name = "section",
              .help = "1 methods, 2 interpretations, 3 contamination classes",
              .type = Type::whole,
              .isKey = true,
              .least = 1,
              .most = miljkodClasses},
             {.name = "code",
              .help = "Code of at most four characters",
              .type = Type::word,
              .isKey = true},
             {.name = "text", .help = "Its text", .type = Type::text, .isConverted = true},
             {.name = "max",
              .help = "In section 3: the diagram's maximum, 100 if not given",
              .type = Type::whole,
              .option = "--max",
              .least = kvarn::miljkodMax.least,
              .most = kvarn::MiljkodLimit::most},
             {.name = "step",
              .help = "In section 3: the diagram's step, 20 if not given",
              .type = Type::whole,
              .option = "--step",
              .least = kvarn::miljkodStep.least,
              .most = kvarn::MiljkodLimit::most}},
            false,
            ReadMiljkod,
            WriteMiljkod,
            kvarn::CheckMiljkod,
            CompleteMiljkod};
}

CodeFormat Linkod() {
    return {"linkod",
            "Line codes",
            CProjPath::Linkod,
            {{.name = "code",
              .help = "Line code, without blanks; PV and a number from 10 on for that family",
              .type = Type::word,
              .isKey = true,
              .isConverted = true},
             {.name = "word", .help = "Its second word", .type = Type::word},
             {.name = "number", .help = "Its number", .type = Type::number},
             {.name = "integer",
              .help = "Its whole number, 0 if not given",
              .type = Type::whole,
              .otherwise = "0"},
             {.name = "text",
              .help = "Its text, empty if not given",
              .type = Type::text,
              .isConverted = true,
              .option = "--text",
              .otherwise = ""}},
            true,
            ReadLinkod,
            WriteLinkod,
            kvarn::CheckLinkod,
            CompleteLinkod};
}

CodeFormat Stamp() {
    return {"stamp",
            "Title block",
            nullptr,
            {{.name = "word1",
              .help = "First word, which names the field",
              .type = Type::word,
              .isKey = true,
              .isConverted = true},
             {.name = "word2", .help = "Second word", .type = Type::word},
             {.name = "num1", .help = "First number", .type = Type::number},
             {.name = "num2", .help = "Second number", .type = Type::number},
             {.name = "num3",
              .help = "Third number, 3 if not given",
              .type = Type::number,
              .otherwise = "3"}},
            false,
            ReadStamp,
            WriteStamp,
            kvarn::CheckStamp,
            CompleteStamp};
}

} // namespace

bool SameKey(CodeFormat const& format, CodeRecord const& a, CodeRecord const& b) {
    for (std::size_t i = 0; i < format.columns.size(); ++i) {
        if (format.columns[i].isKey && a.cells[i] != b.cells[i]) {
            return false;
        }
    }
    return true;
}

std::string NameOf(CodeFormat const& format, CodeRecord const& record) {
    std::string name;
    for (std::size_t i = 0; i < record.cells.size(); ++i) {
        if (format.columns[i].isKey) {
            name.insert(0, OneLine(record.cells[i]) + (name.empty() ? "" : " in section "));
        }
    }
    return name;
}

std::vector<CodeFormat> CodeFormats() {
    return {Kodfil(), Miljkod(), Linkod(), Stamp()};
}

} // namespace kvarnio
