// diff: settings and codes of two projects, or of a project and the office.
#include "kvarnio.h"

namespace {

class DiffTest : public KvarnioTest {
  protected:
    DiffTest() {
        for (std::string const project : {"a/", "b/"}) {
            m_folder.Write(project + "KVARNBOK.PAR", "HSKALA=100\r\nOrt=\xC5re\r\n");
            m_folder.Write(project + "KODFIL.DAT", "*\r\n*\r\nLe Lera\r\nSi Silt\r\n");
        }
    }
    // The rows of the differences, without their sources.
    Json Differences(std::string const& projects) const {
        auto const value = [](Json const& held) { return held.is_null() ? held : held["value"]; };
        Json rows = Json::array();
        for (Json const& row : RunJson("diff " + projects)) {
            rows.push_back({row["file"], row["name"], value(row["first"]), value(row["second"])});
        }
        return rows;
    }

    std::string const both = Quoted("a") + ' ' + Quoted("b");
};

TEST_F(DiffTest, NamesWhatOneHasOtherwise) {
    Result const same = Run("diff " + both);
    EXPECT_EQ(same.out, "no differences\n");
    EXPECT_EQ(same.status, 0);

    // The scale is the default, and the key's case does not matter.
    m_folder.Write("b/KVARNBOK.PAR", "ORT=\xC5re\r\nLSKALA=250\r\nNYCKEL=1\r\n");
    m_folder.Write("b/KODFIL.DAT", "*\r\n*\r\nSi Silt\r\nLe Ler\r\nGr Grus\r\n");
    EXPECT_EQ(Differences(both), Json::parse(R"([
        ["KVARNBOK.PAR", "LSKALA", "100", "250"],
        ["KVARNBOK.PAR", "NYCKEL", null, "1"],
        ["KODFIL.DAT", "Le", {"code": "Le", "text": "Lera"}, {"code": "Le", "text": "Ler"}],
        ["KODFIL.DAT", "Gr", null, {"code": "Gr", "text": "Grus"}]])"));
    Result const table = Run("diff " + both);
    EXPECT_EQ(table.status, notThere);
    EXPECT_EQ(table.out, "FILE          NAME    a                  b\n"
                         "KVARNBOK.PAR  LSKALA  100 (default)      250 (project)\n"
                         "KVARNBOK.PAR  NYCKEL  -                  1 (project)\n"
                         "KODFIL.DAT    Le      Le Lera (project)  Le Ler (project)\n"
                         "KODFIL.DAT    Gr      -                  Gr Grus (project)\n");
}

TEST_F(DiffTest, TheOtherIsTheOfficeWhenNoneIsNamed) {
    m_folder.Write("c/Kvarnbok/Cfg/KVARNBOK.PAR", "HSKALA=50\r\nORT=\xC5re\r\n");
    Json const rows = RunJson("diff " + Quoted("a"));
    EXPECT_EQ(
        rows[0],
        Json({{"file", "KVARNBOK.PAR"},
              {"name", "HSKALA"},
              {"first", {{"value", "100"}, {"source", Path("a/KVARNBOK.PAR")}}},
              {"second", {{"value", "50"}, {"source", Path("c/Kvarnbok/Cfg/KVARNBOK.PAR")}}}}));
    EXPECT_EQ(rows[1]["file"], "KODFIL.DAT"); // what neither project has of its own is the same
    ExpectRefused({{"diff " + Quoted("no"), notThere, "there is no folder"}});
}

} // namespace
