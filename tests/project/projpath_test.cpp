#include "project/projpath.h"

#include <gtest/gtest.h>

#include "support/boxes.h"
#include "support/checksum.h"
#include "support/privatemember.h"
#include "support/testfiles.h"

struct CreateFolderTag : PrivateMember<int (CProjPath::*)(CString, int)> {};
template struct Reveal<CreateFolderTag, &CProjPath::CreateFolder>;

namespace {

TEST(ProjPath, TheNamesAreTheKnownOnes) {
    using P = CProjPath;
    std::string all;
    for (std::string const name :
         {P::KvarnDbsNamn,    P::KvarnDbkNamn,    P::StenDbsNamn,    P::StenDbkNamn,
          P::FaltverkDbsNamn, P::FaltverkDbkNamn, P::TerrDbsNamn,    P::UtvDbsNamn,
          P::UtvDbkNamn,      P::KvarnDbfKat,     P::PostDbfKat,     P::StackKat,
          P::StabRitKat,      P::KvarnRitKat,     P::StenRitKat,     P::StenDbfKat,
          P::PostRitKat,      P::FaltverkRitKat,  P::FaltverkDbfKat, P::Pictures,
          P::KvarnZipNamn,    P::KvarnAvpNamn,    P::KvarnVlNamn,    P::KvarnParNamn,
          P::KvarnCfgNamn,    P::RamvalNamn,      P::StenVlNamn,     P::Jb23ParNamn,
          P::Kodfil,          P::Miljkod,         P::Linkod,         P::Gvrref,
          P::StenParNamn}) {
        all += name + '\0';
    }
    EXPECT_EQ(Checksum(all), 0x578D060CE10A093F) << testing::PrintToString(all);
    EXPECT_STREQ(P::KvarnDbsNamn, "KVARNBOK.DBS");
    EXPECT_STREQ(P::Gvrref, "Gvrref.dat");
}

TEST(ProjPath, APathIsMadeOfTheFolderAndTheNameOfTheMoment) {
    CProjPath p;
    EXPECT_TRUE(p.m_projKat.IsEmpty() && p.m_pictures.IsEmpty());
    EXPECT_EQ(p.SetPath("P"), 0);
    std::string all;
    for (CString const& path :
         {p.m_projKat, p.m_zip, p.m_kvarnDbs, p.m_faltverkDbs, p.m_terrDbs, p.m_stenDbs,
          p.m_kvarnDbf, p.m_kvarnRit, p.m_stack, p.m_postDbf, p.m_postRit, p.m_stabRit, p.m_utvDbs,
          p.m_kvarnAvp, p.m_kvarnVl, p.m_kvarnPar, p.m_stenPar, p.m_pictures}) {
        all += path.GetString() + std::string(1, '\0');
    }
    EXPECT_EQ(Checksum(all), 0xDBA11A3A90291CA6) << testing::PrintToString(all);
    EXPECT_EQ(p.m_projKat, "P");
    EXPECT_EQ(p.m_kvarnAvp, "P\\KVARNBOK.DBF\\KVARNBOK.AVP");
    char other[] = "ANNAN.PAR";
    char* const before = std::exchange(CProjPath::KvarnParNamn, other);
    p.SetPath("P\\"); // taken as it is
    CProjPath::KvarnParNamn = before;
    EXPECT_EQ(p.m_kvarnPar, "P\\\\ANNAN.PAR");
}

TEST(ProjPath, CreateFolderMakesOneLevelAndTellsWhatItCannotMake) {
    TestFolder const folder;
    CProjPath path;
    auto const create = [&](std::string const& name, int show) {
        return (path.*CreateFolderTag::value)(name.c_str(), show);
    };
    Boxes const boxes;
    EXPECT_EQ(create(folder.Api("ny"), 1), 1);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "ny"));
    EXPECT_EQ(create(folder.Api("ny"), 1), 1);
    EXPECT_TRUE(Boxes::Shown().empty());

    std::string const missing = folder.Api("saknas\\ny");
    std::string const text = "Fel, kan EJ skapa katalog:\n" + missing;
    EXPECT_EQ(create(missing, 0), 0);
    EXPECT_TRUE(Boxes::Shown().empty());
    EXPECT_EQ(MessageBuffer(), text);
    EXPECT_EQ(create(missing, 1), 0);
    EXPECT_EQ(Boxes::Shown(), (std::vector<ShownBox>{{text, "<title>", 48, 0}}));
    folder.Write("fil", "");
    EXPECT_EQ(create(folder.Api("fil"), 1), 1); // it exists, and that is all that is asked
}

} // namespace
