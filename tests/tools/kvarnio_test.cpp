// get, set and list, and what every subcommand shares.
#include <numeric>

#include "kvarnio.h"
#include "support/checksum.h"

namespace {

using namespace nlohmann::literals;
using namespace std::string_literals;

TEST_F(KvarnioTest, GetPrintsTheProjectsValueTheSharedOneOrTheDefault) {
    std::tuple<char const*, std::string, char const*> const cases[] = {
        {"get kvarnbok.par hskala", vag27, "200"},
        {"get KVARNBOK.PAR DELOMRADE", vag27, "Bro över Häljeån, östra landfästet"},
        {"get KLIPPBOK.PAR KBNAMN4", "", ""}, // its default is empty
        {"get KVARNBOK.CFG RITARE", "", "Åsa Öhrn"},
        {"get KVARNBOK.PAR QTSKALA --int", "", "-1"},
        {"get KVARNBOK.PAR FTSKALA --double", "", "0.2"},
    };
    for (auto const& [line, project, out] : cases) {
        Result const result = Run(line, project);
        EXPECT_EQ(result.out, std::string(out) + "\n") << line;
        EXPECT_EQ(result.err, "") << line;
        EXPECT_EQ(result.status, 0) << line;
    }
}

TEST_F(KvarnioTest, ListShowsEveryKeyWithItsSource) {
    std::string const file = Path("c/Projekt/Vag27/KVARNBOK.PAR");
    std::string const table = Run("list KVARNBOK.PAR", vag27).out;
    ExpectPart(table, "KEY            VALUE                               SOURCE\n");
    ExpectPart(table, "\nBREDDLSP       1.0                                 default\n");
    ExpectPart(table, "\nDELOMRADE      Bro över Häljeån, östra landfästet  " + file + "\n");

    Json const all = RunJson("list", vag27);
    auto const expect = [&all](char const* name, char const* key, char const* value,
                               std::string const& source) {
        Json const entry = {{"file", name}, {"key", key}, {"value", value}, {"source", source}};
        EXPECT_EQ(std::count(all.begin(), all.end(), entry), 1) << entry;
    };
    expect("KLIPPBOK.PAR", "KBNAMN2", "Borrvattenflöde", Path("c/Kvarnbok/Cfg/KLIPPBOK.PAR"));
    expect("JB23.PAR", "TRYCKSTEG", "3", Path("c/Kvarnbok/Cfg/JB23.PAR"));
    expect("KVARNBOK.CFG", "PLOTTER", "\\\\skrivare\\Färg A1", Path("c/Kvarnbok/KVARNBOK.CFG"));
    // Every default once, and what the project and the configuration add.
    EXPECT_EQ(all.size(), 78U + 5 + 52 + 22 + 11);
}

TEST_F(KvarnioTest, EveryBuiltInDefault) {
    m_folder.Write("tom/fil", "");
    Json const all = Json::parse(RunBare("list --json --home " + Quoted("tom")).out);
    std::vector<std::string> rows;
    for (Json const& entry : all) {
        rows.push_back(entry["file"].get<std::string>() + '\0' + entry["key"].get<std::string>() +
                       '\0' + entry["value"].get<std::string>() + '\0');
    }
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows.size(), 78U + 22 + 52);
    EXPECT_EQ(Checksum(std::accumulate(rows.begin(), rows.end(), ""s)), 0x6b0b2722330a1adeU);
    EXPECT_EQ(rows.front(), "JB23.PAR\0FLODESKALA\00050\0"s);
}

TEST_F(KvarnioTest, SetRewritesTheFileAndKeepsTheOldOneWhenLinesAreDropped) {
    std::string const name = "c/Projekt/Vag27/KVARNBOK.PAR";
    std::string const path = Path(name);
    std::string const keys = m_folder.Read(name);
    std::string const before = "; V\xE4g 27\r\n" + keys + "\r\n; 2026-04-17\r\n";
    m_folder.Write(name, before);
    std::string first = keys;
    first.replace(first.find("HSKALA=200"), 10, "HSKALA=250");

    Result result = Run("set KVARNBOK.PAR hskala 250", vag27);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, path + ": HSKALA=250 (was 200)\n");
    EXPECT_EQ(result.err,
              path + ":1: dropped, no \"=\": ; Väg 27\n" + path +
                  ":15: dropped, no \"=\": ; 2026-04-17\n" +
                  "kvarnio: dropped 2 lines and 1 blank line, which the format does not keep; "
                  "the old file is " +
                  path + ".bak\n");
    EXPECT_EQ(m_folder.Read(name), first);
    EXPECT_EQ(m_folder.Read(name + ".bak"), before);

    // Nothing is lost any more: no notes, and the copy stays.
    result = Run("set KVARNBOK.PAR Ort 'Åmål – 5 €' --json", vag27);
    EXPECT_EQ(result.err, "");
    Json expected = {{"source", path}, {"written", path}};
    expected.update(R"({"file": "KVARNBOK.PAR", "key": "Ort", "value": "Åmål – 5 €",
                        "backup": null, "dropped": [], "blankLinesDropped": 0})"_json);
    EXPECT_EQ(Json::parse(result.out), expected);
    EXPECT_EQ(m_folder.Read(name), first + "Ort=\xC5m\xE5l \x96 5 \x80\r\n");
    EXPECT_EQ(m_folder.Read(name + ".bak"), before);
    EXPECT_EQ(Run("set KVARNBOK.PAR ORT ''", vag27).out,
              path + ": Ort removed (was Åmål – 5 €); now without a value\n");
    EXPECT_EQ(m_folder.Read(name), first);
}

TEST_F(KvarnioTest, SetWritesTheFirstLineOfAKeyAlone) {
    std::string const path = Path("p/KVARNBOK.PAR");
    m_folder.Write("p/KVARNBOK.PAR", "A=\nA=1\nC=" + std::string(300, 'x') + "\nC=4\nD=5");
    EXPECT_EQ(RunJson("list KVARNBOK.PAR", "p").size(), 78U + 2); // C and D have values
    Result const result = Run("set KVARNBOK.PAR A 9", "p");
    ExpectPart(result.err, ":3: dropped, value over 258 characters: C=x");
    ExpectPart(result.err, "xxx...\n");
    EXPECT_EQ(result.out, path + ": A=9 (new)\n"); // its first line, without a value, was read
    EXPECT_EQ(Run("set KVARNBOK.PAR A ''", "p").out,
              path + ": A removed (was 9); now 1, from a later line\n");
}

TEST_F(KvarnioTest, SetWritesNumbersAsTheProgramsDo) {
    std::tuple<char const*, char const*, char const*> const cases[] = {
        {"HSKALA -1 --int", "Cfg/KVARNBOK.PAR", "HSKALA=MAX (was 100)"},
        {"U0 2 --double 3", "Cfg/KVARNBOK.PAR", "U0=2.000 (was 0.1, the default)"},
        {"SPARTID 7.25 --double 1", "KVARNBOK.CFG", "SPARTID=7.2 (was 10)"},
        {"SPARTID -1 --int", "KVARNBOK.CFG", "SPARTID=-1 (was 7.2)"},
        {"tryckskala -1 --int", "Cfg/JB23.PAR", "TRYCKSKALA=MAX (was 12)"},
    };
    for (auto const& [arguments, file, line] : cases) {
        std::filesystem::path const path = file;
        Result const result = Run("set " + path.filename().string() + ' ' + arguments);
        EXPECT_EQ(result.status, 0) << line;
        EXPECT_EQ(result.out, Path("c/Kvarnbok/" + path.string()) + ": " + line + "\n");
    }
    EXPECT_EQ(Run("set KLIPPBOK.PAR VFMAX 60", vag27).err,
              "kvarnio: the project has no KLIPPBOK.PAR of its own: the shared file was written\n");
}

TEST_F(KvarnioTest, AScaleIsWrittenToItsOwnLine) {
    std::string const name = "c/Kvarnbok/Cfg/JB23.PAR";
    std::tuple<char const*, char const*, char const*, char const*> const cases[] = {
        {"", "RPMSTEG", "100   50\r\n40   10\r\n30   10\r\n100   7\r\n", ""},
        {"1 2\n3\n", "KRAFTSKALA", "1 2\r\n3\r\n7   10\r\n", "had 2 of eleven lines; 1 with"},
        {"1 2 3\n4 5 6\n", "SJUNKSKALA", "7   2\r\n4 5 6\r\n",
         ":1: dropped, words after the step: 3"},
    };
    for (auto const& [content, key, written, note] : cases) {
        SCOPED_TRACE(key);
        m_folder.Write(name, content);
        if (*content == '\0') {
            std::filesystem::remove(m_folder / name);
        }
        Result const result = Run(std::string("set JB23.PAR ") + key + " 7");
        EXPECT_EQ(result.status, 0);
        ExpectPart(result.err, note);
        EXPECT_EQ(m_folder.Read(name), written);
    }
}

TEST_F(KvarnioTest, WhatCannotBeDoneIsRefusedWithItsReason) {
    std::filesystem::create_directories(m_folder / "p/KVARNBOK.PAR");
    std::string const shared = m_folder.Read("c/Kvarnbok/Cfg/KVARNBOK.PAR");
    ExpectRefused({
        {"get KVARNBOK.PAR HSKALE", notThere, "HSKALE has no value in KVARNBOK.PAR and no"},
        {"get KVARNBOK.PAR FONT --int", notThere, "is \"GEOTEXT\", not a whole number"},
        {"get KVARNBOK.PAR HSKALA --project finns-ej", notThere, "no folder finns-ej"},
        {"get KVARNBOK.PAR HSKALA --project " + Quoted("p"), notThere,
         "KVARNBOK.PAR cannot be read"},
        {"set JB23.PAR SKALA 5", notThere, "SKALA has no value in JB23.PAR and no"},
        {"set JB23.PAR QTSKALA ''", wrongUsage, "VALUE must be one word"},
        {"set KVARNBOK.PAR " + std::string(40, 'K') + " 5", notThere, "KEY has 40 characters"},
        {"set KVARNBOK.PAR A " + std::string(259, 'v'), notThere, "VALUE has 259 characters"},
        {"set KVARNBOK.PAR DSKALA ''", notThere, "nothing to remove: DSKALA"},
        {"set KVARNBOK.PAR ORT Ωsterås", wrongUsage, "\"Ωsterås\" holds a letter outside"},
        {"set KVARNBOK.PAR A=B 5", wrongUsage, "holds a \"=\""},
        {"set KVARNBOK.PAR DSKALA 1,5 --double 1", wrongUsage, "is a point"},
        {"set KVARNBOK.PAR HSKALA 2.5 --int", wrongUsage, "is not a whole number"},
        {"get KODFIL.DAT HSKALA", wrongUsage, "FILE must be one of KVARNBOK.PAR, "},
        {"get KVARNBOK.PAR HSKALA --project ''", wrongUsage, "DIR is empty"},
        {"get KVARNBOK.PAR", wrongUsage, "KEY is required"},
        {"hitta", wrongUsage, "there is no subcommand \"hitta\""},
    });
    EXPECT_EQ(m_folder.Read("c/Kvarnbok/Cfg/KVARNBOK.PAR"), shared);
    EXPECT_FALSE(std::filesystem::exists(m_folder / "c/Kvarnbok/Cfg/KVARNBOK.PAR.bak"));
}

TEST_F(KvarnioTest, WithNoFileToWriteToTheFoldersAreNamed) {
    m_folder.Write("tom/fil", "");
    std::string const home = " --home " + Quoted("tom");
    Result const result = RunBare("set KVARNBOK.PAR HSKALA 5" + home + " --project " + Quoted("c"));
    EXPECT_EQ(result.status, notThere);
    EXPECT_EQ(result.err,
              "kvarnio: nothing was written: there is no KVARNBOK.PAR to write to\n"
              "  project folder: " +
                  Path("c") + "\n  CFG folder:     " + Path("tom") +
                  "\n  main folder:    " + Path("tom") +
                  "\nCreate an empty KVARNBOK.PAR in the folder that shall have it, and try "
                  "again.\n");
    EXPECT_EQ(RunBare("list KVARNBOK.CFG" + home).status, notThere);
}

TEST_F(KvarnioTest, HelpIsNoError) {
    Result const help = RunBare("set --help");
    EXPECT_EQ(help.status, 0);
    ExpectPart(help.out, "kvarnio set [OPTIONS] FILE KEY VALUE");
}

} // namespace
