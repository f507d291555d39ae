#include "codeformat.h"

#include <array>
#include <cstdlib>
#include <utility>

#include "../shared/failure.h"
#include "../shared/textlines.h"
#include "filechecks.h"

namespace kvarnio {
namespace {

using Type = Column::Type;

// What a word or a text is read into.
using Buffer = std::array<char, 256>;

int ToInt(std::string const& digits) {
    return std::atoi(digits.c_str());
}

// A code that begins with a star was read after a blank: without one it would end the data.
std::string AsCode(std::string const& code) {
    return (code.starts_with('*') ? " " : "") + code;
}

void RefuseStar(CodeRecord const& record, std::size_t code) {
    if (record.cells[code].starts_with('*')) {
        throw UsageError("the code begins with \"*\", which ends the data in the file");
    }
}

// --- Codes ---------------------------------------------------------------------------------------

CodeRecords ReadKodfil(CKvarnInst& settings, std::string const&) {
    CodeRecords records;
    Buffer code{};
    Buffer text{};
    while (settings.KodfilDatRead(code.data(), text.data()) == 0) {
        records.push_back({{code.data(), text.data()}});
    }
    return records;
}

void WriteKodfil(CKvarnInst& settings, std::string const&, CodeRecords const& records) {
    enum { next, begin, end };
    settings.KodfilDatWrite(begin, "", "");
    for (CodeRecord const& record : records) {
        settings.KodfilDatWrite(next, record.cells[0].c_str(), record.cells[1].c_str());
    }
    settings.KodfilDatWrite(end, "", "");
}

// Without the line that ends its header the pass would write the codes into it.
std::string RequireKodfilHeader(std::string_view old, std::string_view written) {
    for (TextLine const& line : SplitLines(old).lines) {
        if (line.text.starts_with('*')) {
            return std::string(written);
        }
    }
    throw Failure("nothing was written: the file has no line \"*\", which ends its header. Add one "
                  "before the codes, and try again");
}

std::string AsWritten(std::string_view, std::string_view written) {
    return std::string(written);
}

void TakeAll(CodeRecord&) {}

// --- Environmental codes -------------------------------------------------------------------------

constexpr int classes = 3; // the section with maxima and steps

enum MilCell { milSection, milCode, milText, milMax, milStep };

CodeRecords ReadMiljkod(CKvarnInst& settings, std::string const&) {
    CodeRecords records;
    Buffer code{};
    Buffer text{};
    int max = 0;
    int step = 0;
    for (int section = 1; section <= classes; ++section) {
        bool const limits = section == classes;
        while (settings.MiljkodRead(section, code.data(), text.data(), limits ? &max : nullptr,
                                    limits ? &step : nullptr) == 0) {
            records.push_back(
                {{std::to_string(section), code.data(), text.data(),
                  limits ? std::to_string(max) : "", limits ? std::to_string(step) : ""}});
        }
    }
    return records;
}

void WriteMiljkod(CKvarnInst& settings, std::string const&, CodeRecords const& records) {
    constexpr int begin = 1;
    settings.MiljKodWrite(begin, "", "", 0, 0);
    for (int section = 1; section <= classes; ++section) {
        int const write = 2 * section;
        for (CodeRecord const& record : records) {
            auto const& cells = record.cells;
            if (ToInt(cells[milSection]) == section) {
                settings.MiljKodWrite(write, AsCode(cells[milCode]).c_str(), cells[milText].c_str(),
                                      ToInt(cells[milMax]), ToInt(cells[milStep]));
            }
        }
        settings.MiljKodWrite(write + 1, "", "", 0, 0);
    }
}

// Header and section 0, to the second line that begins with a star.
std::string HeaderOf(std::string_view content) {
    constexpr int all = 2;
    std::string header;
    int stars = 0;
    for (TextLine const& line : SplitLines(content).lines) {
        stars += line.text.starts_with('*') ? 1 : 0;
        header.append(line.text).append("\r\n");
        if (stars == all) {
            break;
        }
    }
    for (; stars < all; ++stars) {
        header += "*\r\n";
    }
    return header;
}

std::string WithMiljkodHeader(std::string_view old, std::string_view written) {
    return HeaderOf(old).append(written.substr(HeaderOf(written).size()));
}

void CompleteMiljkod(CodeRecord& record) {
    constexpr std::size_t longest = 4;
    RefuseStar(record, milCode);
    if (record.cells[milCode].size() > longest) {
        throw UsageError("the code has more than four characters");
    }
    if (record.cells[milText].empty()) {
        throw UsageError("TEXT is empty");
    }
    bool const isClass = ToInt(record.cells[milSection]) == classes;
    if (!isClass && (!record.cells[milMax].empty() || !record.cells[milStep].empty())) {
        throw UsageError("only codes of section 3 have a maximum and a step");
    }
    for (auto const& [cell, otherwise] : {std::pair(milMax, "100"), std::pair(milStep, "20")}) {
        if (isClass && record.cells[cell].empty()) {
            record.cells[cell] = std::string(otherwise);
        }
    }
}

// --- Line codes ----------------------------------------------------------------------------------

enum LineCell { lineCode, lineWord, lineNumber, lineInteger, lineText };

CodeRecords ReadLinkod(CKvarnInst& settings, std::string const&) {
    enum { failed = -1, end, ordinary, narrow, wide };
    CodeRecords records;
    Buffer code{};
    Buffer word{};
    Buffer text{};
    double number = 0;
    int whole = 0;
    while (true) {
        int const result =
            settings.LinkodRead(code.data(), word.data(), text.data(), &number, &whole);
        if (result == end || result == failed) {
            return records;
        }
        if (result > 0) {
            std::string const prefix = result == ordinary ? "" : "PV";
            char const* const family = result == narrow ? "PV up to 99"
                                       : result == wide ? "PV from 100"
                                                        : "";
            records.push_back({{prefix + code.data(), word.data(), Shortest(number),
                                std::to_string(whole), text.data()},
                               family});
        }
    }
}

void WriteLinkod(CKvarnInst& settings, std::string const&, CodeRecords const& records) {
    enum { begin = 1, write = 2, end = 5 };
    settings.LinkodWrite(begin, "", "", "", "", "");
    for (CodeRecord const& record : records) {
        // The whole number stands there even when it is 0: the text may begin with a digit. A code
        // with its "PV" is written as an ordinary one would be.
        std::string const numbers = record.cells[lineNumber] + ' ' + record.cells[lineInteger];
        settings.LinkodWrite(write, AsCode(record.cells[lineCode]).c_str(),
                             record.cells[lineWord].c_str(), numbers.c_str(),
                             record.cells[lineText].c_str(), "");
    }
    settings.LinkodWrite(end, "", "", "", "", "");
}

void CompleteLinkod(CodeRecord& record) {
    constexpr std::size_t longest = 48; // and a blank before the text
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

CodeRecords ReadStamp(CKvarnInst& settings, std::string const& path) {
    enum { failed = -1, end };
    CodeRecords records;
    Buffer first{};
    Buffer second{};
    double numbers[3]{};
    while (true) {
        int const result = settings.StampParRead(path.c_str(), first.data(), second.data(),
                                                 &numbers[0], &numbers[1], &numbers[2]);
        if (result == end || result == failed) {
            return records;
        }
        if (result > 0) {
            records.push_back({{first.data(), second.data(), Shortest(numbers[0]),
                                Shortest(numbers[1]), Shortest(numbers[2])}});
        }
    }
}

void WriteStamp(CKvarnInst& settings, std::string const& path, CodeRecords const& records) {
    enum { begin = 1, write, end };
    auto const call = [&](int mode, char const* a, char const* b, char const* c, char const* d,
                          char const* e) {
        settings.StampParWrite(path.c_str(), mode, a, b, c, d, e);
    };
    call(begin, "", "", "", "", "");
    for (CodeRecord const& record : records) {
        auto const& cells = record.cells;
        call(write, AsCode(cells[0]).c_str(), cells[1].c_str(), cells[2].c_str(), cells[3].c_str(),
             cells[4].c_str());
    }
    call(end, "", "", "", "", "");
}

// The pass writes no end line.
std::string WithEndLine(std::string_view old, std::string_view written) {
    for (TextLine const& line : SplitLines(old).lines) {
        if (line.text.starts_with('*')) {
            return std::string(written) + "*\r\n";
        }
    }
    return std::string(written);
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
            RequireKodfilHeader,
            CheckKodfil,
            TakeAll};
}

CodeFormat Miljkod() {
    constexpr int most = 100000;
    return {"miljkod",
            "Environmental codes",
            CProjPath::Miljkod,
            {{.name = "section",
              .help = "1 methods, 2 interpretations, 3 contamination classes",
              .type = Type::whole,
              .isKey = true,
              .least = 1,
              .most = classes},
             {.name = "code",
              .help = "Code of at most four characters",
              .type = Type::word,
              .isKey = true},
             {.name = "text", .help = "Its text", .type = Type::text, .isConverted = true},
             {.name = "max",
              .help = "In section 3: the diagram's maximum, 100 if not given",
              .type = Type::whole,
              .option = "--max",
              .least = 0,
              .most = most},
             {.name = "step",
              .help = "In section 3: the diagram's step, 20 if not given",
              .type = Type::whole,
              .option = "--step",
              .least = 1,
              .most = most}},
            false,
            ReadMiljkod,
            WriteMiljkod,
            WithMiljkodHeader,
            CheckMiljkod,
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
            AsWritten,
            CheckLinkod,
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
            WithEndLine,
            CheckStamp,
            CompleteStamp};
}

} // namespace

std::vector<CodeFormat> CodeFormats() {
    return {Kodfil(), Miljkod(), Linkod(), Stamp()};
}

} // namespace kvarnio
