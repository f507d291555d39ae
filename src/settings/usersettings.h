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
    // Finds the user's application data and makes the folder if it is missing. The program is the
    // name in its keys and folders.
    explicit UserSettings(std::string program);

    // Chooses the folder of a known release; any other number changes nothing. Before the first
    // choice folder and INI file are empty.
    void ChooseRelease(std::int32_t release);

    std::string const& Folder() const { return m_folder; }
    std::string const& Ini() const { return m_ini; }
    bool HasIni() const;
    // The folder above those of the releases, or a file in it.
    std::string ProgramFolder() const;
    std::string ProgramFolder(char const* file) const;

    // The folder from which a file could not be copied; empty when all were. Complete copies what
    // the user's folder lacks of it, and tells the user what fails; true when all is there.
    std::string const& Incomplete() const { return m_incomplete; }
    bool Complete(std::string const& from) const;

    // A new INI file gets its first keys under this name, in the user's folder, and is put in its
    // place by one step: a folder with an INI file is complete.
    std::string Staged() const;
    bool Stage() const; // a copy of the INI file that is there
    bool PutInPlace() const;

    // Each makes the user's folder and copies files into it, and shows the user what fails. The
    // older folder lies under the former name "Brinvik"; it is used when it has an INI file and the
    // user has none. The shared folder is that of all users, which has no level for the release;
    // its INI file is staged.
    Startup FetchFromOlder();
    Startup FetchFromShared();

  private:
    Startup Fill(std::string const& from, std::string const& ini);
    Startup CreateFolders() const;

    std::string m_data;
    std::string m_program;
    std::string m_releaseFolder;
    std::string m_folder;
    std::string m_ini;
    std::string m_incomplete;
};

} // namespace kvarn
