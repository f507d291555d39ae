#include "support/projekt.h"
#include "text/codepage.h"

namespace {

using Jb23Test = ProjektTest;

TEST_F(Jb23Test, EachKeyHasItsLineAndColumn) {
    std::string file;
    char const* const quantities[] = {"SJUNK",  "HAST",  "KRAFT", "RPM", "SPOL", "FLODE",
                                      "HAMMAR", "TRYCK", "QT",    "FT",  "U"};
    for (char const* const quantity : quantities) {
        (((file += quantity) += "1 \t ") += quantity) += "2\r\n";
    }
    Write("JB23.PAR", file + "sista raden");
    for (std::string const quantity : quantities) {
        EXPECT_EQ(m_inst.ReadKey("jb23.par", (quantity + "SKALA").c_str()),
                  (quantity + "1").c_str());
        EXPECT_EQ(m_inst.ReadKey("JB23.PAR", (quantity + "STEG").c_str()),
                  (quantity + "2").c_str());
    }
    for (char const* const unknown : {"hastskala", "HASTSKALAN", "XUSKALA", "", "SKALA"}) {
        EXPECT_EQ(m_inst.Jb23ReadKey(unknown), "SJUNK1") << unknown;
    }
    for (char const* const unknown : {"STEG", "hastSTEG", "HASTSTEGET"}) {
        EXPECT_EQ(m_inst.Jb23ReadKey(unknown), "SJUNK2") << unknown;
    }
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "USTEG", "9"), 0);
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "hastskala", -1), 0); // the first line's, as a number
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "HASTSKALA", -1), 0);
    file.replace(file.find("U1"), std::string::npos, "U1   9\r\nsista raden\r\n");
    file.replace(0, file.find("KRAFT"), "-1   SJUNK2\r\nMAX   HAST2\r\n");
    EXPECT_EQ(Read("JB23.PAR"), file);
    EXPECT_EQ(m_inst.ReadKeyInt("JB23.PAR", "HASTSKALA", 0), -1);
}

TEST_F(Jb23Test, AShortFileGrowsByOneLineWhicheverTheKeyHas) {
    struct {
        char const* file;
        char const* key;
        char const* written;
    } const cases[] = {
        {"100 50\r\n40 10\r\n", "KRAFTSKALA", "100 50\r\n40 10\r\nNY   0\r\n"},
        {"100 50\n40 10", "USKALA", "100 50\r\n40 10\r\nNY   0\r\n"},
        {"100 50\n", "USTEG", "100 50\r\n0   NY\r\n"},
        {"", "SJUNKSKALA", "NY   0\r\n"}, // there, and empty
        {"100\n", "SJUNKSTEG", "100   NY\r\n"},
        {"100\n", "SJUNKSKALA", "NY   \r\n"},
        {"100 50 extra\n", "SJUNKSKALA", "NY   50\r\n"},
        {"*\n", "SJUNKSKALA", "NY   \r\n"},
    };
    for (auto const& c : cases) {
        Write("JB23.PAR", c.file);
        EXPECT_EQ(m_inst.WriteKey("JB23.PAR", c.key, "NY"), 0);
        EXPECT_EQ(Read("JB23.PAR"), c.written) << c.file << c.key;
    }
    Write("JB23.PAR", "100 50\r\n40 10\r\n");
    EXPECT_EQ(m_inst.ReadKey("JB23.PAR", "HASTSTEG"), "10");
    EXPECT_EQ(m_inst.Jb23ReadKey("KRAFTSKALA"), "");
    EXPECT_EQ(m_inst.ReadKey("JB23.PAR", "KRAFTSKALA"), "30"); // the default
    Write("JB23.PAR", "*\n");
    EXPECT_EQ(m_inst.ReadKey("JB23.PAR", "SJUNKSKALA"), "*");
    EXPECT_EQ(m_inst.ReadKey("JB23.PAR", "SJUNKSTEG"), "50");
    EXPECT_EQ(m_folder.Names().size(), 3U);
}

TEST_F(Jb23Test, ANewFileIsMadeInTheCfgFolder) {
    EXPECT_EQ(m_inst.Jb23WriteKey("SJUNKSKALA", "120"), "120");
    EXPECT_EQ(m_folder.Read("cfg/JB23.PAR"), "120   50\r\n");
    std::filesystem::remove(m_folder / "cfg/JB23.PAR");
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "HASTSKALA", "20"), 0);
    EXPECT_TRUE(std::filesystem::exists(m_folder / "cfg/JB23.PAR"));
    EXPECT_EQ(m_folder.Read("cfg/JB23.PAR"), "");
    m_folder.Write("huvud/JB23.PAR", "1 2\n"); // the other copies are the reader's too
    std::filesystem::remove(m_folder / "cfg/JB23.PAR");
    EXPECT_EQ(m_inst.Jb23WriteKey("SJUNKSTEG", "3"), "3");
    EXPECT_EQ(m_folder.Read("huvud/JB23.PAR"), "1   3\r\n");
    Write("JB23.PAR", "4 5\n");
    EXPECT_EQ(m_inst.Jb23ReadKey("SJUNKSTEG"), "5");
    CKvarnInst utanIni;
    CAutoIni utanKatalog;
    utanIni.Init(&utanKatalog, nullptr);
    EXPECT_EQ(utanIni.Jb23WriteKey("SJUNKSKALA", "1"), "1");
    utanIni.Init(nullptr, nullptr);
    EXPECT_EQ(utanIni.Jb23WriteKey("SJUNKSKALA", "1"), "1");
    EXPECT_EQ(utanIni.Jb23ReadKey("SJUNKSKALA"), "");
}

TEST_F(Jb23Test, WhatCannotBeOpenedStays) {
    Boxes const boxes;
    Write("JB23.PAR", "1 2\n");
    Block("JB23.tmp");
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "SJUNKSKALA", "9"), 0);
    EXPECT_EQ(Read("JB23.PAR"), "1 2\n");
    EXPECT_TRUE(Boxes::Shown().empty());
    std::filesystem::remove(m_folder / "projekt/JB23.PAR");
    Block("JB23.PAR");
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "SJUNKSKALA", "9"), -1);
    EXPECT_EQ(m_inst.Jb23WriteKey("SJUNKSKALA", "9"), "9");
    EXPECT_TRUE(Boxes::Shown().empty());
    EXPECT_EQ(m_inst.ReadKey("JB23.PAR", "SJUNKSKALA"), "100");
    ExpectBox("Kan inte öppna -filen\n"_1252 + Api("JB23.PAR") + "\nAvbryter läsning!"_1252,
              "Läsning av Kvarnbok - jb2/3 inställningar"_1252);
}

} // namespace
