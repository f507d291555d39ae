// The four files that are read and written record by record.
#include <sstream>

#include "support/projekt.h"
#include "text/codepage.h"

namespace {

using Results = std::vector<int>;

std::string const longWord(300, 'x');
std::string const cutWord(255, 'x');

// Every record's fields in order, up to the first without.
template <class Read> std::string All(Read read) {
    std::string all;
    for (std::string record = read(); !record.empty(); record = read()) {
        all += record + '\n';
    }
    return all;
}

template <class... More> std::string Fields(std::string const& first, More const&... more) {
    std::ostringstream text;
    text << first;
    ((text << '/' << more), ...);
    return text.str();
}

// With the result in front, which stands alone for a bad line.
std::string Record(int resultat, std::string const& fields) {
    return resultat > 0 ? std::to_string(resultat) + ':' + fields : resultat == -2 ? "-2" : "";
}

class KodfilerTest : public ProjektTest {
  protected:
    // The callers' buffers have the size that the header asks for, and a guard behind it.
    KodfilerTest() { m_kod[256] = m_ord[256] = m_text[256] = '#'; }
    ~KodfilerTest() override {
        EXPECT_EQ((std::string{m_kod[256], m_ord[256], m_text[256]}), "###");
    }

    std::string Kodfil() {
        return All(
            [&] { return m_inst.KodfilDatRead(m_kod, m_text) == 0 ? Fields(m_kod, m_text) : ""; });
    }
    std::string Miljkod(int avsnitt) {
        return All([&] {
            int max = -1;
            int steg = -1;
            return m_inst.MiljkodRead(avsnitt, m_kod, m_text, &max, &steg) == 0
                       ? Fields(m_kod, m_text, max, steg)
                       : "";
        });
    }
    std::string Linkod() {
        int heltal = 0;
        return All([&] {
            int const resultat = m_inst.LinkodRead(m_kod, m_ord, m_text, m_tal, &heltal);
            return Record(resultat, Fields(m_kod, m_ord, m_tal[0], heltal, m_text));
        });
    }
    std::string Stampel() {
        return All([&] {
            int const resultat = m_inst.StampParRead(Api("STAMPEL.PAR").c_str(), m_kod, m_ord,
                                                     m_tal, m_tal + 1, m_tal + 2);
            return Record(resultat, Fields(m_kod, m_ord, m_tal[0], m_tal[1], m_tal[2]));
        });
    }

    char m_kod[257] = "";
    char m_ord[257] = "";
    char m_text[257] = "";
    double m_tal[3] = {};
};

TEST_F(KodfilerTest, KodfilReads) {
    std::pair<std::string, std::string> const cases[] = {
        {"rubrik\r\n*\r\nK1 Lera\r\nK2  Sand grov\r\n*\r\n", "K1/Lera\nK2/Sand\n"},
        {"K1 Lera\r\nK2 Sand\r\n", ""},                         // all of it header
        {"* 1\nK1 A\nensam\n\n*\nK2 B\n \t\n", "K1/A\nK2/B\n"}, // the end line ends nothing
        {"*\n" + longWord + " " + longWord + "\n", cutWord + "/" + cutWord + "\n"},
        {"*\nK1 l\x84tt\n", "K1/l\x84tt\n"}, // no letters are converted here
    };
    for (auto const& [file, records] : cases) {
        Write("KODFIL.DAT", file);
        EXPECT_EQ(Kodfil(), records) << file;
    }
}

TEST_F(KodfilerTest, KodfilIsWrittenWithItsHeader) {
    Write("KODFIL.tmp", "en annans rubrik\n*\n"); // of a program that was killed
    Write("KODFIL.DAT", "; kontorets\n; koder\n*   \nGAMMAL kod\n*\n");
    auto const write = [&](int mode, char const* code, char const* text) {
        EXPECT_EQ(m_inst.KodfilDatWrite(mode, code, text), 0);
    };
    write(1, "K1", "Lera");
    write(-5, "K3", "Morän"_1252);
    write(0, "", "ingen");
    write(2, "K4", "Berg");
    std::string const header = "; kontorets\r\n; koder\r\n*   \r\n";
    EXPECT_EQ(Read("KODFIL.DAT"), header + "K1 Lera\r\nK3 Mor\xE4n\r\nK4 Berg\r\n*\r\n");
    write(3, "", "");
    EXPECT_EQ(Read("KODFIL.DAT"), header + "*\r\n");
    write(1, "K1", "A");
    write(7, nullptr, nullptr); // as 2
    write(2, "SEN", "kod");     // nothing is open
    EXPECT_EQ(Read("KODFIL.DAT"), header + "K1 A\r\n*\r\n");
    EXPECT_FALSE(std::filesystem::exists(m_folder / "projekt/KODFIL.tmp"));
}

TEST_F(KodfilerTest, TheProjectsFileThenTheShared) {
    EXPECT_EQ(m_inst.KodfilDatWrite(3, "K1", "A"), 0); // no file anywhere, and none is made
    EXPECT_EQ(Kodfil(), "");
    m_folder.Write("cfg/KODFIL.DAT", "*\nP cfg\n");
    EXPECT_EQ(Kodfil(), "P/cfg\n");
    Write("KODFIL.DAT", "*\nP projekt\n");
    EXPECT_EQ(Kodfil(), "P/projekt\n");
    EXPECT_EQ(m_inst.KodfilDatWrite(3, "K1", "A"), 0);
    EXPECT_EQ(Read("KODFIL.DAT"), "*\r\nK1 A\r\n*\r\n");
    EXPECT_EQ(m_folder.Read("cfg/KODFIL.DAT"), "*\nP cfg\n");
    m_inst.Init(nullptr, nullptr);
    EXPECT_EQ(Kodfil(), "");
    EXPECT_EQ(m_inst.MiljkodUppdatX(), 0);
}

TEST_F(KodfilerTest, MiljkodReads) {
    std::string const head = "rubrik\n*\nnoll\n*\n";
    char const* const klass = "FK Föroreningsklass max=6 steg=1"_1252;
    char const* const klassRead = "FK/Föroreningsklass/6/1"_1252;
    // read: as section 3
    std::pair<std::string, std::string> const cases[] = {
        {klass, klassRead},
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
    for (auto const& [records, read] : cases) {
        std::string text = head;
        text.append("*\n*\n").append(records).append("\n\n*\nB efter\n");
        Write("MILJKOD.DAT", text);
        EXPECT_EQ(Miljkod(3), read + "\n") << records;
    }
    Boxes const boxes;
    Write("MILJKOD.DAT", head + "ABCDE lång kod\nX a max=1 steg=2\n*\nABCD b\n*"_1252);
    EXPECT_EQ(m_inst.MiljkodRead(1, m_kod, m_text, nullptr, nullptr), 0);
    EXPECT_STREQ(m_text, "a max=1 steg=2");
    EXPECT_EQ(m_inst.MiljkodRead(1, m_kod, m_text, nullptr, nullptr), -1);
    std::string const tooLong = "Fel rad, namn är för långt\nABCDE lång kod"_1252;
    EXPECT_EQ(Boxes::Shown(), (std::vector<ShownBox>{{tooLong, "<title>", 48, 0}}));
    EXPECT_EQ(tooLong, MessageBuffer());
    EXPECT_EQ(Miljkod(0), "noll//100/20\n");
    EXPECT_EQ(Miljkod(2), "ABCD/b/100/20\n");
    for (int const none : {-1, 3, 4, INT_MAX, INT_MIN}) {
        EXPECT_EQ(Miljkod(none), "") << none;
    }
}

TEST_F(KodfilerTest, MiljkodIsWrittenInItsOrder) {
    Write("MILJKOD.DAT", "gammal rubrik\n*\n");
    auto const write = [&](int mode, char const* code, char const* text, int max = 9) {
        return m_inst.MiljKodWrite(mode, code, text, max, -1);
    };
    EXPECT_EQ(
        (Results{write(2, "X", "a"), write(1, nullptr, nullptr), write(2, "X", "två ord"_1252),
                 write(3, "", ""), write(8, "N", "annat"), write(4, "T", "b"), write(5, "", ""),
                 write(6, "FK", "c", 6), write(7, "", ""), write(7, "", "")}),
        (Results{-1, 0, 0, 0, 0, 0, 0, 0, 0, -1}));
    EXPECT_EQ(Read("MILJKOD.DAT"),
              "*\r\n*\r\nX två ord\r\n*\r\nT b\r\n*\r\nFK c max=6 steg=-1\r\n*\r\n"_1252);
}

TEST_F(KodfilerTest, TheObligatoryCodesAreAddedOnce) {
    std::string const x = "X okänd metod, sammanställning\r\n*\r\n"_1252;
    std::string const tolk = "TOLK Tolkad klassificering\r\n*\r\n";
    std::string const fk = "FK Föroreningsklass max=6 steg=1\r\n*\r\n"_1252;
    std::string const tail = "K " + longWord + "\r\n*\r\n"; // longer than a buffer
    std::string const all = "h\n*\n*\nX\n*\nTOLK\n*\nFK\n*\nsvans";
    std::pair<std::string, std::string> const cases[] = {
        {"*\n*\n*\n*\n*\n", "*\r\n*\r\n" + x + tolk + fk},
        {"rubrik\n*\nnoll\n*\nX egen\nx liten\n*\n *s blank\nTOLK\n" + tail + "K gr\x84ns max=3\n",
         "*\r\n*\r\nX egen\r\nx liten\r\n*\r\n *s blank\r\nTOLK \r\n" + tail +
             "K gr\xE4ns max=3 steg=20\r\n" + fk},
        {"*\n*\nx liten\n*\nTOLK\n*\nFK\n*\n", // codes are exact
         "*\r\n*\r\nx liten\r\n" + x + "TOLK \r\n*\r\nFK  max=100 steg=20\r\n*\r\n"},
        {all, all}, // untouched, byte for byte
    };
    for (auto const& [before, after] : cases) {
        Write("MILJKOD.DAT", before);
        EXPECT_EQ(m_inst.MiljkodUppdatX(), 0);
        EXPECT_EQ(Read("MILJKOD.DAT"), after) << before;
    }
}

// A line code's line: the text begins at column 49.
std::string At49(std::string line, std::string const& text) {
    line.resize(49, ' ');
    return line + text;
}

TEST_F(KodfilerTest, LinkodReads) {
    std::pair<std::string, std::string> const cases[] = {
        {At49("K1 LINJE 0.5 3", "Vägkant  mitt "_1252), "1:K1/LINJE/0.5/3/Vägkant  mitt"_1252},
        {At49("K1 LINJE 0.5 3", ""), "1:K1/LINJE/0.5/3/"},
        {At49("K1 LINJE 2", "12 m"), "1:K1/LINJE/2/12/12 m"}, // the text's number is read
        {"K1 LINJE 1,5 2", "1:K1/LINJE/1/0/"},
        {"PV12 G 1 2", "2:12/G/1/2/"},
        {"PV99x G 1 2", "2:99x/G/1/2/"},
        {"PV-5 G 1 2", "2:-5/G/1/2/"},
        {"PV100 G 1 2", "3:100/G/1/2/"},
        {"PV1 G 1 2", "1:PV1/G/1/2/"},
        {"PVAB G 1 2", "1:PVAB/G/1/2/"},
        {"pv12 G 1 2", "1:pv12/G/1/2/"},
        {At49("V\x8EG V\x8EG 1 2", "\x84ng"), "1:V\xC4G/V\x8EG/1/2/\xE4ng"},
        {longWord + " " + longWord + " 1 2",
         "1:" + cutWord + "/" + cutWord + "/1/2/" + longWord.substr(49) + " xxx"},
        {"K1 LINJE", "-2"},
        {"", "-2"},
    };
    for (auto const& [line, read] : cases) {
        Write("LINKOD.PAR", line + "\nK2 B 1 1\n*\nefter A 1 1\n");
        EXPECT_EQ(Linkod(), read + "\n1:K2/B/1/1/\n") << line;
    }
}

TEST_F(KodfilerTest, LinkodIsWrittenWithItsTextInColumn49) {
    auto const write = [&](int mode, char const* a, char const* b, char const* text) {
        return m_inst.LinkodWrite(mode, a, b, "1", text, mode == 4 ? "7" : nullptr);
    };
    EXPECT_EQ((Results{write(1, nullptr, nullptr, nullptr), write(2, "K1", "L", "t")}),
              (Results{0, -1})); // no file anywhere
    Write("LINKOD.PAR", "gammal");
    EXPECT_EQ(
        (Results{write(1, "", "", ""), write(2, "K1", "L", "text"), write(4, "12", "G", "PV text"),
                 write(3, "N", "N", "N"), write(2, "K2", nullptr, nullptr),
                 write(2, longWord.c_str(), "L", "jämn"_1252), write(5, "", "", ""),
                 write(5, "", "", "")}),
        (Results{0, 0, 0, 0, 0, 0, 0, -1}));
    EXPECT_EQ(Read("LINKOD.PAR"), At49("K1 L 1", "text\r\n") + At49("PV12 G 1 7", "PV text\r\n") +
                                      At49("K2  1", "\r\n") + At49(longWord, "jämn\r\n*\r\n"_1252));
}

TEST_F(KodfilerTest, StampelIsReadAndWritten) {
    std::string const path = Api("STAMPEL.PAR");
    Write("STAMPEL.PAR", "R\x99R A 1.5 -2 2.5\nB C 1 2\nkort 1 2\nD E 1 2 x\n" + longWord +
                             " F 1 1 1\n*\nG H 1 2 3\n");
    EXPECT_EQ(Stampel(),
              "1:R\xD6R/A/1.5/-2/2.5\n1:B/C/1/2/3\n-2\n1:D/E/1/2/3\n1:" + cutWord + "/F/1/1/1\n");
    Boxes const boxes;
    auto const write = [&](int mode, char const* s1, char const* s5, char const* file) {
        return m_inst.StampParWrite(file, mode, s1, "Plan", "10.0", "20.5", s5);
    };
    EXPECT_EQ((Results{write(1, "", "", path.c_str()), write(2, "RITNING", "3.5", ""),
                       write(4, "N", "N", ""), write(2, "DATUM", nullptr, ""), write(3, "", "", ""),
                       write(3, "", "", "")}),
              (Results{0, 0, 0, 0, 0, -1}));
    // An empty path opens nothing.
    EXPECT_EQ((Results{write(1, "", "", ""), write(2, "", "", nullptr)}), (Results{0, -1}));
    EXPECT_EQ(Read("STAMPEL.PAR"), "RITNING Plan 10.0 20.5 3.5\r\nDATUM Plan 10.0 20.5 \r\n");
    EXPECT_TRUE(Boxes::Shown().empty());
}

} // namespace
