#include <random>

#include "kvarnfiles/kvarnpar.h"
#include "support/commalocale.h"
#include "support/hostcalls.h"
#include "support/projekt.h"
#include "text/codepage.h"

namespace {

using KvarnInstTest = ProjektTest;

TEST_F(KvarnInstTest, ProjectThenSharedThenDefault) {
    m_folder.Write("cfg/KVARNBOK.PAR", "HSKALA=500\r\nLSKALA=250\r\n");
    m_folder.Write("cfg/KLIPPBOK.PAR", "HSKALA=50\r\n");
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "HSKALA"), "500");
    Write("KVARNBOK.PAR", "HSKALA=200\r\nTXTVIDD=\r\n");
    std::tuple<char const*, char const*, char const*, char const*> const cases[] = {
        {"kvarnbok.par", "hskala", "200", "100"},
        {"KVARNBOK.PAR", "LSKALA", "100", "100"},  // not the shared file's
        {"KVARNBOK.PAR", "TXTVIDD", "1.0", "1.0"}, // empty is missing
        {"KVARNBOK.PAR", "OK\xC4ND", "", ""},
        {"KLIPPBOK.PAR", "HSKALA", "50", "100"},
        {"KLIPPBOK.PAR", "LINJEBREDD", "F\xC4RG", "F\xC4RG"},
        {"JB23.PAR", "FTSKALA", "100", "100"}, // another one than the drawing program's
        {"ANNAN.PAR", "HSKALA", "", ""},
        {"cfg\\KVARNBOK.PAR", "HSKALA", "", ""}, // a name, never a path
    };
    CKvarnInst fresh; // knows no files
    for (auto const& [file, key, value, standard] : cases) {
        SCOPED_TRACE(std::string(file) + ' ' + key);
        EXPECT_EQ(m_inst.ReadKey(file, key), value);
        EXPECT_EQ(fresh.ReadKey(file, CString(key)), standard);
        EXPECT_EQ(m_inst.Default(file, key), standard);
    }
}

TEST_F(KvarnInstTest, NumbersHaveTheirSentinels) {
    std::tuple<char const*, int, double> const cases[] = {
        {"max", -1, -9.0},  {"MAX", -1, -9.0}, {"ord", -9, -9.0},
        {"2.5", 2, 2.5},    {" 7 st", 7, 7.0}, {"99999999999", 2147483647, 99999999999.0},
        {"1e3", 1, 1000.0}, {"2,5", 2, 2.0},   {"MAXIMUM", -9, -9.0},
    };
    CommaLocale const comma; // changes nothing
    for (auto const& [text, integer, number] : cases) {
        Write("KVARNBOK.PAR", std::string("HSKALA=") + text + "\r\n");
        EXPECT_EQ(m_inst.ReadKeyInt("KVARNBOK.PAR", "HSKALA", 0), integer) << text;
        EXPECT_EQ(m_inst.ReadKeyDouble("KVARNBOK.PAR", "HSKALA", 0), number) << text;
    }
    EXPECT_EQ(m_inst.ReadKeyInt("KVARNBOK.PAR", "HSKALA", 1), 100); // the default alone
    EXPECT_EQ(m_inst.ReadKeyInt("KVARNBOK.PAR", "SAKNAS", 1), -9);
    EXPECT_EQ(m_inst.ReadKeyDouble("KVARNBOK.PAR", "DENSSTEG", 1), 0.5);
    EXPECT_EQ(CKvarnInst::LocaleCheckAndFix(), 0);
    EXPECT_STREQ(std::localeconv()->decimal_point, ".");
    EXPECT_EQ(CKvarnInst::LocaleCheckAndFix(), 0);
}

TEST_F(KvarnInstTest, NumbersAreWrittenWithAPointAndOpenScalesAsMax) {
    EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "HSKALA", "200"), 0); // there is no file
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "HSKALA"), "100");
    Write("KVARNBOK.PAR", "A=1\r\n");
    std::tuple<char const*, int, char const*> const whole[] = {
        {"HSKALA", -1, "MAX"}, {"XSKALAX", -1, "MAX"}, {"HSKALA", -2, "-2"},
        {"DECIMAL", -1, "-1"}, {"pskala", -1, "-1"},   {"TAL", INT_MAX, "2147483647"}};
    for (auto const& [key, value, text] : whole) {
        EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", key, value), 0);
        EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", key), text) << key;
    }
    // text: a value too long changes nothing
    std::tuple<double, int, int, char const*> const numbers[] = {
        {2.0, 3, 0, "2.000"}, {3.25, -1, 0, "3.250000"}, {2.0, 0, 0, "2"}, {1.0, 1000, -1, "2"}};
    CommaLocale const comma;
    for (auto const& [value, decimals, result, text] : numbers) {
        EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "D", value, decimals), result) << text;
        EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "D"), text);
    }
    Write("KLIPPBOK.PAR", "");
    EXPECT_EQ(m_inst.WriteKey("KLIPPBOK.PAR", "VFMAX", "60"), 0);
    EXPECT_EQ(Read("KLIPPBOK.PAR"), "VFMAX=60\r\n");
    EXPECT_EQ(m_inst.WriteKey("ANNAN.PAR", "A", "2"), 0);
    EXPECT_FALSE(std::filesystem::exists(m_folder / "projekt/ANNAN.PAR"));
    std::filesystem::remove(m_folder / "projekt/KVARNBOK.PAR");

    Boxes const boxes;
    Block("KVARNBOK.PAR");
    EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "HSKALA", "200"), -1);
    EXPECT_EQ(Boxes::Shown().size(), 2U); // reading, then writing
}

// Both the facade, which makes no list, and the object write what one list gives that takes the
// keys one after the other.
TEST_F(KvarnInstTest, SeveralKeysAreWrittenAsOneAfterTheOther) {
    std::mt19937 random(1);
    auto const any = [&](auto const& values) -> std::string const& {
        return values[random() % std::size(values)];
    };
    std::string const keys[] = {"A", "a", "B", "\xC4", "\xE4", "", std::string(39, 'k')};
    std::string const values[] = {"", "1", "2\n3", "=", std::string(258, 'v')};
    std::string const lines[] = {"A=1\r\n",
                                 "b=2\n",
                                 "a=3\r\n",
                                 "\xE4=\r\n",
                                 "=4\r\n",
                                 "ord\r\n",
                                 std::string(40, 'k') + "=5\r\n",
                                 "B=6\r7\r\n",
                                 "a=8"};
    for (int round = 0; round < 200; ++round) {
        std::string before;
        for (auto i = random() % 6; i > 0; --i) {
            before += any(lines);
        }
        SCOPED_TRACE(before);
        std::vector<nyckelvarde> all(1 + random() % 4);
        for (nyckelvarde& key : all) {
            key = {any(keys).c_str(), any(values).c_str(), 7};
        }
        auto const written = [&](auto write) {
            Write("KVARNBOK.PAR", before);
            CKvarnPAR par(&m_ini, &m_projekt);
            write(par);
            return Read("KVARNBOK.PAR");
        };
        std::string const expected = written([&](CKvarnPAR& par) {
            for (nyckelvarde const& key : all) {
                EXPECT_EQ(par.WriteKey(key.nyckel, key.varde), 0);
            }
        });
        int const count = static_cast<int>(all.size());
        EXPECT_EQ(expected, written([&](CKvarnPAR& par) { par.WriteKeys(all.data(), count); }));
        EXPECT_EQ(expected, written([&](CKvarnPAR&) {
                      EXPECT_EQ(m_inst.WriteKeys("KVARNBOK.PAR", all.data(), count), 0);
                  }));
        EXPECT_EQ(all.back().resultat, 0);
    }
}

TEST_F(KvarnInstTest, SeveralKeysAreWrittenAllOrNone) {
    std::string const tooLong(260, 'v');
    nyckelvarde keys[] = {{"A", "2", 7}, {"B", tooLong.c_str(), 7}, {nullptr, nullptr, 7}};
    auto const results = [&](int all) {
        std::string text = std::to_string(all) + ":";
        for (nyckelvarde const& key : keys) {
            text += ' ' + std::to_string(key.resultat);
        }
        return text;
    };
    Boxes const boxes;
    Write("KLIPPBOK.PAR", "A=1\r\n");
    EXPECT_EQ(results(m_inst.WriteKeys("KLIPPBOK.PAR", keys, 3)), "-1: -2 -1 -2");
    CKvarnPAR par(&m_ini, &m_projekt, 1);
    EXPECT_EQ(results(par.WriteKeys(keys, 3)), "-1: -2 -1 -2");
    EXPECT_EQ(par.ReadKey("A"), "1");
    EXPECT_EQ(Read("KLIPPBOK.PAR"), "A=1\r\n");
    EXPECT_EQ(m_inst.WriteKeys("KLIPPBOK.PAR", keys, 0), 0);
    EXPECT_EQ(m_inst.WriteKeys("KLIPPBOK.PAR", nullptr, 3), 0);

    keys[1].varde = "3";
    EXPECT_EQ(results(m_inst.WriteKeys("KLIPPBOK.PAR", keys, 3)), "0: 0 0 0");
    EXPECT_EQ(Read("KLIPPBOK.PAR"), "A=2\r\nB=3\r\n");
    EXPECT_TRUE(Boxes::Shown().empty());
    Block("KVARNBOK.PAR");
    EXPECT_EQ(results(m_inst.WriteKeys("KVARNBOK.PAR", keys, 3)), "-1: -2 -2 -2");
    EXPECT_EQ(Boxes::Shown().size(), 2U); // it cannot be read, nor written
    Block("JB23.PAR");
    EXPECT_EQ(results(m_inst.WriteKeys("JB23.PAR", keys, 3)), "-1: -2 -2 -2");
}

TEST_F(KvarnInstTest, SeveralScalesAreWrittenInOneStep) {
    nyckelvarde keys[] = {{"SJUNKSKALA", "10", 7}, {"HASTSTEG", "20", 7}, {"SJUNKSTEG", "30", 7}};
    EXPECT_EQ(m_inst.WriteKeys("JB23.PAR", keys, 3), 0);
    EXPECT_EQ(m_folder.Read("cfg/JB23.PAR"), "10   30\r\n0   20\r\n");
#if !defined(_WIN32)
    HostCalls const calls;
    EXPECT_EQ(m_inst.WriteKeys("JB23.PAR", keys, 3), 0);
    EXPECT_EQ(calls.Made({"rename"}), "rename JB23.tmp\nrename JB23.PAR\n");
#endif
}

TEST_F(KvarnInstTest, CopiesSharePointers) {
    CKvarnInst copy(m_inst);
    CAutoIni* ini = nullptr;
    CProjPath* projekt = nullptr;
    copy.GetAiniProjPath(&ini, &projekt);
    EXPECT_EQ(ini, &m_ini);
    EXPECT_EQ(projekt, &m_projekt);
    CKvarnInst assigned;
    assigned = copy;
    EXPECT_EQ(assigned.AiniPtr(), &m_ini);
}

} // namespace
