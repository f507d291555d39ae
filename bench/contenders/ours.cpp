#include <kvarnprog.h>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

class OursImpl : public Contender {
  public:
    explicit OursImpl(std::string const& folder) {
        Save(folder + "/" + CProjPath::KvarnParNamn, KeyLines(), Saving::inPlace);
        m_project.SetPath(folder.c_str());
        m_settings.Init(&m_ini, &m_project);
    }
    std::string Read(std::string const& key) override {
        return m_settings.ReadKey(CProjPath::KvarnParNamn, key.c_str()).GetString();
    }
    bool Write(std::string const& key, std::string const& value) override {
        return m_settings.WriteKey(CProjPath::KvarnParNamn, key.c_str(), value.c_str()) == 0;
    }

  private:
    CAutoIni m_ini;
    CProjPath m_project;
    CKvarnInst m_settings;
};

} // namespace

std::unique_ptr<Contender> Ours(std::string const& folder) {
    return std::make_unique<OursImpl>(folder);
}
