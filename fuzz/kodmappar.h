// A project's folder, the CFG directory and the main directory, in memory and removed when the
// fuzzer ends in peace.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "folder.h"
#include "project/projpath.h"
#include "settings/autoini.h"
#include "tree.h"

class Mappar {
  public:
    static constexpr std::string_view alla = "pcm"; // in the order in which files are sought

    Mappar() : m_folder("/dev/shm") {
        for (char const mapp : alla) {
            std::filesystem::create_directory(Fil(mapp, ""));
        }
        proj.m_projKat = Sokvag("p").c_str();
        ini.m_cfgKat = Sokvag("c").c_str();
        ini.m_huvudKat = Sokvag("m").c_str();
    }

    std::string const& Rot() const { return m_folder.Path(); }
    // As the library is given it, which takes both separators.
    std::string Sokvag(std::string const& namn) const { return Rot() + '\\' + namn; }
    std::string Fil(char mapp, std::string_view namn) const {
        return (Rot() + '/' + mapp + '/').append(namn);
    }

    void Tom() const {
        for (char const mapp : alla) {
            Empty(Opened(Fil(mapp, "")));
        }
    }
    void Skriv(char mapp, std::string_view namn, std::string_view bytes) const {
        WriteFile(Fil(mapp, namn), bytes);
    }

    // Every file with its bytes, by folder and name.
    using Innehall = std::map<std::string, std::string>;
    static constexpr char const* mappen = "<folder>"; // in place of a folder's bytes
    Innehall Allt() const {
        Innehall allt;
        for (char const mapp : alla) {
            Opened const folder(Fil(mapp, ""));
            ForEachEntry(folder, [&](char const* namn, bool ar_mapp) {
                allt[mapp + ('/' + std::string(namn))] =
                    ar_mapp ? mappen : BytesOf(Opened(folder.Number(), namn, O_RDONLY));
            });
        }
        return allt;
    }

    CAutoIni ini;
    CProjPath proj;

  private:
    Folder m_folder;
};
