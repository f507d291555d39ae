// The file that the registry is kept in. It is read again when it has changed, and parsed again
// when its content has; programs take turns at changing it.
#pragma once

#include <functional>

#include "registrytypes.h"
#include "regstore.h"

namespace kvarn {

// The result of what is looked up in the store. A store that cannot be read is ERROR_BADDB; without
// a file the store is empty.
LSTATUS ReadStore(std::function<LSTATUS(RegStore const&)> const& look);

// The result of a change, which is on the disk when it succeeded.
LSTATUS ChangeStore(std::function<LSTATUS(RegStore&)> const& change);

} // namespace kvarn
