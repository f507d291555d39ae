// The one version number: the resource, the package files and the name of the shared object take it
// from here.
#pragma once

#define KVARNPROG_VERSION_MAJOR 0
#define KVARNPROG_VERSION_MINOR 1
#define KVARNPROG_VERSION_PATCH 0

// As text, "0.1.0".
#define KVARNPROG_VERSION                                                                          \
    KVARNPROG_VERSION_TEXT(KVARNPROG_VERSION_MAJOR)                                                \
    "." KVARNPROG_VERSION_TEXT(KVARNPROG_VERSION_MINOR) "." KVARNPROG_VERSION_TEXT(                \
        KVARNPROG_VERSION_PATCH)
#define KVARNPROG_VERSION_TEXT(number) KVARNPROG_VERSION_QUOTE(number)
#define KVARNPROG_VERSION_QUOTE(text) #text

// For #if: 1002003 is 1.2.3.
#define KVARNPROG_VERSION_NUMBER                                                                   \
    (KVARNPROG_VERSION_MAJOR * 1000000 + KVARNPROG_VERSION_MINOR * 1000 + KVARNPROG_VERSION_PATCH)

#ifndef RC_INVOKED // a resource script needs the numbers alone
#include "../export.h"

// The version of the library that runs, where KVARNPROG_VERSION is that of the headers which the
// program was compiled with. The two fit when their first two numbers are the same.
KVARNPROG_API char const* KvarnProgVersion();
#endif
