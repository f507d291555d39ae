// What the headers of MinGW-w64 lack for clang's MSVC target: the check includes it before all
// else.
#include <_mingw.h>
#undef __MINGW_IMPORT
#define __MINGW_IMPORT extern
#define __uuidof(type) (*static_cast<_GUID const*>(nullptr))
