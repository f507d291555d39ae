// The tool as its users run it, on a copy of the samples.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/testfiles.h"

#if defined(_WIN32)
#include "support/child.h"
#else
#include <sys/wait.h>
#endif

using Words = std::vector<std::string>;
using Json = nlohmann::json;

struct Result {
    int status;
    std::string out;
    std::string err;
};

struct Refusal {
    std::string line;
    int status;
    char const* reason;
};
constexpr int notThere = 1;
constexpr int wrongUsage = 2;
constexpr int notDone = 3; // something could not be read or written

inline void ExpectPart(std::string const& text, std::string const& part) {
    EXPECT_TRUE(text.find(part) != std::string::npos) << part << "\nis not in\n" << text;
}

// Each line of the expected begins the text in its place.
inline void ExpectBeginnings(Words const& texts, std::string const& expected) {
    std::istringstream lines(expected);
    std::string line;
    for (std::string const& text : texts) {
        std::getline(lines, line);
        EXPECT_TRUE(lines && text.starts_with(line)) << text << "\ninstead of\n" << line;
    }
    EXPECT_FALSE(std::getline(lines, line)) << line;
}

// Runs a command line, written in UTF-8 with arguments in single quotes where they need some, and
// returns its exit status. The file "in" of a folder is its input, and "out" and "err" its output.
#if defined(_WIN32)
inline int RunLine(std::string line, std::filesystem::path const& folder) {
    std::replace(line.begin(), line.end(), '\'', '"');
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    auto const open = [&](char const* name, DWORD access, DWORD how) {
        return CreateFileW((folder / name).c_str(), access, FILE_SHARE_READ, &inherited, how,
                           FILE_ATTRIBUTE_NORMAL, nullptr);
    };
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = open("in", GENERIC_READ, OPEN_EXISTING);
    start.hStdOutput = open("out", GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = open("err", GENERIC_WRITE, CREATE_ALWAYS);
    std::wstring wide = std::filesystem::path(std::u8string(line.begin(), line.end())).wstring();
    int const status = Child(wide, start).Wait(); // 1 when it could not be started
    CloseHandle(start.hStdInput);
    CloseHandle(start.hStdOutput);
    CloseHandle(start.hStdError);
    return status;
}
#else
inline int RunLine(std::string line, std::filesystem::path const& folder) {
    std::string const file = '\'' + folder.string() + '/';
    line += " <" + file + "in' >" + file + "out' 2>" + file + "err'";
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

    // The same as an argument of a command line.
    std::string Quoted(std::string_view name) const { return '\'' + Path(name) + '\''; }

    // With the sample installation, and its project where one is wanted.
    Result Run(std::string const& line, std::string const& project = {}) const {
        return RunBare(line + " --home " + Quoted("c/Kvarnbok") + " --cfg " +
                       Quoted("c/Kvarnbok/Cfg") +
                       (project.empty() ? "" : " --project " + Quoted(project)));
    }
    Json RunJson(std::string const& line, std::string const& project = {}) const {
        return Json::parse(Run(line + " --json", project).out);
    }
    // The input is what the tool reads on its standard input.
    Result RunBare(std::string const& line, std::string_view input = {}) const {
        m_folder.Write("in", input);
        int const status = RunLine('\'' + Host(KVARNIO) + "' " + line, m_folder.Api());
        return {status, Text("out"), Text("err")};
    }
    // Each line is refused with its reason, and prints nothing else.
    void ExpectRefused(std::vector<Refusal> const& refusals,
                       std::string const& project = {}) const {
        for (Refusal const& refusal : refusals) {
            SCOPED_TRACE(refusal.line);
            Result const result = Run(refusal.line, project);
            EXPECT_EQ(result.status, refusal.status);
            ExpectPart(result.err, refusal.reason);
            EXPECT_EQ(result.out, "");
        }
    }

    TestFolder m_folder;
    std::string const vag27 = "c/Projekt/Vag27";
    std::string const hamnkajen = "c/Projekt/Hamnkajen"; // full of faults

  private:
    std::string Text(std::string_view name) const {
        std::string text = m_folder.Read(name);
        std::erase(text, '\r'); // the host's line ends
        return text;
    }
};
