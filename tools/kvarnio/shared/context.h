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
};

// The objects point at each other: a context stays where it was made.
struct Context {
    // Throws Failure for a folder that does not exist.
    explicit Context(CommonOptions const& options);
    Context(Context const&) = delete;
    Context& operator=(Context const&) = delete;

    CAutoIni ini;
    CProjPath project; // empty paths without a project
    CKvarnInst settings;
    bool json;
};

// For the commands that need a project. Throws UsageError without one.
void RequireProject(Context const& context);

} // namespace kvarnio
