// What a command works with: the options that all commands share, and the library's objects,
// started as a client program starts them.
#pragma once

#include <string>

#include <kvarnprog.h>

namespace kvarnio {

struct CommonOptions {
    std::string project;
    std::string home;
    std::string cfg;
    bool json = false;
    bool dryRun = false; // of the commands that write
};

// The objects point at each other: a context stays where it was made.
struct Context {
    // Throws Failure for a folder that does not exist, and IoFailure when Markvida.ini, which is to
    // name the CFG folder, cannot be read.
    explicit Context(CommonOptions const& options);
    Context(Context const&) = delete;
    Context& operator=(Context const&) = delete;

    CAutoIni ini;
    CProjPath project; // empty paths without a project
    CKvarnInst settings;
    bool json;
    bool dryRun; // nothing is written; what would be is told

    // The same installation with another project, a folder as the user typed it; with none for an
    // empty one. Throws Failure for a folder that does not exist.
    Context WithProject(std::string const& typed) const;
    bool IniIsReadable() const;

  private:
    CommonOptions m_options;
};

// For the commands that need a project. Throws UsageError without one.
void RequireProject(Context const& context);

} // namespace kvarnio
