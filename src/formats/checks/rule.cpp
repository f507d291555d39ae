#include "rule.h"

#include <algorithm>
#include <iterator>

namespace kvarn {
namespace {

using enum Severity;

constexpr RuleText rules[] = {
    {Rule::unreadable, misread, "unreadable", "the file cannot be read"},
    {Rule::utf16, misread, "utf-16", "saved as UTF-16, of which nothing is read"},
    {Rule::utf8, misread, "utf-8", "letters in UTF-8, where code page 1252 is read"},
    {Rule::byteOrderMark, misread, "byte-order-mark", "a byte-order mark, read as three letters"},
    {Rule::dosLetters, misread, "dos-letters", "DOS letters where none are converted"},
    {Rule::spoiltLetters, misread, "spoilt-letters", "letters converted that are no DOS letters"},
    {Rule::controlCharacter, misread, "control-character", "a control character in a line"},
    {Rule::afterZero, lost, "after-zero", "text after a zero byte"},
    {Rule::afterEndOfFile, lost, "after-end-of-file", "text after the character 0x1A"},
    {Rule::notANumber, misread, "not-a-number", "a word where a number belongs"},
    {Rule::partOfANumber, misread, "part-of-a-number", "a word that is read as a number in part"},
    {Rule::decimalComma, misread, "decimal-comma", "a comma where the decimal point belongs"},
    {Rule::outOfRange, misread, "out-of-range", "a number outside its limits"},
    {Rule::tooLong, lost, "too-long", "a text that is cut"},
    {Rule::tooFewWords, lost, "too-few-words", "a line that lacks a word"},
    {Rule::extraWords, misread, "extra-words", "words beyond those that are read"},
    {Rule::blankLine, misread, "blank-line", "a blank line that is read as something"},
    {Rule::starText, lost, "star-text", "text on a line \"*\""},
    {Rule::afterEnd, misread, "after-end", "lines after the file's end"},
    {Rule::endsEarly, misread, "ends-early", "a file that ends too early"},
    {Rule::notKept, lost, "not-kept", "what the file's writer does not keep"},
    {Rule::noEquals, lost, "no-equals", "a line without \"=\" in a key file"},
    {Rule::noKey, lost, "no-key", "nothing before \"=\""},
    {Rule::noValue, lost, "no-value", "nothing after \"=\""},
    {Rule::repeatedKey, misread, "repeated-key", "a key that an earlier line has"},
    {Rule::outerBlank, doubtful, "outer-blank", "blanks around a key or a value"},
    {Rule::unknownKey, doubtful, "unknown-key", "a key that no program knows"},
    {Rule::notAChoice, misread, "not-a-choice", "a value that is none of the key's words"},
    {Rule::placeholder, misread, "placeholder", "a placeholder \"*\" read as a value"},
    {Rule::defaultStep, doubtful, "default-step", "a scale or step left to its default"},
    {Rule::oddCode, doubtful, "odd-code", "a code that looks like a mark"},
    {Rule::limits, misread, "limits", "max= or steg= that is not read as written"},
    {Rule::shortPv, doubtful, "short-pv", "a PV code without its two digits"},
    {Rule::noWholeNumber, misread, "no-whole-number", "no whole number before the text"},
    {Rule::textColumn, misread, "text-column", "words that do not keep to their column"},
    {Rule::repeatedNumber, doubtful, "repeated-number", "a number that an earlier line has"},
    {Rule::shiftLine, doubtful, "shift-line", "the extra number that shifts the others"},
    {Rule::builtIn, misread, "built-in", "a change of a built-in entry that is not taken"},
    {Rule::angleUnit, misread, "angle-unit", "an angle that comes back in another unit"},
    {Rule::gvy, doubtful, "gvy", "a groundwater level that is not read as one"},
    {Rule::leadsOut, doubtful, "leads-out", "a folder outside the project's"},
    {Rule::badLine, lost, "bad-line", "a line that gives no vertex"},
    {Rule::noVertex, misread, "no-vertex", "a road file without a vertex"},
    {Rule::oneVertex, misread, "one-vertex", "a line of one vertex alone"},
    {Rule::notFinite, misread, "not-finite", "a vertex that is no place"},
    {Rule::coincident, doubtful, "coincident", "two vertices in one place"},
    {Rule::stationOrder, misread, "station-order", "stations that do not go one way"},
    {Rule::stationJump, doubtful, "station-jump", "stations that jump"},
    {Rule::fallingStations, doubtful, "falling-stations", "stations that decrease"},
    {Rule::wideBulge, misread, "wide-bulge", "an arc of half a circle or more"},
    {Rule::missedArc, misread, "missed-arc", "an arc that the station search may miss"},
    {Rule::twoStations, doubtful, "two-stations", "a profile vertex with two stations"},
    {Rule::steepCurve, doubtful, "steep-curve", "a vertical curve too steep to be exact"},
    {Rule::swappedAxes, doubtful, "swapped-axes", "coordinates that look swapped"},
    {Rule::noArea, misread, "no-area", "an area file without its two number lines"},
    {Rule::noRoad, misread, "no-road", "an area file whose road file is missing"},
    {Rule::noSection, misread, "no-section", "a key before the first section"},
    {Rule::notUnderstood, misread, "not-understood", "a line that is not understood"},
};

constexpr bool AreInOrder() {
    for (std::size_t i = 0; i < std::size(rules); ++i) {
        if (static_cast<std::size_t>(rules[i].rule) != i) {
            return false;
        }
    }
    return true;
}
static_assert(AreInOrder());

} // namespace

std::span<RuleText const> Rules() {
    return rules;
}

RuleText const& TextOf(Rule rule) {
    return rules[static_cast<std::size_t>(rule)];
}

std::optional<Rule> RuleNamed(std::string_view name) {
    auto const* const found = std::find_if(std::begin(rules), std::end(rules),
                                           [&](RuleText const& text) { return text.name == name; });
    return found != std::end(rules) ? std::optional(found->rule) : std::nullopt;
}

std::string_view NameOf(Severity severity) {
    constexpr std::string_view names[] = {"lost", "misread", "doubtful"};
    return names[static_cast<std::size_t>(severity)];
}

} // namespace kvarn
