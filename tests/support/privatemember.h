// Reaches a private member for a test: the arguments of an explicit instantiation are not checked
// for access ([temp.spec.general]).
//
//     struct Tag : PrivateMember<int (Class::*)(int)> {};
//     template struct Reveal<Tag, &Class::Hidden>;
//     (object.*Tag::value)(1);
#pragma once

template <class Member> struct PrivateMember { static inline Member value{}; };

template <class Tag, auto member> struct Reveal {
    static inline bool const done = (Tag::value = member, true);
};
