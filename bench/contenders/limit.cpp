#include <cstring>
#include <string_view>
#include <unordered_map>

#include <strings.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

// Does something with each line, without its end, until that is true.
template <class Action> void ForEachLine(std::string const& content, Action action) {
    char const* line = content.data();
    char const* const end = line + content.size();
    while (line < end) {
        auto const* const feed =
            static_cast<char const*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        char const* const lineEnd = feed != nullptr ? feed : end;
        std::string_view text(line, static_cast<std::size_t>(lineEnd - line));
        text.remove_suffix(text.ends_with('\r') ? 1 : 0);
        if (action(text)) {
            return;
        }
        line = lineEnd + 1;
    }
}

// Where the key's value stands; empty, without an address, when it is missing.
std::string_view FindValue(std::string const& content, std::string const& key) {
    std::string_view value;
    ForEachLine(content, [&](std::string_view line) {
        bool const found = line.size() > key.size() && line[key.size()] == '=' &&
                           strncasecmp(line.data(), key.c_str(), key.size()) == 0;
        value = found ? line.substr(key.size() + 1) : value;
        return found;
    });
    return value;
}

std::string WithOne(std::string content, Setting const& setting) {
    std::string_view const old = FindValue(content, setting.key);
    content.replace(static_cast<std::size_t>(old.data() - content.data()), old.size(),
                    setting.value);
    return content;
}

std::string WithAll(std::string const& content, Settings const& settings) {
    std::unordered_map<std::string_view, std::string_view> values;
    for (Setting const& setting : settings) {
        values.emplace(setting.key, setting.value);
    }
    std::string out;
    out.reserve(2 * content.size());
    ForEachLine(content, [&](std::string_view line) {
        std::string_view const key = line.substr(0, line.find('='));
        auto const value = values.find(key);
        if (value != values.end()) {
            out.append(key).append("=").append(value->second).append("\r\n");
        } else {
            out.append(line).append("\r\n");
        }
        return false;
    });
    return out;
}

class LimitImpl : public FileContender {
  public:
    LimitImpl(Place const& place, Settings const& content)
        : FileContender(place, "settings.par", KeyLines(content)) {}
    std::string Read(std::string const& key) override {
        std::string content;
        return ReadWhole(m_path, content) ? std::string(FindValue(content, key)) : "";
    }
    bool Write(Settings const& settings) override {
        std::string content;
        if (!ReadWhole(m_path, content)) {
            return false;
        }
        return SaveText(settings.size() == 1 ? WithOne(content, settings.front())
                                             : WithAll(content, settings));
    }
    void Load() override {
        m_loaded.clear();
        ReadWhole(m_path, m_content);
        ForEachLine(m_content, [&](std::string_view line) {
            std::size_t const equals = line.find('=');
            m_loaded.emplace(line.substr(0, equals), line.substr(equals + 1));
            return false;
        });
    }
    std::string Find(std::string const& key) override {
        auto const found = m_loaded.find(key);
        return found != m_loaded.end() ? std::string(found->second) : "";
    }

  private:
    std::string m_content;
    std::unordered_map<std::string_view, std::string_view> m_loaded;
};

} // namespace

std::unique_ptr<Contender> Limit(Place const& place, Settings const& content) {
    return std::make_unique<LimitImpl>(place, content);
}
