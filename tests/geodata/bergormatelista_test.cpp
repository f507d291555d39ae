#include "geodata/bergormatelista.h"

#include <gtest/gtest.h>

#include "support/checksum.h"
#include "support/fulldisk.h"
#include "support/projekt.h"

namespace {

using Lista = CBergOrMateLista;

// Of the entries, each with its zero.
template <std::size_t N> std::uint64_t Checksum(char const* const (&table)[N]) {
    std::string all;
    for (char const* const entry : table) {
        all.append(entry).push_back('\0');
    }
    return ::Checksum(all);
}

TEST(Materialtabeller, HoldTheirEntries) {
    EXPECT_EQ(Checksum(Lista::BERGARTER), 0xae7f15efb29dc244U);
    EXPECT_EQ(Checksum(Lista::JORDARTER), 0x4e619cde64640108U);
    EXPECT_EQ(Checksum(Lista::JORDARTERN), 0x4e619cde64640108U);
    EXPECT_EQ(Checksum(Lista::FYLLNAD), 0x0560b0460b8109dcU);
    EXPECT_EQ(Checksum(Lista::FYLLNADN), 0x0560b0460b8109dcU);
    EXPECT_EQ(Checksum(Lista::BERGARTERN), 0xecb8a896c08a07cfU);
    EXPECT_EQ(Checksum(Lista::APPBERGARTERN), 0x4c0c047d932d32c8U);
    EXPECT_STREQ(Lista::APPBERGARTERN[63], "Leirinfisert berg");
    EXPECT_STREQ(Lista::FILNAMN, "Stenkod.dat");
    EXPECT_STREQ(Lista::FILNAMNN, "StenkodN.dat");
}

enum Slag { rock, fill, soil };

class BergOrMateListaTest : public ProjektTest {
  protected:
    void Write(std::string_view rows, char const* name = "Stenkod.dat") const {
        ProjektTest::Write(name, "h\n*\n*\n" + std::string(rows));
    }
    std::string Read() const { return ProjektTest::Read("Stenkod.dat"); }
};

struct Materials : Lista {
    Materials(CAutoIni* ini, CProjPath* projekt, int slag, int norsk = 0)
        : Lista(ini, projekt, slag, norsk) {
        EXPECT_EQ(Home(), -1);
        EXPECT_EQ(Init(), 0);
    }
    int Count() {
        int antal = 0;
        Where(&antal);
        return antal;
    }
    // The entry of a number, every field; without the ones that stand in every table.
    std::string Fields(int nr) {
        if (Find(nr) == "??") {
            return "none";
        }
        bergmattype const& post = *Get_aktel();
        char text[200];
        std::snprintf(text, sizeof text, "%d %s/%s %.3f %d %.6f %d", post.nr, post.namn, post.text,
                      post.skala, post.monster, post.vinkel, post.flagga);
        std::string fields = text;
        std::string const builtIn = " 1.000 4 0.000000 0";
        return fields.ends_with(builtIn) ? fields.substr(0, fields.size() - builtIn.size())
                                         : fields;
    }
};

TEST_F(BergOrMateListaTest, BuiltInLists) {
    std::tuple<int, int, int, char const*> const cases[] = {
        {rock, 0, 22, "21 Kf/"}, {rock, 1, 64, "63 \xD8yegneis/"}, {fill, 0, 14, "13 of/"},
        {fill, 1, 14, "13 of/"}, {soil, 0, 13, "12 mn /"},         {7, 1, 13, "12 mn /"}};
    for (auto const& [slag, norsk, antal, last] : cases) {
        SCOPED_TRACE(testing::Message() << slag << ' ' << norsk);
        Materials lista(nullptr, &m_projekt, slag, norsk);
        EXPECT_EQ(lista.Count(), antal);
        EXPECT_EQ(lista.Fields(antal - 1), last);
        EXPECT_EQ(lista.Fields(0), "0  /");
        EXPECT_EQ(lista.Find(antal), "??");
    }
    Materials lista(nullptr, nullptr, rock);
    CString name = "g\xD6";
    EXPECT_EQ(lista.FindNr(name), 10);
    name = "finns inte";
    EXPECT_EQ(lista.FindNr(name), 0);
    EXPECT_EQ(lista.Init(), 0); // appends again
    EXPECT_EQ(lista.Count(), 44);
}

TEST_F(BergOrMateListaTest, LinesOfTheFile) {
    std::string const name30(30, 'n');
    std::string const text16(16, 't');
    std::tuple<std::string, int, std::string> const cases[] = {
        {"3 Kv", 3, "3 Sk/"},
        {"3 a t 2.5 7 90\n3 Kv", 3, "3 Sk/"}, // what is left out is reset
        {"3 Kv text 2.5 7 90 1", 3, "3 Sk/text 2.500 4 1.570796 0"},
        {"20 Ny text", 20, "20 Ga/text"},
        {"21 Ny text", 21, "21 Ny/text"}, // the table's count: the name too
        {"22 Ny text 0.5 7 180 9", 22, "22 Ny/text 0.500 7 3.141593 0"},
        {"22 C\n22 D x", 22, "22 D/x"},
        {"-5 Egen text 0.01 256 -90 9", -5, "-5 Egen/text 0.010 256 -1.570796 9"},
        {"-5 Egen text 0.009 257 1", -5, "-5 Egen/text 1.000 4 0.017453 0"},
        {"-5 Egen text nan 0", -5, "-5 Egen/text"},
        {"-5 Egen text x 7 90", -5, "-5 Egen/text"},
        {"99999 Stor", 32767, "32767 Stor/"},
        {"-5", -5, "none"},
        {"x -5 Egen", -5, "none"},
        {"-5 " + name30 + "n " + text16 + "t", -5, "-5 " + name30 + "/" + text16},
        {"*\n-5 Egen", -5, "none"}, // the section ends
    };
    for (auto const& [line, nr, fields] : cases) {
        Write(line + "\n");
        EXPECT_EQ(Materials(&m_ini, &m_projekt, rock).Fields(nr), fields) << line;
    }
    Write("-5 A\n-5 B\n*\n1 fyll text\n-7 F\n*\n-8 G\n");
    EXPECT_EQ(Materials(&m_ini, &m_projekt, rock).Count(), 22 + 2);
    Materials fills(&m_ini, &m_projekt, fill);
    EXPECT_EQ(fills.Fields(1), "1 ka/text");
    EXPECT_EQ(fills.Find(-7), "F");
    EXPECT_EQ(fills.Count(), 14 + 1);
    EXPECT_EQ(Materials(&m_ini, &m_projekt, soil).Count(), 13);
}

TEST_F(BergOrMateListaTest, NorwegianNumbersShiftAfter31) {
    Write("30 A fore\n31 Ikke_i_bruk\n32 B efter\n0 C noll\n64 D sist\n80 E ny\n-3 F egen\n",
          "StenkodN.dat");
    Write("31 Ikke x", "Stenkod.dat");
    Materials lista(&m_ini, &m_projekt, rock, 1);
    std::pair<int, char const*> const cases[] = {
        {30, "30 Hornfels/fore"}, {31, "31 Kalkspat/efter"},
        {32, "32 Kalkstein/"},    {63, "63 D/sist"},
        {80, "80 E/ny"}, // a new one keeps its number
        {-3, "-3 F/egen"},        {0, "0  /"}};
    for (auto const& [nr, fields] : cases) {
        EXPECT_EQ(lista.Fields(nr), fields);
    }
    EXPECT_EQ(lista.Count(), 64 + 3); // 0 was matched as -1, and appended
    EXPECT_EQ(Materials(&m_ini, &m_projekt, rock).Fields(31), "31 Ikke/x");
    Write("31 Ikea\n32 B efter\n", "StenkodN.dat");
    EXPECT_EQ(Materials(&m_ini, &m_projekt, rock, 1).Fields(32), "32 Kalkstein/efter");
}

TEST_F(BergOrMateListaTest, SavingWritesTheSectionAndTheOthersNames) {
    m_folder.Write("huvud/Stenkod.dat", "huvud");
    m_folder.Write("cfg/Stenkod.dat", "rubrik\r\n*\nandra\r\n*\n-1 Egen text 2 3 90 4\n"
                                      "*\ngammalt\n*\nsvans\n");
    Materials rocks(&m_ini, &m_projekt, rock);
    Materials fills(&m_ini, &m_projekt, fill);
    while (fills.Home() == 0 && fills.Delete() == 0) {
    }
    bergmattype post = {-2, 5, 6, 1.5, 0.25, "Namn", "tappas"};
    fills.Ny(1, &post);
    while (rocks.Home() == 0 && rocks.Get_aktel()->nr >= 0) {
        rocks.Delete();
    }
    std::string const head = "rubrik\r\n*\nandra\r\n*\n"; // byte for byte
    std::string const own = "-1 Egen text 2.000 3 1.571 4\r\n*\r\n";
    EXPECT_EQ(rocks.Save(&fills), 0);
    EXPECT_EQ(m_folder.Read("cfg/Stenkod.dat"), head + own + "-2 Namn\r\n*\r\n");
    EXPECT_EQ(fills.Save(nullptr), 0);
    EXPECT_EQ(m_folder.Read("cfg/Stenkod.dat"),
              head + own + "-2 Namn tappas 1.500 5 0.250 6\r\n*\r\n*\r\n");
    EXPECT_EQ(m_folder.Read("huvud/Stenkod.dat"), "huvud");

    ProjektTest::Write("Stenkod.dat", "*\nutan slut"); // project first; what is missing is added
    EXPECT_EQ(rocks.Save(nullptr), 0);
    std::string const saved = "*\nutan slut\r\n*\r\n" + own + "*\r\n";
    EXPECT_EQ(Read(), saved);
    EXPECT_EQ(Materials(&m_ini, &m_projekt, soil).Save(nullptr), -1);
    EXPECT_EQ(Read(), saved);
    std::filesystem::remove(m_folder / "projekt/Stenkod.dat");
    Block("Stenkod.dat");
    EXPECT_EQ(rocks.Save(nullptr), -2);
    CProjPath none;
    EXPECT_EQ(Materials(nullptr, &none, rock).Save(nullptr), -1);
}

#if !defined(_WIN32)

TEST_F(BergOrMateListaTest, AFileThatCannotBeReadToItsEndStays) {
    std::filesystem::create_symlink("/proc/self/mem", m_folder / "projekt/Stenkod.dat");
    Materials rocks(&m_ini, &m_projekt, rock);
    EXPECT_EQ(rocks.Save(nullptr), -2);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "projekt/Stenkod.dat"));

    std::filesystem::remove(m_folder / "projekt/Stenkod.dat");
    Write("-1 Egen\n"); // and can be read later: the list does not know it
    std::string const whole = Read();
    EXPECT_EQ(rocks.Save(nullptr), -2);
    EXPECT_EQ(Read(), whole);
    rocks.Init();
    EXPECT_EQ(rocks.Save(nullptr), 0);
    std::string const saved = Read();
    FullDisk const full(8);
    EXPECT_EQ(rocks.Save(nullptr), -2);
    EXPECT_EQ(Read(), saved);
}

#endif

} // namespace
