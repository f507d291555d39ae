// env, dir and registry: the installed environment as the tool shows it.
#include "kvarnio.h"
#include "support/installation.h"

namespace {

class EnvTest : public KvarnioTest {
  protected:
    // A column of the finding of that name.
    static Json Finding(Result const& result, char const* name, char const* column = "why") {
        for (Json const& finding : Json::parse(result.out)) {
            if (finding["name"] == name) {
                return finding[column];
            }
        }
        return {};
    }
    // The sample installation, as the registry has paths.
    std::string Installed() const {
        std::string installed = Path("c/Kvarnbok");
        std::replace(installed.begin(), installed.end(), '/', '\\');
        return installed;
    }

    Installation m_inst;
};

TEST_F(EnvTest, TellsWhereSettingsAreAndWhy) {
    Result const result = Run("env --json");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Finding(result, "settings mode", "value"), "1");
    EXPECT_EQ(Finding(result, "main folder", "value"), Path("c/Kvarnbok"));
    EXPECT_EQ(Finding(result, "CAD version"), "key ACADVER");
    EXPECT_EQ(Finding(result, "bootstrap"), Json());
    ExpectPart(Run("env").out, "\nmain folder ");
}

TEST_F(EnvTest, TheFirstStartCanBeWatched) {
    EXPECT_EQ(Run("env --bootstrap 0 AX").status, notThere); // nothing is installed
    m_inst.Install("R20", Installed());
    m_inst.Write(Installation::AllUsers("Markvida.ini"), "[SYSTEM]\r\nACADEXEA=a.exe\r\n");
    Result const first = Run("env --bootstrap 0 AX --json");
    EXPECT_EQ(first.status, 0) << first.err;
    ExpectPart(first.err, "the old way");
    EXPECT_EQ(Finding(first, "bootstrap"), "ready");
    EXPECT_EQ(Finding(first, "installation", "value"), Path("c/Kvarnbok"));
    EXPECT_EQ(Finding(first, "CFG folder"), "the user's settings folder");
    EXPECT_EQ(Finding(first, "main folder"), "of the installation");
    Result const later = Run("env --bootstrap 0 AX --refresh --json");
    EXPECT_EQ(later.err, "");
    EXPECT_EQ(later.status, 1); // no platform to refresh
    EXPECT_EQ(Finding(later, "refresh", "value"), "-1");
    EXPECT_EQ(Run("env --bootstrap 20").status, wrongUsage);
    EXPECT_EQ(Run("env --bootstrap x AX").status, wrongUsage);
}

TEST_F(EnvTest, NamesTheReleaseThatTheBootstrapTookOfTwoInOneFolder) {
    m_inst.Install("R20", Installed());
    m_inst.Install("R19", Installed());
    m_inst.Install("RELEASE", "C:\\elsewhere");
    m_inst.Choose("19");
    m_inst.Write(Installation::User("Markvida.ini", "R19"), "[SYSTEM]\r\n");
    Result const result = Run("env --bootstrap 0 AX --json");
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(Finding(result, "installation"), "HKLM\\" + Installation::Group("R19"));
    EXPECT_EQ(Finding(result, "other one"),
              "HKLM\\" + Installation::Group("RELEASE") + "; does not exist");
    EXPECT_EQ(Finding(result, "no installation"), "HKLM\\" + Installation::Group("DIST"));
    EXPECT_EQ(Finding(result, "settings found"), "bootstrap");
}

TEST_F(EnvTest, DirListsInTheOrderAskedFor) {
    m_folder.Write("dir/a.dbf", std::string(5000, 'x'));
    m_folder.Write("dir/b.dbf", "1");
    m_folder.Write("dir/sub/x", "");
    auto const names = [&](std::string const& more) {
        Words found;
        for (Json const& entry : RunJson("dir " + Quoted("dir/*") + more)) {
            found.push_back(entry["name"]);
        }
        return found;
    };
    EXPECT_EQ(names(""), (Words{"a.dbf", "b.dbf"}));
    EXPECT_EQ(names(" --reverse"), (Words{"b.dbf", "a.dbf"}));
    EXPECT_EQ(names(" --sort size"), (Words{"b.dbf", "a.dbf"}));
    EXPECT_EQ(names(" --folders").size(), 5U);
    EXPECT_EQ(Run("dir " + Quoted("dir/*") + " --sort age").status, wrongUsage);
    ExpectRefused({{"dir " + Quoted("dir/*.no"), notThere, "nothing matches"}});
}

TEST_F(EnvTest, RegistryShowsEveryFormThatFits) {
    std::string const key = "SOFTWARE\\Kvarnio test";
    m_inst.Set(HKEY_CURRENT_USER, key, "text", "\xE5");
    CRegistry registry;
    registry.SetKey(key.c_str(), 0, KEY_ALL_ACCESS);
    registry.WriteColor("color", 0x00030201);
    registry.WriteFloat("float", 2.5);
    auto const forms = [&](std::string const& name) {
        return RunJson("registry 'hkcu\\software\\kvarnio test' " + name)["as"];
    };
    EXPECT_EQ(forms("text")["text"], "å");
    EXPECT_EQ(forms("color")["color"]["blue"], 3);
    EXPECT_EQ(forms("color")["int"], 0x030201);
    EXPECT_EQ(forms("float")["float"], 2.5);
    EXPECT_EQ(forms("float")["point"]["x"], 0);
    registry.WriteString("", "first");
    Result const all = RunBare("registry 'hkcu\\software\\kvarnio test'");
    for (char const* row : {"\ntext ", "\ncolor ", "\nfloat ", "\n@ "}) {
        ExpectPart(all.out, row);
    }
    ExpectPart(all.out, " 197121\n"); // the colour
    Json const values = RunJson("registry 'hkcu\\software\\kvarnio test'")["values"];
    ASSERT_EQ(values.size(), 4U);
    Json const text = {{"name", "text"}, {"type", "REG_SZ"}, {"as", {{"text", "å"}}}};
    EXPECT_EQ(std::count(values.begin(), values.end(), text), 1) << values;
    EXPECT_EQ(RunBare("registry 'HKCU\\SOFTWARE\\Kvarnio test' no").status, notThere);
    EXPECT_EQ(RunBare("registry 'HKCU\\no such key'").status, notThere);
    EXPECT_EQ(RunBare("registry 'HKXX\\a'").status, wrongUsage);
    registry.DeleteKey(key.c_str());
}

} // namespace
