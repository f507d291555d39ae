#include <map>

#include <text/format.h>
#include <text/scan.h>
#include <text/text.h>

#include <formats/checks/linechecker.h>

#include "materialchecks.h"
#include "materialfile.h"

namespace kvarnio {
namespace {

using namespace kvarn;

// The words of a line.
enum { number, name, text, scale, pattern, angle, flag, all };

bool IsWhole(int word) {
    return word == pattern || word == flag;
}

std::string Numbered(int value) {
    return "number " + std::to_string(value);
}

// A list's lines, one after another.
class ListChecker {
  public:
    ListChecker(LineChecker& checker, Materials const& materials)
        : m_checker(checker), m_materials(materials), m_builtIn(BuiltIn(materials)) {}

    void Look(MaterialLine const& line) {
        m_line = &line;
        m_words = Words(line.line->text);
        if (m_words.empty()) {
            Add("", Loss::blank);
        } else if (line.values < 2) {
            LookAtIgnored();
        } else if (line.isShift) {
            Add("the extra number, from which on the file's numbers are one higher than the "
                "list's; a written file has neither",
                Loss::line, line.line->text);
        } else if (NumberIsRead()) {
            LookAtTexts();
            LookAtRepeated();
            LookAtShift();
            LookAtNumbers();
            LookAtBuiltIn();
        }
    }

  private:
    void Add(std::string what, Loss loss = Loss::none, std::string_view found = {}) {
        m_checker.Add(m_line->line->number, std::move(what), loss, found);
    }

    void LookAtIgnored() {
        bool const nameless = m_words.size() == 1 && m_words[number].text == "0";
        if (!nameless) { // as the library writes it
            Add("fewer than two values, number and name", Loss::line, m_line->line->text);
        }
    }

    bool NumberIsRead() {
        std::int32_t typed = 0;
        std::string fault = WholeNumberFault(m_words[number].text);
        if (fault.empty() && kvarn::Scan(m_words[number].text, typed) == 1 &&
            typed != m_line->number) {
            fault = Numbered(typed) + " is read as " + std::to_string(m_line->number);
        }
        if (!fault.empty()) {
            Add(fault, Loss::none, m_line->line->text);
        }
        return fault.empty();
    }

    void LookAtTexts() {
        LookAtText("the name", m_line->name, sizeof bergmattype::namn - 1);
        LookAtText("the text", m_line->text, sizeof bergmattype::text - 1);
    }
    void LookAtText(char const* what, std::string_view found, std::size_t longest) {
        if (found.size() > longest) {
            Add(kvarn::Format("%s has %d characters, and %d are read", what,
                              static_cast<int>(found.size()), static_cast<int>(longest)),
                Loss::line, found.substr(longest));
        }
        m_checker.LookAtLetters(m_line->line->number, found, LineChecker::Letters::kept);
    }

    // Negative numbers are all kept.
    void LookAtRepeated() {
        auto const [first, isFirst] = m_lineOf.try_emplace(m_line->number, m_line->line->number);
        if (!isFirst) {
            Add(Numbered(m_line->number) + " stands on line " + std::to_string(first->second) +
                    " already: " +
                    (m_line->isNew ? "both are kept, and programs find the first"
                                   : "this line counts"),
                Loss::none, m_line->line->text);
        }
    }

    void LookAtShift() {
        constexpr std::string_view extra = "Ikke";
        bool const meant = kvarn::SameText(m_line->name.substr(0, extra.size()), extra);
        if (meant && m_line->number == 31) { // and not taken for it
            Add(m_materials.norwegian ? "does not begin with \"Ikke\": no number is shifted"
                                      : "only StenkodN.dat has the extra number",
                Loss::none, m_line->line->text);
        }
    }

    // What follows a word that is no number is not read as it was meant.
    void LookAtNumbers() {
        for (int word = scale; word < all && word < static_cast<int>(m_words.size()); ++word) {
            std::string_view const typed = m_words[static_cast<std::size_t>(word)].text;
            std::string const fault = IsWhole(word) ? WholeNumberFault(typed) : NumberFault(typed);
            if (!fault.empty()) {
                Add(fault, Loss::none, m_line->line->text);
                return;
            }
        }
        LookAtLimits();
        if (m_words.size() > all) {
            Add("words after the flag", Loss::line, m_line->line->text.substr(m_words[all].column));
        }
    }
    void LookAtLimits() {
        constexpr double leastScale = 0.01;
        constexpr int mostPattern = 256;
        if (m_line->values > scale && !(m_line->scale >= leastScale)) {
            Add("the scale is below 0.01, and 1 is read", Loss::none, m_words[scale].text);
        }
        if (m_line->values > pattern && (m_line->pattern < 1 || m_line->pattern > mostPattern)) {
            Add("the pattern is not within 1 to 256, and 4 is read", Loss::none,
                m_words[pattern].text);
        }
        if (m_line->number >= 0 && m_line->flag != 0) {
            Add("the flag, which negative numbers alone have", Loss::line, m_words[flag].text);
        }
    }

    // A built-in entry keeps its pattern, and below the count its name.
    void LookAtBuiltIn() {
        if (m_line->isNew || *m_line->entry >= m_builtIn.size()) {
            return;
        }
        bergmattype const& entry = m_builtIn[*m_line->entry];
        bool const named = m_line->number >= static_cast<int>(m_builtIn.size()) - 1;
        if (!named && !kvarn::SameText(m_line->name, entry.namn)) {
            Add("the name, for " + Numbered(entry.nr) + " is \"" + OneLine(entry.namn) +
                    "\" in the list",
                Loss::line, m_line->name);
        }
        if (m_line->values > pattern && m_line->pattern != entry.monster) {
            Add("the pattern, for a built-in number keeps its own", Loss::line,
                m_words[pattern].text);
        }
    }

    LineChecker& m_checker;
    Materials m_materials;
    std::vector<bergmattype> m_builtIn;
    std::map<int, std::size_t> m_lineOf;
    MaterialLine const* m_line = nullptr;
    std::vector<Word> m_words;
};

// Of the lines that hold an angle, said once.
void LookAtAngles(LineChecker& checker, std::vector<MaterialLine> const& lines) {
    std::vector<TextLine const*> turned;
    std::string first;
    for (MaterialLine const& line : lines) {
        if (line.values > angle && line.degrees != 0) {
            if (turned.empty()) {
                constexpr double radiansPerDegree = 0.017453292519944444;
                first = "an angle is read in degrees and written in radians: " +
                        Shortest(line.degrees) + " comes back as " +
                        kvarn::Format("%.3lf", line.degrees * radiansPerDegree);
            }
            turned.push_back(line.line);
        }
    }
    checker.AddOnce(turned, first);
}

void LookAtList(LineChecker& checker, Materials const& materials) {
    auto const lines = ReadMaterialLines(checker.Lines(), materials);
    ListChecker list(checker, materials);
    for (MaterialLine const& line : lines) {
        list.Look(line);
    }
    LookAtAngles(checker, lines);
    if (materials.kind == MaterialKind::fill) {
        std::vector<TextLine const*> longForms;
        for (MaterialLine const& line : lines) {
            if (line.values > text) {
                longForms.push_back(line.line);
            }
        }
        checker.AddOnce(longForms,
                        "all but number and name, where a program saves the list of rock",
                        Loss::line);
    }
}

void LookAtSections(LineChecker& checker) {
    constexpr int untilRock = 2;
    constexpr int untilFill = 3;
    int stars = 0;
    std::vector<TextLine const*> dropped;
    for (TextLine const& line : checker.Lines()) {
        if (line.text.starts_with('*')) {
            ++stars;
            // The first two are kept as they stand.
            if (stars >= untilFill && line.text.size() > 1) {
                checker.Add(line.number, "text on a line \"*\"", Loss::line, line.text.substr(1));
            }
        } else if (stars > untilFill && !IsBlank(line.text)) {
            dropped.push_back(&line);
        }
    }
    checker.AddOnce(dropped, "after fill, where a program saves the list of rock", Loss::line);
    if (stars < untilFill) {
        checker.Add(checker.LastLine(),
                    "the file ends after " + std::to_string(stars) +
                        " of three lines \"*\": there is no section of " +
                        (stars < untilRock ? "rock, and none of fill" : "fill"));
    }
}

} // namespace

std::vector<Finding> CheckStenkod(std::string_view content, bool norwegian) {
    LineChecker checker(content);
    LookAtSections(checker);
    LookAtList(checker, {MaterialKind::rock, norwegian});
    LookAtList(checker, {MaterialKind::fill, norwegian});
    return checker.Take();
}

} // namespace kvarnio
