// Marks what the library exports, in the way of each compiler.
#pragma once

// KVARNPROG_API marks exported classes and functions. A program that links the objects themselves
// defines KVARNPROG_STATIC and needs no mark.
#if defined(KVARNPROG_STATIC)
#define KVARNPROG_API
#elif !defined(_WIN32)
#define KVARNPROG_API __attribute__((visibility("default")))
#elif defined(KVARNPROG_BUILDING)
#define KVARNPROG_API __declspec(dllexport)
#else
#define KVARNPROG_API __declspec(dllimport)
#endif

// A member template of an exported class: every program makes its own, and exports none.
#if defined(_WIN32)
#define KVARNPROG_LOCAL
#else
#define KVARNPROG_LOCAL __attribute__((visibility("hidden")))
#endif

// Instantiations of list0: the header's `extern template` has KVARNPROG_LIST_DECLARE, its one
// definition KVARNPROG_LIST_DEFINE. GCC and clang take the attribute from the declaration and warn
// about it on the definition; MSVC exports from the definition alone.
#if defined(_MSC_VER) && defined(KVARNPROG_BUILDING)
#define KVARNPROG_LIST_DECLARE
#define KVARNPROG_LIST_DEFINE KVARNPROG_API
#else
#define KVARNPROG_LIST_DECLARE KVARNPROG_API
// Of the definition.
#define KVARNPROG_LIST_DEFINE
#endif
