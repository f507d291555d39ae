// Settings of a project, each with the file or default that it comes from, and a point's station on
// its road: consoleclient PROJECT X Y. Ends with 1 without that station, with 2 for wrong usage.
#include <cstdio>
#include <cstdlib>

#include <kvarnprog.h>

// The library's texts are in code page 1252, and the terminal's in UTF-8.
static void Print(std::FILE* to, CString const& text) {
    std::fprintf(to, "%s\n", TextToUtf8(text).GetString());
}

static void PrintSettings(CAutoIni& ini, CProjPath& project) {
    CKvarnInst settings; // answers with the default where the file has no value
    settings.Init(&ini, &project);
    CKvarnPAR par(&ini, &project); // that file: the project's, or the one that is shared
    for (char const* key : {"HSKALA", "MTRLKOD", "VIMSKALA"}) {
        CString const value = settings.ReadKey(CProjPath::KvarnParNamn, key);
        CString const path = par.ReadKey(key).IsEmpty() ? CString("default") : par.GetParFilNamn();
        Print(stdout, CString(key) + "=" + value + " (" + path + ")");
    }
}

int main(int count, char** words) {
    if (count != 4) {
        std::fprintf(stderr, "usage: consoleclient PROJECT X Y\n");
        return 2;
    }
    CString folder(words[1]); // Windows gives it in the code page
#ifdef _WIN32
    SetConsoleOutputCP(CP_UTF8);
#else
    TextFromUtf8(words[1], folder);
#endif
    // There are no windows: messages go to standard error, and what they ask is not agreed to.
    SetMessageBoxHandler([](MessageBoxRequest const& message) {
        Print(stderr, message.text);
        return int{IDOK};
    });
    CAutoIni ini;
    ini.Init(1); // the main folder is the environment variable KVARNBOK
    CProjPath project;
    project.SetPath(folder);
    PrintSettings(ini, project);

    CVag2 road;
    double station = 0, offset = 0, x = std::atof(words[2]), y = std::atof(words[3]);
    if (road.ReadOmr(&project) != 0 || road.plan.Vagstv(x, y, &station, &offset, 0) != 0) {
        Print(stderr, "No station: the project has no road beside which the point lies.");
        return 1;
    }
    Print(stdout, road.namn);
    std::printf("%.3f to %.3f\n", road.plan.omrSekFran, road.plan.omrSekTill);
    std::printf("the point: %.3f, offset %.3f\n", station, offset);
}
