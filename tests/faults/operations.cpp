// The library's writing operations, one a run, on the folder tree that scripts/faults makes on the
// drive C:. The exit status tells what the operation told its caller: 0 success, 1 failure (by its
// result or by a message box).
//
//   faultops OPERATION [VALUE]
//   faultops --list                name, what its result promises, files that are absent first
//   faultops install               fills the registry, as an installer does
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <kvarnprog.h>

namespace {

// What a program has at hand.
struct Scene {
    Scene() {
        ini.m_lage = 1;
        ini.m_iniFil = "C:\\Kvarnbok\\Markvida.ini";
        ini.m_huvudKat = "C:\\Kvarnbok";
        ini.m_cfgKat = "C:\\Kvarnbok\\Cfg";
        projekt.SetPath("C:\\Projekt\\Vag27");
        inst.Init(&ini, &projekt);
    }
    CAutoIni ini;
    CProjPath projekt;
    CKvarnInst inst;
    char const* value = "333";
    char const* road = "C:\\Projekt\\Vag27\\KVARNBOK.DBF\\VAG27.VL";
    char const* newRoad = "C:\\Projekt\\Vag27\\KVARNBOK.DBF\\NY.VL";
};

// --- Passes: as programs change these files, all records are read and written with one more ------

// The record is in the file from now on, whatever happens.
void IsKept(std::string const& code) {
    std::puts(code.c_str());
    std::fflush(stdout);
}

bool ChangeKodfil(Scene& scene) {
    std::vector<std::pair<std::string, std::string>> records;
    char code[256];
    char text[256];
    while (scene.inst.KodfilDatRead(code, text) == 0) {
        records.emplace_back(code, text);
    }
    records.emplace_back("Ny", scene.value);
    int mode = 1;
    for (auto const& [newCode, newText] : records) {
        scene.inst.KodfilDatWrite(mode, newCode.c_str(), newText.c_str());
        IsKept(newCode);
        mode = 0;
    }
    scene.inst.KodfilDatWrite(2, nullptr, nullptr);
    return true; // a failure shows a box
}

bool ChangeMiljkod(Scene& scene) {
    struct Post {
        int section;
        std::string code;
        std::string text;
        int max = 0;
        int step = 0;
    };
    std::vector<Post> posts;
    char code[256];
    char text[256];
    for (int section = 1; section <= 3; ++section) {
        int max = 0;
        int step = 0;
        bool const limits = section == 3;
        while (scene.inst.MiljkodRead(section, code, text, limits ? &max : nullptr,
                                      limits ? &step : nullptr) == 0) {
            posts.push_back({section, code, text, max, step});
        }
    }
    posts.push_back({3, "NY", scene.value, 10, 1});
    bool written = scene.inst.MiljKodWrite(1, "", "", 0, 0) == 0;
    for (int section = 1; section <= 3; ++section) {
        for (Post const& post : posts) {
            if (post.section == section) {
                written = scene.inst.MiljKodWrite(2 * section, post.code.c_str(), post.text.c_str(),
                                                  post.max, post.step) == 0 &&
                          written;
                IsKept(post.code);
            }
        }
        written = scene.inst.MiljKodWrite(2 * section + 1, "", "", 0, 0) == 0 && written;
    }
    return written;
}

bool ChangeLinkod(Scene& scene) {
    struct Line {
        int kind;
        std::string code;
        std::string word;
        std::string text;
        std::string number;
        std::string integer;
    };
    std::vector<Line> lines;
    char code[256];
    char word[256];
    char text[256];
    double number = 0;
    int integer = 0;
    for (int kind = 0; (kind = scene.inst.LinkodRead(code, word, text, &number, &integer)) > 0;) {
        lines.push_back(
            {kind, code, word, text, std::to_string(number), std::to_string(integer)});
    }
    lines.push_back({1, "NY", "STRECKAD", scene.value, "0.5", "1"});
    bool written = scene.inst.LinkodWrite(1, "", "", "", "", "") == 0;
    for (Line const& line : lines) {
        written = scene.inst.LinkodWrite(line.kind == 1 ? 2 : 4, line.code.c_str(),
                                         line.word.c_str(), line.number.c_str(), line.text.c_str(),
                                         line.integer.c_str()) == 0 &&
                  written;
        IsKept(line.code);
    }
    return scene.inst.LinkodWrite(5, "", "", "", "", "") == 0 && written;
}

bool ChangeStampel(Scene& scene) {
    char const* const path = "C:\\Projekt\\Vag27\\STAMPEL.PAR";
    std::vector<std::vector<std::string>> lines;
    char word1[256];
    char word2[256];
    double numbers[3];
    while (scene.inst.StampParRead(path, word1, word2, &numbers[0], &numbers[1], &numbers[2]) ==
           1) {
        lines.push_back({word1, word2, std::to_string(numbers[0]), std::to_string(numbers[1]),
                         std::to_string(numbers[2])});
    }
    lines.push_back({"NY", scene.value, "1", "2", "3"});
    bool written = scene.inst.StampParWrite(path, 1, "", "", "", "", "") == 0;
    for (auto const& line : lines) {
        written =
            scene.inst.StampParWrite(path, 2, line[0].c_str(), line[1].c_str(), line[2].c_str(),
                                     line[3].c_str(), line[4].c_str()) == 0 &&
            written;
        IsKept(line[0]);
    }
    return scene.inst.StampParWrite(path, 3, "", "", "", "", "") == 0 && written;
}

// --- Other operations of several steps -----------------------------------------------------------

bool SaveArea(Scene& scene) {
    CVag2 road;
    std::strcpy(road.filnamn, "RAMP.VL");
    road.omrSekTill = std::atof(scene.value);
    return road.SaveOmr(&scene.projekt) == 0;
}

template <class Road> bool SaveRoad(Scene& scene, char const* path) {
    Road road;
    road.Init(scene.road);
    std::strcpy(road.namn, scene.value);
    return road.Uppdat(path) == 0;
}

bool SavePoints(Scene& scene, char const* path) {
    CStodPunkt points("C:\\Projekt\\Vag27\\BRO$0001.STP");
    points.m_gvy = static_cast<float>(std::atof(scene.value));
    return points.Uppdat(path) == 0;
}

bool SaveMaterials(Scene& scene) {
    CBergOrMateLista rock(&scene.ini, &scene.projekt, 0, 0);
    CBergOrMateLista fill(&scene.ini, &scene.projekt, 1, 0);
    rock.Init();
    fill.Init();
    rock.Home();
    std::strcpy(rock.Get_aktel()->text, scene.value);
    return rock.Save(&fill) == 0;
}

bool CreateProject(Scene& scene, char const* folder, int create) {
    return CProjPath().CreateProjectStructure(folder, &scene.ini, create, 0, 1, 1, 1, 1, 1) == 1;
}

bool UseSettingsOfUser(Scene& scene) {
    scene.ini.m_iniFil = "C:\\Data\\Orsakor\\Vallentra\\Markvida\\R20\\AX\\Markvida.ini";
    return true;
}

bool WriteIniThroughApplication(Scene& scene) {
    CWinApp application;
    application.m_pszProfileName = strdup("C:\\Kvarnbok\\Markvida.ini");
    scene.ini.m_lage = 0;
    return scene.ini.WriteKey("SYSTEM", "DOCEXE", scene.value) != 0;
}

CRegistry Registry(char const* key, int create = 0, HKEY root = HKEY_CURRENT_USER) {
    CRegistry registry;
    registry.SetRootKey(root);
    registry.SetKey(key, create, KEY_ALL_ACCESS);
    return registry;
}

char const* const samlaren = "SOFTWARE\\Orsakor\\Vallentra\\Markvida\\Samlaren";

bool Install() {
    char const* const windows = "Software\\Microsoft\\Windows\\CurrentVersion";
    std::string const folders = std::string(windows) + "\\Explorer\\Shell Folders";
    char const* const release = "SOFTWARE\\Wow6432Node\\Orsakor\\Vallentra\\Markvida\\R20\\AX";
    char const* const platform = "SOFTWARE\\Orsakor\\Vallentra\\18.30\\Kernel Services";
    struct Value {
        HKEY root;
        char const* key;
        char const* name;
        char const* value;
    };
    for (Value const& value :
         {Value{HKEY_CURRENT_USER, folders.c_str(), "Appdata", "C:\\Data"},
          Value{HKEY_LOCAL_MACHINE, folders.c_str(), "Common Appdata", "C:\\Gemensam"},
          Value{HKEY_LOCAL_MACHINE, release, "InstallPath", "C:\\Prog"},
          Value{HKEY_LOCAL_MACHINE, windows, "ProgramFilesDir", "C:\\Program"},
          Value{HKEY_LOCAL_MACHINE, platform, "Root Directory", "C:\\Plattform"},
          Value{HKEY_CURRENT_USER, samlaren, "ACADVER", "20"},
          Value{HKEY_CURRENT_USER, "SOFTWARE\\Tom", "ACADVER", "20"}}) {
        if (Registry(value.key, 1, value.root).WriteString(value.name, value.value) == 0) {
            return false;
        }
    }
    return Registry("SOFTWARE\\Tom").DeleteValue("ACADVER") == 1;
}

// -------------------------------------------------------------------------------------------------

// What its result promises: nothing, where the header lets it report success whatever happens.
char const* const told = "told";
char const* const silent = "silent";
char const* const pass = "pass"; // works in the file itself

struct Operation {
    char const* name;
    char const* promise;
    char const* absent; // patterns with blanks between them
    bool (*run)(Scene&);
};

Operation const operations[] = {
    {"cfg-key", told, "",
     [](Scene& s) { return CKvarnCFG(&s.ini).WriteKey("ENHET", s.value) == 0; }},
    {"cfg-key-new", told, "c/Kvarnbok/KVARNBOK.CFG",
     [](Scene& s) { return CKvarnCFG(&s.ini).WriteKey("ENHET", s.value) == 0; }},
    {"par-key", told, "",
     [](Scene& s) { return CKvarnPAR(&s.ini, &s.projekt).WriteKey("HSKALA", s.value) == 0; }},
    {"par-key-shared", told, "c/Projekt/Vag27/KVARNBOK.PAR",
     [](Scene& s) { return CKvarnPAR(&s.ini, &s.projekt).WriteKey("HSKALA", s.value) == 0; }},
    {"sten-key", told, "",
     [](Scene& s) { return CKvarnPAR(&s.ini, &s.projekt, 1).WriteKey("HSKALA", s.value) == 0; }},
    {"inst-text", told, "",
     [](Scene& s) { return s.inst.WriteKey("KVARNBOK.PAR", "PROJEKT", s.value) == 0; }},
    {"inst-int", told, "",
     [](Scene& s) { return s.inst.WriteKey("KVARNBOK.PAR", "HSKALA", std::atoi(s.value)) == 0; }},
    {"inst-double", told, "",
     [](Scene& s) { return s.inst.WriteKey("KLIPPBOK.PAR", "IDHOJD", 7.25, 2) == 0; }},
    {"inst-jb23", silent, "",
     [](Scene& s) { return s.inst.WriteKey("JB23.PAR", "KRAFTSKALA", s.value) == 0; }},
    {"jb23-key", silent, "",
     [](Scene& s) { return !s.inst.Jb23WriteKey("KRAFTSKALA", s.value).IsEmpty(); }},
    {"jb23-key-new", silent, "c/*/JB23.PAR c/*/*/JB23.PAR",
     [](Scene& s) { return !s.inst.Jb23WriteKey("SJUNKSKALA", s.value).IsEmpty(); }},
    {"kodfil", pass, "", ChangeKodfil},
    {"kodfil-one-call", pass, "",
     [](Scene& s) { return s.inst.KodfilDatWrite(3, "Ny", s.value) == 0; }},
    {"miljkod", pass, "", ChangeMiljkod},
    {"miljkod-x", told, "c/Projekt/Vag27/MILJKOD.DAT",
     [](Scene& s) { return s.inst.MiljkodUppdatX() == 0; }},
    {"linkod", pass, "", ChangeLinkod},
    {"stampel", pass, "", ChangeStampel},
    {"road-line", told, "", [](Scene& s) { return SaveRoad<CVaglinje>(s, s.road); }},
    {"road-line-new", told, "", [](Scene& s) { return SaveRoad<CVaglinje>(s, s.newRoad); }},
    {"road", told, "", [](Scene& s) { return SaveRoad<CVag2>(s, s.road); }},
    {"area", told, "", SaveArea},
    {"area-new", told, "c/Projekt/Vag27/KVARNBOK.DBF/KVARNBOK.VL", SaveArea},
    {"points", told, "", [](Scene& s) { return SavePoints(s, nullptr); }},
    {"points-new", told, "",
     [](Scene& s) { return SavePoints(s, "C:\\Projekt\\Vag27\\NY$0002.STP"); }},
    {"materials", told, "", SaveMaterials},
    {"local-create", silent, "c/Projekt/Vag27/[!K]* c/Projekt/Vag27/K*.*",
     [](Scene& s) { return s.inst.CreateLokalaFiler(0, 1) == 0; }},
    {"local-create-empty", silent, "c/Projekt/Vag27/*.* c/Kvarnbok/Cfg/*",
     [](Scene& s) { return s.inst.CreateLokalaFiler(0, 1) == 0; }},
    {"local-overwrite", silent, "",
     [](Scene& s) { return s.inst.CreateLokalaFiler(1, 1) == 0; }},
    {"local-asked", silent, "c/Projekt/Vag27/KODFIL.DAT c/Projekt/Vag27/JB23.PAR",
     [](Scene& s) { return s.inst.ProjInst() == 1; }},
    {"local-sten", silent, "c/Projekt/Vag27/KLIPPBOK.PAR",
     [](Scene& s) { return s.inst.CreateLokalStenFil(0) == 0; }},
    {"local-remove", silent, "", [](Scene& s) { return s.inst.RemoveLokalaFiler() == 0; }},
    {"local-sten-remove", silent, "", [](Scene& s) { return s.inst.RemoveLokalStenFil() == 0; }},
    {"project", told, "", [](Scene& s) { return CreateProject(s, "C:\\Projekt\\Ny\\Del 2", 1); }},
    {"project-existing", told, "",
     [](Scene& s) { return CreateProject(s, "C:\\Projekt\\Hamnkajen", 0); }},
    {"first-start", told, "c/Data/*",
     [](Scene& s) { return s.ini.InitXPWay(0, "AX", "C:\\Prog") == 0; }},
    {"first-start-older", told, "c/Data/Orsakor",
     [](Scene& s) { return s.ini.InitXPWay(20, "AX", nullptr) == 0; }},
    {"later-start", told, "", [](Scene& s) { return s.ini.InitXPWay(20, "AX", nullptr) == 0; }},
    {"refresh", silent, "",
     [](Scene& s) { return UseSettingsOfUser(s) && s.ini.AllUserFileCheck() == 0; }},
    {"user-configuration", silent, "",
     [](Scene& s) {
         CString folder("C:\\Konf");
         return UseSettingsOfUser(s) && s.ini.User2Cfg(folder) == 0;
     }},
    {"registry-text", told, "",
     [](Scene& s) { return Registry(samlaren).WriteString("ACADVER", s.value) == 1; }},
    {"registry-new", told, "registry.reg",
     [](Scene& s) { return Registry("SOFTWARE\\Ny", 1).WriteInt("Antal", std::atoi(s.value)) == 1; }},
    {"registry-delete", told, "",
     [](Scene&) { return Registry(samlaren).DeleteValue("ACADVER") == 1; }},
    {"registry-create-key", told, "",
     [](Scene&) { return CRegistry().CreateKey("SOFTWARE\\Ny") == 1; }},
    {"registry-delete-key", told, "",
     [](Scene&) { return CRegistry().DeleteKey("SOFTWARE\\Tom") == 1; }},
    {"ini-key", told, "",
     [](Scene& s) { return s.ini.WriteKey("SYSTEM", "DOCEXE", s.value) != 0; }},
    {"ini-key-new", told, "c/Kvarnbok/Markvida.ini",
     [](Scene& s) { return s.ini.WriteKey("SYSTEM", "DOCEXE", s.value) != 0; }},
    {"ini-key-application", told, "", WriteIniThroughApplication},
};

int boxes = 0;

int CountBox(MessageBoxRequest const& box) {
    std::fprintf(stderr, "%s\n", box.text);
    // A first start without the switcher says so in these, and goes on.
    bool const isNotice = box.caption != nullptr && std::strcmp(box.caption, "IniProfile") == 0;
    boxes += isNotice ? 0 : 1;
    return IDOK;
}

} // namespace

int main(int argc, char** argv) {
    std::string const name = argc > 1 ? argv[1] : "--list";
    if (name == "install") {
        return Install() ? 0 : 1;
    }
    SetMessageBoxHandler(CountBox);
    for (Operation const& operation : operations) {
        if (name == "--list") {
            std::printf("%s\t%s\t%s\n", operation.name, operation.promise, operation.absent);
        } else if (name == operation.name) {
            Scene scene;
            scene.value = argc > 2 ? argv[2] : scene.value;
            return operation.run(scene) && boxes == 0 ? 0 : 1;
        }
    }
    return name == "--list" ? 0 : 2;
}
