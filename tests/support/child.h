// One test of this program, run by a process of its own: a test named DISABLED_..., which the
// program leaves out when it is run as a whole.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

#if defined(_WIN32)
#include <windows.h>
#else
#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#if defined(_WIN32)
inline std::string ProgramPath() {
    char program[MAX_PATH];
    GetModuleFileNameA(nullptr, program, sizeof program);
    return program;
}
#else
inline std::string ProgramPath() {
    return std::filesystem::read_symlink("/proc/self/exe");
}
#endif

class Child {
  public:
    // Arguments of the test reach it through the environment.
#if defined(_WIN32)
    explicit Child(std::string const& test)
        : Child('"' + ProgramPath() + "\" --gtest_also_run_disabled_tests --gtest_filter=" + test,
                CREATE_NO_WINDOW) {}
    // Any program.
    Child(std::string line, DWORD flags) {
        STARTUPINFOA start{};
        start.cb = sizeof start;
        Start([&] {
            return CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, flags, nullptr,
                                  nullptr, &start, &m_process);
        });
    }
    // A line of any letters, with the handles that it inherits.
    Child(std::wstring line, STARTUPINFOW start) {
        Start([&] {
            return CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                  &start, &m_process);
        });
    }
#else
    explicit Child(std::string const& test) {
        std::string const filter = "--gtest_filter=" + test;
        char program[] = "/proc/self/exe";
        char also[] = "--gtest_also_run_disabled_tests";
        char* arguments[] = {program, also, const_cast<char*>(filter.c_str()), nullptr};
        posix_spawn(&m_process, program, nullptr, nullptr, arguments, environ);
    }
#endif
    ~Child() {
        Wait();
    }
    Child(Child const&) = delete;
    Child& operator=(Child const&) = delete;

    void Kill() const {
#if defined(_WIN32)
        TerminateProcess(m_process.hProcess, 1);
#else
        kill(m_process, SIGKILL);
#endif
    }
    // 0 when the test passed.
    int Wait() {
        if (m_waited) {
            return m_result;
        }
        m_waited = true;
#if defined(_WIN32)
        DWORD result = 1;
        WaitForSingleObject(m_process.hProcess, INFINITE);
        GetExitCodeProcess(m_process.hProcess, &result);
        CloseHandle(m_process.hProcess);
        CloseHandle(m_process.hThread);
        m_result = static_cast<int>(result);
#else
        waitpid(m_process, &m_result, 0);
#endif
        return m_result;
    }

  private:
#if defined(_WIN32)
    template <class Create> static void Start(Create create) {
        // Wine fails about one start in a thousand with this error, and with no other.
        for (int again = 0; !create() && GetLastError() == ERROR_INTERNAL_ERROR && again < 3;
             ++again) {
            Sleep(100);
        }
    }
    PROCESS_INFORMATION m_process{};
#else
    pid_t m_process = 0;
#endif
    bool m_waited = false;
    int m_result = 1;
};

inline void SetVariable(char const* name, std::string const& value) {
#if defined(_WIN32)
    _putenv((std::string(name) + "=" + value).c_str());
#else
    value.empty() ? unsetenv(name) : setenv(name, value.c_str(), 1);
#endif
}

// An environment variable with another value while one of these lives.
class Variable {
  public:
    Variable(char const* name, std::string const& value) : m_name(name) {
        char const* const before = std::getenv(name);
        m_before = before != nullptr ? before : "";
        SetVariable(name, value);
    }
    ~Variable() { SetVariable(m_name, m_before); }
    Variable(Variable const&) = delete;
    Variable& operator=(Variable const&) = delete;

  private:
    char const* m_name;
    std::string m_before;
};
