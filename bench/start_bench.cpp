// A user's first start, InitXPWay and AllUserFileCheck: the registry's store is read, the settings
// of all users are copied, four keys are written, and what is newer is looked for. Beside Boost's
// property tree with std::filesystem, and bare system calls on files that are known by name, which
// know nothing of the registry. All flush each file and give it its name when it is whole. In
// memory (/dev/shm), where a flush costs nothing. The store changes before each start, so that
// nobody remembers it.
//
// FirstStart/N  N keys of others in the registry
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <thread>

#include <boost/property_tree/ini_parser.hpp>
#include <core/message.h>
#include <core/registry.h>
#include <fcntl.h>
#include <settings/autoini.h>
#include <sys/stat.h>
#include <text/utf16.h>
#include <unistd.h>

#include "contenders/files.h"
#include "folder.h"

namespace {

namespace fs = std::filesystem;
using Tree = boost::property_tree::ptree;

constexpr char const* program = "Orsakor/Vallentra/Markvida";
constexpr char const* files[] = {"KOD1.DAT", "KOD2.DAT",     "KOD3.DAT",    "SYMBOL.DAT",
                                 "MALL.XML", "Kvarnbok.par", "Markvida.ini"};

std::string Windows(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

// An installation, and the folders of a user who has no settings yet.
class Installed {
  public:
    explicit Installed(int otherKeys) {
        setenv("KVARNPROG_REGISTRY", Store().c_str(), 1);
        setenv("KVARNPROG_DRIVES", (m_root.Path() + "/drives").c_str(), 1);
        for (std::string const& folder : {Data(), AllUsers(), Program()}) {
            fs::create_directories(folder);
        }
        std::string const shell =
            R"(Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders)";
        Set(HKEY_CURRENT_USER, shell, "Appdata", Data());
        Set(HKEY_LOCAL_MACHINE, shell, "Common Appdata", m_root.Path() + "/Gemensam");
        Set(HKEY_LOCAL_MACHINE, R"(SOFTWARE\Wow6432Node\Orsakor\Vallentra\Markvida\R20\AX)",
            "InstallPath", Program());
        AddOtherKeys(otherKeys);
        for (char const* const file : files) {
            std::ofstream(AllUsers() + '/' + file) << "[SYSTEM]\r\nACADEXEA=a.exe\r\nEGEN=1\r\n";
        }
    }

    std::string Store() const { return m_root.Path() + "/store.reg"; }
    std::string Data() const { return m_root.Path() + "/Data"; }
    std::string User() const { return Data() + '/' + program + "/R20/AX"; }
    std::string AllUsers() const { return m_root.Path() + "/Gemensam/" + program + "/AX"; }
    std::string Program() const { return m_root.Path() + "/Prog"; }

    void Reset() {
        fs::remove_all(Data() + "/Orsakor");
        std::string bytes;
        ReadWhole(Store(), bytes);
        std::size_t const lastDigit = bytes.rfind('"') - 2; // two bytes a letter
        bytes[lastDigit] = static_cast<char>('0' + ++m_round % 10);
        Save(Store(), bytes, Saving::inPlace);
        // A store that was changed just now is not remembered from one look to the next.
        std::this_thread::sleep_for(std::chrono::milliseconds(25));
    }
    bool IsStarted() const {
        return std::all_of(std::begin(files), std::end(files),
                           [&](char const* file) { return fs::exists(User() + '/' + file); });
    }

  private:
    static void Set(HKEY root, std::string const& key, char const* name, std::string const& value) {
        CRegistry registry;
        registry.SetRootKey(root);
        registry.SetKey(key.c_str(), 1, KEY_ALL_ACCESS);
        registry.WriteString(name, Windows(value).c_str());
    }
    void AddOtherKeys(int count) {
        std::string bytes;
        ReadWhole(Store(), bytes);
        std::u16string text;
        for (int i = 0; i <= count; ++i) {
            std::string const key = "\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Annan\\Nyckel" +
                                    std::to_string(i) + "]\r\n\"Varde\"=\"text 0\"\r\n";
            text.append(key.begin(), key.end());
        }
        Save(Store(), bytes + kvarn::ToBytes(text), Saving::inPlace);
    }

    Folder m_root{"/dev/shm"};
    int m_round = 0;
};

bool Ours(Installed const& installed) {
    CAutoIni ini;
    // -1: no platform is registered, whose binaries would be refreshed.
    return ini.InitXPWay(0, "AX", Windows(installed.Program()).c_str()) == 0 &&
           ini.AllUserFileCheck() == -1;
}

// --- Boost and std::filesystem -------------------------------------------------------------------

Tree ReadStore(std::string const& path) {
    std::string bytes;
    ReadWhole(path, bytes);
    std::string text;
    for (char16_t const unit : kvarn::FromBytes(std::string_view(bytes).substr(2))) {
        text += static_cast<char>(unit); // nothing but ASCII is in it
    }
    std::istringstream keys(text.substr(text.find('\n')));
    Tree tree;
    boost::property_tree::read_ini(keys, tree);
    return tree;
}

void CopyWhole(fs::path const& from, fs::path const& to) {
    fs::path const beside = to.string() + ".tmp";
    fs::copy_file(from, beside);
    fs::last_write_time(beside, fs::last_write_time(from));
    int const file = open(beside.c_str(), O_RDONLY | O_CLOEXEC);
    fsync(file);
    close(file);
    Replace(beside, to);
}

std::string Unquoted(std::string text) {
    text = text.substr(1, text.size() - 2);
    for (std::size_t at = 0; (at = text.find("\\\\", at)) != text.npos; ++at) {
        text.erase(at, 1);
    }
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

bool PropertyTree(Installed const& installed) {
    Tree const store = ReadStore(installed.Store());
    auto const value = [&](char const* key, char const* name) {
        return Unquoted(store.get_child(Tree::path_type(key, '\n'))
                            .get<std::string>(Tree::path_type(name, '\n')));
    };
    constexpr char const* shell =
        R"(\Software\Microsoft\Windows\CurrentVersion\Explorer\Shell Folders)";
    fs::path const user =
        fs::path(value((std::string("HKEY_CURRENT_USER") + shell).c_str(), "\"Appdata\"")) /
        program / "R20/AX";
    fs::path const all =
        fs::path(value((std::string("HKEY_LOCAL_MACHINE") + shell).c_str(), "\"Common Appdata\"")) /
        program / "AX";
    fs::create_directories(user);
    for (fs::directory_entry const& entry : fs::directory_iterator(all)) {
        CopyWhole(entry.path(), user / entry.path().filename());
    }
    Tree ini;
    fs::path const settings = user / "Markvida.ini";
    boost::property_tree::read_ini(settings, ini);
    ini.put("SYSTEM.MSG", user.parent_path().string());
    ini.put("SYSTEM.SCRIPTPATH", user.parent_path().string());
    ini.put("SYSTEM.ACADVER", "20");
    ini.put("SYSTEM.ACADEXE", ini.get<std::string>("SYSTEM.ACADEXEA"));
    std::ostringstream text;
    boost::property_tree::write_ini(text, ini);
    Save(settings, text.str(), Saving::replaced);
    for (fs::directory_entry const& entry : fs::directory_iterator(all)) {
        fs::path const own = user / entry.path().filename();
        if (entry.last_write_time() > fs::last_write_time(own)) {
            CopyWhole(entry.path(), own);
        }
    }
    return true;
}

// --- System calls --------------------------------------------------------------------------------

bool Limit(Installed const& installed) {
    std::string folder = installed.Data();
    for (char const* const level : {"/Orsakor", "/Vallentra", "/Markvida", "/R20", "/AX"}) {
        folder += level;
        mkdir(folder.c_str(), 0777);
    }
    std::string content;
    for (char const* const file : files) {
        std::string const name = std::string("/") + file;
        struct stat from {};
        struct stat own {};
        stat((installed.AllUsers() + name).c_str(), &from);
        ReadWhole(installed.AllUsers() + name, content);
        content += file == files[std::size(files) - 1] ? "MSG=x\r\nACADVER=20\r\n" : "";
        std::string const to = folder + name;
        if (!Save(to, content, Saving::replaced)) {
            return false;
        }
        timespec const times[] = {from.st_atim, from.st_mtim};
        utimensat(AT_FDCWD, to.c_str(), times, 0);
        stat(to.c_str(), &own);
    }
    return true;
}

// --- The benchmarks ------------------------------------------------------------------------------

int Silent(MessageBoxRequest const&) {
    return 1;
}

void FirstStart(benchmark::State& state, int otherKeys, bool (*start)(Installed const&)) {
    SetMessageBoxHandler(Silent); // the switcher is missing, which is told
    Installed installed(otherKeys);
    for (auto _ : state) {
        state.PauseTiming();
        installed.Reset();
        state.ResumeTiming();
        if (!start(installed) || !installed.IsStarted()) {
            state.SkipWithError("the user has no settings");
            break;
        }
    }
}

bool const registered = [] {
    for (int const keys : {0, 2'000}) {
        std::string const number = std::to_string(keys);
        auto const add = [&](char const* name, bool (*start)(Installed const&)) {
            benchmark::RegisterBenchmark(("FirstStart/" + number + "/" + name).c_str(),
                                         [=](auto& state) { FirstStart(state, keys, start); })
                ->Unit(benchmark::kMicrosecond);
        };
        add("ours", Ours);
        add("property tree", PropertyTree);
        add("limit", Limit);
    }
    return true;
}();

} // namespace
