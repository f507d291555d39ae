// What other programs' files hold that kvarnio road import could take.
#pragma once

#include <string>

#include "../shared/context.h"

namespace kvarnio {

// Of a file as the user typed it, whose ending is known. Throws Failure for one that is not what
// its ending says.
void PrintOtherRoads(Context const& context, std::string const& typed);

} // namespace kvarnio
