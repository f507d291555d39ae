#include "context.h"

#include <files/infile.h>
#include <text/codepage.h>

#include "failure.h"
#include "messages.h"
#include "output.h"
#include "platform.h"

namespace kvarnio {
namespace {

std::string ExistingFolder(std::string const& typed) {
    std::string folder = LibraryFolder(typed);
    std::error_code unreachable;
    if (!std::filesystem::is_directory(HostPath(folder + '\\'), unreachable)) {
        throw Failure("there is no folder " + typed);
    }
    return folder;
}

} // namespace

Context::Context(CommonOptions const& options)
    : json(options.json), dryRun(options.dryRun), m_options(options) {
    ShowMessagesOnTerminal();
    if (!options.home.empty()) {
        SetEnvironment("KVARNBOK", kvarn::ToUtf8(ExistingFolder(options.home)));
    }
    constexpr int fromEnvironment = 1;
    ini.Init(fromEnvironment);
    if (!options.cfg.empty()) {
        ini.m_cfgKat = ExistingFolder(options.cfg).c_str();
    } else if (!IniIsReadable()) {
        throw IoFailure(Shown(ini.m_iniFil.GetString()) +
                        " cannot be read, and would name the CFG folder; --cfg DIR names it too");
    }
    if (!options.project.empty()) {
        project.SetPath(ExistingFolder(options.project).c_str());
    }
    settings.Init(&ini, &project);
}

// Also when there is none, and where the host keeps it without a path.
bool Context::IniIsReadable() const {
    if (ini.m_iniFil.ReverseFind('\\') < 0) {
        return true;
    }
    kvarn::InFile file(ini.m_iniFil);
    char byte = 0;
    return file.Missing() || file.Read(&byte, 1).has_value();
}

Context Context::WithProject(std::string const& typed) const {
    CommonOptions options = m_options;
    options.project = typed;
    return Context(options);
}

void RequireProject(Context const& context) {
    if (context.project.m_projKat.IsEmpty()) {
        throw UsageError("--project is required");
    }
}

} // namespace kvarnio
