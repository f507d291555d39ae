// codes: the code files, changed through the library's passes.
#include "kvarnio.h"

#include "text/codepage.h"

namespace {

class CodesTest : public KvarnioTest {
  protected:
    Result Codes(Arguments arguments, std::string const& project = {}) const {
        arguments.insert(arguments.begin(), "codes");
        return Run(arguments, project);
    }
    std::string InVag27(char const* name) const { return m_folder.Read(vag27 + '/' + name); }
    bool HasCopy(std::string const& name) const {
        return std::filesystem::exists(m_folder / (name + ".bak"));
    }
};

std::string Cp1252(char const* utf8) {
    return *kvarn::FromUtf8(utf8);
}

TEST_F(CodesTest, ListShowsTheFileInForceAsProgramsReadIt) {
    Result const table = Codes({"list", "miljkod"}, vag27);
    EXPECT_EQ(table.err, "");
    EXPECT_EQ(table.out.find(Path("c/Projekt/Vag27/MILJKOD.DAT") + "\nSECTION  CODE"), 0U);
    EXPECT_NE(table.out.find("\n3        SO4   Sulfat i grundvatten, mätt på plats  800  100\n"),
              std::string::npos) // its letters are DOS letters
        << table.out;

    Json const lines = Json::parse(Codes({"list", "linkod", "--json"}).out);
    EXPECT_EQ(lines["file"], Path("c/Kvarnbok/Cfg/LINKOD.PAR"));
    EXPECT_EQ(lines["place"], "CFG");
    EXPECT_EQ(lines["codes"].size(), 8U);
    EXPECT_EQ(lines["codes"][6], Json({{"code", "PV10"},
                                       {"word", "HELDRAGEN"},
                                       {"number", 0.7},
                                       {"integer", 2},
                                       {"text", "Planerad väg, 10 m bred"},
                                       {"family", "PV up to 99"}}));
    EXPECT_EQ(lines["codes"][7]["family"], "PV from 100");
    EXPECT_EQ(lines["codes"][0]["family"], nullptr);

    Json const stamp =
        Json::parse(Codes({"list", "stamp", Path("c/Kvarnbok/Cfg/STAMPEL.PAR"), "--json"}).out);
    EXPECT_EQ(stamp["codes"][1]["word1"], "BESTÄLLARE");
    EXPECT_EQ(stamp["codes"][4]["num3"], 3); // left out in the file
}

TEST_F(CodesTest, LinesThatAreNotReadAreTold) {
    std::string const path = Path(hamnkajen + "/LINKOD.PAR");
    Result const result = Codes({"list", "linkod"}, hamnkajen);
    EXPECT_EQ(result.err.find(path +
                              ":2: not read, fewer than three values, code, word and number: "
                              "SPONT STRECKAD\n"),
              0U)
        << result.err;
    // A code of five letters: the library's message has no line, the tool's has.
    EXPECT_EQ(Codes({"list", "miljkod"}, hamnkajen).err.find("Fel rad"), std::string::npos);
}

TEST_F(CodesTest, AChangeKeepsHeaderOrderAndTheOtherRecords) {
    struct {
        std::string name;
        Arguments add;
        std::string before; // the line that the new one comes before
        std::string line;
        Arguments set;
        std::string changed;
        Arguments remove;
    } const cases[] = {
        {"c/Kvarnbok/Cfg/KODFIL.DAT",
         {"kodfil", "Tj", "Tjäle"},
         "*\r\n",
         "Tj Tjäle\r\n",
         {"kodfil", "Tj", "Tjällossning"},
         "Tj Tjällossning\r\n",
         {"kodfil", "Tj"}},
        {"c/Kvarnbok/Cfg/MILJKOD.DAT",
         {"miljkod", "2", "BR", "Bruten analys"},
         "*\r\nFK ",
         "BR Bruten analys\r\n",
         {"miljkod", "2", "BR", "max=3 steg=4"},
         "BR max=3 steg=4\r\n",
         {"miljkod", "2", "BR"}},
        {"c/Kvarnbok/Cfg/MILJKOD.DAT",
         {"miljkod", "3", "X", "Åämne, steg= max", "--max", "0"},
         "*\r\n",
         "X Åämne, steg= max max=0 steg=20\r\n",
         {"miljkod", "3", "X", "Ämne", "--step", "100000"},
         "X Ämne max=0 steg=100000\r\n",
         {"miljkod", "3", "X"}},
        {"c/Kvarnbok/Cfg/LINKOD.PAR",
         {"linkod", "PV20", "HEL", "0.350", "--text", "3 körfält"},
         "*\r\n",
         "PV20 HEL 0.35 0" + std::string(34, ' ') + "3 körfält\r\n",
         {"linkod", "PV20", "HEL", "1e3", "-2"},
         "PV20 HEL 1000 -2" + std::string(33, ' ') + "3 körfält\r\n",
         {"linkod", "PV20"}},
        {"c/Kvarnbok/Cfg/STAMPEL.PAR",
         {"stamp", Path("c/Kvarnbok/Cfg/STAMPEL.PAR"), "ÖRT", "x", "-1.5", "2"},
         "*\r\n",
         "ÖRT x -1.5 2 3\r\n",
         {"stamp", Path("c/Kvarnbok/Cfg/STAMPEL.PAR"), "ÖRT", "y", "1", "2", "4"},
         "ÖRT y 1 2 4\r\n",
         {"stamp", Path("c/Kvarnbok/Cfg/STAMPEL.PAR"), "ÖRT"}},
    };
    auto const with = [](Arguments arguments, char const* action) {
        arguments.insert(arguments.begin(), action);
        return arguments;
    };
    // A third number of 3 is written where it was left out.
    std::string stamp = m_folder.Read("c/Kvarnbok/Cfg/STAMPEL.PAR");
    m_folder.Write("c/Kvarnbok/Cfg/STAMPEL.PAR", stamp.insert(stamp.find(" 29\r\n") + 3, " 3"));
    for (auto const& row : cases) {
        std::string const before = m_folder.Read(row.name);
        std::string expected = before;
        std::size_t const place = expected.rfind(row.before);
        expected.insert(place, Cp1252(row.line.c_str()));
        Result result = Codes(with(row.add, "add"));
        EXPECT_EQ(result.err + result.out.substr(0, result.out.find(' ')), Path(row.name) + ":");
        EXPECT_EQ(m_folder.Read(row.name), expected);
        EXPECT_EQ(Codes(with(row.add, "add")).status, 1);

        expected.replace(place, Cp1252(row.line.c_str()).size(), Cp1252(row.changed.c_str()));
        EXPECT_EQ(Codes(with(row.set, "set")).status, 0) << row.changed;
        EXPECT_EQ(m_folder.Read(row.name), expected);

        EXPECT_EQ(Codes(with(row.remove, "remove")).status, 0);
        EXPECT_EQ(m_folder.Read(row.name), before);
        EXPECT_EQ(Codes(with(row.remove, "remove")).status, 1);
        EXPECT_EQ(Codes(with(row.set, "set")).status, 1);
        EXPECT_FALSE(HasCopy(row.name)); // nothing was lost
    }
}

TEST_F(CodesTest, WhatIsLostIsNamedAndKept) {
    std::string const name = hamnkajen + "/MILJKOD.DAT";
    std::string const before = m_folder.Read(name);
    Result const result = Codes({"remove", "miljkod", "3", "HG", "--json"}, hamnkajen);
    EXPECT_EQ(result.status, 0) << result.err;
    Json const report = Json::parse(result.out);
    EXPECT_EQ(report["was"]["max"], 100);
    EXPECT_EQ(report["now"], nullptr);
    EXPECT_EQ(report["backup"], Path(name) + ".bak");
    ASSERT_EQ(report["dropped"].size(), 3U) << report; // not the header: it is put back
    EXPECT_EQ(report["dropped"][0], Json({{"line", 6},
                                          {"why", "a code over four characters"},
                                          {"text", "SEDIM Sedimentprov"}}));
    EXPECT_EQ(m_folder.Read(name + ".bak"), before);
    EXPECT_EQ(m_folder.Read(name),
              Cp1252("Miljökoder för Hamnkajen\r\n*\r\nOLD Gammal lista, används ej\r\n*\r\n"
                     "X okänd metod, sammanställning\r\n*\r\nTOLK Tolkad klassificering\r\n*\r\n"
                     "FK Föroreningsklass max=6 steg=1\r\n"
                     "TBT Tributyltenn, µg/kg TS max=100 steg=5\r\n"
                     "PCB Summa PCB, mg/kg TS max=100 steg=10\r\n"
                     "CD Kadmium, mg/kg T max=12 steg=2\r\n*\r\n"));
}

TEST_F(CodesTest, ABadFileIsWrittenWithoutHarm) {
    struct {
        char const* name;
        std::string content;
        Arguments add;
        std::string written;
    } const cases[] = {
        {"MILJKOD.DAT",
         "A\n*\nb",
         {"miljkod", "1", "N", "t"},
         "A\r\n*\r\nb\r\n*\r\nN t\r\n*\r\n*\r\n*\r\n"},
        {"MILJKOD.DAT",
         "*\n*\n *X t\n",
         {"miljkod", "1", "N", "t"},
         "*\r\n*\r\n *X t\r\nN t\r\n*\r\n*\r\n*\r\n"},
        {"KODFIL.DAT", "*\n*\n*a b\n", {"kodfil", "N", "t"}, "*\r\n*a b\r\nN t\r\n*\r\n"},
        {"LINKOD.PAR",
         " *a b 1 99999999999\n",
         {"linkod", "N", "t", "1"},
         " *a b 1 2147483647" + std::string(31, ' ') + "\r\nN t 1 0" + std::string(42, ' ') +
             "\r\n*\r\n"},
    };
    for (auto const& row : cases) {
        m_folder.Write(std::string("p/") + row.name, row.content);
        Arguments arguments = row.add;
        arguments.insert(arguments.begin(), "add");
        EXPECT_EQ(Codes(arguments, "p").status, 0) << row.content;
        EXPECT_EQ(m_folder.Read(std::string("p/") + row.name), row.written);
    }
}

TEST_F(CodesTest, UpdateAddsWhatProgramsRelyOn) {
    EXPECT_EQ(Codes({"update"}, vag27).out,
              Path("c/Projekt/Vag27/MILJKOD.DAT") + ": no code was missing\n");
    m_folder.Write("p/MILJKOD.DAT", "Hamnen\n*\n*\nX x\n\n*\n*\nLANGT namn\n*\n");
    std::string const path = Path("p/MILJKOD.DAT");
    Result const result = Codes({"update"}, "p");
    EXPECT_EQ(result.out, path + ": added 2 TOLK Tolkad klassificering\n" + path +
                              ": added 3 FK Föroreningsklass max=6 step=1\n");
    EXPECT_EQ(result.err.find(path + ":8: dropped, a code over four characters: LANGT namn\n"), 0U);
    EXPECT_EQ(m_folder.Read("p/MILJKOD.DAT"),
              Cp1252("Hamnen\r\n*\r\n*\r\nX x\r\n*\r\nTOLK Tolkad klassificering\r\n*\r\n"
                     "FK Föroreningsklass max=6 steg=1\r\n*\r\n"));
    EXPECT_TRUE(HasCopy("p/MILJKOD.DAT"));
}

TEST_F(CodesTest, WhatCannotBeDoneIsRefusedAndNothingIsWritten) {
    m_folder.Write("p/KODFIL.DAT", "Le Lera\r\n");
    constexpr int notThere = 1;
    constexpr int wrongUsage = 2;
    std::string const stamp = Path("c/Kvarnbok/Cfg/STAMPEL.PAR");
    struct {
        Arguments arguments;
        int status;
        char const* reason;
    } const cases[] = {
        {{"add", "kodfil", "Le", "Lera"}, notThere, "no line \"*\", which ends its header"},
        {{"add", "kodfil", "L e", "Lera"}, wrongUsage, "CODE \"L e\" is not one word"},
        {{"add", "kodfil", "Le", "Lera grå"}, wrongUsage, "TEXT \"Lera grå\" is not one word"},
        {{"add", "kodfil", "Le", "Ω"}, wrongUsage, "outside code page 1252"},
        {{"add", "kodfil", "", "Lera"}, wrongUsage, "is not one word"},
        {{"add", "miljkod", "1", "*A", "t"}, wrongUsage, "begins with \"*\""},
        {{"add", "miljkod", "1", "ABCDE", "t"}, wrongUsage, "more than four characters"},
        {{"add", "miljkod", "4", "A", "t"}, wrongUsage, "SECTION must lie from 1 to 3"},
        {{"add", "miljkod", "3", "A", "t", "--max", "100001"}, wrongUsage, "MAX must lie from 0"},
        {{"add", "miljkod", "3", "A", "t", "--step", "0"}, wrongUsage, "STEP must lie from 1"},
        {{"add", "miljkod", "2", "A", "t", "--step", "5"}, wrongUsage, "only codes of section 3"},
        {{"add", "miljkod", "2", "A", "it’s"}, wrongUsage, "would be read as \"itÆs\""},
        {{"add", "miljkod", "2", "A", "  "}, wrongUsage, "TEXT is empty"},
        {{"add", "linkod", "A", "b", "2,5"}, wrongUsage, "the decimal sign is a point"},
        {{"add", "linkod", "A", std::string(45, 'b'), "2"}, wrongUsage, "have 51 characters"},
        {{"add", "linkod", "VAGK", "b", "2"}, notThere, "VAGK stands in "},
        {{"set", "linkod", "vagk", "b", "2"}, notThere, "vagk does not stand in "},
        {{"remove", "miljkod", "2", "FK"}, notThere, "FK in section 2 does not stand in "},
        {{"list", "stamp", Path("c/finns-ej.par")}, notThere, "finns-ej.par cannot be read"},
        {{"list", "stamp"}, wrongUsage, "FILE is required"},
        {{"add", "stamp", stamp, "A", "b", "1"}, wrongUsage, "NUM2 is required"},
        {{"list", "bergkod"}, wrongUsage, "there is no subcommand \"bergkod\""},
    };
    for (auto const& row : cases) {
        Result const result = Codes(row.arguments, "p");
        EXPECT_EQ(result.status, row.status) << row.reason;
        EXPECT_NE(result.err.find(row.reason), std::string::npos) << result.err << row.reason;
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(m_folder.Read("p/KODFIL.DAT"), "Le Lera\r\n");
    for (std::string const name : {"KODFIL.DAT", "MILJKOD.DAT", "LINKOD.PAR", "STAMPEL.PAR"}) {
        EXPECT_EQ(m_folder.Read("c/Kvarnbok/Cfg/" + name),
                  ReadBytes(std::filesystem::path(SAMPLES) / "drives/c/Kvarnbok/Cfg" / name));
        EXPECT_FALSE(HasCopy("c/Kvarnbok/Cfg/" + name));
    }
    m_folder.Write("tom/fil", "");
    Result const none = RunBare({"codes", "list", "kodfil", "--home", Path("tom")});
    EXPECT_EQ(none.status, 1);
    EXPECT_NE(none.err.find("there is no KODFIL.DAT\n  project folder: none"), std::string::npos);
}

} // namespace
