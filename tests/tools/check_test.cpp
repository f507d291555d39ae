// check: what is wrong with the files of a project, each with its line.
#include <regex>
#include <set>

#include "kvarnio.h"

namespace {

class CheckTest : public KvarnioTest {
  protected:
    // The findings of one file, as "line: what"; LOST is what is lost when the file is written.
    Words FindingsOf(std::string const& name, std::string_view content) const {
        std::filesystem::remove_all(m_folder / "p");
        m_folder.Write("p/" + name, content);
        std::string const stamp = name == "STAMP.PAR" ? " --stamp " + Quoted("p/" + name) : "";
        Words findings;
        for (Json const& finding :
             Json::parse(RunBare("check --json " + Quoted("p") + stamp).out)) {
            std::string const lost = finding["severity"] == "lost" ? "LOST " : "";
            findings.push_back(finding["line"].dump() + ": " + lost +
                               std::string(finding["problem"]));
        }
        return findings;
    }
};

// "FILE:LINE rule", or "FILE rule" for the file as such.
using Faults = std::set<std::string>;

// The sample's own list: lines | `FILE:LINE` | rule, rule | what |.
Faults PlantedFaults() {
    std::string const readme = ReadBytes(std::filesystem::path(SAMPLES) / "README.md");
    std::regex const row("\\| `([^`]+)` \\| ([a-z0-9, -]+) \\| [^|\n]+ \\|");
    std::regex const word("[^, ]+");
    Faults faults;
    for (std::sregex_iterator i(readme.begin(), readme.end(), row), end; i != end; ++i) {
        std::string const rules = (*i)[2];
        for (std::sregex_iterator rule(rules.begin(), rules.end(), word); rule != end; ++rule) {
            faults.insert((*i)[1].str() + ' ' + rule->str());
        }
    }
    return faults;
}

Faults FaultsIn(Json const& findings, std::string const& folder) {
    Faults faults;
    for (Json const& finding : findings) {
        std::string file = finding["file"];
        std::replace(file.begin(), file.end(), '\\', '/');
        std::string const line = finding["line"].is_null() ? "" : ':' + finding["line"].dump();
        faults.insert(file.substr(file.find(folder) + folder.size()) + line + ' ' +
                      std::string(finding["rule"]));
    }
    return faults;
}

// A section of the page of rules: an example and what is said of it.
struct Example {
    std::string rule;
    std::string file;
    bool isFolder;
    std::string content; // with \xHH for the byte HH
    std::string said;
};

std::vector<Example> Examples() {
    std::string const page = ReadBytes(std::filesystem::path(SAMPLES) / "../docs/check-rules.md");
    std::regex const section("\n## ([a-z0-9-]+)\n\n[^\n]+\n\n[^\n]+\n\n(A folder )?`([^`]+)`\n\n"
                             "(?:```\n([^`]*)```\n\n)?```\n([^`]*)```\n");
    std::vector<Example> examples;
    for (std::sregex_iterator i(page.begin(), page.end(), section), end; i != end; ++i) {
        examples.push_back({(*i)[1], (*i)[3], (*i)[2].matched, (*i)[4], (*i)[5]});
    }
    return examples;
}

std::string WithBytes(std::string const& content) {
    std::regex const byte(R"(\\x([0-9A-F]{2})|\\(\\))");
    std::string text;
    std::size_t at = 0;
    for (std::sregex_iterator i(content.begin(), content.end(), byte), end; i != end; ++i) {
        auto const begin = static_cast<std::size_t>(i->position());
        text.append(content, at, begin - at);
        constexpr int sixteen = 16;
        text += (*i)[2].matched ? '\\' : static_cast<char>(std::stoi((*i)[1], nullptr, sixteen));
        at = begin + static_cast<std::size_t>(i->length());
    }
    return text.append(content, at);
}

Faults RulesOf(Json const& rules) {
    Faults names;
    for (Json const& rule : rules) {
        names.insert(rule["rule"]);
    }
    return names;
}

TEST_F(CheckTest, EachRuleHasAnExampleThatIsFound) {
    Faults shown;
    for (Example const& example : Examples()) {
        SCOPED_TRACE(example.rule);
        std::filesystem::remove_all(m_folder / "e");
        std::filesystem::create_directories(m_folder / "e" /
                                            (example.isFolder ? example.file : ""));
        if (!example.isFolder) {
            m_folder.Write("e/" + example.file, WithBytes(example.content));
        }
        std::string const as = example.file == "Mappar.txt" ? "--folders " : "";
        Result const result = RunBare("check " + as + Quoted("e/" + example.file));
        std::string said = result.out;
        std::string const path = Path("e/");
        for (std::size_t at = 0; (at = said.find(path)) != std::string::npos;) {
            said.erase(at, path.size());
        }
        EXPECT_EQ(said, example.said);
        EXPECT_TRUE(said.find('[' + example.rule + ']') != std::string::npos);
        EXPECT_EQ(result.status, example.isFolder ? notDone : 1);
        shown.insert(example.rule);
    }
    EXPECT_EQ(shown, RulesOf(Json::parse(RunBare("check --rules --json").out)));
}

TEST_F(CheckTest, RulesAreChosenByName) {
    m_folder.Write("p/KVARNBOK.PAR", "HSKAL=5\nHSKALA=1,5\n");
    auto const rules = [&](std::string const& options) {
        return RulesOf(Json::parse(RunBare("check --json " + Quoted("p") + options).out));
    };
    EXPECT_EQ(rules(""), (Faults{"unknown-key", "decimal-comma"}));
    EXPECT_EQ(rules(" --only decimal-comma"), Faults{"decimal-comma"});
    EXPECT_EQ(rules(" --ignore decimal-comma --ignore utf-8"), Faults{"unknown-key"});
    EXPECT_EQ(RunBare("check " + Quoted("p") + " --only utf-8").status, 0);
    Result const unknown = RunBare("check " + Quoted("p") + " --only utf8");
    EXPECT_EQ(unknown.status, wrongUsage);
    ExpectPart(unknown.err, "there is no rule utf8; --rules lists them");
}

TEST_F(CheckTest, SeveralFilesAndEveryProjectBelowAFolder) {
    m_folder.Write("alla/a/KVARNBOK.PAR", "HSKAL=5\n");
    m_folder.Write("alla/a/KVARNBOK.DBF/VAG.VL", "0 0 0 0\n");
    m_folder.Write("alla/b/c/KODFIL.DAT", "Le Lera\n");
    m_folder.Write("alla/b/c/annat.txt", "?");
    Faults const each = {"a/KVARNBOK.PAR:1 unknown-key", "a/KVARNBOK.DBF/VAG.VL:1 one-vertex",
                         "b/c/KODFIL.DAT:1 ends-early"};
    Result const all = RunBare("check --json --all " + Quoted("alla"));
    EXPECT_EQ(all.status, 1);
    EXPECT_EQ(FaultsIn(Json::parse(all.out), "alla/"), each);
    Result const named =
        RunBare("check --json " + Quoted("alla/a") + ' ' + Quoted("alla/b/c/KODFIL.DAT") + ' ' +
                Quoted("alla/a/KVARNBOK.PAR"));
    EXPECT_EQ(FaultsIn(Json::parse(named.out), "alla/"), each);
    EXPECT_EQ(Json::parse(named.out).size(), each.size()); // each file once
    EXPECT_EQ(RunBare("check " + Quoted("alla/b/c/annat.txt")).status, wrongUsage);
    EXPECT_EQ(RunBare("check --all finns-ej").status, 1);
}

TEST_F(CheckTest, WhatAllProjectsShareIsLookedAtToo) {
    m_folder.Write("c/Kvarnbok/Markvida.ini", "utan sektion=1\n[SYSTEM]\n");
    m_folder.Write("c/Kvarnbok/KVARNBOK.CFG", "A\n");
    Faults faults = {"Markvida.ini:1 no-section", "KVARNBOK.CFG:1 no-equals"};
    Json const found = RunJson("check " + Quoted(vag27));
    EXPECT_EQ(FaultsIn(found, "c/Kvarnbok/"), faults);
    std::filesystem::remove(m_folder / "c/Kvarnbok/Markvida.ini");
    std::filesystem::create_directory(m_folder / "c/Kvarnbok/Markvida.ini");
    EXPECT_EQ(Run("check " + Quoted(vag27)).status, notDone);
}

TEST_F(CheckTest, TheListOfFoldersIsLookedAtToo) {
    m_folder.Write("c/Kvarnbok/Markvida.ini", "[ARKIV]\nMAPPAR=" + Path("mappar.txt") + "\n");
    m_folder.Write("mappar.txt", "Bilder\nBilder\\..\\..\\x\n..\na..b\n");
    Json const found = RunJson("check " + Quoted(vag27));
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0]["line"], 2);
    EXPECT_EQ(found[1]["problem"], R"(leads out of the project's folder, and is made there: "..")");
}

TEST_F(CheckTest, FindsEachFaultOfTheBadProjectAndNothingInTheGoodOne) {
    EXPECT_EQ(RunBare("check " + Quoted(vag27)).status, 0);
    EXPECT_EQ(RunBare("check --json " + Quoted(vag27) + " --stamp " +
                      Quoted("c/Kvarnbok/Cfg/STAMPEL.PAR"))
                  .out,
              "[]\n");

    Result const bad = RunBare("check --json " + Quoted(hamnkajen) + " --stamp " +
                               Quoted(hamnkajen + "/STAMPEL.PAR"));
    EXPECT_EQ(bad.status, 1);
    Faults const planted = PlantedFaults();
    Faults const found = FaultsIn(Json::parse(bad.out), "Hamnkajen/");
    Words different;
    std::set_symmetric_difference(found.begin(), found.end(), planted.begin(), planted.end(),
                                  std::back_inserter(different));
    EXPECT_EQ(different, Words{});
    // All rules are there, but for those of files that a project cannot hold.
    Faults rules = {"unreadable", "leads-out", "no-section", "not-understood"};
    rules.merge(RulesOf(Json::parse(bad.out)));
    EXPECT_EQ(rules, RulesOf(Json::parse(RunBare("check --rules --json").out)));
}

TEST_F(CheckTest, SaysWhatIsWrong) {
    std::string const column(49, ' ');
    auto const line = [&](std::string first, char const* text) {
        first.resize(column.size(), ' ');
        return first + text + "\r\n";
    };
    std::string const jb = "1 2\n1 2\n1 2\n1 2\n1 2\n1 2\n1 2\n1 2\n1 2\n1 2\n";
    using namespace std::string_literals;
    // findings: how they begin
    std::tuple<std::string, std::string, char const*> const cases[] = {
        {"KVARNBOK.PAR", "\xEF\xBB\xBFHSKALA=5\n"s,
         "1: a byte-order mark, which is\n1: no program knows the key; did you mean HSKALA?"},
        {"KVARNBOK.PAR", "\xFF\xFEH\0S\0"s, "1: saved as UTF-16"},
        {"KVARNBOK.PAR", "FONT=a\0b\nHSKALA=5\r\r\n"s,
         "1: LOST text after a zero byte: \"b\"\n2: a control char"},
        {"KVARNBOK.PAR", "HSKALA=abc\nhskala=1\nLSKALA=5 m\nIDHOJD=MAX\nFONT=5 m\n",
         "1: \"abc\" is no number\n2: not read, since the key stands on line 1 already\n"
         "3: \"5 m\" is read as 5"},
        {"KVARNBOK.PAR",
         "=2\nFONT=\n" + std::string(40, 'K') + "=3\nKODTYP=" + std::string(259, 'v') + "\n",
         "1: LOST no key before \"=\"\n2: LOST no value\n3: LOST key over 39 characters\n"
         "4: LOST value over 258 characters"},
        {"KVARNBOK.PAR", "FONT=5\x1A\r\nE=6\n",
         "1: LOST everything after the end-of-file character"},
        // As the library writes them.
        {"KVARNBOK.PAR", "*\r\n", ""},
        {"LINKOD.PAR", "*\r\n", ""},
        {"LINKOD.PAR", line("PV20 HEL -1.5 0", "1,5 m") + "*\r\n", ""},
        {"MILJKOD.DAT", "*\n*\nX t\n*\nTOLK t\n*\nFK t max=6 steg=1\n*\n", ""},
        {"JB23.PAR", jb + "1 2\n\n\n", ""},
        {"JB23.PAR", jb + "MAX 2\n1 2\n", "12: not read: the file has eleven lines"},
        {"JB23.PAR", jb + "\n", "11: blank: the scale and the step have their defaults"},
        {"JB23.PAR", "*\r\n", "1: the placeholder \"*\"\n1: the file ends with this line"},
        {"KODFIL.DAT", "Le Lera\nSa Sand\n", "2: no line \"*\" ends the header"},
        {"KODFIL.DAT", "*\n* Lera\n" + std::string(256, 'x') + " a\n",
         "2: read as the code \"*\"\n3: LOST the code has 256"},
        {"MILJKOD.DAT", "*\n*\nX t\n*\n*\nFK t max=6 steg=1",
         "6: the file ends after 4 of five lines \"*\""},
        {"MILJKOD.DAT", "*\n*\n* Metoder\n*\nA t max=2,5 steg=0\nB t max=6ppm steg=2/m\n*\n",
         "3: LOST text on a line \"*\": \" Metoder\"\n5: steg=0, 20 is read\n"
         "5: max=\"2,5\" is read as 2\n6: steg=\"2/m\" is read as 2\n"
         "6: after max= its first letter comes again, 100 is read"},
        {"MILJKOD.DAT", "*\n*\n*\n*\nA t max=6 steg=1 per m\nB max=6 steg=1\n*\n",
         "5: text after steg=1\n6: no text before max=, 100 is read"},
        {"LINKOD.PAR", line("A b 1", "2 m") + line("PV99 b 1e2 3.5", "") + "*slut\n",
         "1: no whole number, and the one that the text begins with is read instead\n"
         "2: LOST \"3.5\" is read as 3\n3: LOST text on the end line \"*\""},
        {"STAMP.PAR", "A b 1 2,5\n\n\n*\n", "1: \"2,5\" is read as 2"},
        {"Stenkod.dat",
         "*\n*\n0  \n1 Ss\n-1 Xx t 1.000 4 0.000 1\n*\n0  \n-2 Yy\n*\n*\n", // as it is written
         ""},
        {"Stenkod.dat",
         "*\n* a\n40000 Ab\n4x Kv\n21 Kx t 0 0 nan 7 8\n22 Ny t 1 5\n22 Ny t 1 5\n"
         "-1 a t 1 4 10\n*\n1 ka t\n2 kl t\n*b\nx\n",
         "3: number 40000 is read as 32767\n4: \"4x\" is read as 4\n5: the scale is below\n"
         "5: the pattern is not within\n5: LOST the flag\n5: LOST words after the flag\n"
         "5: LOST the pattern\n5: an angle is read in degrees\n"
         "7: number 22 stands on line 6 already: this line counts\n"
         "10: LOST all but number and name, where a program saves\n12: LOST text on a line\n"
         "13: LOST after fill"},
        {"Stenkod.dat", "*\n*\n1 Ss t 10-2\n*\n*\n", // one word, and two numbers
         "3: \"10-2\" is read as 10\n3: LOST the pattern"},
        {"StenkodN.dat",
         "*\n*\n30 Hornfels\n31 Ikke\n32 kalkspat\n33 Kalkspat\n63 \xD8yegneis2\n64 N\n*\n*\n",
         "4: LOST the extra number\n6: LOST the name, for number 32 is \"Kalkstein\""},
        {"Stenkod.dat", "*\n",
         "1: the file ends after 1 of three lines \"*\": there is no section of rock, and none of "
         "fill"},
        {"A.STP", "0\n0\n0\n0\n0\n0\n*\nGVY\n1.5\n\nA\n1\n 0 0\nB\n2\n\n*\n\n", ""},
        {"A.STP", "0\n0\n0\n0\n0\n", "5: the file ends before number 6"},
        {"A.STP", "0\n0\n0\n0\n0\n0\n", "6: no line \"*\" ends the header"},
        {"A.STP", "0\n0\n0\n0\n0\n\n*\nA\n1\n1 2\nB\n2\n*\n",
         "6: no number where number 6\n10: LOST a point's values\n"
         "13: the end line \"*\" is read as a point's values\n"
         "13: the file ends without the line \"*\""},
        {"A.STP", "0\n0\n0\n0\n0\n0\n\ngvy\n1\nx\nA b\n",
         "10: LOST the line after the level of \"gvy\"\n11: LOST words after the name\n"
         "11: the file ends inside a block, before its level"},
    };
    for (auto const& [name, content, findings] : cases) {
        SCOPED_TRACE(content);
        ExpectBeginnings(FindingsOf(name, content), findings);
    }
}

// Letters are judged by those beside them: what is a DOS letter in a word is a quotation mark
// around one.
TEST_F(CheckTest, LettersOfOtherCodePagesAreToldFromSigns) {
    std::string const miljkod = "*\n*\nA ";
    std::tuple<char const*, std::string, std::size_t> const cases[] = {
        {"KVARNBOK.PAR", "FONT=\x94stra \x94Sj\xF6n\x94 \x84text\x93 it\x92s Kvast\x99 \x80 5\n",
         0},
        {"KVARNBOK.PAR", "FONT=G\x94teborg\n", 1},
        {"KVARNBOK.PAR", "FONT=V\x84xj\x94\n", 1},
        {"KVARNBOK.PAR", "FONT=\x8Fre\n", 1},
        {"KVARNBOK.PAR", "FONT=G\xC3\xB6teborg\n", 1},
        {"MILJKOD.DAT", miljkod + "K\x84nslig \x86tg\x84rd, \x99stra\n*\n*\n*\n", 0},
        {"MILJKOD.DAT", miljkod + "K\xE4nslig \x94zon\x94\n*\n*\n*\n", 1},
        {"MILJKOD.DAT", miljkod + "Kvist\x92s metod\n*\n*\n*\n", 1},
        {"MILJKOD.DAT", miljkod + "K\xC3\xA4nslig\n*\n*\n*\n", 1},
    };
    for (auto const& [name, content, findings] : cases) {
        EXPECT_EQ(FindingsOf(name, content).size(), findings) << content;
    }
}

TEST_F(CheckTest, EachFileIsToldAndSoIsThatThereIsNone) {
    m_folder.Write("p/JB23.PAR", "*\r\n");
    m_folder.Write("p/KODFIL.DAT", "*\r\n*\r\n");
    Result const result = RunBare("check " + Quoted("p"));
    EXPECT_EQ(result.status, 1);
    ExpectPart(result.out, "JB23.PAR:1: the placeholder");
    ExpectPart(result.out, "KODFIL.DAT: no problems\n");
    std::filesystem::create_directory(m_folder / "tom");
    EXPECT_EQ(RunBare("check " + Quoted("tom")).status, 1); // nothing to check
    EXPECT_EQ(RunBare("check finns-ej").status, 1);
}

} // namespace
