// A folder of a test's own, and the bytes of files in it.
#pragma once

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#if defined(_WIN32)
#include <process.h>
inline int ProcessNumber() {
    return _getpid();
}
#else
#include <unistd.h>
inline int ProcessNumber() {
    return getpid();
}
#endif

inline void WriteBytes(std::filesystem::path const& path, std::string_view bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    ASSERT_TRUE(file.flush()) << path;
}

inline std::string ReadBytes(std::filesystem::path const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

inline std::vector<std::string> NamesIn(std::filesystem::path const& folder) {
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class TestFolder {
  public:
    TestFolder() : m_path(NextPath()) {
        std::filesystem::remove_all(m_path); // of an earlier process with this number
        std::filesystem::create_directories(m_path);
    }
    ~TestFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TestFolder(TestFolder const&) = delete;
    TestFolder& operator=(TestFolder const&) = delete;

    std::filesystem::path operator/(std::string_view name) const { return m_path / name; }
    // As the library takes paths: with backslashes between folder and name.
    std::string Api() const { return m_path.string(); }
    std::string Api(std::string_view name) const { return Api() + "\\" + std::string(name); }

    void Write(std::string_view name, std::string_view bytes) const {
        std::filesystem::create_directories((m_path / name).parent_path());
        WriteBytes(m_path / name, bytes);
    }
    std::string Read(std::string_view name) const { return ReadBytes(m_path / name); }
    std::vector<std::string> Names() const { return NamesIn(m_path); }

  private:
    static std::filesystem::path NextPath() {
        static std::atomic<int> serial = 0;
        return std::filesystem::temp_directory_path() /
               ("kvarnprog-" + std::to_string(ProcessNumber()) + "-" + std::to_string(++serial));
    }

    std::filesystem::path m_path;
};
