#include <map>

#include "../../text/codepage.h"
#include "../../text/text.h"

#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

bool HasOuterBlank(std::string_view text) {
    return !text.empty() && (IsBlank(text.substr(0, 1)) || IsBlank(text.substr(text.size() - 1)));
}

class KeyChecker {
  public:
    KeyChecker(std::string_view content, std::span<KeyDefault const> defaults,
               std::string_view writtenKey)
        : m_checker(content), m_defaults(defaults), m_writtenKey(writtenKey) {}

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
            m_checker.Add(number, "", Loss::blank);
            return;
        }
        KeyLine const line(text);
        switch (line.kind) {
        case KeyLine::Kind::noEquals:
            m_checker.Add(number, "no \"=\"", Loss::line, text);
            break;
        case KeyLine::Kind::noKey:
            m_checker.Add(number, "no key before \"=\"", Loss::line, text);
            break;
        case KeyLine::Kind::keyTooLong:
            m_checker.Add(number, Over("key", longestKey), Loss::line, text);
            break;
        case KeyLine::Kind::valueTooLong:
            m_checker.Add(number, Over("value", longestValue), Loss::line, text);
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
        bool const isWritten = isFirst && SameText(key, m_writtenKey);
        if (value.empty() && !isWritten) {
            m_checker.Add(number, "no value", Loss::line, text);
        } else if (!isFirst) {
            m_checker.Add(number,
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
            m_checker.Add(number, "blanks around the key, which are part of it", Loss::none, text);
        }
        if (HasOuterBlank(value)) {
            m_checker.Add(number, "blanks around the value, which are part of it", Loss::none,
                          text);
        }
        std::string const fault = NumberFault(value);
        if (!fault.empty() && IsNumber(key) && !SameText(Trimmed(value), "MAX")) {
            m_checker.Add(number, fault, Loss::none, text);
        }
        m_checker.LookAtLetters(number, text, LineChecker::Letters::kept);
    }

    // A key whose default is a number is read as one.
    bool IsNumber(std::string_view key) const {
        for (KeyDefault const& row : m_defaults) {
            if (SameText(row.nyckel, key)) {
                return NumberFault(row.varde).empty();
            }
        }
        return false;
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
    std::string_view m_writtenKey;
    std::map<std::string, std::size_t> m_lineOf;
};

} // namespace

std::vector<Finding> CheckKeys(std::string_view content, std::span<KeyDefault const> defaults,
                               std::string_view writtenKey) {
    return KeyChecker(content, defaults, writtenKey).Take();
}

} // namespace kvarn
