// The user's own settings folder of one program and release, and how it is filled the first time.
#pragma once

#include <cstdint>
#include <string>

namespace kvarn {

// What CAutoIni::InitXPWay returns.
enum Startup {
    ready = 0,
    noInstallation = -1,
    noUserData = -2,
    noSharedData = -3,
    noUserFolder = -4,
    noIniFile = -5,
    noMainFolder = -6
};

constexpr std::int32_t latestRelease = 20;

// A release as the last part of its registry key and of its folder, "R20"; empty for others.
std::string ReleaseFolder(std::int32_t release);

class UserSettings {
  public:
    // With the user's application data, made where that is missing, and the name that the program's
    // keys and folders have.
    explicit UserSettings(std::string program);

    // Any other release leaves the folder as it was; at first there is none.
    void ChooseRelease(std::int32_t release);

    std::string const& Folder() const { return m_folder; }
    std::string const& Ini() const { return m_ini; }
    bool HasIni() const;
    // The folder above those of the releases, or a file in it.
    std::string ProgramFolder() const;
    std::string ProgramFolder(char const* file) const;

    // Each makes the folder and copies files into it: from the folder that the program had under
    // its older name, where there is one and the user's INI file is missing; from that of all
    // users, which knows no releases. The user is told of what fails.
    Startup FetchFromOlder() const;
    Startup FetchFromShared() const;

  private:
    Startup Fill(std::string const& from) const;
    Startup CreateFolders() const;

    std::string m_data;
    std::string m_program;
    std::string m_releaseFolder;
    std::string m_folder;
    std::string m_ini;
};

} // namespace kvarn
