// From Windows paths in code page 1252 to paths of the host.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "foldernames.h"

namespace kvarn {

// The host's path of a Windows path:
// - a backslash is a separator, and so is a slash;
// - a drive "C:" is the folder "c" under $KVARNPROG_DRIVES, by default kvarnprog/drives in the
//   user's data folder;
// - a path that begins with a separator lies under the host's root, so that an absolute host path
//   is accepted as it is;
// - a component that does not exist as it is spelt is looked up without regard to case; of several
//   the first in the order of their names is taken. From the first component that does not exist
//   on, the spelling is kept.
// - the drive "$:" is the folder of the file that holds the registry, and "~:" the folder of the
//   user's configuration: both may have letters outside the code page;
// Nothing when a folder on the way cannot be looked at; errno tells why.
std::optional<std::string> FindHostPath(std::string_view path, Purpose purpose = Purpose::use);

// The same for one that is known not to exist as it is spelt, which is given as a host path.
std::optional<std::string> FindUnspelt(std::string_view path, std::string const& spelt,
                                       Purpose purpose = Purpose::use);

// The same; as it is spelt where a folder cannot be looked at.
std::string HostPath(std::string_view path);

// The same without reading the disk: every component as it is spelt.
std::string SpeltHostPath(std::string_view path);

// A host path in code page 1252. One with letters outside that page is given from its drive or the
// present folder on; nothing when the letters are below these.
std::optional<std::string> FromHostPath(std::string_view hostPath);

constexpr char registryDrive = '$';
constexpr char configDrive = '~';

// The folders of the user's data and configuration: the XDG base directories.
std::string UserDataFolder();
std::string UserConfigFolder();

// The file that holds the registry.
std::string RegistryFile();

} // namespace kvarn
