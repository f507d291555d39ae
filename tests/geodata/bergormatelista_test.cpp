#include "geodata/bergormatelista.h"

#include <cmath>

#include <gtest/gtest.h>

#include "support/fulldisk.h"
#include "support/projekt.h"
#include "text/codepage.h"

namespace {

// A second copy of the tables, typed on its own, beside the one in the library.
std::string const berg = "Ss|Ks|Sk|Kv|Kk|Gs|Gn|Lt|Gg|Gö|Gr|Pf|Db|My|Mg|Br|Am|Ap|Pm|Ga|Kf|"_1252;
std::string const jord = "f  |mu |gy |t  |let|le |si |sa |gr |st |fr |mn |";
std::string const fyll = "ka|kl|gf|ta|fe|kv|ep|ho|fs|su|le|jo|of|";
std::string const bergNorsk =
    "Alunskifer|Amfibolitt|Amfibolittisk_gneis|Andesitt|Anortositt|Arkose|Basalt|Breksje|"
    "Båndgneis|Charnockitt|Diabas|Dioritt|Dolomitt|Eklogitt|Epidot|Fylitt|Gabbro|Gips|"
    "Glimmer|Glimmergneis|Glimmerskifer|Gneis|Grafitt|Granitt|Granittisk_gneis|"
    "Granodioritt|GrusOgSand|Gråvake|Grønnstein|Hornfels|Kalkspat|Kalkstein|Kleberstein|"
    "Kloritt|Knollekalk|Kvarts|Kvartsitt|Kvartskeratofyr|Leire|Leire,svellende|"
    "Leirinfisert_berg|Leirskifer|Leirstein|Lerie,innaktiv|Løsmasser|Marmor|Migmatitt|"
    "Monzonitt|Mylonitt|Olivin|Pegmatitt|Rombeporfyr|Ryolitt|Sandstein|Serpentin|Skifer|"
    "Svartskifer|Syenitt|Talk|Tonalitt|Tuff|Ultrabasitt|Øyegneis|"_1252;
std::string const bergVisas =
    "Alunskifer|Amfibolitt|Amfibolittisk gneis|Andesitt|Anortositt|Arkose|Basalt|Breksje|"
    "Båndgneis|Charnockitt|Diabas|Dioritt|Dolomitt|Eklogitt|Fylitt|Gabbro|Glimmergneis|"
    "Glimmerskifer|Gneis|Granitt|Granittisk gneis|Granodioritt|Grønnstein|Gråvakke|"
    "Hornfels|Kalkstein|Kleberstein|Knollekalk|Konglomerat|Kvartsitt|Kvartskeratofyr|"
    "Leirskifer|Leirstein|Løsmasser|Marmor|Migmatitt|Monzonitt|Mylonitt|Olivin|Pegmatitt|"
    "Rombeporfyr|Ryolitt|Sandstein|Skifer|Svartskifer|Syenitt|Tonalitt|Tuff|Ultrabasitt|"
    "Øyegneis|Leire|Leire, innaktiv|Leire, svellende|Kloritt|Talk|Grafitt|Serpentin|"
    "Kalkspat|Gips|Epidot|Glimmer|Kvarts|Grus og sand|Leirinfisert berg|"_1252;

template <std::size_t N> std::string Joined(char const* const (&table)[N]) {
    std::string all;
    for (char const* const entry : table) {
        (all += entry) += '|';
    }
    return all;
}

TEST(Materialtabeller, EntryForEntry) {
    using Lista = CBergOrMateLista;
    EXPECT_EQ(Joined(Lista::BERGARTER), berg);
    EXPECT_EQ(Joined(Lista::JORDARTER), jord);
    EXPECT_EQ(Joined(Lista::JORDARTERN), jord);
    EXPECT_EQ(Joined(Lista::FYLLNAD), fyll);
    EXPECT_EQ(Joined(Lista::FYLLNADN), fyll);
    EXPECT_EQ(Joined(Lista::BERGARTERN), bergNorsk + '|'); // and an empty one
    EXPECT_EQ(Joined(Lista::APPBERGARTERN), bergVisas);
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

// The current entry, every field.
std::string Fields(CBergOrMateLista& lista) {
    bergmattype const& post = *lista.Get_aktel();
    char text[200];
    std::snprintf(text, sizeof text, "%d %s/%s %.3f %d %.6f %d", post.nr, post.namn, post.text,
                  post.skala, post.monster, post.vinkel, post.flagga);
    return text;
}

std::string FieldsOf(CBergOrMateLista& lista, int nr) {
    return lista.Find(nr) == "??" ? "none" : Fields(lista);
}

TEST_F(BergOrMateListaTest, BuiltInLists) {
    struct {
        int slag;
        int norsk;
        int antal;
        char const* last;
    } const cases[] = {{rock, 0, 22, "21 Kf/ 1.000 4 0.000000 0"},
                       {rock, 1, 64, "63 \xD8yegneis/ 1.000 4 0.000000 0"},
                       {fill, 0, 14, "13 of/ 1.000 4 0.000000 0"},
                       {fill, 1, 14, "13 of/ 1.000 4 0.000000 0"},
                       {soil, 0, 13, "12 mn / 1.000 4 0.000000 0"},
                       {7, 1, 13, "12 mn / 1.000 4 0.000000 0"}};
    for (auto const& c : cases) {
        CBergOrMateLista lista(nullptr, &m_projekt, c.slag, c.norsk);
        EXPECT_EQ(lista.Home(), -1);
        EXPECT_EQ(lista.Init(), 0);
        int antal = 0;
        lista.Where(&antal);
        EXPECT_EQ(antal, c.antal);
        lista.End();
        EXPECT_EQ(Fields(lista), c.last);
        lista.Home();
        EXPECT_EQ(Fields(lista), "0  / 1.000 4 0.000000 0");
    }
    CBergOrMateLista lista(nullptr, nullptr, rock, 0);
    EXPECT_EQ(lista.Init(), 0);
    EXPECT_EQ(lista.Find(1), "Ss");
    EXPECT_EQ(lista.Find(22), "??");
    CString name = "gö"_1252;
    EXPECT_EQ(lista.FindNr(name), 10);
    name = "finns inte";
    EXPECT_EQ(lista.FindNr(name), 0);
    EXPECT_EQ(lista.Init(), 0); // appends again
    int antal = 0;
    lista.Where(&antal);
    EXPECT_EQ(antal, 44);
}

TEST_F(BergOrMateListaTest, LinesOfTheFile) {
    std::string const name40(40, 'n');
    std::string const text20(20, 't');
    struct {
        std::string line;
        int nr;
        std::string fields;
    } const cases[] = {
        {"3 Kv", 3, "3 Sk/ 1.000 4 0.000000 0"},
        {"3 a t 2.5 7 90\n3 Kv", 3, "3 Sk/ 1.000 4 0.000000 0"}, // what is left out is reset
        {"3 Kv text 2.5 7 90 1", 3, "3 Sk/text 2.500 4 1.570796 0"},
        {"20 Ny text", 20, "20 Ga/text 1.000 4 0.000000 0"},
        {"21 Ny text", 21, "21 Ny/text 1.000 4 0.000000 0"}, // the table's count: the name too
        {"22 Ny text 0.5 7 180 9", 22, "22 Ny/text 0.500 7 3.141593 0"},
        {"-5 Egen text 0.01 256 -90 9", -5, "-5 Egen/text 0.010 256 -1.570796 9"},
        {"-5 Egen text 0.009 257 1", -5, "-5 Egen/text 1.000 4 0.017453 0"},
        {"-5 Egen text -1 0", -5, "-5 Egen/text 1.000 4 0.000000 0"},
        {"-5 Egen text nan", -5, "-5 Egen/text 1.000 4 0.000000 0"},
        {"-5 Egen text x 7 90", -5, "-5 Egen/text 1.000 4 0.000000 0"},
        {"99999 Stor", 32767, "32767 Stor/ 1.000 4 0.000000 0"},
        {"-5", -5, "none"},
        {"x -5 Egen", -5, "none"},
        {"", -5, "none"},
        {"-5 " + name40 + " " + text20, -5,
         "-5 " + name40.substr(0, 30) + "/" + text20.substr(0, 16) + " 1.000 4 0.000000 0"},
        {"-5 Egen a b c d e f g h", -5, "-5 Egen/a 1.000 4 0.000000 0"},
        {"*\n-5 Egen", -5, "none"}, // the section ends
    };
    for (auto const& c : cases) {
        Write(c.line + "\n");
        CBergOrMateLista lista(&m_ini, &m_projekt, rock, 0);
        lista.Init();
        EXPECT_EQ(FieldsOf(lista, c.nr), c.fields) << c.line;
    }
    Write("-5 A\n-5 B\n30 C\n30 D x\n*\n1 fyll text\n-7 F\n*\n-8 G\n");
    CBergOrMateLista rocks(&m_ini, &m_projekt, rock, 0);
    rocks.Init();
    int antal = 0;
    rocks.Where(&antal);
    EXPECT_EQ(antal, 25);
    EXPECT_EQ(FieldsOf(rocks, 30), "30 D/x 1.000 4 0.000000 0");
    CBergOrMateLista fills(&m_ini, &m_projekt, fill, 0);
    fills.Init();
    EXPECT_EQ(FieldsOf(fills, 1), "1 ka/text 1.000 4 0.000000 0");
    EXPECT_EQ(fills.Find(-7), "F");
    EXPECT_EQ(fills.Find(-8), "??");
    CBergOrMateLista soils(&m_ini, &m_projekt, soil, 0);
    soils.Init();
    EXPECT_EQ(soils.Find(-5), "??");
}

TEST_F(BergOrMateListaTest, NorwegianNumbersShiftAfter31) {
    Write("30 A fore\n31 Ikke_i_bruk\n32 B efter\n0 C noll\n64 D sist\n80 E ny\n-3 F egen\n",
          "StenkodN.dat");
    Write("1 fel", "Stenkod.dat");
    CBergOrMateLista lista(&m_ini, &m_projekt, rock, 1);
    lista.Init();
    EXPECT_EQ(FieldsOf(lista, 30), "30 Hornfels/fore 1.000 4 0.000000 0");
    EXPECT_EQ(FieldsOf(lista, 31), "31 Kalkspat/efter 1.000 4 0.000000 0");
    EXPECT_EQ(FieldsOf(lista, 32), "32 Kalkstein/ 1.000 4 0.000000 0");
    EXPECT_EQ(FieldsOf(lista, 63), "63 D/sist 1.000 4 0.000000 0");
    EXPECT_EQ(FieldsOf(lista, 80), "80 E/ny 1.000 4 0.000000 0"); // a new one keeps its number
    EXPECT_EQ(lista.Find(-3), "F");
    lista.Find(0);
    EXPECT_EQ(Fields(lista), "0  / 1.000 4 0.000000 0"); // 0 was matched as -1, and appended
    Write("31 Ikea\n32 B efter\n", "StenkodN.dat");
    CBergOrMateLista unshifted(&m_ini, &m_projekt, rock, 1);
    unshifted.Init();
    EXPECT_EQ(FieldsOf(unshifted, 32), "32 Kalkstein/efter 1.000 4 0.000000 0");
    CBergOrMateLista swedish(&m_ini, &m_projekt, fill, 0);
    Write("*\n31 Ikke x\n");
    swedish.Init();
    EXPECT_EQ(FieldsOf(swedish, 31), "31 Ikke/x 1.000 4 0.000000 0");
}

TEST_F(BergOrMateListaTest, SavingWritesTheSectionAndTheOthersNames) {
    m_folder.Write("huvud/Stenkod.dat", "huvud");
    m_folder.Write("cfg/Stenkod.dat", "rubrik\r\n*\nandra\r\n*\n-1 Egen text 2 3 90 4\n"
                                      "*\ngammalt\n*\nsvans\n");
    CBergOrMateLista rocks(&m_ini, &m_projekt, rock, 0);
    CBergOrMateLista fills(&m_ini, &m_projekt, fill, 0);
    rocks.Init();
    fills.Init();
    while (fills.Home() == 0 && fills.Delete() == 0) {
    }
    bergmattype post = {-2, 5, 6, 1.5, 0.25, "Namn", "tappas"};
    fills.Ny(1, &post);
    while (rocks.Where(nullptr) > 0 && rocks.Home() == 0 && rocks.Get_aktel()->nr >= 0) {
        rocks.Delete();
    }
    EXPECT_EQ(rocks.Save(&fills), 0);
    std::string const head = "rubrik\r\n*\nandra\r\n*\n"; // byte for byte
    EXPECT_EQ(m_folder.Read("cfg/Stenkod.dat"),
              head + "-1 Egen text 2.000 3 1.571 4\r\n*\r\n-2 Namn\r\n*\r\n");
    EXPECT_EQ(fills.Save(nullptr), 0);
    EXPECT_EQ(m_folder.Read("cfg/Stenkod.dat"), head +
                                                    "-1 Egen text 2.000 3 1.571 4\r\n*\r\n"
                                                    "-2 Namn tappas 1.500 5 0.250 6\r\n*\r\n*\r\n");
    EXPECT_EQ(m_folder.Read("huvud/Stenkod.dat"), "huvud");

    Write(""); // project first; sections that are missing are added
    WriteBytes(m_folder / "projekt/Stenkod.dat", "*\nutan slut");
    EXPECT_EQ(rocks.Save(nullptr), 0);
    EXPECT_EQ(Read(), "*\nutan slut\r\n*\r\n-1 Egen text 2.000 3 1.571 4\r\n*\r\n*\r\n");
    CBergOrMateLista again(&m_ini, &m_projekt, rock, 0);
    again.Init();
    EXPECT_EQ(again.Find(-1), "Egen");

    CBergOrMateLista soils(&m_ini, &m_projekt, soil, 0);
    soils.Init();
    std::string const before = Read();
    EXPECT_EQ(soils.Save(nullptr), -1);
    EXPECT_EQ(Read(), before);
    std::filesystem::remove(m_folder / "projekt/Stenkod.dat");
    std::filesystem::create_directory(m_folder / "projekt/Stenkod.dat");
    EXPECT_EQ(rocks.Save(nullptr), -2);
    CProjPath none;
    CBergOrMateLista nowhere(nullptr, &none, rock, 0);
    EXPECT_EQ(nowhere.Save(nullptr), -1);
}

#if !defined(_WIN32)

TEST_F(BergOrMateListaTest, AFileThatCannotBeReadToItsEndStays) {
    std::filesystem::create_symlink("/proc/self/mem", m_folder / "projekt/Stenkod.dat");
    CBergOrMateLista rocks(&m_ini, &m_projekt, rock, 0);
    EXPECT_EQ(rocks.Init(), 0);
    EXPECT_EQ(rocks.Save(nullptr), -2);
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "projekt/Stenkod.dat"));

    std::filesystem::remove(m_folder / "projekt/Stenkod.dat");
    Write("-1 Egen\n"); // and can be read later: the list does not know it
    std::string const whole = Read();
    EXPECT_EQ(rocks.Save(nullptr), -2);
    EXPECT_EQ(Read(), whole);
    rocks.Init();
    FullDisk const full(8);
    EXPECT_EQ(rocks.Save(nullptr), -2);
    EXPECT_EQ(Read(), whole);
}

#endif

} // namespace
