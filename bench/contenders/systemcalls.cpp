// The least that does the work: what a program would cost that knew only this one file.
#include <cstring>
#include <string_view>

#include <strings.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

// Where the key's value stands; empty, without an address, when it is missing.
std::string_view FindValue(std::string const& content, std::string const& key) {
    char const* line = content.data();
    char const* const end = line + content.size();
    while (line < end) {
        auto const* const feed =
            static_cast<char const*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        char const* const lineEnd = feed != nullptr ? feed : end;
        auto const length = static_cast<std::size_t>(lineEnd - line);
        if (length > key.size() && line[key.size()] == '=' &&
            strncasecmp(line, key.c_str(), key.size()) == 0) {
            std::string_view value(line + key.size() + 1, length - key.size() - 1);
            value.remove_suffix(value.ends_with('\r') ? 1 : 0);
            return value;
        }
        line = lineEnd + 1;
    }
    return {};
}

class SystemCallsImpl : public Contender {
  public:
    SystemCallsImpl(std::string const& folder, Saving saving)
        : m_path(folder + "/settings.par"), m_saving(saving) {
        Save(m_path, KeyLines(), Saving::inPlace);
    }
    std::string Read(std::string const& key) override {
        std::string content;
        return ReadWhole(m_path, content) ? std::string(FindValue(content, key)) : "";
    }
    bool Write(std::string const& key, std::string const& value) override {
        std::string content;
        if (!ReadWhole(m_path, content)) {
            return false;
        }
        std::string_view const old = FindValue(content, key);
        if (old.data() == nullptr) {
            return false;
        }
        content.replace(static_cast<std::size_t>(old.data() - content.data()), old.size(), value);
        return Save(m_path, content, m_saving);
    }

  private:
    std::string m_path;
    Saving m_saving;
};

} // namespace

std::unique_ptr<Contender> SystemCalls(std::string const& folder, Saving saving) {
    return std::make_unique<SystemCallsImpl>(folder, saving);
}
