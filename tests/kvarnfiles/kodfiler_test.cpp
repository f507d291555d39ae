// The four files that are read and written record by record.
#include <array>
#include <cstring>
#include <sstream>

#include "support/commalocale.h"
#include "support/projekt.h"
#include "text/codepage.h"

namespace {

// A caller's buffer of the size that the header asks for, with a guard behind it.
struct Buffer {
    Buffer() { std::memset(bytes.data(), '#', bytes.size()); }
    ~Buffer() { EXPECT_EQ(bytes[256], '#'); }
    Buffer(Buffer const&) = delete;
    Buffer& operator=(Buffer const&) = delete;
    operator char*() { return bytes.data(); }
    std::array<char, 257> bytes;
};

std::string Number(double value) {
    std::ostringstream text;
    text << value;
    return text.str();
}

class KodfilerTest : public ProjektTest {
  protected:
    // Every record up to the end, "/" between its fields and a line end after it.
    std::string Kodfil() {
        std::string all;
        Buffer kod;
        Buffer text;
        while (m_inst.KodfilDatRead(kod, text) == 0) {
            all += std::string(kod) + '/' + std::string(text) + '\n';
        }
        return all;
    }
    std::string Miljkod(int avsnitt) {
        std::string all;
        Buffer kod;
        Buffer text;
        int max = -1;
        int steg = -1;
        while (m_inst.MiljkodRead(avsnitt, kod, text, &max, &steg) == 0) {
            all += std::string(kod) + '/' + std::string(text) + '/' + std::to_string(max) + '/' +
                   std::to_string(steg) + '\n';
        }
        return all;
    }
    // With the result in front.
    std::string Linkod() {
        std::string all;
        Buffer kod;
        Buffer ord;
        Buffer text;
        double tal = 0;
        int heltal = 0;
        int resultat = 0;
        while ((resultat = m_inst.LinkodRead(kod, ord, text, &tal, &heltal)) != 0 &&
               resultat != -1) {
            all += std::to_string(resultat);
            if (resultat > 0) {
                all += ':' + std::string(kod) + '/' + std::string(ord) + '/' + Number(tal) + '/' +
                       std::to_string(heltal) + '/' + std::string(text);
            }
            all += '\n';
        }
        return all;
    }
    std::string Stampel(std::string const& name) {
        std::string all;
        Buffer ord1;
        Buffer ord2;
        double tal[3] = {};
        int resultat = 0;
        while ((resultat = m_inst.StampParRead(Api(name).c_str(), ord1, ord2, tal, tal + 1,
                                               tal + 2)) != 0 &&
               resultat != -1) {
            all += std::to_string(resultat);
            if (resultat > 0) {
                all += ':' + std::string(ord1) + '/' + std::string(ord2) + '/' + Number(tal[0]) +
                       '/' + Number(tal[1]) + '/' + Number(tal[2]);
            }
            all += '\n';
        }
        return all;
    }
};

std::string const longWord(300, 'x');
std::string const cutWord(255, 'x');

TEST_F(KodfilerTest, KodfilReads) {
    struct {
        std::string file;
        std::string records;
    } const cases[] = {
        {"rubrik\r\n*\r\nK1 Lera\r\nK2  Sand grov\r\n*\r\n", "K1/Lera\nK2/Sand\n"},
        {"K1 Lera\r\nK2 Sand\r\n", ""},                         // all of it header
        {"* 1\nK1 A\nensam\n\n*\nK2 B\n \t\n", "K1/A\nK2/B\n"}, // the end line ends nothing
        {"*\nK1 A\r\nK2 B\x1A\nK3 C", "K1/A\nK2/B\n"},
        {"*\n" + longWord + " " + longWord + "\n", cutWord + "/" + cutWord + "\n"},
        {"*\nK1 l\x84tt\n", "K1/l\x84tt\n"}, // no letters are converted here
        {"", ""},
    };
    for (auto const& c : cases) {
        Write("KODFIL.DAT", c.file);
        EXPECT_EQ(Kodfil(), c.records) << c.file;
    }
}

TEST_F(KodfilerTest, KodfilIsWrittenWithItsHeader) {
    Write("KODFIL.tmp", "en annans rubrik\n*\n"); // of a program that was killed
    Write("KODFIL.DAT", "; kontorets\n; koder\n*   \nGAMMAL kod\n*\n");
    EXPECT_EQ(m_inst.KodfilDatWrite(1, "K1", "Lera"), 0);
    EXPECT_EQ(m_inst.KodfilDatWrite(0, "K2", "Sand"), 0);
    EXPECT_EQ(m_inst.KodfilDatWrite(-5, "K3", "Morän"_1252), 0);
    EXPECT_EQ(m_inst.KodfilDatWrite(0, "", "ingen"), 0);
    EXPECT_EQ(m_inst.KodfilDatWrite(2, "K4", "Berg"), 0);
    std::string const header = "; kontorets\r\n; koder\r\n*   \r\n";
    EXPECT_EQ(Read("KODFIL.DAT"), header + "K1 Lera\r\nK2 Sand\r\nK3 Mor\xE4n\r\nK4 Berg\r\n*\r\n");
    EXPECT_EQ(Kodfil(), "K1/Lera\nK2/Sand\nK3/Mor\xE4n\nK4/Berg\n");

    EXPECT_EQ(m_inst.KodfilDatWrite(3, "", ""), 0);
    EXPECT_EQ(Read("KODFIL.DAT"), header + "*\r\n");
    EXPECT_EQ(m_inst.KodfilDatWrite(1, "K1", "A"), 0);
    EXPECT_EQ(m_inst.KodfilDatWrite(7, nullptr, nullptr), 0); // as 2
    EXPECT_EQ(m_inst.KodfilDatWrite(2, "SEN", "kod"), 0);     // nothing is open
    EXPECT_EQ(Read("KODFIL.DAT"), header + "K1 A\r\n*\r\n");
    EXPECT_FALSE(std::filesystem::exists(m_folder / "projekt/KODFIL.tmp"));
}

TEST_F(KodfilerTest, ProjectThenCfgThenMain) {
    EXPECT_EQ(m_inst.KodfilDatWrite(3, "K1", "A"), 0); // no file anywhere, and none is made
    EXPECT_EQ(Kodfil(), "");
    m_folder.Write("huvud/KODFIL.DAT", "*\nH H\n");
    EXPECT_EQ(Kodfil(), "H/H\n");
    m_folder.Write("cfg/KODFIL.DAT", "*\nC C\n");
    EXPECT_EQ(m_inst.KodfilDatWrite(3, "K1", "A"), 0);
    EXPECT_EQ(m_folder.Read("cfg/KODFIL.DAT"), "*\r\nK1 A\r\n*\r\n");
    EXPECT_EQ(m_folder.Read("huvud/KODFIL.DAT"), "*\nH H\n");
    Write("KODFIL.DAT", "*\nP P\n");
    EXPECT_EQ(Kodfil(), "P/P\n");
    CKvarnInst utanIni;
    utanIni.Init(nullptr, nullptr);
    Buffer kod;
    Buffer text;
    EXPECT_EQ(utanIni.KodfilDatRead(kod, text), -1);
    EXPECT_EQ(utanIni.MiljkodUppdatX(), 0);
    utanIni.Init(nullptr, &m_projekt);
    EXPECT_EQ(utanIni.KodfilDatRead(kod, text), 0);
    EXPECT_EQ(utanIni.KodfilDatRead(kod, text), -1);
}

TEST_F(KodfilerTest, MiljkodReads) {
    std::string const head = "rubrik\n*\nnoll\n*\n";
    struct {
        std::string records;
        std::string read; // as section 3
    } const cases[] = {
        {"FK Föroreningsklass max=6 steg=1"_1252, "FK/Föroreningsklass/6/1"_1252},
        {"FK", "FK//100/20"},
        {"  FK \t text  ", "FK/text/100/20"},
        {"A klass max=0 steg=0", "A/klass/0/20"},
        {"A klass max=200000 steg=100000", "A/klass/100/100000"},
        {"A klass max=-1 steg=100001", "A/klass/100/20"},
        {"A klass MAX=7 Steg=8", "A/klass/7/8"},
        {"A klass steg=8 max=7", "A/klass/100/8"}, // what follows the step goes with it
        {"A klass max=7steg=8", "A/klass/100/8"},
        {"A steg=8", "A/steg=8/100/20"},   // it begins the text
        {"A a=b s max=7", "A/a=b s/7/20"}, // the last s begins no name
        {"A x max= steg=", "A/x/100/20"},
        {"A \x94ppen gr\x84ns max=5 steg=2", "A/\xF6ppen gr\xE4ns/5/2"},
        {"A " + longWord + " max=5 steg=2", "A/" + cutWord + "/5/2"},
    };
    for (auto const& c : cases) {
        Write("MILJKOD.DAT", head + "*\n*\n" + c.records + "\n\n*\nB efter\n");
        EXPECT_EQ(Miljkod(3), c.read + "\n") << c.records;
    }
    Write("MILJKOD.DAT", head + "X a max=1 steg=2\n*\nT b\n*");
    Buffer kod;
    Buffer text;
    EXPECT_EQ(m_inst.MiljkodRead(1, kod, text, nullptr, nullptr), 0);
    EXPECT_STREQ(text, "a max=1 steg=2");
    EXPECT_EQ(m_inst.MiljkodRead(1, kod, text, nullptr, nullptr), -1);
    EXPECT_EQ(Miljkod(0), "noll//100/20\n");
    EXPECT_EQ(Miljkod(2), "T/b/100/20\n");
    for (int const none : {-1, 3, 4, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(Miljkod(none), "") << none;
    }
}

TEST_F(KodfilerTest, ALongCodeIsShownAndSkipped) {
    Boxes const boxes;
    Write("MILJKOD.DAT", "*\n*\nABCDE lång kod\nABCD a\n*\n"_1252);
    EXPECT_EQ(Miljkod(1), "ABCD/a/100/20\n");
    ASSERT_EQ(Boxes::Shown().size(), 1U);
    EXPECT_EQ(Boxes::Shown()[0].text, "Fel rad, namn är för långt\nABCDE lång kod"_1252);
    EXPECT_EQ(Boxes::Shown()[0].text, MessageBuffer());
    EXPECT_EQ(Boxes::Shown()[0].caption, "<title>");
}

TEST_F(KodfilerTest, MiljkodIsWrittenInItsOrder) {
    Write("MILJKOD.DAT", "gammal rubrik\n*\n");
    EXPECT_EQ(m_inst.MiljKodWrite(2, "X", "a", 0, 0), -1);
    EXPECT_EQ(m_inst.MiljKodWrite(1, nullptr, nullptr, 0, 0), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(2, "X", "två ord"_1252, 9, 9), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(3, "", "", 0, 0), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(8, "N", "annat", 0, 0), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(4, "T", "b", 9, 9), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(5, "", "", 0, 0), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(6, "FK", "c", 6, -1), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(7, "", "", 0, 0), 0);
    EXPECT_EQ(m_inst.MiljKodWrite(7, "", "", 0, 0), -1);
    EXPECT_EQ(Read("MILJKOD.DAT"),
              "*\r\n*\r\nX två ord\r\n*\r\nT b\r\n*\r\nFK c max=6 steg=-1\r\n*\r\n"_1252);
}

TEST_F(KodfilerTest, TheObligatoryCodesAreAddedOnce) {
    std::string const added = "*\r\n*\r\nX okänd metod, sammanställning\r\n*\r\n"
                              "TOLK Tolkad klassificering\r\n*\r\n"
                              "FK Föroreningsklass max=6 steg=1\r\n*\r\n"_1252;
    Write("MILJKOD.DAT", "*\n*\n*\n*\n*\n");
    EXPECT_EQ(m_inst.MiljkodUppdatX(), 0);
    EXPECT_EQ(Read("MILJKOD.DAT"), added);

    // Two are there; texts longer than a buffer stay, letters are converted.
    std::string const tail = "K " + longWord + "\r\n*\r\n";
    Write("MILJKOD.DAT", "rubrik\n*\nnoll\n*\nX egen\nx liten\n*\n *s blank\nTOLK\n" + tail +
                             "K gr\x84ns max=3\n");
    EXPECT_EQ(m_inst.MiljkodUppdatX(), 0);
    std::string const once = "*\r\n*\r\nX egen\r\nx liten\r\n*\r\n *s blank\r\nTOLK \r\n" + tail +
                             "K gräns max=3 steg=20\r\n"_1252 +
                             "FK Föroreningsklass max=6 steg=1\r\n*\r\n"_1252;
    EXPECT_EQ(Read("MILJKOD.DAT"), once);

    Write("MILJKOD.DAT", "*\n*\nx liten\n*\nTOLK\n*\nFK\n*\n"); // codes are exact
    EXPECT_EQ(m_inst.MiljkodUppdatX(), 0);
    EXPECT_EQ(Read("MILJKOD.DAT").find("x liten\r\nX ok"), 6U);

    std::string const all = "h\n*\n*\nX\n*\nTOLK\n*\nFK\n*\nsvans"; // untouched, byte for byte
    Write("MILJKOD.DAT", all);
    EXPECT_EQ(m_inst.MiljkodUppdatX(), 0);
    EXPECT_EQ(Read("MILJKOD.DAT"), all);
}

TEST_F(KodfilerTest, LinkodReads) {
    std::string const first = "K1 LINJE 0.5 3";
    auto const at49 = [](std::string line, std::string const& text) {
        line.resize(49, ' ');
        return line + text;
    };
    struct {
        std::string line;
        std::string read;
    } const cases[] = {
        {at49(first, "Vägkant  mitt "_1252), "1:K1/LINJE/0.5/3/Vägkant  mitt"_1252},
        {at49(first, ""), "1:K1/LINJE/0.5/3/"},
        {at49(first, "x"), "1:K1/LINJE/0.5/3/x"},
        {"K1 LINJE 2.", "1:K1/LINJE/2/0/"},
        {at49("K1 LINJE 2", "12 m"), "1:K1/LINJE/2/12/12 m"}, // the text's number is read
        {"PV12 G 1 2", "2:12/G/1/2/"},
        {"PV99x G 1 2", "2:99x/G/1/2/"},
        {"PV-5 G 1 2", "2:-5/G/1/2/"},
        {"PV100 G 1 2", "3:100/G/1/2/"},
        {"PV1 G 1 2", "1:PV1/G/1/2/"},
        {"PVAB G 1 2", "1:PVAB/G/1/2/"},
        {"pv12 G 1 2", "1:pv12/G/1/2/"},
        {at49("V\x8EG V\x8EG 1 2", "\x84ng"), "1:V\xC4G/V\x8EG/1/2/\xE4ng"},
        {at49(longWord, ""), "-2"},
        {longWord + " " + longWord + " 1 2",
         "1:" + cutWord + "/" + cutWord + "/1/2/" + longWord.substr(49) + " xxx"},
        {"K1 LINJE", "-2"},
        {"", "-2"},
        {"K1 LINJE 1,5 2", "1:K1/LINJE/1/0/"},
    };
    for (auto const& c : cases) {
        Write("LINKOD.PAR", c.line + "\nK2 B 1 1\n*\nefter A 1 1\n");
        EXPECT_EQ(Linkod(), c.read + "\n1:K2/B/1/1/\n") << c.line;
    }
}

TEST_F(KodfilerTest, LinkodIsWrittenWithItsTextInColumn49) {
    std::string const blanks(49, ' ');
    auto const line = [&](std::string const& first, std::string const& text) {
        return (first + blanks).substr(0, 49) + text + "\r\n";
    };
    EXPECT_EQ(m_inst.LinkodWrite(1, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(m_inst.LinkodWrite(2, "K1", "L", "1", "t", nullptr), -1); // no file anywhere
    Write("LINKOD.PAR", "gammal");
    EXPECT_EQ(m_inst.LinkodWrite(1, "", "", "", "", ""), 0);
    EXPECT_EQ(m_inst.LinkodWrite(2, "K1", "L", "0.5", "text", nullptr), 0);
    EXPECT_EQ(m_inst.LinkodWrite(4, "12", "G", "1", "PV text", "7"), 0);
    EXPECT_EQ(m_inst.LinkodWrite(3, "N", "N", "N", "N", "N"), 0);
    std::string const longFirst(49 - 4, 'a');
    EXPECT_EQ(m_inst.LinkodWrite(2, longFirst.c_str(), "L", "1", "jämn"_1252, nullptr), 0);
    EXPECT_EQ(m_inst.LinkodWrite(2, longWord.c_str(), "L", "1", "", nullptr), 0);
    EXPECT_EQ(m_inst.LinkodWrite(5, "", "", "", "", ""), 0);
    EXPECT_EQ(m_inst.LinkodWrite(5, "", "", "", "", ""), -1);
    EXPECT_EQ(Read("LINKOD.PAR"), line("K1 L 0.5", "text") + line("PV12 G 1 7", "PV text") +
                                      line(longFirst + " L 1", "jämn"_1252) + line(longWord, "") +
                                      "*\r\n");
    EXPECT_EQ(Linkod(),
              "1:K1/L/0.5/0/text\n2:12/G/1/7/PV text\n1:" + longFirst + "/L/1/0/jämn\n-2\n"_1252);
}

TEST_F(KodfilerTest, StampelIsReadAndWritten) {
    std::string const path = Api("STAMPEL.PAR");
    Write("STAMPEL.PAR", "R\x99R A 1.5 -2 2.5\nB C 1 2\nkort 1 2\nD E 1 2 x\n" + longWord +
                             " F 1 1 1\n*\nG H 1 2 3\n");
    CommaLocale const comma;
    EXPECT_EQ(Stampel("STAMPEL.PAR"),
              "1:RÖR/A/1.5/-2/2.5\n1:B/C/1/2/3\n-2\n1:D/E/1/2/3\n1:"_1252 + cutWord + "/F/1/1/1\n");
    Boxes const boxes;
    EXPECT_EQ(m_inst.StampParWrite(path.c_str(), 1, "", "", "", "", ""), 0);
    EXPECT_EQ(m_inst.StampParWrite("", 2, "RITNING", "Plan", "10.0", "20.5", "3.5"), 0);
    EXPECT_EQ(m_inst.StampParWrite("", 4, "N", "N", "N", "N", "N"), 0);
    EXPECT_EQ(m_inst.StampParWrite("", 2, "DATUM", "-", "1", "2", nullptr), 0);
    EXPECT_EQ(m_inst.StampParWrite("", 3, "", "", "", "", ""), 0);
    EXPECT_EQ(m_inst.StampParWrite("", 3, "", "", "", "", ""), -1);
    EXPECT_EQ(Read("STAMPEL.PAR"), "RITNING Plan 10.0 20.5 3.5\r\nDATUM - 1 2 \r\n");
    EXPECT_EQ(Stampel("STAMPEL.PAR"), "1:RITNING/Plan/10/20.5/3.5\n1:DATUM/-/1/2/3\n");
    EXPECT_EQ(m_inst.StampParWrite("", 1, "", "", "", "", ""), 0); // opens nothing
    EXPECT_EQ(m_inst.StampParWrite(nullptr, 2, "", "", "", "", ""), -1);
    EXPECT_TRUE(Boxes::Shown().empty());
}

} // namespace
