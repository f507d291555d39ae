// A project's folder, the CFG directory and the main directory, in memory and removed when the
// fuzzer ends in peace.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>

#include "folder.h"
#include "project/projpath.h"
#include "settings/autoini.h"

class Mappar {
  public:
    static constexpr std::string_view alla = "pcm"; // in the order in which files are sought

    Mappar() : m_folder("/dev/shm") {
        proj.m_projKat = Sokvag("p").c_str();
        ini.m_cfgKat = Sokvag("c").c_str();
        ini.m_huvudKat = Sokvag("m").c_str();
    }

    std::string const& Rot() const { return m_folder.Path(); }
    // As the library is given it, which takes both separators.
    std::string Sokvag(std::string const& namn) const { return Rot() + '\\' + namn; }
    std::filesystem::path Fil(char mapp, std::string_view namn) const {
        return std::filesystem::path(Rot()) / std::string(1, mapp) / namn;
    }

    void Tom() const {
        for (char const mapp : alla) {
            std::filesystem::remove_all(Fil(mapp, ""));
            std::filesystem::create_directory(Fil(mapp, ""));
        }
    }
    void Skriv(char mapp, std::string_view namn, std::string_view bytes) const {
        std::ofstream(Fil(mapp, namn), std::ios::binary) << bytes;
    }
    static std::string Bytes(std::filesystem::path const& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // Every file with its bytes, by folder and name.
    using Innehall = std::map<std::string, std::string>;
    static constexpr char const* mappen = "<folder>"; // in place of a folder's bytes
    Innehall Allt() const {
        Innehall allt;
        for (char const mapp : alla) {
            for (auto const& post : std::filesystem::directory_iterator(Fil(mapp, ""))) {
                allt[mapp + ('/' + post.path().filename().string())] =
                    post.is_directory() ? mappen : Bytes(post.path());
            }
        }
        return allt;
    }

    CAutoIni ini;
    CProjPath proj;

  private:
    Folder m_folder;
};
