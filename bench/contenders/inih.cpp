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

// It only reads: the lines come back as they were parsed, one of them changed.
struct Rewriting {
    std::string const& key;
    std::string const& value;
    std::string content;
};

int CopyLine(void* user, char const*, char const* name, char const* value) {
    auto& rewriting = *static_cast<Rewriting*>(user);
    bool const wanted = strcasecmp(name, rewriting.key.c_str()) == 0;
    rewriting.content.append(name).append("=");
    rewriting.content.append(wanted ? rewriting.value.c_str() : value).append("\r\n");
    return goOn;
}

class InihImpl : public Contender {
  public:
    InihImpl(std::string const& folder, Saving saving)
        : m_path(folder + "/settings.ini"), m_saving(saving) {
        Save(m_path, KeyLinesInSection(), Saving::inPlace);
    }
    std::string Read(std::string const& key) override {
        Wanted wanted{key.c_str(), {}};
        return ini_parse(m_path.c_str(), TakeWanted, &wanted) == 0 ? wanted.value : "";
    }
    bool Write(std::string const& key, std::string const& value) override {
        Rewriting rewriting{key, value, std::string("[") + sectionName + "]\r\n"};
        return ini_parse(m_path.c_str(), CopyLine, &rewriting) == 0 &&
               Save(m_path, rewriting.content, m_saving);
    }

  private:
    std::string m_path;
    Saving m_saving;
};

} // namespace

std::unique_ptr<Contender> Inih(std::string const& folder, Saving saving) {
    return std::make_unique<InihImpl>(folder, saving);
}
