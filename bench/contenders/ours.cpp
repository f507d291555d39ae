#include <kvarnfiles/keyrecords.h>
#include <kvarnprog.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

class OursImpl : public Contender {
  public:
    OursImpl(std::string const& folder, Saving saving)
        : m_path(folder + "/" + CProjPath::KvarnParNamn), m_saving(saving) {
        Save(m_path, KeyLines(), Saving::inPlace);
        m_project.SetPath(folder.c_str());
        m_settings.Init(&m_ini, &m_project);
    }
    std::string Read(std::string const& key) override {
        return m_settings.ReadKey(CProjPath::KvarnParNamn, key.c_str()).GetString();
    }
    bool Write(std::string const& key, std::string const& value) override {
        if (m_saving == Saving::inPlace) { // the library's own steps but for the last
            CKvarnPAR par(&m_ini, &m_project);
            return kvarn::SetKeyRecord(par, key, value) == 0 &&
                   Save(m_path, kvarn::KeyFileText(par), m_saving);
        }
        return m_settings.WriteKey(CProjPath::KvarnParNamn, key.c_str(), value.c_str()) == 0;
    }

  private:
    std::string m_path;
    Saving m_saving;
    CAutoIni m_ini;
    CProjPath m_project;
    CKvarnInst m_settings;
};

} // namespace

std::unique_ptr<Contender> Ours(std::string const& folder, Saving saving) {
    return std::make_unique<OursImpl>(folder, saving);
}
