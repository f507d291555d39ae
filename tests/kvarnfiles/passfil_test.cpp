// What becomes of a pass that another call meets, that fails, or that is left unfinished.
#include "support/fulldisk.h"
#include "support/hostcalls.h"
#include "support/projekt.h"
#include "text/codepage.h"

namespace {

using Results = std::vector<int>;

class PassTest : public ProjektTest {
  protected:
    PassTest() {
        Write("KODFIL.DAT", kodfil);
        Write("MILJKOD.DAT", "*\n*\nX a\nY b\n*\n*\n*\n");
        Write("LINKOD.PAR", "L1 A 1 1\nL2 B 1 1\n*\n");
        Write("STAMPEL.PAR", "A B 1 2\nC D 1 2\n");
    }
    ~PassTest() override { WriteStampel(1, ""); } // ends what is under way

    int ReadKodfil(CKvarnInst& inst) { return inst.KodfilDatRead(m_kod, m_text); }
    int ReadMiljkod(CKvarnInst& inst) {
        return inst.MiljkodRead(1, m_kod, m_text, nullptr, nullptr);
    }
    int ReadLinkod(CKvarnInst& inst) {
        return inst.LinkodRead(m_kod, m_ord, m_text, m_tal, &m_heltal);
    }
    int ReadStampel(std::string const& path) {
        return m_inst.StampParRead(path.c_str(), m_kod, m_ord, m_tal, m_tal + 1, m_tal + 2);
    }
    int WriteKodfil(int mode) { return m_inst.KodfilDatWrite(mode, "NY", "kod"); }
    int WriteMiljkod(int mode) { return m_inst.MiljKodWrite(mode, "NY", "kod", 1, 2); }
    int WriteLinkod(int mode) { return m_inst.LinkodWrite(mode, "NY", "L", "1", "text", ""); }
    int WriteStampel(int mode, std::string const& path) {
        return m_inst.StampParWrite(path.c_str(), mode, "NY", "B", "1", "2", "3");
    }
    // A file that fails when it is read or written stands in a project file's place.
    void Replace(char const* name, char const* device) {
        ASSERT_TRUE(std::filesystem::exists(device));
        std::filesystem::remove(m_folder / "projekt" / name);
        std::filesystem::create_symlink(device, m_folder / "projekt" / name);
    }

    static constexpr char const* kodfil = "*\nK1 A\nK2 B\nK3 C\n*\n";
    std::string const stampel = Api("STAMPEL.PAR");
    char m_kod[256] = "";
    char m_ord[256] = "";
    char m_text[256] = "";
    double m_tal[3] = {};
    int m_heltal = 0;
};

TEST_F(PassTest, AReaderOfAnotherKindBeginsItsOwnPass) {
    EXPECT_EQ((Results{ReadKodfil(m_inst), ReadMiljkod(m_inst), ReadLinkod(m_inst),
                       ReadStampel(stampel), ReadKodfil(m_inst)}),
              (Results{0, 0, 1, 1, 0}));
    EXPECT_STREQ(m_kod, "K1"); // from the start again
    EXPECT_EQ(ReadStampel(stampel), 1);
    EXPECT_EQ(ReadStampel(""), 1); // the same pass
    EXPECT_STREQ(m_kod, "C");
    EXPECT_EQ(ReadStampel(stampel), 0);
    EXPECT_EQ(ReadStampel(""), 0); // nothing is opened
    EXPECT_EQ(m_inst.m_fil, nullptr);
}

TEST_F(PassTest, AReadLeavesAWritingPassAlone) {
    EXPECT_EQ(WriteLinkod(1), 0);
    EXPECT_EQ(WriteLinkod(2), 0);
    std::string const written = Read("LINKOD.PAR"); // each record is there at once
    EXPECT_EQ(written, "NY L 1" + std::string(43, ' ') + "text\r\n");
    EXPECT_EQ((Results{ReadKodfil(m_inst), ReadMiljkod(m_inst), ReadLinkod(m_inst),
                       ReadStampel(stampel)}),
              (Results{-1, -1, 0, 0}));
    // Nor is it another kind's to go on with.
    EXPECT_EQ((Results{WriteKodfil(2), WriteMiljkod(7), WriteStampel(3, stampel)}),
              (Results{0, -1, -1}));
    EXPECT_EQ(Read("LINKOD.PAR"), written);
    EXPECT_EQ(WriteLinkod(5), 0);
    EXPECT_EQ(Read("LINKOD.PAR"), written + "*\r\n");
}

TEST_F(PassTest, AWriteLeavesAReadingPassAlone) {
    EXPECT_EQ(ReadKodfil(m_inst), 0);
    EXPECT_EQ((Results{WriteKodfil(0), WriteKodfil(2), WriteMiljkod(2), WriteLinkod(5),
                       WriteStampel(3, stampel)}),
              (Results{0, 0, -1, -1, -1}));
    EXPECT_EQ(Read("KODFIL.DAT"), kodfil);
    EXPECT_EQ(ReadKodfil(m_inst), 0);
    EXPECT_STREQ(m_kod, "K2");
}

TEST_F(PassTest, ABeginClosesWhateverIsOpen) {
    EXPECT_EQ(WriteKodfil(1), 0);
    EXPECT_EQ(WriteLinkod(1), 0); // no end line for the code file
    EXPECT_EQ(WriteKodfil(2), 0);
    EXPECT_EQ(Read("KODFIL.DAT"), "*\r\nNY kod\r\n");
    EXPECT_EQ(WriteLinkod(1), 0);
    EXPECT_EQ(WriteLinkod(5), 0);
    EXPECT_EQ(Read("LINKOD.PAR"), "*\r\n");
    EXPECT_EQ(ReadKodfil(m_inst), 0);
    EXPECT_EQ(m_inst.MiljkodUppdatX(), 0); // so does the update
    EXPECT_EQ(m_inst.m_fil, nullptr);
}

TEST_F(PassTest, CopiesShareAPassAndItsEnd) {
    CKvarnInst other(m_inst);
    EXPECT_EQ(ReadKodfil(m_inst), 0);
    CKvarnInst copy(m_inst);
    EXPECT_EQ(ReadKodfil(copy), 0);
    EXPECT_STREQ(m_kod, "K2");
    EXPECT_EQ(ReadLinkod(copy), 1); // ends it for both
    {
        CKvarnInst shortLived;
        EXPECT_EQ(ReadKodfil(m_inst), 0);
        EXPECT_STREQ(m_kod, "K1");
        shortLived = m_inst;
        shortLived = *&shortLived;
        EXPECT_EQ(ReadKodfil(shortLived), 0);
        other = shortLived;
    } // frees nothing
    EXPECT_EQ(ReadKodfil(other), 0);
    EXPECT_STREQ(m_kod, "K3");
    EXPECT_EQ(ReadKodfil(other), -1);
    EXPECT_EQ(ReadKodfil(m_inst), 0); // ended for both: from the start
    EXPECT_STREQ(m_kod, "K1");
    EXPECT_EQ(WriteLinkod(1), 0);
    other = m_inst;
    EXPECT_EQ(WriteLinkod(5), 0);
    EXPECT_EQ(other.LinkodWrite(2, "N", "N", "1", "", ""), -1);
    EXPECT_EQ(copy.StampParWrite("", 1, "", "", "", "", ""), 0); // ends the pass of its own
}

TEST_F(PassTest, APassThatNobodyHoldsKeepsItsFile) {
    Boxes const boxes;
    static kvarn::CodePass* kept = nullptr; // for the leak checker: it is meant to stay
    {
        CKvarnInst gone(m_inst);
        EXPECT_EQ(gone.LinkodWrite(1, "", "", "", "", ""), 0);
        kept = gone.m_fil;
    }
    EXPECT_EQ(WriteLinkod(1), 0);
    EXPECT_EQ(Boxes::Shown().size(), 1U);
    EXPECT_EQ(WriteLinkod(2), -1);
    m_inst.m_fil = kept; // and ends it
    EXPECT_EQ(WriteLinkod(5), 0);
    EXPECT_EQ(Read("LINKOD.PAR"), "*\r\n");
}

TEST_F(PassTest, LocalCopiesEndAPassOnTheirFilesAlone) {
    m_folder.Write("cfg/LINKOD.PAR", "delad\n");
    EXPECT_EQ(WriteLinkod(1), 0);
    EXPECT_EQ(m_inst.CreateLokalaFiler(0, 0), 0); // there is one: nothing happens
    EXPECT_EQ(WriteLinkod(2), 0);
    EXPECT_EQ(m_inst.CreateLokalaFiler(1, 0), 0);
    EXPECT_EQ(WriteLinkod(2), -1);
    EXPECT_EQ(Read("LINKOD.PAR"), "delad\n");
    Write("KODFIL.DAT", kodfil);
    EXPECT_EQ(ReadKodfil(m_inst), 0);
    EXPECT_EQ(m_inst.RemoveLokalaFiler(), 0);
    EXPECT_EQ(m_inst.m_fil, nullptr);

    m_folder.Write("cfg/KODFIL.DAT", kodfil);
    EXPECT_EQ(ReadKodfil(m_inst), 0); // of the shared file
    m_inst.CreateLokalaFiler(1, 1);
    m_inst.RemoveLokalaFiler();
    EXPECT_EQ(ReadKodfil(m_inst), 0);
    EXPECT_STREQ(m_kod, "K2"); // and did not start over

    EXPECT_EQ(WriteStampel(1, stampel), 0);
    m_inst.CreateLokalaFiler(1, 1);
    m_inst.RemoveLokalaFiler();
    m_inst.RemoveLokalStenFil();
    EXPECT_EQ(WriteStampel(2, ""), 0);
    EXPECT_EQ(WriteStampel(3, ""), 0);
    EXPECT_EQ(Read("STAMPEL.PAR"), "NY B 1 2 3\r\n");
}

TEST_F(PassTest, AFileThatCannotBeOpenedIsToldInItsOwnWords) {
    Boxes const boxes;
    for (char const* const name : {"KODFIL.DAT", "MILJKOD.DAT", "LINKOD.PAR", "STAMPEL.PAR"}) {
        std::filesystem::remove(m_folder / "projekt" / name);
        Block(name);
    }
    EXPECT_EQ((Results{ReadKodfil(m_inst), ReadMiljkod(m_inst), ReadLinkod(m_inst),
                       ReadStampel(stampel), m_inst.MiljkodUppdatX(), WriteKodfil(3),
                       WriteMiljkod(1), WriteMiljkod(2), WriteLinkod(1), WriteLinkod(2),
                       WriteStampel(1, stampel), WriteStampel(2, stampel)}),
              (Results{-1, -1, -1, -1, 0, 0, 0, -1, 0, -1, 0, -1}));
    std::pair<std::string, std::string> const told[] = {
        {Api("KODFIL.DAT"), "Läsning av Markvida - kodfil.dat"_1252},
        {Api("MILJKOD.DAT"), "Läsning av Kvarnbok - Miljkod.dat"_1252},
        {Api("LINKOD.PAR"), "Läsning av Kvarnbok - Linkod.dat"_1252},
        {stampel, "Läsning av Kvarnbok - Stämpel"_1252},
        {Api("MILJKOD.DAT"), "Läsning av Kvarnbok - Miljkod.dat"_1252},
        {Api("KODFIL.DAT") + '\n' + Api("KODFIL.tmp"), "Skrivning av Kvarnbok - kodfil.dat"},
        {Api("MILJKOD.DAT"), "Skrivning av Kvarnbok - Miljkod.dat"},
        {Api("LINKOD.PAR"), "Skrivning av Kvarnbok - Linkod.par"},
        {stampel, "Skrivning av Kvarnbok - Stämpel"_1252},
    };
    std::vector<ShownBox> expected;
    for (auto const& [files, caption] : told) {
        std::string const stops = caption[0] == 'L' ? "Avbryter läsning!"_1252 : "Avbryter!";
        std::string text("Kan inte öppna -filen\n"_1252);
        text.append(files).append("\n").append(stops);
        expected.push_back({text, caption + " inställningar"_1252, 48, 0});
    }
    EXPECT_EQ(Boxes::Shown(), expected);
}

TEST_F(PassTest, WithoutItsCopyTheCodeFileGetsAnEmptyHeader) {
    Boxes const boxes;
    Block("KODFIL.tmp");
    EXPECT_EQ(WriteKodfil(1), 0);
    EXPECT_EQ(Boxes::Shown().size(), 1U);
    EXPECT_EQ(WriteKodfil(2), 0);
    EXPECT_EQ(Read("KODFIL.DAT"), "NY kod\r\nNY kod\r\n*\r\n");
}

#if !defined(_WIN32)

TEST_F(PassTest, AWriteThatFailsIsTold) {
    Boxes const boxes;
    Replace("MILJKOD.DAT", "/dev/full");
    Replace("LINKOD.PAR", "/dev/full");
    EXPECT_EQ((Results{WriteStampel(1, "/dev/full"), WriteStampel(2, ""), WriteStampel(3, "")}),
              (Results{0, -1, -1}));
    EXPECT_EQ((Results{WriteMiljkod(1), WriteMiljkod(2), WriteMiljkod(7)}), (Results{-1, -1, -1}));
    EXPECT_EQ((Results{WriteLinkod(1), WriteLinkod(5)}), (Results{0, -1}));
    EXPECT_EQ(m_inst.m_fil, nullptr);
}

TEST_F(PassTest, AFullDiskIsToldOnceAndKeepsTheOldCodeFile) {
    std::string const old = "r\nr\nr\nr\nr\nr\n*\nK1 A\n"; // grows by its CRs
    Write("KODFIL.DAT", old);
    Boxes const boxes;
    {
        FullDisk const full(old.size());
        EXPECT_EQ(WriteKodfil(1), 0);
        EXPECT_EQ(WriteKodfil(2), 0);
    }
    EXPECT_EQ(Boxes::Shown().size(), 1U);
    EXPECT_EQ(Read("KODFIL.DAT"), old);
    EXPECT_FALSE(std::filesystem::exists(m_folder / "projekt/KODFIL.tmp"));

    Write("KODFIL.DAT", "*\n"); // and in the middle of the records
    EXPECT_EQ(WriteKodfil(1), 0);
    {
        FullDisk const full(16);
        EXPECT_EQ(WriteKodfil(0), 0);
    }
    EXPECT_EQ(WriteKodfil(2), 0); // the pass is over
    EXPECT_EQ(Boxes::Shown().size(), 2U);
    EXPECT_EQ(Read("KODFIL.DAT"), "*\r\nNY kod\r\nNY ko");
}

// What a client has read of it is not all, and is not written in its place.
TEST_F(PassTest, AReadThatFailsIsToldAndBarsTheWritingUntilAllIsRead) {
    Boxes const boxes;
    auto const readAll = [&] {
        return Results{ReadKodfil(m_inst), ReadMiljkod(m_inst), ReadLinkod(m_inst),
                       ReadStampel(stampel)};
    };
    auto const begin = [&] {
        return Results{WriteKodfil(1), WriteMiljkod(1), WriteLinkod(1), WriteStampel(1, stampel)};
    };
    char const* const names[] = {"KODFIL.DAT", "MILJKOD.DAT", "LINKOD.PAR", "STAMPEL.PAR"};
    std::vector<std::string> before;
    for (char const* const name : names) {
        before.push_back(Read(name));
    }
    {
        HostCalls const disk([](HostCall const& call) { return call.name == "read" ? EIO : 0; });
        EXPECT_EQ(readAll(), (Results{-1, -1, 0, 0}));
        EXPECT_EQ(Boxes::Shown().size(), 4U);
    }
    CKvarnInst copy(m_inst);
    begin();
    EXPECT_EQ(Boxes::Shown().size(), 8U);
    EXPECT_EQ(copy.LinkodWrite(1, "", "", "", "", ""), 0);
    for (int const another : {2, 3}) { // not the section that was not read
        EXPECT_EQ(m_inst.MiljkodRead(another, m_kod, m_text, nullptr, nullptr), -1);
    }
    WriteMiljkod(1);
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(Read(names[i]), before[i]);
    }
    Boxes::Shown().clear();
    while (ReadMiljkod(m_inst) == 0) {
    }
    for (int again = 0; ReadKodfil(m_inst) == 0 || again < 1; ++again) {
    }
    while (ReadLinkod(m_inst) == 1) {
    }
    while (ReadStampel(stampel) == 1) {
    }
    EXPECT_EQ(begin(), (Results{0, 0, 0, 0}));
    EXPECT_TRUE(Boxes::Shown().empty());
}

TEST_F(PassTest, AFileThatWasMissingIsTheCallersOwn) {
    Boxes const boxes;
    std::string const ny = Api("NY.PAR");
    auto const writeTwice = [&] {
        for (int again = 0; again < 2; ++again) {
            EXPECT_EQ((Results{WriteStampel(1, ny), WriteStampel(2, ny), WriteStampel(3, ny)}),
                      (Results{0, 0, 0}));
        }
    };
    EXPECT_EQ(ReadStampel(ny), -1);
    writeTwice();
    {
        HostCalls const disk([](HostCall const& call) { return call.name == "read" ? EIO : 0; });
        EXPECT_EQ(ReadStampel(ny), 0);
    }
    std::filesystem::remove(m_folder / "projekt/NY.PAR");
    writeTwice();
    EXPECT_EQ(Boxes::Shown().size(), 2U); // of the two reads
}

// Nor is the shared copy, when the host does not tell whether the project has one.
TEST_F(PassTest, AFailedLookIsNotTakenForAMissingFile) {
    Boxes const boxes;
    for (char const* const name : {"KVARNBOK.PAR", "JB23.PAR", "LINKOD.PAR", "MILJKOD.DAT"}) {
        m_folder.Write(std::string("cfg/") + name, "SHARED=1\n");
    }
    Write("Stenkod.dat", "own");
    Write("KVARNBOK.PAR", "OWN=1\n");
    HostCalls const disk([](HostCall const& call) {
        return call.name == "stat" || (call.name == "open" && call.mode == 0) ? EACCES : 0;
    });
    EXPECT_EQ(m_inst.ReadKey("KVARNBOK.PAR", "SHARED"), "");
    EXPECT_EQ(m_inst.WriteKey("KVARNBOK.PAR", "SHARED", "2"), -1);
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "SJUNKSKALA", "2"), -1);
    EXPECT_EQ((Results{WriteLinkod(1), WriteLinkod(5), WriteMiljkod(1)}), (Results{0, -1, 0}));
    EXPECT_EQ(m_inst.CreateLokalaFiler(0, 1), 0);
    EXPECT_EQ(Read("Stenkod.dat"), "own");
    EXPECT_EQ(Read("KVARNBOK.PAR"), "OWN=1\n");
    EXPECT_EQ(Read("LINKOD.PAR"), "L1 A 1 1\nL2 B 1 1\n*\n");
    for (char const* const name : {"KVARNBOK.PAR", "JB23.PAR", "LINKOD.PAR", "MILJKOD.DAT"}) {
        EXPECT_EQ(m_folder.Read(std::string("cfg/") + name), "SHARED=1\n");
    }
}

TEST_F(PassTest, ABeginThatFindsNoFileClosesThePass) {
    std::filesystem::remove(m_folder / "projekt/KODFIL.DAT");
    EXPECT_EQ(ReadLinkod(m_inst), 1);
    EXPECT_EQ(WriteKodfil(1), 0);
    EXPECT_EQ(m_inst.m_fil, nullptr);
}

// Through a link that somebody planted another's file would be written.
TEST_F(PassTest, TheCodeFilesCopyIsMadeExclusivelyAndAsPrivateAsTheFile) {
    m_folder.Write("annans", "secret");
    std::filesystem::create_symlink(m_folder / "annans", m_folder / "projekt/KODFIL.tmp");
    std::filesystem::permissions(m_folder / "projekt/KODFIL.DAT", std::filesystem::perms(0600));
    HostCalls const calls;
    EXPECT_EQ(WriteKodfil(3), 0);
    EXPECT_EQ(m_folder.Read("annans"), "secret");
    EXPECT_EQ(Read("KODFIL.DAT"), "*\r\nNY kod\r\n*\r\n");
    for (HostCall const& call : calls.All()) {
        EXPECT_TRUE(call.name != "open" || (call.mode & 077U) == 0) << call.file;
    }
}

TEST_F(PassTest, AFileThatCannotBeReadToItsEndIsNotRewritten) {
    Boxes const boxes;
    Replace("MILJKOD.DAT", "/proc/self/mem");
    Replace("JB23.PAR", "/proc/self/mem");
    EXPECT_EQ(m_inst.MiljkodUppdatX(), 0);
    EXPECT_EQ(m_inst.WriteKey("JB23.PAR", "HASTSKALA", "1"), -1);
    EXPECT_EQ(m_inst.Jb23WriteKey("HASTSKALA", "1"), "1");
    EXPECT_TRUE(std::filesystem::is_symlink(m_folder / "projekt/JB23.PAR"));
    ASSERT_EQ(Boxes::Shown().size(), 1U); // no write was tried
    EXPECT_NE(Boxes::Shown().front().text.find("MILJKOD.DAT"), std::string::npos);
}

#endif

} // namespace
