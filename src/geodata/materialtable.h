// The built-in names of the lists.
#pragma once

#include "../formats/stenkod.h"

namespace kvarn {

MaterialNames MaterialTable(MaterialKind kind, bool norwegian);

} // namespace kvarn
