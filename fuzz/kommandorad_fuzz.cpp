// The tool's command line: any words and options, over a project with any bytes in one of its
// files. A command ends as stated, with output that can be read; wrong usage and commands that only
// read change nothing on the disk.
#include <iostream>
#include <sstream>

#include <nlohmann/json.hpp>

#include "check.h"
#include "commands.h"
#include "core/list0.h"
#include "folder.h"
#include "input.h"
#include "shared/messages.h"
#include "text/codepage.h"
#include "tree.h"

namespace {

struct Command {
    char const* name;
    bool reads; // and never writes
};
constexpr Command commands[] =
    {
        {"get", true},     {"list", true},   {"check", true},      {"points", true},
        {"formats", true}, {"dir", true},    {"registry", true},   {"set", false},
        {"codes", false},  {"local", false}, {"materials", false}, {"project", false},
        {"road", false},   {"", false}, // the first word is an input's own
};

constexpr char const* words[] = {"--project",
                                 "p",
                                 "--home",
                                 "h",
                                 "--cfg",
                                 "--json",
                                 "--help",
                                 "p\\vag.vl",
                                 "S$1.STP",
                                 "p/S$1.STP",
                                 "ut.svg",
                                 "add",
                                 "list",
                                 "set",
                                 "remove",
                                 "update",
                                 "status",
                                 "create",
                                 "paths",
                                 "rock",
                                 "fill",
                                 "soil",
                                 "info",
                                 "xy",
                                 "station",
                                 "z",
                                 "check",
                                 "plot",
                                 "kodfil",
                                 "miljkod",
                                 "linkod",
                                 "stampel",
                                 "--int",
                                 "--double",
                                 "--text",
                                 "--max",
                                 "--step",
                                 "--yes",
                                 "--folders",
                                 "--sort",
                                 "date",
                                 "--reverse",
                                 "--rock",
                                 "--stamp",
                                 "--points",
                                 "--overwrite",
                                 "--norwegian",
                                 "--",
                                 "1",
                                 "-2.5",
                                 "KVARNBOK.PAR",
                                 "KVARNBOK.CFG",
                                 "JB23.PAR",
                                 "HSKALA",
                                 "HKCU\\K",
                                 "*.PAR",
                                 "STAMP.PAR",
                                 "--drawing",
                                 "--tolerance",
                                 "K1",
                                 "Lera",
                                 ""};

// A folder with the settings and a project, which is the current one as long as an input runs.
class Site {
  public:
    explicit Site(Input& in) {
        static constexpr char const* files[] = {"p/KVARNBOK.PAR", "p/KODFIL.DAT",   "p/MILJKOD.DAT",
                                                "p/LINKOD.PAR",   "p/STAMP.PAR",    "p/JB23.PAR",
                                                "p/vag.vl",       "p/S$1.STP",      "p/Stenkod.dat",
                                                "h/KVARNBOK.CFG", "h/Markvida.ini", "store.reg"};
        Empty(Opened(Root()));
        WriteFile(Root() + "/h/KVARNBOK.CFG", "HSKALA=100\r\n");
        WriteFile(Root() + "/p/KVARNBOK.PAR", "HSKALA=200\r\nVSKALA=MAX\r\n");
        WriteFile(Root() + "/p/KODFIL.DAT", "*\r\nK1 Lera\r\n*\r\n");
        WriteFile(Root() + "/p/vag.vl", "1 Vagen\r\n0 0 0 0\r\n100 0 0.1 100\r\n50 50 0 200\r\n");
        WriteFile(Root() + "/p/S$1.STP",
                  "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n*\r\nP1\r\n 2.5\r\n1 2\r\n*\r\n");
        char const* const file = in.Pick(files);
        WriteFile(Root() + '/' + file, in.Text(300));
        setenv("KVARNPROG_REGISTRY", (Root() + "/store.reg").c_str(), 1);
        setenv("KVARNPROG_DRIVES", (Root() + "/drives").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (Root() + "/config").c_str(), 1);
        setenv("KVARNBOK", (Root() + "/h").c_str(), 1);
        Check(chdir(Root().c_str()) == 0, "the site's folder");
    }
    ~Site() { Check(fchdir(m_before.Number()) == 0, "the folder before"); }
    Site(Site const&) = delete;
    Site& operator=(Site const&) = delete;

    static std::string const& Root() {
        static Folder const folder("/dev/shm");
        return folder.Path();
    }

  private:
    Opened m_before{"."};
};

// What a stream gets while this lives.
class Caught {
  public:
    explicit Caught(std::ostream& stream)
        : m_stream(stream), m_before(stream.rdbuf(m_text.rdbuf())) {}
    ~Caught() { m_stream.rdbuf(m_before); }
    Caught(Caught const&) = delete;
    Caught& operator=(Caught const&) = delete;

    std::string Text() const { return m_text.str(); }

  private:
    std::ostringstream m_text;
    std::ostream& m_stream;
    std::streambuf* m_before;
};

// A word of an input's own names nothing outside the site.
std::string Word(Input& in) {
    if (in.Bool()) {
        return in.Pick(words);
    }
    std::string word = in.Text(in.Bool() ? 300 : 12);
    std::erase_if(word, [](char c) { return c == '/' || c == '\\' || c == ':' || c == '\0'; });
    return Harmless(word);
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        if (!kvarn::TakeCodePoint(text)) {
            return false;
        }
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    constexpr int mostWords = 8;
    Input in(data, size);
    Site const site(in);
    Command const& command = in.Pick(commands);
    std::vector<std::string> arguments;
    if (*command.name != '\0') {
        arguments.emplace_back(command.name);
    }
    bool utf8 = true;
    bool json = false;
    bool explains = false; // help or version
    for (int i = 0; i < mostWords && in.Remaining() > 0; ++i) {
        arguments.push_back(Word(in));
        std::string const& word = arguments.back();
        utf8 = utf8 && IsUtf8(word);
        json = json || word == "--json";
        explains = explains || word == "--help" || word == "--version" || word.starts_with("-h");
    }
    Tree const before = TreeOf(Site::Root());
    Caught const out(std::cout);
    Caught const err(std::cerr);
    int const status = kvarnio::Execute(arguments);
    Check(status >= kvarnio::done && status <= kvarnio::notDone, "a stated exit status");
    Check(!utf8 || (IsUtf8(out.Text()) && IsUtf8(err.Text())), "output in UTF-8");
    Check(status == kvarnio::done || !out.Text().empty() || !err.Text().empty(), "a reason");
    if (status == kvarnio::wrongUsage) {
        Check(out.Text().empty() && err.Text().find("--help") != std::string::npos,
              "wrong usage is explained");
    }
    Check(status != kvarnio::done || !json || explains || nlohmann::json::accept(out.Text()),
          "JSON that can be read");
    Check((status != kvarnio::wrongUsage && !command.reads) || TreeOf(Site::Root()) == before,
          "nothing is changed");
    return 0;
}
