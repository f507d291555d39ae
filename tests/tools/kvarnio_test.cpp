// get, set and list, and what every subcommand shares.
#include <map>
#include <numeric>

#include "kvarnio.h"
#include "support/checksum.h"

namespace {

using namespace nlohmann::literals;
using namespace std::string_literals;

TEST_F(KvarnioTest, GetPrintsTheProjectsValueTheSharedOneOrTheDefault) {
    std::tuple<char const*, std::string, char const*> const cases[] = {
        {"get kvarnbok.par hskala", vag27, "200"},
        {"get KVARNBOK.PAR MTRLKOD", vag27, "Bro över Häljeån, östra landfästet"},
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
    ExpectPart(table, "\nMTRLKOD        Bro över Häljeån, östra landfästet  " + file + "\n");

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
    EXPECT_EQ(all.size(), 78U + 52 + 22 + 11);
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
                  ":11: dropped, no \"=\": ; 2026-04-17\n" +
                  "kvarnio: dropped 2 lines and 1 blank line, which the format does not keep; "
                  "the old file is " +
                  path + ".bak\n");
    EXPECT_EQ(m_folder.Read(name), first);
    EXPECT_EQ(m_folder.Read(name + ".bak"), before);

    // Nothing is lost any more: no notes.
    result = Run("set KVARNBOK.PAR Ort 'Åmål – 5 €' --json --new", vag27);
    EXPECT_EQ(result.err, "");
    Json expected = {{"source", path}, {"written", path}, {"backup", path + ".bak"}};
    expected.update(R"({"file": "KVARNBOK.PAR", "key": "Ort", "value": "Åmål – 5 €",
                        "dropped": [], "blankLinesDropped": 0})"_json);
    EXPECT_EQ(Json::parse(result.out), expected);
    EXPECT_EQ(m_folder.Read(name), first + "Ort=\xC5m\xE5l \x96 5 \x80\r\n");
    EXPECT_EQ(m_folder.Read(name + ".bak2"), before); // the dropped lines are nowhere else
    EXPECT_EQ(Run("set KVARNBOK.PAR ORT ''", vag27).out,
              path + ": Ort removed (was Åmål – 5 €); now without a value\n");
    EXPECT_EQ(m_folder.Read(name), first);
}

TEST_F(KvarnioTest, SetRefusesWhatACheckWouldFind) {
    std::string const name = vag27 + "/KVARNBOK.PAR";
    std::string const before = m_folder.Read(name);
    ExpectRefused({{"set KVARNBOK.PAR HSKALA 1,5", wrongUsage, "--force writes it all the same"},
                   {"set KVARNBOK.PAR HSKALA -5 --int", wrongUsage, "below what the key can be"},
                   {"set KVARNBOK.PAR PLANLAGER 1", wrongUsage, "where JA or NEJ belongs"},
                   {"set KVARNBOK.PAR HSKAL 5", wrongUsage, "did you mean HSKALA?"},
                   {"set KVARNBOK.PAR NYTT 5", wrongUsage, "--new writes it all the same"}},
                  vag27);
    Result const dry = Run("set KVARNBOK.PAR HSKALA 5 --dry-run", vag27);
    EXPECT_EQ(dry.out, "would be written: " + Path(name) + ": HSKALA=5 (was 200)\n");
    EXPECT_EQ(m_folder.Read(name), before);
    EXPECT_FALSE(std::filesystem::exists(m_folder / (name + ".bak")));
    EXPECT_EQ(Run("set KVARNBOK.PAR HSKALA 1,5 --force", vag27).status, 0);
    std::string const home = " --home " + Quoted("c/Kvarnbok") + " --project " + Quoted(vag27);
    EXPECT_EQ(RunBare("set KVARNBOK.PAR FONT -" + home, "Åsa\r\n").status, 0);
    EXPECT_EQ(Run("get KVARNBOK.PAR FONT", vag27).out, "Åsa\n");
}

TEST_F(KvarnioTest, UndoTakesEachChangeBack) {
    std::string const codes = vag27 + "/KODFIL.DAT";
    std::string const untouched = m_folder.Read(codes);
    EXPECT_EQ(Run("undo " + Quoted(codes)).status, notThere); // nothing was changed
    EXPECT_EQ(Run("codes add kodfil Ny Nytt --dry-run", vag27).status, 0);
    EXPECT_EQ(m_folder.Read(codes), untouched);
    for (char const* change :
         {"set KVARNBOK.PAR HSKALA 333", "codes add kodfil Ny Nytt", "codes set kodfil Le Ler",
          "codes remove kodfil Le", "local create --overwrite"}) {
        std::string const name = *change == 's' ? vag27 + "/KVARNBOK.PAR" : codes;
        std::string const before = m_folder.Read(name);
        std::string const undo = "undo " + Quoted(name);
        SCOPED_TRACE(change);
        EXPECT_EQ(Run(change, vag27).status, 0);
        std::string const after = m_folder.Read(name);
        EXPECT_NE(after, before);
        EXPECT_EQ(Run(undo + " --dry-run").status, 0);
        EXPECT_EQ(m_folder.Read(name), after);
        EXPECT_EQ(Run(undo).status, 0);
        EXPECT_EQ(m_folder.Read(name), before);
        EXPECT_EQ(Run(undo).status, 0); // and back
        EXPECT_EQ(m_folder.Read(name), after);
        EXPECT_EQ(Run(undo).status, 0);
    }
}

TEST_F(KvarnioTest, UndoPutsTheRemovedFilesOfAProjectBack) {
    auto const files = [&] {
        std::map<std::string, std::string> found;
        for (auto const& entry : std::filesystem::directory_iterator(m_folder / vag27)) {
            std::string const name = entry.path().filename().string();
            found[name] = entry.is_directory() ? "" : m_folder.Read(vag27 + '/' + name);
        }
        return found;
    };
    auto const before = files();
    EXPECT_EQ(Run("undo " + Quoted(vag27)).status, notThere);
    EXPECT_EQ(Run("local remove --yes", vag27).status, 0);
    EXPECT_LT(files().size(), before.size());
    m_folder.Write(vag27 + "/LINKOD.PAR", "new");
    ExpectRefused({{"undo " + Quoted(vag27), notThere, "LINKOD.PAR is there"}});
    std::filesystem::remove(m_folder / vag27 / "LINKOD.PAR");
    EXPECT_EQ(Run("undo " + Quoted(vag27) + " --dry-run").status, 0);
    EXPECT_NE(files(), before);
    EXPECT_EQ(Run("undo " + Quoted(vag27)).status, 0);
    EXPECT_EQ(files(), before);
}

TEST_F(KvarnioTest, SetWritesTheFirstLineOfAKeyAlone) {
    std::string const path = Path("p/KVARNBOK.PAR");
    m_folder.Write("p/KVARNBOK.PAR", "A=\nA=1\nC=" + std::string(300, 'x') + "\nC=4\nD=5");
    EXPECT_EQ(RunJson("list KVARNBOK.PAR", "p").size(), 78U + 2); // C and D have values
    Result const result = Run("set KVARNBOK.PAR A 9 --new", "p");
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

TEST_F(KvarnioTest, SetWritesSeveralKeysByOneRewriting) {
    std::string const path = Path("p/KVARNBOK.PAR");
    std::string const before = "Ort=A\r\n; not\r\nHSKALA=100\r\n\r\nTOM=\r\n";
    m_folder.Write("p/KVARNBOK.PAR", before);
    Result const result =
        Run("set KVARNBOK.PAR hskala 50 TOM '[a,b]' --new --json ORT '' NY '[]'", "p");
    EXPECT_EQ(result.status, 0);
    ExpectPart(result.err,
               path + ":2: dropped, no \"=\": ; not\nkvarnio: dropped 1 line and 1 blank");
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 2);
    EXPECT_EQ(m_folder.Read("p/KVARNBOK.PAR"), "HSKALA=50\r\nTOM=[a,b]\r\nNY=[]\r\n");
    EXPECT_EQ(m_folder.Read("p/KVARNBOK.PAR.bak"), before);
    Json expected = Json::array();
    for (auto const& [key, value] :
         {std::pair{"HSKALA", "50"}, {"TOM", "[a,b]"}, {"Ort", ""}, {"NY", "[]"}}) {
        Json const source = *value != '\0' ? Json(path) : Json();
        expected.push_back(
            {{"file", "KVARNBOK.PAR"},
             {"key", key},
             {"value", value},
             {"source", source},
             {"written", path},
             {"backup", path + ".bak"},
             {"dropped", R"([{"line": 2, "why": "no \"=\"", "text": "; not"}])"_json},
             {"blankLinesDropped", 1}});
    }
    EXPECT_EQ(Json::parse(result.out), expected);

    std::string const cfg = Path("c/Kvarnbok/KVARNBOK.CFG") + ": ";
    EXPECT_EQ(Run("set KVARNBOK.CFG spartid 20 A -1 --double 1").out,
              cfg + "SPARTID=20.0 (was 10)\n" + cfg + "A=-1.0 (new)\n");
    EXPECT_EQ(Run("set KVARNBOK.PAR HSKALA -1 A -1 --int --new", "p").out,
              path + ": HSKALA=MAX (was 50)\n" + path + ": A=-1 (new)\n");

    // One that cannot be written: none is.
    std::string const now = m_folder.Read("p/KVARNBOK.PAR");
    ExpectRefused(
        {
            {"set KVARNBOK.PAR A 2 B " + std::string(259, 'v'), notThere, "VALUE has 259"},
            {"set KVARNBOK.PAR A 2 --new DSKALA ''", notThere, "nothing to remove: DSKALA"},
            {"set KVARNBOK.PAR A 2 B", wrongUsage, "KEY \"B\" has no VALUE"},
            {"set KVARNBOK.PAR A 2 {}", wrongUsage, "KEY \"{}\" has no VALUE"},
            {"set KVARNBOK.PAR A 2 a 3", wrongUsage, "KEY \"a\" is given twice"},
            {"set KVARNBOK.PAR A 2 B 2.5 --int", wrongUsage, "is not a whole number"},
            {"set JB23.PAR QTSKALA 2 SKALA 5", notThere, "SKALA has no value in JB23.PAR"},
        },
        "p");
    EXPECT_EQ(m_folder.Read("p/KVARNBOK.PAR"), now);
}

TEST_F(KvarnioTest, AScaleIsWrittenToItsOwnLine) {
    std::string const name = "c/Kvarnbok/Cfg/JB23.PAR";
    std::tuple<char const*, char const*, char const*, char const*> const cases[] = {
        {"", "RPMSTEG", "100   50\r\n40   10\r\n30   10\r\n100   7\r\n", ""},
        {"1 2\n3\n", "KRAFTSKALA", "1 2\r\n3\r\n7   10\r\n", "had 2 of eleven lines; 1 with"},
        {"1 2 3\n4 5 6\n", "SJUNKSKALA", "7   2\r\n4 5 6\r\n",
         ":1: dropped, words after the step: 3"},
        {"1 2\n", "RPMSTEG 9 HASTSTEG 8 SJUNKSTEG", "1   7\r\n40   8\r\n30   10\r\n100   9\r\n",
         "had 1 of eleven lines; 3 with"},
        {"1 2 3\n4 5 6\n", "HASTSTEG 8 SJUNKSTEG", "1   7\r\n4   8\r\n",
         ":2: dropped, words after the step: 6"},
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
        {"get KVARNBOK.PAR HSKALA --project " + Quoted("p"), notDone, "KVARNBOK.PAR is a folder"},
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

std::size_t Widest(std::string const& text) {
    std::istringstream lines(text);
    std::size_t widest = 0;
    for (std::string line; std::getline(lines, line);) {
        widest = std::max(widest, line.size());
    }
    return widest;
}

TEST_F(KvarnioTest, HelpIsNoError) {
    Result const help = RunBare("set --help");
    EXPECT_EQ(help.status, 0);
    ExpectPart(help.out, "kvarnio set [OPTIONS] FILE KEY VALUE [MORE...]\n");
    EXPECT_EQ(RunBare("--help set").out, help.out);
    // Every subcommand, however little of the tool was built for it.
    std::istringstream list(RunBare("--help").out);
    int count = 0;
    for (std::string line; std::getline(list, line);) {
        if (line.starts_with("  ") && std::isalpha(static_cast<unsigned char>(line[2])) != 0) {
            std::string const name = line.substr(2, line.find(' ', 2) - 2);
            Result const own = RunBare(name + " --help");
            EXPECT_TRUE(own.out.find("kvarnio " + name + ' ') != std::string::npos) << own.err;
            EXPECT_LE(Widest(own.out), 80U) << own.out;
            ++count;
        }
    }
    EXPECT_EQ(count, 16);
}

} // namespace
