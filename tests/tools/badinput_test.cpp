// What is none of the files that a command takes: it is said so, with the right status, and no file
// is changed.
#include <map>

#include "kvarnio.h"

namespace {

class BadInputTest : public KvarnioTest {
  protected:
    // Every file of the test's folder with its content, but for what the runs themselves write.
    std::map<std::string, std::string> Tree() const {
        std::map<std::string, std::string> tree;
        for (auto const& entry : std::filesystem::recursive_directory_iterator(m_folder.Api())) {
            std::string const name = entry.path().filename().string();
            if (name != "in" && name != "out" && name != "err") {
                auto const type = entry.symlink_status().type();
                bool const isFile = type == std::filesystem::file_type::regular;
                tree[entry.path().string()] = isFile ? ReadBytes(entry.path()) : "";
            }
        }
        return tree;
    }

    // Puts what the kind says in the place of a file.
    void Put(std::string const& kind, std::string const& name) const {
        std::filesystem::remove_all(m_folder / name);
        if (kind == "folder") {
            std::filesystem::create_directories(m_folder / name);
        } else if (kind == "unreadable") { // it opens, and no byte can be read
            std::filesystem::create_symlink("/proc/self/mem", m_folder / name);
        } else if (kind != "missing") {
            m_folder.Write(name, kind == "empty" ? std::string() : Binary());
        }
    }
    static std::string Binary() {
        std::string bytes = "\x7F"
                            "ELF\x02\x01";
        for (int i = 0; i < 3000; ++i) {
            bytes += static_cast<char>(i * i % 251);
        }
        return bytes;
    }

    // Runs it with each kind in the place of the file; the statuses are in that order.
    void ExpectStatuses(std::string const& command, std::string const& file,
                        std::vector<int> const& statuses, std::string const& project = {}) const {
        char const* const kinds[] = {"missing", "empty", "binary", "folder", "unreadable"};
        for (std::size_t i = 0; i < statuses.size(); ++i) {
#if defined(_WIN32)
            if (i == 4) {
                break;
            }
#endif
            SCOPED_TRACE(command + ": " + kinds[i]);
            Put(kinds[i], file);
            auto const before = Tree();
            Result const result = Run(command, project);
            EXPECT_EQ(result.status, statuses[i]) << result.out << result.err;
            EXPECT_TRUE(Tree() == before);
            if (statuses[i] != 0) {
                bool const isFinding = result.out.find(" [") != std::string::npos;
                EXPECT_TRUE(isFinding || result.err.find("kvarnio: ") != std::string::npos);
            }
        }
    }
};

TEST_F(BadInputTest, AFileThatIsNamed) {
    std::string const file = Quoted("f");
    std::pair<std::string, std::vector<int>> const cases[] = {
        {"check --points " + file, {1, 1, 1, 3, 3}},
        {"check --stamp " + file, {1, 0, 1, 3, 3}},
        {"check --folders " + file, {1, 0, 1, 3, 3}},
        {"points " + file, {1, 1, 1, 3, 3}},
        {"codes list stamp " + file, {1, 0, 0, 3, 3}},
        {"codes set stamp " + file + " A B 1 2", {1, 1, 1, 3, 3}},
        {"codes remove stamp " + file + " A", {1, 1, 1, 3, 3}},
        {"undo " + file, {1, 1, 1, 1, 1}},
        {"road info " + file, {1, 1, 1, 3, 3}},
        {"road check " + file, {1, 1, 1, 3, 3}},
        {"road xy " + file + " 1 0", {1, 1, 1, 3, 3}},
        {"road station " + file + " 1 1", {1, 1, 1, 3, 3}},
        {"road z " + file + " 1", {1, 1, 1, 3, 3}},
        {"road plot " + file + " -o " + Quoted("o.svg"), {1, 1, 1, 3, 3}},
        {"diff " + file, {1, 1, 1}},
        {"list --project " + file, {1, 1, 1}},
        {"check --all " + file, {1, 1, 1, 1}},
    };
    for (auto const& [command, statuses] : cases) {
        ExpectStatuses(command, "f", statuses);
    }
    // A title block that is empty takes a first record; one that is no text takes none.
    ExpectStatuses("codes add stamp " + file + " A B 1 2 --dry-run", "f", {1, 0, 1, 3, 3});
    Put("binary", "f");
    ExpectRefused({{"codes add stamp " + file + " A B 1 2", notThere, "holds zero bytes"}});
    EXPECT_EQ(m_folder.Read("f"), Binary());
}

TEST_F(BadInputTest, AFileOfTheInstallationOrTheProject) {
    struct Case {
        std::string file;
        std::string command;
        std::vector<int> statuses;
    };
    Case const cases[] = {
        {vag27 + "/KVARNBOK.PAR", "get KVARNBOK.PAR HSKALA", {0, 0, 0, 3, 3}},
        {vag27 + "/KVARNBOK.PAR", "set KVARNBOK.PAR HSKALA 3 --dry-run", {0, 0, 1, 3, 3}},
        {vag27 + "/KVARNBOK.PAR", "check " + Quoted(vag27), {0, 0, 1, 3, 3}},
        {vag27 + "/KODFIL.DAT", "codes list kodfil", {0, 0, 0, 3, 3}},
        {vag27 + "/KODFIL.DAT", "codes add kodfil Ny Nytt --dry-run", {0, 1, 1, 3, 3}},
        {vag27 + "/MILJKOD.DAT", "codes update --dry-run", {0, 0, 1, 3, 3}},
        {vag27 + "/Stenkod.dat", "materials rock", {0, 0, 0, 3, 3}},
        {vag27 + "/KVARNBOK.PAR", "local remove --yes --dry-run", {0, 0, 0}},
    };
    for (Case const& each : cases) {
        ExpectStatuses(each.command, each.file, each.statuses, vag27);
        std::filesystem::remove_all(m_folder / each.file);
    }
    // Without it another folder's files would be read, and written.
    for (char const* command : {"env", "list", "set KVARNBOK.PAR HSKALA 3"}) {
        Put("folder", "c/Kvarnbok/Markvida.ini");
        Result const result = RunBare(std::string(command) + " --home " + Quoted("c/Kvarnbok"));
        EXPECT_EQ(result.status, notDone);
        ExpectPart(result.err, "Markvida.ini cannot be read");
    }
}

#if !defined(_WIN32)
TEST_F(BadInputTest, AnAnswerThatCannotBeWritten) {
    std::string const road = "road info " + Quoted(vag27 + "/KVARNBOK.DBF/VAG27.VL");
    for (std::string const& command : {std::string("list"), std::string("env --json"), road,
                                       std::string("materials rock"), std::string("--help")}) {
        for (char const* output : {">/dev/full", ">&-"}) {
            // What would come after it is a comment.
            EXPECT_EQ(RunBare(command + " 2>/dev/null " + output + " #").status, notDone)
                << command << output;
        }
    }
}
#endif

TEST_F(BadInputTest, TwoWrongArgumentsAreBothNamedInTheirOrder) {
    ExpectRefused({{"get KVARNBOK.PAR HSKALA ett två", wrongUsage, "arguments too many: ett två"},
                   {"formats A0 --bra A1", wrongUsage, "arguments too many: --bra A1"},
                   {"codes list", wrongUsage, "kodfil, miljkod, linkod, stamp"},
                   {"codes list no", wrongUsage, "\"no\"; there are kodfil, miljkod"},
                   {"road", wrongUsage, "a subcommand is wanted: info, "}});
}

} // namespace
