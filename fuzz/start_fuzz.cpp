// The start of a program, the refreshing of files and the filling of a configuration folder: any
// settings file, any registry, any files of the user's, of all users and of the installation. The
// results are the stated ones, only the user's own folder is written, newer files reach where they
// belong, and a second call changes nothing.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "check.h"
#include "folder.h"
#include "host/calls.h"
#include "host/shell.h"
#include "host/win32/regstore.h"
#include "input.h"
#include "settings/autoini.h"
#include "support/boxes.h"
#include "text/letters.h"
#include "text/scan.h"
#include "text/text.h"
#include "text/utf16.h"
#include "tree.h"

namespace {

constexpr char const* program = "Orsakor/Vallentra/Markvida";

std::string Api(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

// The disk of a user, where every path that the registry names lies.
class Disk {
  public:
    explicit Disk(Input& in) {
        Empty(Opened(Root()));
        for (char const* const folder : {"Data", "Gemensam", "Prog", "Bin", "Plats/Binaries"}) {
            MakeFolders(Root() + '/' + folder);
        }
        Registry(in);
        Files(in);
        setenv("KVARNPROG_REGISTRY", (Root() + "/store.reg").c_str(), 1);
        setenv("KVARNPROG_DRIVES", (Root() + "/drives").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (Root() + "/config").c_str(), 1);
        setenv("KVARNBOK", (Root() + "/Prog").c_str(), 1);
    }

    // Every folder that the registry names is the one that is there.
    bool NamesItsFolders() const { return m_namesItsFolders; }

    static std::string const& Root() {
        static Folder const folder("/dev/shm");
        return folder.Path();
    }
    static std::string Path(std::string const& below) { return Api(Root() + '/' + below); }
    static std::string UserFolder(std::string const& release) {
        return std::string("Data/") + program + '/' + release + "/AX";
    }

  private:
    void Registry(Input& in) {
        constexpr char const* shell =
            R"(Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders)";
        static constexpr char const* releases[] = {"20", "19", "18", "17", "", " 20x", "Saknas"};
        kvarn::RegStore store;
        auto const set = [&](char const* root, std::string const& key, char const* name,
                             std::string const& value) {
            static constexpr char const* others[] = {"", "Saknas", " "};
            constexpr DWORD types[] = {REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD};
            enum { whole, oddType, oddText, withoutZero, missing, all = 15 };
            int const how = in.Number<int>(whole, all);
            if (how != missing) {
                kvarn::RegValue& made =
                    store.Make(kvarn::ToUtf16(root + ('\\' + key))).Make(kvarn::ToUtf16(name));
                made.type = how == oddType ? in.Pick(types) : REG_SZ;
                made.data = kvarn::ToBytes(
                    kvarn::ToUtf16((how == oddText ? in.Pick(others) : value) +
                                   (how == withoutZero ? "" : std::string(1, '\0'))));
            }
            return how == whole || how == withoutZero || how > missing; // it is that value
        };
        auto const machine = [&](std::string const& key, char const* name,
                                 std::string const& value) {
            return set("HKEY_LOCAL_MACHINE", key, name, value);
        };
        bool const data = set("HKEY_CURRENT_USER", shell, "Appdata", Path("Data"));
        bool const common = machine(shell, "Common Appdata", Path("Gemensam"));
        set("HKEY_CURRENT_USER", R"(SOFTWARE\Orsakor\Vallentra\Markvida\Samlaren)", "ACADVER",
            in.Pick(releases));
        for (char const* const group : {"DIST", "RELEASE", "R18", "R19", "R20"}) {
            std::string const key =
                R"(SOFTWARE\Wow6432Node\Orsakor\Vallentra\Markvida\)" + std::string(group) + "\\AX";
            machine(key, "InstallPath", Path("Prog") + (in.Bool() ? "" : "\\"));
            machine(key, "Package", in.Text(140).c_str());
        }
        bool const programs =
            machine(R"(Software\Microsoft\Windows\CurrentVersion)", "ProgramFilesDir", Path("Bin"));
        bool const platform = machine(R"(SOFTWARE\Orsakor\Vallentra\18.30\Kernel Services)",
                                      "Root Directory", Path("Plats"));
        m_namesItsFolders = data && common && programs && platform;
        WriteFile(Root() + "/store.reg", store.Bytes());
    }

    void Files(Input& in) {
        static constexpr char const* names[] = {"Markvida.ini", "Kvarnbok.par", "KOD.DAT",
                                                "plan.dat.bak", "SAMLAREN.DAT", "a.txt"};
        constexpr unsigned ordinary = 0x05; // a bit for each name
        std::string const folders[] = {UserFolder("R20"),
                                       UserFolder("R19"),
                                       "Data/Brinvik/Vallentra/Markvida/R20/AX",
                                       std::string("Gemensam/") + program + "/AX",
                                       "Bin/Orsakor/Binaries",
                                       "Plats/Binaries",
                                       "Cfg"};
        for (std::string const& folder : folders) {
            unsigned const which = in.Number<std::uint8_t>() ^ ordinary;
            for (std::size_t i = 0; i < std::size(names) && which < 0xC0; ++i) {
                constexpr std::int64_t then = 1'600'000'000;
                if ((which >> i & 1U) != 0) {
                    std::int64_t const seconds = then + in.Number(0, 2);
                    WriteFile(Root() + '/' + folder + '/' + names[i],
                              i == 0 ? Settings(in) : folder + names[i], seconds);
                }
            }
        }
        if (in.Number(0, 7) == 7) {
            WriteFile(Root() + "/Prog/Markvida.ConfigSwitcher.exe", "no program");
        }
        if (in.Bool()) {
            WriteFile(Root() + "/Prog/Markvida.ini", Settings(in));
        }
    }
    static std::string Settings(Input& in) {
        static constexpr char const* keys[] = {
            "MSG",     "SCRIPTPATH", "ACADVER", "ACADEXE", "ACADEXEA",     "AUTOGEN",
            "POSTCAD", "BANKCAD",    "ZIPEXE",  "DOCEXE",  "KVARNBOK.CFG", "VALLENTRAVER"};
        static constexpr char const* values[] = {"JA", "NEJ", "MSTATION", "19", "18.30", "\\", ""};
        std::string text = in.Bool() ? "[SYSTEM]\r\n" : in.Text(30);
        while (in.Number(0, 3) != 0) {
            text.append(in.Pick(keys)).append("=");
            text += in.Bool() ? in.Pick(values) : Path("Prog") + in.Text(20);
            text += "\r\n";
        }
        return text;
    }

    bool m_namesItsFolders = false;
};

// The command line, which a start may overwrite, as it was.
class CommandLine {
  public:
    CommandLine() : m_text(GetCommandLineA()) {}
    ~CommandLine() { std::memcpy(GetCommandLineA(), m_text.c_str(), m_text.size() + 1); }
    CommandLine(CommandLine const&) = delete;
    CommandLine& operator=(CommandLine const&) = delete;

  private:
    std::string m_text;
};

std::string Capitals(std::string text) {
    ToUpperNordic(text.data());
    return text;
}
bool IsUsersIni(std::string const& path) {
    return path.starts_with("Data/Orsakor") && path.ends_with("/Markvida.ini");
}

// The lines of a settings file but for keys that a start may replace. No character ends such a
// file.
std::vector<std::string> Kept(std::string const& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        std::string const key(kvarn::Trimmed(line.substr(0, line.find('='))));
        if (!kvarn::SameText(key, "MSG") && !kvarn::SameText(key, "SCRIPTPATH")) {
            lines.push_back(line);
        }
    }
    return lines;
}

// A first start, which finds no settings file in the user's folder, copies over what is there.
bool IsFirstCopy(Tree const& before, std::string const& path, Entry const& now) {
    std::size_t const separator = path.rfind('/');
    return path.starts_with("Data/Orsakor") &&
           !before.contains(path.substr(0, separator) + "/Markvida.ini") &&
           std::any_of(before.begin(), before.end(), [&](auto const& each) {
               return each.first.ends_with("AX" + path.substr(separator)) && each.second == now;
           });
}

void CheckOnlyUsersFolder(Tree const& before, Tree const& after) {
    for (auto const& [path, entry] : before) {
        auto const now = after.find(path);
        Check(now != after.end(), "nothing is removed");
        Check(now->second == entry || IsFirstCopy(before, path, now->second) ||
                  (IsUsersIni(path) && Kept(now->second.bytes) == Kept(entry.bytes)),
              "what was there stays, but for two keys of the user's");
    }
    for (auto const& [path, entry] : after) {
        bool const own = path.starts_with("Data/Orsakor") || path.starts_with("config") ||
                         path.starts_with("drives");
        Check(before.contains(path) || own, "only the user's own folder is filled");
    }
}

// The members that ReadKey's values stand for.
void CheckMembers(CAutoIni& ini) {
    auto const key = [&](char const* name) { return ini.ReadKey("SYSTEM", name); };
    CString const zip = key("ZIPEXE");
    Check(ini.m_zipExe == zip, "a text");
    std::string const number = key("ACADVER").GetString();
    std::int32_t expected = 19;
    kvarn::Scan(number, expected);
    Check(ini.m_acadVer == expected, "a number, or 19");
    Check(ini.m_postMstation == (kvarn::SameText(key("POSTCAD").GetString(), "MSTATION") ? 1 : 0),
          "a choice");
    Check(ini.m_autoGen == (kvarn::SameText(key("AUTOGEN").GetString(), "JA") ? 1 : 0), "a flag");
    std::string const script = ini.m_scriptKat.GetString();
    Check(!script.ends_with('\\') && kvarn::Trimmed(script) == script, "a folder's name");
}

void CheckStart(Input& in) {
    static constexpr int vers[] = {0, 1, 18, 19, 20, 17};
    static constexpr char const* subs[] = {"AX", "AX", "AX", "BX", "", "A"};
    int const ver = in.Pick(vers);
    char const* const sub = in.Pick(subs);
    std::string const folder = Disk::Path("Prog");
    char const* const dir = in.Number(0, 3) == 3 ? nullptr : folder.c_str();
    Tree const before = TreeOf(Disk::Root());
    Boxes::Shown().clear();
    CAutoIni ini;
    int const result = ini.InitXPWay(ver, sub, dir);
    Tree const after = TreeOf(Disk::Root());
    Check(result <= 0 && result >= -6, "a stated result");
    Check(result >= -1 || !Boxes::Shown().empty(), "a box tells of a failure");
    Check(ver != 17 || result == -1, "a release that is none");
    CheckOnlyUsersFolder(before, after);
    if (result == -1 || result == -2) {
        Tree made = after;
        made.erase("config"); // the host makes it, being asked where it is
        Check(made == before, "without settings nothing is made");
    }
    if (result == 0) {
        CheckMembers(ini);
        CAutoIni again;
        int const then = again.InitXPWay(ver, sub, dir);
        Check(then == 0 && again.m_iniFil == ini.m_iniFil && again.m_medKat == ini.m_medKat,
              "the next start finds the same");
        Check(TreeOf(Disk::Root()) == after, "and changes nothing");
    }
}

// What copying newer files from one folder to another leaves of a tree.
template <class Wanted>
void CopyNewer(Tree& tree, std::string const& from, std::string const& to, Wanted wanted) {
    Tree const before = tree;
    for (auto const& [path, entry] : before) {
        if (path.starts_with(from + '/') && wanted(Capitals(path.substr(from.size() + 1)))) {
            std::string const target = to + path.substr(from.size());
            auto const old = before.find(target);
            if (old == before.end() || old->second.seconds < entry.seconds) {
                tree[target] = entry;
            }
        }
    }
}

bool IsConfiguration(std::string const& capitals) {
    return capitals == "KVARNBOK.PAR" || capitals == "KOD.DAT" || capitals == "PLAN.DAT.BAK";
}

void CheckRefresh(Input& in, bool namesItsFolders) {
    bool const hasPath = !in.Bool();
    bool const knows = hasPath && namesItsFolders;
    std::string const release = in.Bool() ? "R20" : "R19";
    std::string const own = Disk::UserFolder(release);
    CAutoIni ini;
    ini.m_lage = 1;
    ini.m_iniFil = hasPath ? Disk::Path(own + "/Markvida.ini").c_str() : in.Text(25).c_str();
    Tree model = TreeOf(Disk::Root());
    int const result = ini.AllUserFileCheck();
    if (knows && model.contains(own)) {
        CopyNewer(model, std::string("Gemensam/") + program + "/AX", own,
                  [](std::string const& name) { return name != "MARKVIDA.INI"; });
        CopyNewer(model, "Bin/Orsakor/Binaries", "Plats/Binaries",
                  [&](std::string const&) { return result == 0; });
    }
    Tree const after = TreeOf(Disk::Root());
    Check(!knows || after == model, "newer files, and no others");
    ini.AllUserFileCheck();
    Check(TreeOf(Disk::Root()) == after, "once more changes nothing");

    CString cfg(Disk::Path("Cfg").c_str());
    bool const there = model.contains("Cfg");
    Check(ini.User2Cfg(cfg) == (there ? 0 : -1), "the stated result");
    if (knows && there && !model.contains("Cfg/Kvarnbok.par")) {
        CopyNewer(model, own, "Cfg", IsConfiguration);
    }
    Check(!knows || TreeOf(Disk::Root()) == model, "the configuration's files, and no others");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    static CWinApp app("fuzz");
    Boxes const boxes;
    CommandLine const line;
    Input in(data, size);
    bool const starts = in.Bool();
    Disk const disk(in);
    if (in.Number(0, 3) == 3) {
        CAutoIni ini;
        int const mode = in.Number(0, 1);
        Tree const before = TreeOf(Disk::Root());
        Check(ini.Init(mode) == 0 && ini.m_lage == mode, "a start with a mode");
        Check(TreeOf(Disk::Root()) == before, "which writes nothing");
    }
    starts ? CheckStart(in) : CheckRefresh(in, disk.NamesItsFolders());
    return 0;
}
