// The library's writing operations, one a run, on the folder tree that scripts/faults makes on the
// drive C:. The exit status is 0 when the operation told its caller of success, and 1 when it told
// of a failure, by its result or by a message box.
//
//   faultops OPERATION [VALUE]
//   faultops --list                name, what it promises, files that are absent first
//   faultops install               fills the registry, as an installer does
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <kvarnprog.h>

#if defined(_WIN32) // windowsfaults.cpp
void RedirectCalls(HMODULE module);
void HoldFile();
void PrintCalls();
#endif

namespace {

int boxes = 0;

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
    // Keys go to the user's own settings.
    CAutoIni& Users() {
        ini.m_iniFil = "C:\\Data\\Orsakor\\Vallentra\\Markvida\\R20\\AX\\Markvida.ini";
        return ini;
    }

    CAutoIni ini;
    CProjPath projekt;
    CKvarnInst inst;
    char const* value = "333";
};

// --- Passes: as programs change these files, all records are read, and written with one more -----

using Record = std::vector<std::string>;
using Buffer = std::array<char, 256>;

// Whatever happens now, the record is in the file.
bool Kept(int result, Record const& record) {
    std::puts(record.front().c_str());
    std::fflush(stdout);
    return result == 0;
}

bool ChangeKodfil(Scene& s) {
    std::vector<Record> records;
    Buffer code;
    Buffer text;
    while (s.inst.KodfilDatRead(code.data(), text.data()) == 0) {
        records.push_back({code.data(), text.data()});
    }
    records.push_back({"Ny", s.value});
    int mode = 1;
    for (Record const& record : records) {
        Kept(s.inst.KodfilDatWrite(mode, record[0].c_str(), record[1].c_str()), record);
        mode = 0;
    }
    return s.inst.KodfilDatWrite(2, nullptr, nullptr) == 0;
}

bool ChangeMiljkod(Scene& s) {
    std::vector<Record> records;
    Buffer code;
    Buffer text;
    int max = 0;
    int step = 0;
    for (int section = 1; section <= 3; ++section) {
        int* const limit = section == 3 ? &max : nullptr;
        while (s.inst.MiljkodRead(section, code.data(), text.data(), limit, &step) == 0) {
            records.push_back({code.data(), text.data(), std::to_string(section)});
        }
    }
    records.push_back({"NY", s.value, "3"});
    bool written = s.inst.MiljKodWrite(1, "", "", 0, 0) == 0;
    for (int section = 1; section <= 3; ++section) {
        for (Record const& record : records) {
            if (std::stoi(record[2]) == section) {
                int const result = s.inst.MiljKodWrite(2 * section, record[0].c_str(),
                                                       record[1].c_str(), max, step);
                written = Kept(result, record) && written;
            }
        }
        written = s.inst.MiljKodWrite(2 * section + 1, "", "", 0, 0) == 0 && written;
    }
    return written;
}

bool ChangeLinkod(Scene& s) {
    std::vector<Record> records;
    Buffer code;
    Buffer word;
    Buffer text;
    double number = 0;
    int whole = 0;
    for (int kind = 0;
         (kind = s.inst.LinkodRead(code.data(), word.data(), text.data(), &number, &whole)) > 0;) {
        std::string const mode = kind == 1 ? "2" : "4";
        records.push_back({code.data(), word.data(), std::to_string(number), text.data(), mode});
    }
    records.push_back({"NY", "STRECKAD", "0.5", s.value, "2"});
    bool written = s.inst.LinkodWrite(1, "", "", "", "", "") == 0;
    for (Record const& record : records) {
        int const result =
            s.inst.LinkodWrite(std::stoi(record[4]), record[0].c_str(), record[1].c_str(),
                               record[2].c_str(), record[3].c_str(), "1");
        written = Kept(result, record) && written;
    }
    return s.inst.LinkodWrite(5, "", "", "", "", "") == 0 && written;
}

bool ChangeStampel(Scene& s) {
    char const* const path = "C:\\Projekt\\Vag27\\STAMPEL.PAR";
    std::vector<Record> records;
    Buffer word1;
    Buffer word2;
    double a = 0;
    double b = 0;
    double c = 0;
    while (s.inst.StampParRead(path, word1.data(), word2.data(), &a, &b, &c) == 1) {
        records.push_back({word1.data(), word2.data(), std::to_string(a), std::to_string(b)});
    }
    records.push_back({"NY", s.value, "1", "2"});
    bool written = s.inst.StampParWrite(path, 1, "", "", "", "", "") == 0;
    for (Record const& record : records) {
        int const result = s.inst.StampParWrite(path, 2, record[0].c_str(), record[1].c_str(),
                                                record[2].c_str(), record[3].c_str(), "3");
        written = Kept(result, record) && written;
    }
    return s.inst.StampParWrite(path, 3, "", "", "", "", "") == 0 && written;
}

// --- Others of several steps ---------------------------------------------------------------------

char const* const ownRoad = "C:\\Projekt\\Vag27\\KVARNBOK.DBF\\VAG27.VL";
char const* const newRoad = "C:\\Projekt\\Vag27\\KVARNBOK.DBF\\NY.VL";

// To its own file even when that could not be read, which the library has to refuse.
template <class Road> bool SaveRoad(Scene& s, char const* path) {
    Road road;
    bool const read = road.Init(ownRoad) == 0;
    std::strcpy(road.namn, s.value);
    return (read || path == ownRoad) && road.Uppdat(path) == 0;
}

bool SavePoints(Scene& s, char const* path) {
    CStodPunkt points("C:\\Projekt\\Vag27\\BRO$0001.STP");
    points.m_gvy = static_cast<float>(std::atof(s.value));
    return (boxes == 0 || path == nullptr) && points.Uppdat(path) == 0;
}

bool SaveArea(Scene& s) {
    CVag2 road;
    std::strcpy(road.filnamn, "RAMP.VL");
    road.omrSekTill = std::atof(s.value);
    return road.SaveOmr(&s.projekt) == 0;
}

bool SaveMaterials(Scene& s) {
    CBergOrMateLista rock(&s.ini, &s.projekt, 0, 0);
    CBergOrMateLista fill(&s.ini, &s.projekt, 1, 0);
    rock.Init();
    fill.Init();
    rock.Home();
    std::strcpy(rock.Get_aktel()->text, s.value);
    return rock.Save(&fill) == 0;
}

bool CreateProject(Scene& s, char const* folder, int create) {
    return CProjPath().CreateProjectStructure(folder, &s.ini, create, 0, 1, 1, 1, 1, 1) == 1;
}

bool WriteIniThroughApplication(Scene& s) {
    CWinApp application;
    application.m_pszProfileName = strdup(s.ini.m_iniFil.GetString());
    s.ini.m_lage = 0;
    return s.ini.WriteKey("SYSTEM", "DOCEXE", s.value) != 0;
}

char const* const samlaren = "SOFTWARE\\Orsakor\\Vallentra\\Markvida\\Samlaren";

bool WriteRegistry(HKEY root, std::string const& key, char const* name, char const* value) {
    CRegistry registry;
    registry.SetRootKey(root);
    return registry.SetKey(key.c_str(), 1, KEY_ALL_ACCESS) == 1 &&
           registry.WriteString(name, value) == 1;
}

bool Install() {
    HKEY const user = HKEY_CURRENT_USER;
    HKEY const machine = HKEY_LOCAL_MACHINE;
    std::string const windows = "Software\\Microsoft\\Windows\\CurrentVersion";
    std::string const folders = windows + "\\Explorer\\Shell Folders";
    std::string const release = "SOFTWARE\\Wow6432Node\\Orsakor\\Vallentra\\Markvida\\R20\\AX";
    std::string const platform = "SOFTWARE\\Orsakor\\Vallentra\\18.30\\Kernel Services";
    return WriteRegistry(user, folders, "Appdata", "C:\\Data") &&
           WriteRegistry(user, samlaren, "ACADVER", "20") &&
           WriteRegistry(machine, folders, "Common Appdata", "C:\\Gemensam") &&
           WriteRegistry(machine, release, "InstallPath", "C:\\Prog") &&
           WriteRegistry(machine, windows, "ProgramFilesDir", "C:\\Program") &&
           WriteRegistry(machine, platform, "Root Directory", "C:\\Plattform");
}

// -------------------------------------------------------------------------------------------------

char const* const told = "told";     // the result tells whether it was done
char const* const silent = "silent"; // success may be reported whatever happens
char const* const steps = "steps";   // a failure may be that of a later look
char const* const pass = "pass";     // works in the file itself, record by record

struct Operation {
    char const* name;
    char const* promise;
    char const* absent; // patterns with blanks between them
    bool (*run)(Scene&);
};

using S = Scene;
char const* const ownPar = "c/Projekt/Vag27/KVARNBOK.PAR";
char const* const ownMiljkod = "c/Projekt/Vag27/MILJKOD.DAT";
char const* const ownArea = "c/Projekt/Vag27/KVARNBOK.DBF/KVARNBOK.VL";

Operation const operations[] = {
    {"cfg-key", told, "", [](S& s) { return CKvarnCFG(&s.ini).WriteKey("ENHET", s.value) == 0; }},
    {"cfg-key-new", told, "c/Kvarnbok/KVARNBOK.CFG",
     [](S& s) { return CKvarnCFG(&s.ini).WriteKey("ENHET", s.value) == 0; }},
    {"par-key", told, "",
     [](S& s) { return CKvarnPAR(&s.ini, &s.projekt).WriteKey("HSKALA", s.value) == 0; }},
    {"par-key-shared", told, ownPar,
     [](S& s) { return CKvarnPAR(&s.ini, &s.projekt).WriteKey("HSKALA", s.value) == 0; }},
    {"sten-key", told, "",
     [](S& s) { return CKvarnPAR(&s.ini, &s.projekt, 1).WriteKey("HSKALA", s.value) == 0; }},
    {"inst-text", told, "",
     [](S& s) { return s.inst.WriteKey("KVARNBOK.PAR", "PROJEKT", s.value) == 0; }},
    {"inst-int", told, "",
     [](S& s) { return s.inst.WriteKey("KVARNBOK.PAR", "HSKALA", std::atoi(s.value)) == 0; }},
    {"inst-double", told, "",
     [](S& s) { return s.inst.WriteKey("KLIPPBOK.PAR", "IDHOJD", 7.25, 2) == 0; }},
    {"inst-jb23", silent, "",
     [](S& s) { return s.inst.WriteKey("JB23.PAR", "KRAFTSKALA", s.value) == 0; }},
    {"jb23-key", silent, "",
     [](S& s) { return s.inst.Jb23WriteKey("KRAFTSKALA", s.value) == s.value; }},
    {"jb23-key-new", silent, "c/*/JB23.PAR",
     [](S& s) { return s.inst.Jb23WriteKey("SJUNKSKALA", s.value) == s.value; }},
    {"kodfil", pass, "", ChangeKodfil},
    {"kodfil-one-call", pass, "",
     [](S& s) { return s.inst.KodfilDatWrite(3, "Ny", s.value) == 0; }},
    {"miljkod", pass, "", ChangeMiljkod},
    {"miljkod-x", told, ownMiljkod, [](S& s) { return s.inst.MiljkodUppdatX() == 0; }},
    {"linkod", pass, "", ChangeLinkod},
    {"stampel", pass, "", ChangeStampel},
    {"road-line", told, "", [](S& s) { return SaveRoad<CVaglinje>(s, ownRoad); }},
    {"road-line-new", told, "", [](S& s) { return SaveRoad<CVaglinje>(s, newRoad); }},
    {"road", told, "", [](S& s) { return SaveRoad<CVag2>(s, ownRoad); }},
    {"area", told, "", SaveArea},
    {"area-new", told, ownArea, SaveArea},
    {"points", told, "", [](S& s) { return SavePoints(s, nullptr); }},
    {"points-new", told, "", [](S& s) { return SavePoints(s, "C:\\Projekt\\Vag27\\NY$0002.STP"); }},
    {"materials", told, "", SaveMaterials},
    {"local-create", silent, "c/Projekt/Vag27/*.PAR c/Projekt/Vag27/*.[Dd][Aa][Tt]",
     [](S& s) { return s.inst.CreateLokalaFiler(0, 1) == 0; }},
    {"local-create-empty", silent, "c/Projekt/Vag27/*.* c/Kvarnbok/Cfg/*",
     [](S& s) { return s.inst.CreateLokalaFiler(0, 1) == 0; }},
    {"local-overwrite", silent, "", [](S& s) { return s.inst.CreateLokalaFiler(1, 1) == 0; }},
    {"local-asked", silent, "c/Projekt/Vag27/KODFIL.DAT c/Projekt/Vag27/JB23.PAR",
     [](S& s) { return s.inst.ProjInst() == 1; }},
    {"local-sten", silent, "c/Projekt/Vag27/KLIPPBOK.PAR",
     [](S& s) { return s.inst.CreateLokalStenFil(0) == 0; }},
    {"local-remove", silent, "", [](S& s) { return s.inst.RemoveLokalaFiler() == 0; }},
    {"local-sten-remove", silent, "", [](S& s) { return s.inst.RemoveLokalStenFil() == 0; }},
    {"project", steps, "", [](S& s) { return CreateProject(s, "C:\\Projekt\\Ny\\Del 2", 1); }},
    {"project-more", steps, "", [](S& s) { return CreateProject(s, "C:\\Projekt\\Hamnkajen", 0); }},
    {"first-start", silent, "c/Data/*",
     [](S& s) { return s.ini.InitXPWay(0, "AX", "C:\\Prog") == 0; }},
    {"first-start-older", silent, "c/Data/Orsakor*",
     [](S& s) { return s.ini.InitXPWay(20, "AX", nullptr) == 0; }},
    {"later-start", silent, "", [](S& s) { return s.ini.InitXPWay(20, "AX", nullptr) == 0; }},
    {"refresh", silent, "", [](S& s) { return s.Users().AllUserFileCheck() == 0; }},
    {"user-configuration", silent, "",
     [](S& s) {
         CString folder("C:\\Konf");
         return s.Users().User2Cfg(folder) == 0;
     }},
    {"registry-text", told, "",
     [](S& s) { return WriteRegistry(HKEY_CURRENT_USER, samlaren, "ACADVER", s.value); }},
    {"registry-new", told, "registry.reg",
     [](S& s) { return CRegistry().WriteInt("Antal", std::atoi(s.value)) == 1; }},
    {"registry-delete", told, "",
     [](S&) {
         CRegistry registry;
         return registry.SetKey(samlaren, 0, KEY_ALL_ACCESS) == 1 &&
                registry.DeleteValue("ACADVER") == 1;
     }},
    {"registry-create-key", told, "",
     [](S&) { return CRegistry().CreateKey("SOFTWARE\\Ny") == 1; }},
    {"registry-delete-key", silent, "", [](S&) { return CRegistry().DeleteKey(samlaren) == 1; }},
    {"ini-key", told, "", [](S& s) { return s.ini.WriteKey("SYSTEM", "DOCEXE", s.value) != 0; }},
    {"ini-key-new", told, "c/Kvarnbok/Markvida.ini",
     [](S& s) { return s.ini.WriteKey("SYSTEM", "DOCEXE", s.value) != 0; }},
    {"ini-key-application", told, "", WriteIniThroughApplication},
};

int CountBox(MessageBoxRequest const& box) {
    std::fprintf(stderr, "%s\n", box.text);
    // A first start without the switcher says so with this caption, and goes on.
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
#if defined(_WIN32)
            RedirectCalls(LibraryModule());
            HoldFile();
            std::atexit(PrintCalls);
#endif
            return operation.run(scene) && boxes == 0 ? 0 : 1;
        }
    }
    return name == "--list" ? 0 : 2;
}
