// Makes a folder the current one.
#pragma once

#include <filesystem>

class InFolder {
  public:
    explicit InFolder(std::filesystem::path const& folder) {
        std::filesystem::current_path(folder);
    }
    InFolder(InFolder const&) = delete;
    InFolder& operator=(InFolder const&) = delete;
    ~InFolder() { std::filesystem::current_path(m_before); }

  private:
    std::filesystem::path m_before = std::filesystem::current_path();
};
