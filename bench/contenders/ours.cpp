#include <filesystem>
#include <optional>

#include <kvarnfiles/keyrecords.h>
#include <kvarnprog.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

class OursImpl : public FileContender {
  public:
    OursImpl(Place const& place, std::string const& project, Settings const& content)
        : FileContender(place, CProjPath::KvarnParNamn, KeyLines(content)) {
        m_ini.m_cfgKat = place.folder.c_str();
        m_project.SetPath(project.c_str());
        m_settings.Init(&m_ini, &m_project);
    }
    std::string Read(std::string const& key) override {
        return m_settings.ReadKey(CProjPath::KvarnParNamn, key.c_str()).GetString();
    }
    // As a dialog asks for them: each from the file.
    void ReadAll(Settings& settings) override {
        for (Setting& setting : settings) {
            setting.value = Read(setting.key);
        }
    }
    bool Write(Settings const& settings) override {
        if (m_saving == Saving::inPlace) { // the library's own steps but for the last
            CKvarnPAR par(&m_ini, &m_project);
            for (Setting const& setting : settings) {
                kvarn::SetKeyRecord(par, setting.key, setting.value);
            }
            return SaveText(kvarn::KeyFileText(par));
        }
        if (settings.size() == 1) {
            Setting const& only = settings.front();
            return m_settings.WriteKey(CProjPath::KvarnParNamn, only.key.c_str(),
                                       only.value.c_str()) == 0;
        }
        std::vector<nyckelvarde> keys;
        for (Setting const& setting : settings) {
            keys.push_back({setting.key.c_str(), setting.value.c_str(), 0});
        }
        return m_settings.WriteKeys(CProjPath::KvarnParNamn, keys.data(),
                                    static_cast<int>(keys.size())) == 0;
    }
    void Load() override { m_loaded.emplace(&m_ini, &m_project); }
    std::string Find(std::string const& key) override {
        return m_loaded->ReadKey(key.c_str()).GetString();
    }

  private:
    CAutoIni m_ini;
    CProjPath m_project;
    CKvarnInst m_settings;
    std::optional<CKvarnPAR> m_loaded;
};

} // namespace

std::unique_ptr<Contender> Ours(Place const& place, Settings const& content) {
    return std::make_unique<OursImpl>(place, place.folder, content);
}

std::unique_ptr<Contender> OursShared(Place const& place, Settings const& content) {
    constexpr int files = 2000;
    std::string const project = place.folder + "/project";
    std::filesystem::create_directory(project);
    for (int i = 0; i < files; ++i) {
        Save(project + "/BORRHAL" + std::to_string(i) + ".DBF", "", Saving::inPlace);
    }
    return std::make_unique<OursImpl>(place, project, content);
}
