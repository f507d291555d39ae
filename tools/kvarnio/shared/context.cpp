#include "context.h"

#include <text/codepage.h>

#include "failure.h"
#include "messages.h"
#include "platform.h"

namespace kvarnio {
namespace {

std::string ExistingFolder(char const* option, std::string const& typed) {
    std::string folder = LibraryFolder(typed);
    std::error_code unreachable;
    if (!std::filesystem::is_directory(HostPath(folder + '\\'), unreachable)) {
        throw Failure(std::string(option) + ": there is no folder " + typed);
    }
    return folder;
}

} // namespace

Context::Context(CommonOptions const& options) : json(options.json) {
    ShowMessagesOnTerminal();
    if (!options.home.empty()) {
        SetEnvironment("KVARNBOK", kvarn::ToUtf8(ExistingFolder("--home", options.home)));
    }
    constexpr int fromEnvironment = 1;
    ini.Init(fromEnvironment);
    if (!options.cfg.empty()) {
        ini.m_cfgKat = ExistingFolder("--cfg", options.cfg).c_str();
    }
    if (!options.project.empty()) {
        project.SetPath(ExistingFolder("--project", options.project).c_str());
    }
    settings.Init(&ini, &project);
}

void RequireProject(Context const& context) {
    if (context.project.m_projKat.IsEmpty()) {
        throw UsageError("--project is required");
    }
}

} // namespace kvarnio
