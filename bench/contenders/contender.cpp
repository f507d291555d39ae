#include "contender.h"

#include "files.h"

void Contender::ReadAll(Settings& settings) {
    Load();
    for (Setting& setting : settings) {
        setting.value = Find(setting.key);
    }
}

FileContender::FileContender(Place const& place, char const* name, std::string const& text)
    : m_path(place.folder + '/' + name), m_saving(place.saving) {
    Save(m_path, text, Saving::inPlace);
}

bool FileContender::SaveText(std::string const& text) const {
    return Save(m_path, text, m_saving);
}
