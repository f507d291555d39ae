// The rules that a file's check goes by. Users see and type their names, and docs/check-rules.md
// shows an example of each.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace kvarn {

enum class Rule {
    // Any file
    unreadable,
    utf16,
    utf8,
    byteOrderMark,
    dosLetters,
    spoiltLetters,
    controlCharacter,
    afterZero,
    afterEndOfFile,
    notANumber,
    partOfANumber,
    decimalComma,
    outOfRange,
    tooLong,
    tooFewWords,
    extraWords,
    blankLine,
    starText,
    afterEnd,
    endsEarly,
    notKept,
    // Key files
    noEquals,
    noKey,
    noValue,
    repeatedKey,
    outerBlank,
    unknownKey,
    notAChoice,
    // Scales
    placeholder,
    defaultStep,
    // Codes
    oddCode,
    limits,
    shortPv,
    noWholeNumber,
    textColumn,
    // Materials
    repeatedNumber,
    shiftLine,
    builtIn,
    angleUnit,
    // Support points
    gvy,
    // The list of folders
    leadsOut,
    // Roads
    badLine,
    noVertex,
    oneVertex,
    notFinite,
    coincident,
    stationOrder,
    stationJump,
    fallingStations,
    wideBulge,
    missedArc,
    twoStations,
    steepCurve,
    swappedAxes,
    // The area file
    noArea,
    noRoad,
    // INI files and the registry's text
    noSection,
    notUnderstood,
};

enum class Severity { lost, misread, doubtful };

struct RuleText {
    Rule rule;
    Severity severity; // where nothing is lost
    std::string_view name;
    std::string_view meaning;
};

// In the order of the rules.
std::span<RuleText const> Rules();
RuleText const& TextOf(Rule rule);
// Nothing for a name that no rule has.
std::optional<Rule> RuleNamed(std::string_view name);
std::string_view NameOf(Severity severity);

} // namespace kvarn
