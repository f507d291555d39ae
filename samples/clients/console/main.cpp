// Settings of a project, each with the file or default that it comes from, and where points lie
// along a road: consoleclient PROJECT ROAD [X Y]...
//
// The main folder is the environment variable KVARNBOK. The exit status is 0 when all was answered,
// 1 when not, and 2 for wrong usage.
#include <cstdio>
#include <cstdlib>

#include <kvarnprog.h>

namespace {

// The library's texts are in code page 1252. The terminal's are UTF-8, and on Linux the arguments.
void Print(char const* format, CString const& text) {
    std::printf(format, TextToUtf8(text).GetString());
}

CString Argument(char const* word) {
    CString text(word);
#ifndef _WIN32
    TextFromUtf8(word, text); // stays as it is where the code page lacks a letter
#endif
    return text;
}

// Without windows there are no boxes, and what they ask is answered by no.
int PrintMessage(MessageBoxRequest const& message) {
    std::fprintf(stderr, "%s\n", TextToUtf8(message.text).GetString());
    return (message.style & MB_TYPEMASK) == MB_YESNO ? IDNO : IDOK;
}

void PrintSettings(CAutoIni& ini, CProjPath& project) {
    CKvarnInst settings; // answers with the default where the file has no value
    settings.Init(&ini, &project);
    CKvarnPAR file(&ini, &project); // that file: the project's, or the one that is shared
    for (char const* key : {"HSKALA", "MTRLKOD", "VIMSKALA"}) {
        Print("%s=", key);
        Print("%s ", settings.ReadKey(CProjPath::KvarnParNamn, key));
        Print("(%s)\n", file.ReadKey(key).IsEmpty() ? CString("default") : file.GetParFilNamn());
    }
}

bool PrintStation(CVaglinje& plan, double x, double y) {
    double station = 0, offset = 0;
    bool const found = plan.Vagstv(x, y, &station, &offset, 0) == 0;
    std::printf(found ? "%.3f %.3f\n" : "not beside the road\n", station, offset);
    return found;
}

// From the first vertex to the last.
bool PrintStations(CVaglinje& plan) {
    if (plan.Home() != 0) {
        std::printf("no plan\n");
        return false;
    }
    double const first = plan.Get_aktel()->sektion;
    plan.End();
    std::printf("%.3f to %.3f\n", first, plan.Get_aktel()->sektion);
    return true;
}

} // namespace

int main(int count, char** words) {
    if (count < 3 || count % 2 == 0) {
        std::fprintf(stderr, "usage: consoleclient PROJECT ROAD [X Y]...\n");
        return 2;
    }
#ifdef _WIN32
    SetConsoleOutputCP(CP_UTF8);
#endif
    SetMessageBoxHandler(PrintMessage);
    CAutoIni ini;
    ini.Init(1);
    CProjPath project;
    project.SetPath(Argument(words[1]));
    PrintSettings(ini, project);

    CVag2 road;
    if (road.Init(Argument(words[2])) != 0) { // PrintMessage has told why
        return 1;
    }
    Print("%s\n", road.namn);
    bool answered = PrintStations(road.plan);
    for (int i = 3; i < count; i += 2) {
        answered &= PrintStation(road.plan, std::atof(words[i]), std::atof(words[i + 1]));
    }
    return answered ? 0 : 1;
}
