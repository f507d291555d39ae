#define SI_NO_CONVERSION  // the texts are bytes in one code page
#define SI_IMPLEMENTATION // compiled here, with the flags of the others
#include <SimpleIni.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

class SimpleIniImpl : public FileContender {
  public:
    SimpleIniImpl(Place const& place, Settings const& content)
        : FileContender(place, "settings.ini", KeyLinesInSection(content)) {}
    std::string Read(std::string const& key) override {
        CSimpleIniA ini;
        return ini.LoadFile(m_path.c_str()) == SI_OK ? ini.GetValue(sectionName, key.c_str(), "")
                                                     : "";
    }
    bool Write(Settings const& settings) override {
        CSimpleIniA ini;
        if (ini.LoadFile(m_path.c_str()) != SI_OK) {
            return false;
        }
        for (Setting const& setting : settings) {
            if (ini.SetValue(sectionName, setting.key.c_str(), setting.value.c_str()) < 0) {
                return false;
            }
        }
        if (m_saving == Saving::inPlace) {
            return ini.SaveFile(m_path.c_str()) == SI_OK;
        }
        std::string content;
        return ini.Save(content) == SI_OK && SaveText(content);
    }
    void Load() override {
        m_loaded = std::make_unique<CSimpleIniA>();
        m_loaded->LoadFile(m_path.c_str());
    }
    std::string Find(std::string const& key) override {
        return m_loaded->GetValue(sectionName, key.c_str(), "");
    }

  private:
    std::unique_ptr<CSimpleIniA> m_loaded;
};

} // namespace

std::unique_ptr<Contender> SimpleIni(Place const& place, Settings const& content) {
    return std::make_unique<SimpleIniImpl>(place, content);
}
