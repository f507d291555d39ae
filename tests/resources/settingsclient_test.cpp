// The sample program, run as a user would: it walks through its own windows and leaves pictures.
#include <gtest/gtest.h>

#include "support/child.h"
#include "support/projekt.h"

namespace {

class SettingsClient : public ProjektTest, public testing::WithParamInterface<char const*> {};

INSTANTIATE_TEST_SUITE_P(Language, SettingsClient, testing::Values("sv", "no"),
                         [](auto const& language) { return std::string(language.param); });

TEST_P(SettingsClient, ShowsChecksAndSavesAProjectsSettings) {
    std::string const begin = PICTURES "/client-" + std::string(GetParam()) + "-";
    std::vector<std::filesystem::path> pictures;
    for (char const* const name :
         {"main", "words", "number", "settings", "saved", "box", "settings-box"}) {
        pictures.emplace_back(begin + name + ".png");
        std::filesystem::remove(pictures.back()); // of an earlier run
    }
    std::filesystem::create_directories(PICTURES);
    std::string const area = "* V\xE4g 27\r\n*\r\nVAG.VL\r\n0.000 100.000\r\n-10.000 10.000\r\n";
    Write("KVARNBOK.DBF/KVARNBOK.VL", area);
    Write("KVARNBOK.DBF/VAG.VL",
          "0 0 0 0 1 $V\xE4g 27\r\n100 0 0 100\r\nh\xE4r st\xE5r ingen punkt\r\n");
    Write("KVARNBOK.PAR", "HSKALA=200\r\nOKAND=kvar\r\n");
    // Another project, whose road and settings cannot be opened.
    m_folder.Write("annat/KVARNBOK.DBF/KVARNBOK.VL", area);
    std::filesystem::create_directory(m_folder / "annat/KVARNBOK.DBF/VAG.VL");
    std::filesystem::create_directory(m_folder / "annat/KVARNBOK.PAR");

    Variable const main("KVARNBOK", m_folder.Api("huvud"));
    std::string line = SETTINGS_CLIENT;
    for (std::string const& argument :
         {m_folder.Api("projekt"), std::string(GetParam()), begin, m_folder.Api("annat")}) {
        line += " \"" + argument + '"';
    }
    EXPECT_EQ(Child(line, 0).Wait(), 0);
    EXPECT_EQ(Read("KVARNBOK.PAR"), "HSKALA=400\r\nOKAND=kvar\r\n");
    for (auto const& picture : pictures) {
        EXPECT_EQ(ReadBytes(picture).substr(0, 4), "\x89PNG") << picture;
    }
}

} // namespace
