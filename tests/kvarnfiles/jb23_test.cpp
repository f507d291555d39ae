#include "support/projekt.h"
#include "text/codepage.h"

namespace {

using Jb23Test = ProjektTest;

TEST_F(Jb23Test, EachKeyHasItsLineAndColumn) {
    std::string file;
    std::string const quantities[] = {"SJUNK",  "HAST",  "KRAFT", "RPM", "SPOL", "FLODE",
                                      "HAMMAR", "TRYCK", "QT",    "FT",  "U"};
    for (std::string const& quantity : quantities) {
        file.append(quantity).append("1 \t ").append(quantity).append("2\r\n");
    }
    Write("JB23.PAR", file + "sista raden");
    for (std::string const& quantity : quantities) {
        EXPECT_EQ(m_inst.ReadKey("jb23.par", CString((quantity + "SKALA").c_str())),
                  (quantity + "1").c_str());
        EXPECT_EQ(m_inst.ReadKey("JB23.PAR", CString((quantity + "STEG").c_str())),
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
}

TEST_F(Jb23Test, AShortFileGrowsByOneLineWhicheverTheKeyHas) {
    // read: the file's, or the default
    std::tuple<char const*, char const*, char const*, char const*> const cases[] = {
        {"100 50\r\n40 10\r\n", "KRAFTSKALA", "30", "100 50\r\n40 10\r\nNY   0\r\n"},
        {"100 50\n40 11", "HASTSTEG", "11", "100 50\r\n40   NY\r\n"},
        {"100 50\n", "USTEG", "200", "100 50\r\n0   NY\r\n"},
        {"", "SJUNKSKALA", "100", "NY   0\r\n"}, // there, and empty
        {"10\n", "SJUNKSTEG", "50", "10   NY\r\n"},
        {"*\n", "SJUNKSKALA", "*", "NY   \r\n"},
    };
    for (auto const& [file, key, read, written] : cases) {
        SCOPED_TRACE(std::string(file) + key);
        Write("JB23.PAR", file);
        EXPECT_EQ(m_inst.ReadKey("JB23.PAR", key), read);
        EXPECT_EQ(m_inst.WriteKey("JB23.PAR", key, "NY"), 0);
        EXPECT_EQ(Read("JB23.PAR"), written);
    }
    EXPECT_EQ(m_inst.Jb23ReadKey("KRAFTSKALA"), ""); // knows no default
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder / "projekt"), {}), 1);
}

TEST_F(Jb23Test, ANewFileIsMadeInTheCfgFolder) {
    EXPECT_EQ(m_inst.Jb23WriteKey("SJUNKSKALA", "120"), "120");
    EXPECT_EQ(m_folder.Read("cfg/JB23.PAR"), "120   50\r\n");
    for (char const* const other : {"HASTSKALA", "SJUNKSTEG"}) {
        std::filesystem::remove(m_folder / "cfg/JB23.PAR");
        EXPECT_EQ(m_inst.WriteKey("JB23.PAR", other, "20"), 0);
        EXPECT_TRUE(std::filesystem::exists(m_folder / "cfg/JB23.PAR"));
        EXPECT_EQ(m_folder.Read("cfg/JB23.PAR"), "") << other;
    }
    CKvarnInst utanKatalog;
    CAutoIni tom;
    for (CAutoIni* const ini : {&tom, static_cast<CAutoIni*>(nullptr)}) {
        utanKatalog.Init(ini, nullptr);
        EXPECT_EQ(utanKatalog.Jb23WriteKey("SJUNKSKALA", "1"), "1");
        EXPECT_EQ(utanKatalog.Jb23ReadKey("SJUNKSKALA"), "");
    }
}

TEST_F(Jb23Test, WhatCannotBeOpenedStays) {
    Boxes const boxes;
    Write("JB23.PAR", "1 2\n");
    Block("JB23.tmp");
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "SJUNKSKALA", "9"), 0);
    EXPECT_EQ(Read("JB23.PAR"), "1 2\n");
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
