#include <ini.h>

#include <strings.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

// What its parser calls for each line; 1 goes on.
constexpr int goOn = 1;

struct Wanted {
    char const* key;
    std::string value;
};

int TakeWanted(void* user, char const*, char const* name, char const* value) {
    auto& wanted = *static_cast<Wanted*>(user);
    if (strcasecmp(name, wanted.key) == 0) {
        wanted.value = value;
    }
    return goOn;
}

// It only reads: the lines come back as they were parsed, some of them changed.
struct Rewriting {
    Settings const& settings;
    std::string content;
};

int CopyLine(void* user, char const*, char const* name, char const* value) {
    auto& rewriting = *static_cast<Rewriting*>(user);
    for (Setting const& setting : rewriting.settings) {
        value = strcasecmp(name, setting.key.c_str()) == 0 ? setting.value.c_str() : value;
    }
    rewriting.content.append(name).append("=").append(value).append("\r\n");
    return goOn;
}

class InihImpl : public FileContender {
  public:
    InihImpl(Place const& place, Settings const& content)
        : FileContender(place, "settings.ini", KeyLinesInSection(content)) {}
    std::string Read(std::string const& key) override {
        Wanted wanted{key.c_str(), {}};
        return ini_parse(m_path.c_str(), TakeWanted, &wanted) == 0 ? wanted.value : "";
    }
    bool Write(Settings const& settings) override {
        Rewriting rewriting{settings, std::string("[") + sectionName + "]\r\n"};
        return ini_parse(m_path.c_str(), CopyLine, &rewriting) == 0 && SaveText(rewriting.content);
    }
};

} // namespace

std::unique_ptr<Contender> Inih(Place const& place, Settings const& content) {
    return std::make_unique<InihImpl>(place, content);
}
