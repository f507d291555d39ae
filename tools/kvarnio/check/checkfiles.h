// Which files programs read, and how each is checked.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "../shared/context.h"
#include "../shared/finding.h"

namespace kvarnio {

struct FileToCheck {
    using Check = std::vector<Finding> (*)(std::string const& path, std::string_view content);

    std::string path; // of the library
    Check check;
};

// The file of a name that says what is in it; nothing for another name.
std::optional<FileToCheck> ByName(std::string const& path);
FileToCheck AsPoints(std::string const& path);
FileToCheck AsStamp(std::string const& path);
FileToCheck AsFolderList(std::string const& path);

// The files of a project, or of any other folder that has such files, by their names. Throws
// IoFailure for a folder that cannot be listed.
std::vector<FileToCheck> FilesOf(std::string const& folder);

// The files that all projects share and no folder of settings holds: the installation's settings,
// the list of folders, the registry's text.
std::vector<FileToCheck> CommonFiles(Context& context);

// What is wrong with a file; one that cannot be read is such a finding.
std::vector<Finding> FindingsOf(FileToCheck const& file);

// The folder and those below it that hold files of a project. Throws IoFailure as FilesOf does.
std::vector<std::string> ProjectsBelow(std::string const& folder);

} // namespace kvarnio
