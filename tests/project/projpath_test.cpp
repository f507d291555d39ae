#include "project/projpath.h"

#include <gtest/gtest.h>

#include "support/boxes.h"
#include "support/privatemember.h"
#include "support/testfiles.h"

struct CreateFolderTag : PrivateMember<int (CProjPath::*)(CString, int)> {};
template struct Reveal<CreateFolderTag, &CProjPath::CreateFolder>;

namespace {

TEST(ProjPath, ThirtyThreeNames) {
    struct {
        char* name;
        char const* expected;
    } const names[] = {
        {CProjPath::KvarnDbsNamn, "KVARNBOK.DBS"},
        {CProjPath::KvarnDbkNamn, "KVARNBOK.DBK"},
        {CProjPath::StenDbsNamn, "KLIPPBOK.DBS"},
        {CProjPath::StenDbkNamn, "KLIPPBOK.DBK"},
        {CProjPath::FaltverkDbsNamn, "FALTVERK.GDS"},
        {CProjPath::FaltverkDbkNamn, "FALTVERK.GDK"},
        {CProjPath::TerrDbsNamn, "SKOGSBOK.TDS"},
        {CProjPath::UtvDbsNamn, "KVARNUTV.DBS"},
        {CProjPath::UtvDbkNamn, "KVARNUTV.DBK"},
        {CProjPath::KvarnDbfKat, "KVARNBOK.DBF"},
        {CProjPath::PostDbfKat, "SKOGSBOK.DBF"},
        {CProjPath::StackKat, "STACK"},
        {CProjPath::StabRitKat, "DAMMSBOK.RIT"},
        {CProjPath::KvarnRitKat, "KVARNBOK.RIT"},
        {CProjPath::StenRitKat, "KLIPPBOK.RIT"},
        {CProjPath::StenDbfKat, "KLIPPBOK.DBF"},
        {CProjPath::PostRitKat, "SKOGSBOK.RIT"},
        {CProjPath::FaltverkRitKat, "FALTVERK.RIT"},
        {CProjPath::FaltverkDbfKat, "FALTVERK.DBF"},
        {CProjPath::Pictures, "Pictures"},
        {CProjPath::KvarnZipNamn, "KVARNBOK.ZIP"},
        {CProjPath::KvarnAvpNamn, "KVARNBOK.AVP"},
        {CProjPath::KvarnVlNamn, "KVARNBOK.VL"},
        {CProjPath::KvarnParNamn, "KVARNBOK.PAR"},
        {CProjPath::KvarnCfgNamn, "KVARNBOK.CFG"},
        {CProjPath::RamvalNamn, "RAMVAL.DAT"},
        {CProjPath::StenVlNamn, "KLIPPBOK.VL"},
        {CProjPath::Jb23ParNamn, "JB23.PAR"},
        {CProjPath::Kodfil, "KODFIL.DAT"},
        {CProjPath::Miljkod, "MILJKOD.DAT"},
        {CProjPath::Linkod, "LINKOD.PAR"},
        {CProjPath::Gvrref, "Gvrref.dat"},
        {CProjPath::StenParNamn, "KLIPPBOK.PAR"},
    };
    EXPECT_EQ(std::size(names), 33U);
    for (auto const& name : names) {
        EXPECT_STREQ(name.name, name.expected);
    }
}

TEST(ProjPath, EighteenPaths) {
    CProjPath path;
    EXPECT_TRUE(path.m_projKat.IsEmpty() && path.m_pictures.IsEmpty());
    EXPECT_EQ(path.SetPath("P"), 0);
    CProjPath const copy(path);
    EXPECT_EQ(copy.m_projKat, "P");
    EXPECT_EQ(copy.m_zip, "P\\KVARNBOK.ZIP");
    EXPECT_EQ(copy.m_kvarnDbs, "P\\KVARNBOK.DBS");
    EXPECT_EQ(copy.m_faltverkDbs, "P\\FALTVERK.GDS");
    EXPECT_EQ(copy.m_terrDbs, "P\\SKOGSBOK.TDS");
    EXPECT_EQ(copy.m_stenDbs, "P\\KLIPPBOK.DBS");
    EXPECT_EQ(copy.m_kvarnDbf, "P\\KVARNBOK.DBF");
    EXPECT_EQ(copy.m_kvarnRit, "P\\KVARNBOK.RIT");
    EXPECT_EQ(copy.m_stack, "P\\STACK");
    EXPECT_EQ(copy.m_postDbf, "P\\SKOGSBOK.DBF");
    EXPECT_EQ(copy.m_postRit, "P\\SKOGSBOK.RIT");
    EXPECT_EQ(copy.m_stabRit, "P\\DAMMSBOK.RIT");
    EXPECT_EQ(copy.m_utvDbs, "P\\KVARNUTV.DBS");
    EXPECT_EQ(copy.m_kvarnAvp, "P\\KVARNBOK.DBF\\KVARNBOK.AVP");
    EXPECT_EQ(copy.m_kvarnVl, "P\\KVARNBOK.DBF\\KVARNBOK.VL");
    EXPECT_EQ(copy.m_kvarnPar, "P\\KVARNBOK.PAR");
    EXPECT_EQ(copy.m_stenPar, "P\\KLIPPBOK.PAR");
    EXPECT_EQ(copy.m_pictures, "P\\Pictures");
    path.SetPath("P\\"); // taken as it is
    EXPECT_EQ(path.m_kvarnPar, "P\\\\KVARNBOK.PAR");
}

TEST(ProjPath, ANameCountsAtTheMomentThatAPathIsBuilt) {
    char other[] = "ANNAN.PAR";
    char* const before = CProjPath::KvarnParNamn;
    CProjPath path;
    CProjPath::KvarnParNamn = other;
    path.SetPath("P");
    CProjPath::KvarnParNamn = before;
    EXPECT_EQ(path.m_kvarnPar, "P\\ANNAN.PAR");
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
