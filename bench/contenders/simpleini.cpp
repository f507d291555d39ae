#define SI_NO_CONVERSION  // the texts are bytes in one code page
#define SI_IMPLEMENTATION // compiled here, with the flags of the others
#include <SimpleIni.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

class SimpleIniImpl : public Contender {
  public:
    SimpleIniImpl(std::string const& folder, Saving saving)
        : m_path(folder + "/settings.ini"), m_saving(saving) {
        Save(m_path, KeyLinesInSection(), Saving::inPlace);
    }
    std::string Read(std::string const& key) override {
        CSimpleIniA ini;
        return ini.LoadFile(m_path.c_str()) == SI_OK ? ini.GetValue(sectionName, key.c_str(), "")
                                                     : "";
    }
    bool Write(std::string const& key, std::string const& value) override {
        CSimpleIniA ini;
        if (ini.LoadFile(m_path.c_str()) != SI_OK ||
            ini.SetValue(sectionName, key.c_str(), value.c_str()) < 0) {
            return false;
        }
        if (m_saving == Saving::inPlace) {
            return ini.SaveFile(m_path.c_str()) == SI_OK;
        }
        std::string content;
        return ini.Save(content) == SI_OK && Save(m_path, content, m_saving);
    }

  private:
    std::string m_path;
    Saving m_saving;
};

} // namespace

std::unique_ptr<Contender> SimpleIni(std::string const& folder, Saving saving) {
    return std::make_unique<SimpleIniImpl>(folder, saving);
}
