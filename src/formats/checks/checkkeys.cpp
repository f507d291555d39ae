#include <algorithm>
#include <map>

#include "../../text/codepage.h"
#include "../../text/text.h"

#include "checks.h"
#include "keyvalues.h"
#include "linechecker.h"

namespace kvarn {
namespace {

bool HasOuterBlank(std::string_view text) {
    return !text.empty() && (IsBlank(text.substr(0, 1)) || IsBlank(text.substr(text.size() - 1)));
}

class KeyChecker {
  public:
    KeyChecker(std::string_view content, std::span<KeyDefault const> defaults,
               std::span<std::string const> writtenKeys)
        : m_checker(content), m_defaults(defaults), m_writtenKeys(writtenKeys) {}

    std::vector<Finding> Take() {
        for (TextLine const& line : m_checker.Lines()) {
            Look(line.number, line.text);
        }
        return m_checker.Take();
    }

  private:
    void Look(std::size_t number, std::string_view text) {
        if (text == "*") {
            return; // the library's own, of a file without keys
        }
        if (IsBlank(text)) {
            m_checker.AddBlank({number, text, {}});
            return;
        }
        KeyLine const line(text);
        switch (line.kind) {
        case KeyLine::Kind::noEquals:
            m_checker.Add(number, Rule::noEquals, "no \"=\"", Loss::line, text);
            break;
        case KeyLine::Kind::noKey:
            m_checker.Add(number, Rule::noKey, "no key before \"=\"", Loss::line, text);
            break;
        case KeyLine::Kind::keyTooLong:
            m_checker.Add(number, Rule::tooLong, Over("key", longestKey), Loss::line, text);
            break;
        case KeyLine::Kind::valueTooLong:
            m_checker.Add(number, Rule::tooLong, Over("value", longestValue), Loss::line, text);
            break;
        case KeyLine::Kind::stored:
            LookAtKey(number, text, line.key, line.value);
        }
    }

    static std::string Over(char const* what, std::size_t most) {
        return std::string(what) + " over " + std::to_string(most) + " characters";
    }

    void LookAtKey(std::size_t number, std::string_view text, std::string_view key,
                   std::string_view value) {
        auto const [first, isFirst] = m_lineOf.try_emplace(Folded(key), number);
        if (value.empty() && !(isFirst && IsWritten(key))) {
            m_checker.Add(number, Rule::noValue, "no value", Loss::line, text);
        } else if (!isFirst) {
            m_checker.Add(number, Rule::repeatedKey,
                          "not read, since the key stands on line " +
                              std::to_string(first->second) + " already",
                          Loss::none, text);
        } else {
            LookAtValue(number, text, key, value);
        }
    }

    void LookAtValue(std::size_t number, std::string_view text, std::string_view key,
                     std::string_view value) {
        if (HasOuterBlank(key)) {
            m_checker.Add(number, Rule::outerBlank, "blanks around the key, which are part of it",
                          Loss::none, text);
        }
        if (HasOuterBlank(value)) {
            m_checker.Add(number, Rule::outerBlank, "blanks around the value, which are part of it",
                          Loss::none, text);
        }
        if (!m_defaults.empty() && !IsKnownKey(m_defaults, Trimmed(key))) {
            LookAtUnknown(number, text, key);
        } else if (Fault const fault = ValueFault(m_defaults, key, value)) {
            m_checker.Add(number, fault.rule, fault.what, Loss::none, text);
        }
        m_checker.LookAtLetters(number, text, LineChecker::Letters::kept);
    }

    bool IsWritten(std::string_view key) const {
        return std::any_of(m_writtenKeys.begin(), m_writtenKeys.end(),
                           [&](std::string const& written) { return SameText(key, written); });
    }

    void LookAtUnknown(std::size_t number, std::string_view text, std::string_view key) {
        std::string const nearest(NearestKey(m_defaults, key));
        m_checker.Add(number, Rule::unknownKey,
                      "no program knows the key" +
                          (nearest.empty() ? "" : "; did you mean " + nearest + '?'),
                      Loss::none, text);
    }

    static std::string Folded(std::string_view key) {
        std::string folded(key);
        for (char& c : folded) {
            c = Lower1252(c);
        }
        return folded;
    }

    LineChecker m_checker;
    std::span<KeyDefault const> m_defaults;
    std::span<std::string const> m_writtenKeys;
    std::map<std::string, std::size_t> m_lineOf;
};

} // namespace

std::vector<Finding> CheckKeys(std::string_view content, std::span<KeyDefault const> defaults,
                               std::span<std::string const> writtenKeys) {
    return KeyChecker(content, defaults, writtenKeys).Take();
}

} // namespace kvarn
