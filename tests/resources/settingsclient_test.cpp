// The sample program, run as a user would: it walks through its own windows and leaves pictures.
#include <gtest/gtest.h>

#include "support/child.h"
#include "support/projekt.h"

namespace {

// The exit code of a program, or -1 where it does not end in a minute.
int ExitCodeOf(std::string line) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process) == FALSE) {
        return -1;
    }
    constexpr DWORD minute = 60'000;
    DWORD code = 0;
    bool const ended = WaitForSingleObject(process.hProcess, minute) == WAIT_OBJECT_0;
    if (!ended) {
        TerminateProcess(process.hProcess, 1);
    }
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return ended ? static_cast<int>(code) : -1;
}

std::string Quoted(std::string const& text) {
    return " \"" + text + '"';
}

class SettingsClient : public ProjektTest {
  protected:
    // A road of three lines, of which the library cannot read one, in the project's area.
    void WriteRoad(std::string const& project) const {
        m_folder.Write(project + "/KVARNBOK.DBF/KVARNBOK.VL",
                       "* V\xE4g 27\r\n*\r\nVAG.VL\r\n0.000 100.000\r\n-10.000 10.000\r\n");
        m_folder.Write(project + "/KVARNBOK.DBF/VAG.VL", "0 0 0 0 1 $V\xE4g 27\r\n100 0 0 100\r\n"
                                                         "h\xE4r st\xE5r ingen punkt\r\n");
    }
};

TEST_F(SettingsClient, ShowsAndSavesAProjectsSettings) {
    std::filesystem::create_directories(PICTURES);
    WriteRoad("projekt");
    Write("KVARNBOK.PAR", "HSKALA=200\r\nOKAND=kvar\r\n");
    WriteRoad("annat"); // its road and its settings cannot be opened
    std::filesystem::remove(m_folder / "annat/KVARNBOK.DBF/VAG.VL");
    std::filesystem::create_directory(m_folder / "annat/KVARNBOK.DBF/VAG.VL");
    std::filesystem::create_directory(m_folder / "annat/KVARNBOK.PAR");
    SetVariable("KVARNBOK", m_folder.Api("huvud"));

    EXPECT_EQ(ExitCodeOf(SETTINGS_CLIENT + Quoted(m_folder.Api("projekt")) + " sv" +
                         Quoted(PICTURES) + Quoted(m_folder.Api("annat"))),
              0);
    EXPECT_EQ(Read("KVARNBOK.PAR"), "HSKALA=400\r\nOKAND=kvar\r\n");
    for (char const* const name : {"main", "settings", "saved", "box", "settings-box"}) {
        auto const picture =
            std::filesystem::path(PICTURES) / (std::string("client-") + name + ".png");
        EXPECT_EQ(ReadBytes(picture).substr(1, 3), "PNG") << picture;
    }
}

} // namespace
