#include "project/projpath.h"

#include <gtest/gtest.h>

#include "support/checksum.h"

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

} // namespace
