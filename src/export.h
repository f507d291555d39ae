// What the library shows to its clients, and how each compiler is told.
#pragma once

// KVARNPROG_API marks exported classes and functions. A program that links the objects themselves
// (KVARNPROG_STATIC, the tests of the internals) needs no mark at all.
#if defined(KVARNPROG_STATIC)
#define KVARNPROG_API
#elif !defined(_WIN32)
#define KVARNPROG_API __attribute__((visibility("default")))
#elif defined(KVARNPROG_BUILDING)
#define KVARNPROG_API __declspec(dllexport)
#else
#define KVARNPROG_API __declspec(dllimport)
#endif

// Instantiations of list0: KVARNPROG_LIST_DECLARE stands in the header's `extern template`,
// KVARNPROG_LIST_DEFINE in its one definition. GCC and clang take the attribute from the
// declaration and warn about it on the definition; MSVC exports from the definition alone.
#if defined(_MSC_VER) && defined(KVARNPROG_BUILDING)
#define KVARNPROG_LIST_DECLARE
#define KVARNPROG_LIST_DEFINE KVARNPROG_API
#else
#define KVARNPROG_LIST_DECLARE KVARNPROG_API
#define KVARNPROG_LIST_DEFINE
#endif
