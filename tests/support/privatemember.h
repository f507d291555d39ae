// Reaches a private member for a test: the language does not check the arguments of an explicit
// instantiation for access.
//
//     struct Tag : PrivateMember<int (Class::*)(int)> {};
//     template struct Reveal<Tag, &Class::Hidden>;
//     (object.*Tag::value)(1);
#pragma once

template <class Member> struct PrivateMember { static inline Member value{}; };

template <class Tag, auto member> struct Reveal {
    static inline bool const done = (Tag::value = member, true);
};
