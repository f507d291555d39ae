#include <map>
#include <string>
#include <utility>

#include "../../text/text.h"
#include "checks.h"
#include "linechecker.h"

namespace kvarn {
namespace {

std::string Capitals(std::string_view text) {
    std::string capitals(Trimmed(text));
    for (char& c : capitals) {
        c = Upper1252(c);
    }
    return capitals;
}

class IniChecker {
  public:
    explicit IniChecker(std::string_view content) : m_checker(content) {}

    std::vector<Finding> Take() {
        for (TextLine const& line : m_checker.Lines()) {
            std::string_view const text = Trimmed(line.text);
            if (text.starts_with('[')) {
                LookAtSection(line, text);
            } else if (!text.empty() && !text.starts_with(';')) {
                LookAtKey(line, text);
            }
        }
        return m_checker.Take();
    }

  private:
    void LookAtSection(TextLine const& line, std::string_view text) {
        m_section = Capitals(text.substr(1, text.find(']') - 1));
        m_hasSection = true;
        if (text.find(']') == std::string_view::npos) {
            m_checker.Add(line.number, Rule::notUnderstood, "a section without its \"]\"",
                          Loss::none, line.text);
        }
        auto const [first, isFirst] = m_sections.try_emplace(m_section, line.number);
        m_isFirst = isFirst;
        if (!isFirst) {
            m_checker.Add(line.number, Rule::repeatedKey,
                          "not read, since the section stands on line " +
                              std::to_string(first->second) + " already",
                          Loss::none, line.text);
        }
    }

    void LookAtKey(TextLine const& line, std::string_view text) {
        std::size_t const equals = text.find('=');
        if (equals == std::string_view::npos || equals == 0) {
            m_checker.Add(line.number, equals == 0 ? Rule::noKey : Rule::noEquals,
                          equals == 0 ? "no key before \"=\"" : "no \"=\"", Loss::none, line.text);
        } else if (!m_hasSection) {
            m_checker.Add(line.number, Rule::noSection,
                          "stands before the first section, where nothing is read", Loss::none,
                          line.text);
        } else if (m_isFirst) {
            LookAtRepeated(line, Capitals(text.substr(0, equals)));
            m_checker.LookAtLetters(line.number, line.text, LineChecker::Letters::converted);
        }
    }
    void LookAtRepeated(TextLine const& line, std::string key) {
        auto const [first, isFirst] = m_keys.try_emplace({m_section, std::move(key)}, line.number);
        if (!isFirst) {
            m_checker.Add(line.number, Rule::repeatedKey,
                          "not read, since the key stands on line " +
                              std::to_string(first->second) + " already",
                          Loss::none, line.text);
        }
    }

    LineChecker m_checker;
    bool m_hasSection = false;
    bool m_isFirst = true; // of its name
    std::string m_section;
    std::map<std::string, std::size_t> m_sections;
    std::map<std::pair<std::string, std::string>, std::size_t> m_keys;
};

// A text in UTF-16 with its mark, which INI files may be, with code page 1252's letters.
std::string From1200(std::string_view content) {
    std::string text;
    for (std::size_t i = 2; i + 1 < content.size(); i += 2) {
        text += content[i + 1] == '\0' ? content[i] : '?';
    }
    return text;
}

} // namespace

std::vector<Finding> CheckIni(std::string_view content) {
    if (content.starts_with("\xFF\xFE")) {
        std::string const text = From1200(content);
        return IniChecker(text).Take();
    }
    return IniChecker(content).Take();
}

} // namespace kvarn
