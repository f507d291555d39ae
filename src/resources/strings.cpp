// The library's string table, for hosts without resources.
#include "../host/host.h"
#include "../text/codepage.h"

namespace {

#define KVARNPROG_STRING(id, text) {id, text##_1252},
constexpr kvarn::StringResource strings[] = {
#include "strings.inc"
};
#undef KVARNPROG_STRING

} // namespace

// NOLINTNEXTLINE(misc-use-internal-linkage): host/win32/resources looks for it by name.
extern kvarn::ModuleResources const kvarnprogResources;
kvarn::ModuleResources const kvarnprogResources = {strings, sizeof strings / sizeof strings[0]};
