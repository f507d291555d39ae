// The file that holds the registry. It is read again when it has changed, and parsed again when its
// content has changed. Programs take turns at changing it.
#pragma once

#include <functional>
#include <string>

#include "registrytypes.h"
#include "regstore.h"

namespace kvarn {

// The store's file as a Windows path, from the drive that its folder is; empty when its own name
// has letters outside code page 1252.
std::string StorePath();

// Looks something up in the store and returns the result, or ERROR_BADDB when the store cannot be
// read. Without a file the store is empty.
LSTATUS ReadStore(std::function<LSTATUS(RegStore const&)> const& look);

// Changes the store and returns the result. After success the change is on the disk.
LSTATUS ChangeStore(std::function<LSTATUS(RegStore&)> const& change);

} // namespace kvarn
