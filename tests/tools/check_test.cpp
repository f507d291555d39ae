// check: what is wrong with the files of a project, each with its line.
#include <regex>
#include <set>

#include "kvarnio.h"

namespace {

class CheckTest : public KvarnioTest {
  protected:
    // The findings of one file, as "line: what", without the quoted line; LOST is what is lost
    // when the file is written.
    Words FindingsOf(std::string const& name, std::string_view content) const {
        std::filesystem::remove_all(m_folder / "p");
        m_folder.Write("p/" + name, content);
        std::string const stamp = name == "STAMP.PAR" ? " --stamp " + Quoted("p/" + name) : "";
        std::string const lost = "lost when the file is written: ";
        Words findings;
        for (Json const& finding :
             Json::parse(RunBare("check --json " + Quoted("p") + stamp).out)) {
            std::string problem = finding["problem"];
            if (problem.starts_with(lost)) {
                problem.replace(0, lost.size(), "LOST ");
            }
            findings.push_back(finding["line"].dump() + ": " + problem);
        }
        return findings;
    }
};

// The sample's own list: lines that begin with | `FILE:LINE`.
std::set<std::string> PlantedFaults() {
    std::string const readme = ReadBytes(std::filesystem::path(SAMPLES) / "README.md");
    std::regex const row("\\| `([^`:]+:[0-9]+)` \\|");
    std::set<std::string> faults;
    for (std::sregex_iterator i(readme.begin(), readme.end(), row), end; i != end; ++i) {
        faults.insert((*i)[1]);
    }
    return faults;
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
    std::set<std::string> found;
    for (Json const& finding : Json::parse(bad.out)) {
        std::string const file = finding["file"];
        found.insert(std::filesystem::path(file).filename().string() + ':' +
                     finding["line"].dump());
    }
    EXPECT_EQ(found, PlantedFaults());
    EXPECT_GE(found.size(), 30U);
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
        {"KVARNBOK.PAR", "\xEF\xBB\xBFHSKALA=5\n"s, "1: a byte-order mark, "},
        {"KVARNBOK.PAR", "\xFF\xFEH\0S\0"s, "1: saved as UTF-16"},
        {"KVARNBOK.PAR", "FONT=a\0b\nHSKALA=5\r\r\n"s,
         "1: LOST text after a zero byte: \"b\"\n2: a control char"},
        {"KVARNBOK.PAR", "HSKALA=abc\nhskala=1\nLSKALA=5 m\nIDHOJD=MAX\nFONT=5 m\n",
         "1: \"abc\" is no number\n2: not read, since the key stands on line 1 already\n"
         "3: \"5 m\" is read as 5"},
        {"KVARNBOK.PAR",
         "=2\nA=\n" + std::string(40, 'K') + "=3\nC=" + std::string(259, 'v') + "\n",
         "1: LOST no key before \"=\"\n2: LOST no value\n3: LOST key over 39 characters\n"
         "4: LOST value over 258 characters"},
        {"KVARNBOK.PAR", "D=5\x1A\r\nE=6\n", "1: LOST everything after the end-of-file character"},
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
        {"KVARNBOK.PAR", "ORT=\x94stra \x94Sj\xF6n\x94 \x84text\x93 it\x92s Kvast\x99 \x80 5\n", 0},
        {"KVARNBOK.PAR", "ORT=G\x94teborg\n", 1},
        {"KVARNBOK.PAR", "ORT=V\x84xj\x94\n", 1},
        {"KVARNBOK.PAR", "ORT=\x8Fre\n", 1},
        {"KVARNBOK.PAR", "ORT=G\xC3\xB6teborg\n", 1},
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
