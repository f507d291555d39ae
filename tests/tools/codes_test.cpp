// codes: the code files, changed through the library's passes.
#include "kvarnio.h"

#include "text/codepage.h"

namespace {

using namespace nlohmann::literals;

class CodesTest : public KvarnioTest {
  protected:
    bool HasCopy(std::string const& name) const {
        return std::filesystem::exists(m_folder / (name + ".bak"));
    }
    std::string const stampel = Quoted("c/Kvarnbok/Cfg/STAMPEL.PAR");
};

std::string Cp1252(std::string const& utf8) {
    return *kvarn::FromUtf8(utf8);
}

TEST_F(CodesTest, ListShowsTheFileInForceAsProgramsReadIt) {
    Result const table = Run("codes list miljkod", vag27);
    EXPECT_EQ(table.err, "");
    EXPECT_EQ(table.out.find(Path("c/Projekt/Vag27/MILJKOD.DAT") + "\nSECTION  CODE"), 0U);
    // Its letters are DOS letters.
    ExpectPart(table.out, "\n3        SO4   Sulfat i grundvatten, mätt på plats  800  100\n");

    Json const lines = RunJson("codes list linkod");
    EXPECT_EQ(lines["file"], Path("c/Kvarnbok/Cfg/LINKOD.PAR"));
    EXPECT_EQ(lines["place"], "CFG");
    EXPECT_EQ(lines["codes"].size(), 8U);
    EXPECT_EQ(lines["codes"][6], R"({"code": "PV10", "word": "HELDRAGEN", "number": 0.7,
        "integer": 2, "text": "Planerad väg, 10 m bred", "family": "PV up to 99"})"_json);
    EXPECT_EQ(lines["codes"][7]["family"], "PV from 100");
    EXPECT_EQ(lines["codes"][0]["family"], nullptr);

    Json const stamp = RunJson("codes list stamp " + stampel);
    EXPECT_EQ(stamp["codes"][4]["num3"], 3); // left out in the file

    // Lines that are not read are told.
    EXPECT_EQ(Run("codes list linkod", hamnkajen)
                  .err.find(Path(hamnkajen + "/LINKOD.PAR") +
                            ":2: not read, fewer than three values, code, word and number: "
                            "SPONT STRECKAD\n"),
              0U);
}

TEST_F(CodesTest, AChangeKeepsHeaderOrderAndTheOtherRecords) {
    struct {
        char const* file;
        std::string kind;
        char const* key;
        char const* added;
        char const* before; // the line that the new one comes before
        std::string line;
        char const* set;
        std::string changed;
    } const cases[] = {
        {"KODFIL.DAT", "kodfil", " Tj", " Tjäle", "*\r\n", "Tj Tjäle\r\n", " Tjällossning",
         "Tj Tjällossning\r\n"},
        {"MILJKOD.DAT", "miljkod", " 2 BR", " 'Bruten analys'", "*\r\nFK ", "BR Bruten analys\r\n",
         " 'max=3 steg=4'", "BR max=3 steg=4\r\n"},
        {"MILJKOD.DAT", "miljkod", " 3 X", " 'Åämne, steg= max' --max 0", "*\r\n",
         "X Åämne, steg= max max=0 steg=20\r\n", " Ämne --step 100000",
         "X Ämne max=0 steg=100000\r\n"},
        {"LINKOD.PAR", "linkod", " PV20", " HEL 0.350 --text '3 körfält'", "*\r\n",
         "PV20 HEL 0.35 0                                  3 körfält\r\n", " HEL 1e3 -2",
         "PV20 HEL 1000 -2                                 3 körfält\r\n"},
        {"STAMPEL.PAR", "stamp " + stampel, " ÖRT", " x -1.5 2", "*\r\n", "ÖRT x -1.5 2 3\r\n",
         " y 1 2 4", "ÖRT y 1 2 4\r\n"},
    };
    // A third number of 3 is written where it was left out.
    std::string stamp = m_folder.Read("c/Kvarnbok/Cfg/STAMPEL.PAR");
    m_folder.Write("c/Kvarnbok/Cfg/STAMPEL.PAR", stamp.insert(stamp.find(" 29\r\n") + 3, " 3"));
    for (auto const& row : cases) {
        SCOPED_TRACE(row.line);
        std::string const name = std::string("c/Kvarnbok/Cfg/") + row.file;
        std::string const before = m_folder.Read(name);
        std::string const which = row.kind + row.key;
        std::string expected = before;
        std::size_t const place = expected.rfind(row.before);
        expected.insert(place, Cp1252(row.line));
        Result const result = Run("codes add " + which + row.added);
        EXPECT_EQ(result.err + result.out.substr(0, result.out.find(' ')), Path(name) + ":");
        EXPECT_EQ(m_folder.Read(name), expected);
        EXPECT_EQ(Run("codes add " + which + row.added).status, notThere);

        expected.replace(place, Cp1252(row.line).size(), Cp1252(row.changed));
        EXPECT_EQ(Run("codes set " + which + row.set).status, 0);
        EXPECT_EQ(m_folder.Read(name), expected);

        EXPECT_EQ(Run("codes remove " + which).status, 0);
        EXPECT_EQ(m_folder.Read(name), before);
        EXPECT_EQ(Run("codes remove " + which).status, notThere);
        EXPECT_EQ(Run("codes set " + which + row.set).status, notThere);
        EXPECT_TRUE(HasCopy(name));
    }
}

TEST_F(CodesTest, WhatIsLostIsNamedAndKept) {
    std::string const name = hamnkajen + "/MILJKOD.DAT";
    std::string const before = m_folder.Read(name);
    Json const report = RunJson("codes remove miljkod 3 HG", hamnkajen);
    EXPECT_EQ(report["was"]["max"], 100);
    EXPECT_EQ(report["now"], nullptr);
    EXPECT_EQ(report["backup"], Path(name) + ".bak");
    ASSERT_EQ(report["dropped"].size(), 3U) << report; // not the header: it is put back
    EXPECT_EQ(report["dropped"][0], R"({"line": 6, "why": "a code over four characters",
                                        "text": "SEDIM Sedimentprov"})"_json);
    EXPECT_EQ(m_folder.Read(name + ".bak"), before);
    EXPECT_EQ(m_folder.Read(name).find("SEDIM"), std::string::npos);
}

TEST_F(CodesTest, ABadFileIsWrittenWithoutHarm) {
    std::tuple<std::string, char const*, std::string, std::string> const cases[] = {
        {"KODFIL.DAT", "*\n*\n*a b\n", "kodfil N t", "*\r\n*a b\r\nN t\r\n*\r\n"},
        {"LINKOD.PAR", " *a b 1 99999999999\n", "linkod N t 1",
         " *a b 1 2147483647" + std::string(31, ' ') + "\r\nN t 1 0" + std::string(42, ' ') +
             "\r\n*\r\n"},
    };
    for (auto const& [name, content, add, written] : cases) {
        m_folder.Write("p/" + name, content);
        EXPECT_EQ(Run("codes add " + add, "p").status, 0) << content;
        EXPECT_EQ(m_folder.Read("p/" + name), written);
    }
}

TEST_F(CodesTest, UpdateAddsWhatProgramsRelyOn) {
    EXPECT_EQ(Run("codes update", vag27).out,
              Path("c/Projekt/Vag27/MILJKOD.DAT") + ": no code was missing\n");
    m_folder.Write("p/MILJKOD.DAT", "Hamnen\n*\n*\nX x\n\n*\n*\nLANGT namn\n*\n");
    std::string const path = Path("p/MILJKOD.DAT");
    Result const result = Run("codes update", "p");
    EXPECT_EQ(result.out, path + ": added 2 TOLK Tolkad klassificering\n" + path +
                              ": added 3 FK Föroreningsklass max=6 step=1\n");
    EXPECT_EQ(result.err.find(path + ":8: dropped, a code over four characters: LANGT namn\n"), 0U);
    EXPECT_EQ(m_folder.Read("p/MILJKOD.DAT").find("Hamnen\r\n*\r\n*\r\nX x\r\n*\r\nTOLK "), 0U);
    EXPECT_TRUE(HasCopy("p/MILJKOD.DAT"));
}

TEST_F(CodesTest, WhatCannotBeDoneIsRefusedAndNothingIsWritten) {
    m_folder.Write("p/KODFIL.DAT", "Le Lera\r\n");
    m_folder.Write("tom/fil", "");
    std::string const longWord(45, 'b');
    ExpectRefused(
        {
            {"codes add kodfil Le Lera", notThere, "no line \"*\", which ends its header"},
            {"codes add kodfil 'L e' Lera", wrongUsage, "CODE \"L e\" is not one word"},
            {"codes add kodfil Le 'Lera grå'", wrongUsage, "TEXT \"Lera grå\" is not one word"},
            {"codes add kodfil Le Ω", wrongUsage, "outside code page 1252"},
            {"codes add miljkod 1 '*A' t", wrongUsage, "begins with \"*\""},
            {"codes add miljkod 1 ABCDE t", wrongUsage, "more than four characters"},
            {"codes add miljkod 4 A t", wrongUsage, "SECTION must lie from 1 to 3"},
            {"codes add miljkod 3 A t --max 100001", wrongUsage, "MAX must lie from 0"},
            {"codes add miljkod 3 A t --step 0", wrongUsage, "STEP must lie from 1"},
            {"codes add miljkod 2 A t --step 5", wrongUsage, "only codes of section 3"},
            {"codes add miljkod 2 A it’s", wrongUsage, "would be read as \"itÆs\""},
            {"codes add miljkod 2 A '  '", wrongUsage, "TEXT is empty"},
            {"codes add linkod A b 2,5", wrongUsage, "the decimal sign is a point"},
            {"codes add linkod A " + longWord + " 2", wrongUsage, "have 51 characters"},
            {"codes add linkod VAGK b 2", notThere, "VAGK stands in "},
            {"codes set linkod vagk b 2", notThere, "vagk does not stand in "},
            {"codes list stamp finns-ej.par", notThere, "there is no file "},
            {"codes list stamp", wrongUsage, "FILE is required"},
            {"codes add stamp " + stampel + " A b 1", wrongUsage, "NUM2 is required"},
            {"codes list bergkod", wrongUsage, "there is no subcommand \"bergkod\""},
        },
        "p");
    EXPECT_EQ(m_folder.Read("p/KODFIL.DAT"), "Le Lera\r\n");
    for (std::string const name : {"KODFIL.DAT", "MILJKOD.DAT", "LINKOD.PAR", "STAMPEL.PAR"}) {
        EXPECT_EQ(m_folder.Read("c/Kvarnbok/Cfg/" + name),
                  ReadBytes(std::filesystem::path(SAMPLES) / "drives/c/Kvarnbok/Cfg" / name));
        EXPECT_FALSE(HasCopy("c/Kvarnbok/Cfg/" + name));
    }
    Result const none = RunBare("codes list kodfil --home " + Quoted("tom"));
    EXPECT_EQ(none.status, notThere);
    ExpectPart(none.err, "there is no KODFIL.DAT\n  project folder: none");
}

} // namespace
