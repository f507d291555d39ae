// The tool as its users run it, on a copy of the samples.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/testfiles.h"

#if !defined(_WIN32)
#include <sys/wait.h>
#endif

using Arguments = std::vector<std::string>;
using Json = nlohmann::json;

struct Result {
    int status;
    std::string out;
    std::string err;
};

// Runs a line of the host's shell, written in UTF-8; the arguments hold no quotes.
#if defined(_WIN32)
constexpr char quote = '"';
inline int Shell(std::string const& line) {
    std::string const whole = '"' + line + '"'; // the shell takes the outermost quotes off
    return _wsystem(std::filesystem::path(std::u8string(whole.begin(), whole.end())).c_str());
}
#else
constexpr char quote = '\'';
inline int Shell(std::string const& line) {
    int const status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}
#endif

inline std::string Host(std::filesystem::path path) {
    return path.make_preferred().string();
}

class KvarnioTest : public testing::Test {
  protected:
    KvarnioTest() {
        std::filesystem::copy(std::filesystem::path(SAMPLES) / "drives/c", m_folder / "c",
                              std::filesystem::copy_options::recursive);
    }

    std::string Path(std::string_view name) const { return Host(m_folder / name); }

    // With the sample installation, and its project where one is wanted.
    Result Run(Arguments arguments, std::string const& project = {}) const {
        Arguments const installation = {"--home", Path("c/Kvarnbok"), "--cfg",
                                        Path("c/Kvarnbok/Cfg")};
        arguments.insert(arguments.end(), installation.begin(), installation.end());
        if (!project.empty()) {
            arguments.insert(arguments.end(), {"--project", Path(project)});
        }
        return RunBare(arguments);
    }
    // The input is what the tool reads on its standard input.
    Result RunBare(Arguments const& arguments, std::string_view input = {}) const {
        m_folder.Write("in", input);
        std::string line = quote + Host(KVARNIO) + quote;
        for (std::string const& argument : arguments) {
            line += std::string(" ") + quote + argument + quote;
        }
        for (auto const& [arrow, name] : {std::pair(" <", "in"), {" >", "out"}, {" 2>", "err"}}) {
            line += arrow + (quote + Path(name) + quote);
        }
        int const status = Shell(line);
        return {status, Text("out"), Text("err")};
    }

    TestFolder m_folder;
    std::string const vag27 = "c/Projekt/Vag27";

  private:
    std::string Text(std::string_view name) const {
        std::string text = m_folder.Read(name);
        std::erase(text, '\r'); // the host's line ends
        return text;
    }
};
