#include <sstream>

#include <boost/property_tree/ini_parser.hpp>

#include "contender.h"
#include "files.h"
#include "keyfile.h"

namespace {

using Tree = boost::property_tree::ptree;

// Its keys are told apart by their letters' case.
class PropertyTreeImpl : public FileContender {
  public:
    PropertyTreeImpl(Place const& place, Settings const& content)
        : FileContender(place, "settings.ini", KeyLinesInSection(content)) {}
    std::string Read(std::string const& key) override {
        Tree tree;
        boost::property_tree::read_ini(m_path, tree);
        return tree.get_child(sectionName).get<std::string>(key);
    }
    bool Write(Settings const& settings) override {
        Tree tree;
        boost::property_tree::read_ini(m_path, tree);
        for (Setting const& setting : settings) {
            tree.get_child(sectionName).put(setting.key, setting.value);
        }
        std::ostringstream content;
        boost::property_tree::write_ini(content, tree);
        return SaveText(content.str());
    }
};

} // namespace

std::unique_ptr<Contender> PropertyTree(Place const& place, Settings const& content) {
    return std::make_unique<PropertyTreeImpl>(place, content);
}
