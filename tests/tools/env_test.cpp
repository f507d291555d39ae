// env, dir and registry: the installed environment as the tool shows it.
#include <algorithm>

#include "kvarnio.h"
#include "support/installation.h"

namespace {

class EnvTest : public KvarnioTest {
  protected:
    // The finding of that name.
    static Json Finding(std::string const& out, std::string const& name) {
        for (Json const& finding : Json::parse(out)) {
            if (finding["name"] == name) {
                return finding;
            }
        }
        return {};
    }
    std::string Home() const { return Path("c/Kvarnbok"); }

    Installation m_inst;
};

TEST_F(EnvTest, TellsWhereSettingsAreAndWhy) {
    Result const result = Run({"env", "--json"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Finding(result.out, "settings mode")["value"], "1");
    EXPECT_EQ(Finding(result.out, "main folder")["value"], Home());
    EXPECT_EQ(Finding(result.out, "CAD version")["why"], "key ACADVER");
    EXPECT_EQ(Finding(result.out, "bootstrap"), Json());
    std::string const table = Run({"env"}).out;
    EXPECT_NE(table.find("\nmain folder "), std::string::npos) << table;
}

TEST_F(EnvTest, TheFirstStartCanBeWatched) {
    EXPECT_EQ(Run({"env", "--bootstrap", "0", "AX"}).status, 1); // nothing is installed
    std::string installed = Home();                              // as the registry has paths
    std::replace(installed.begin(), installed.end(), '/', '\\');
    m_inst.Install("R20", installed);
    m_inst.Write(Installation::AllUsers("Markvida.ini"), "[SYSTEM]\r\nACADEXEA=a.exe\r\n");
    m_inst.Write(Installation::AllUsers("KVARNBOK.PAR"), "A=1\r\n");
    Result const first = Run({"env", "--bootstrap", "0", "AX", "--json"});
    EXPECT_EQ(first.status, 0) << first.err;
    EXPECT_NE(first.err.find("the old way"), std::string::npos);
    EXPECT_EQ(Finding(first.out, "bootstrap")["why"], "ready");
    EXPECT_EQ(Finding(first.out, "installation")["value"], Home());
    EXPECT_EQ(Finding(first.out, "CFG folder")["why"], "the user's settings folder");
    EXPECT_EQ(m_inst.Read(Installation::User("KVARNBOK.PAR")), "A=1\r\n");
    Result const later = Run({"env", "--bootstrap", "0", "AX", "--refresh", "--json"});
    EXPECT_EQ(later.err, "");
    EXPECT_EQ(later.status, 1); // no platform to refresh
    EXPECT_EQ(Finding(later.out, "refresh")["value"], "-1");
    EXPECT_EQ(Run({"env", "--bootstrap", "20"}).status, 2);
    EXPECT_EQ(Run({"env", "--bootstrap", "x", "AX"}).status, 2);
}

TEST_F(EnvTest, NamesTheReleaseThatTheBootstrapTookOfTwoInOneFolder) {
    std::string installed = Home();
    std::replace(installed.begin(), installed.end(), '/', '\\');
    for (char const* const release : {"R20", "R19"}) {
        m_inst.Install(release, installed);
    }
    m_inst.Install("RELEASE", "C:\\elsewhere");
    m_inst.Choose("19");
    m_inst.Write(Installation::User("Markvida.ini", "R19"), "[SYSTEM]\r\n");
    Result const result = Run({"env", "--bootstrap", "0", "AX", "--json"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(Finding(result.out, "installation")["why"], "HKLM\\" + Installation::Group("R19"));
    EXPECT_EQ(Finding(result.out, "other one")["why"],
              "HKLM\\" + Installation::Group("RELEASE") + "; does not exist");
    EXPECT_EQ(Finding(result.out, "no installation")["why"],
              "HKLM\\" + Installation::Group("DIST"));
    EXPECT_EQ(Finding(result.out, "settings found")["why"], "bootstrap");
}

TEST_F(EnvTest, DirListsInTheOrderAskedFor) {
    for (char const* name : {"10.dbf", "9.dbf", "b.dbf"}) {
        m_folder.Write(std::string("dir/") + name, std::string(*name == 'b' ? 5000 : 1, 'x'));
    }
    m_folder.Write("dir/sub/x", "");
    auto const names = [&](Arguments more) {
        Arguments arguments = {"dir", Path("dir/*"), "--json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        std::vector<std::string> found;
        for (Json const& entry : Json::parse(RunBare(arguments).out)) {
            found.push_back(entry["name"]);
        }
        return found;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(names({}), (Names{"9.dbf", "10.dbf", "b.dbf"}));
    EXPECT_EQ(names({"--reverse"}), (Names{"b.dbf", "10.dbf", "9.dbf"}));
    EXPECT_EQ(names({"--sort", "size"}).back(), "b.dbf");
    EXPECT_EQ(names({"--folders"}).size(), 6U);
    EXPECT_EQ(RunBare({"dir", Path("dir/*"), "--sort", "age"}).status, 2);
    Result const nothing = RunBare({"dir", Path("dir/*.no")});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_NE(nothing.err.find("nothing matches"), std::string::npos);
}

TEST_F(EnvTest, RegistryShowsEveryFormThatFits) {
    m_inst.Set(HKEY_CURRENT_USER, "SOFTWARE\\Kvarnio test", "text", "\xE5");
    CRegistry registry;
    registry.SetKey("SOFTWARE\\Kvarnio test", 0, KEY_ALL_ACCESS);
    registry.WriteColor("color", 0x00030201);
    registry.WriteFloat("float", 2.5);
    auto const forms = [&](char const* name) {
        return Json::parse(
            RunBare({"registry", "hkcu\\software\\kvarnio test", name, "--json"}).out)["as"];
    };
    EXPECT_EQ(forms("text")["text"], "\xC3\xA5");
    EXPECT_EQ(forms("color")["color"]["blue"], 3);
    EXPECT_EQ(forms("color")["int"], 0x030201);
    EXPECT_EQ(forms("float")["float"], 2.5);
    EXPECT_EQ(forms("float")["point"]["x"], 0);
    EXPECT_EQ(RunBare({"registry", "HKCU\\SOFTWARE\\Kvarnio test", "no"}).status, 1);
    EXPECT_EQ(RunBare({"registry", "HKCU\\no such key"}).status, 1);
    EXPECT_EQ(RunBare({"registry", "HKXX\\a"}).status, 2);
    registry.DeleteKey("SOFTWARE\\Kvarnio test");
}

} // namespace
