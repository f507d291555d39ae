// A folder of its own for the files of a benchmark or a fuzz target, removed with its scope.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include <stdlib.h>

class Folder {
  public:
    explicit Folder(std::filesystem::path const& parent)
        : m_path((parent / "kvarnprog-XXXXXX").string()) {
        if (mkdtemp(m_path.data()) == nullptr) {
            throw std::runtime_error("no folder can be made in " + parent.string());
        }
    }
    ~Folder() { std::filesystem::remove_all(m_path); }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;

    std::string const& Path() const { return m_path; }

  private:
    std::string m_path;
};
