// What comes from outside is taken or refused with a reason, and nothing else.
#pragma once

#include <optional>

#include "check.h"

// What an action makes; nothing when it throws a refusal.
template <class Refusal, class Action>
auto TakenUnless(Action action) -> std::optional<decltype(action())> {
    try {
        return action();
    } catch (Refusal const& refusal) {
        Check(*refusal.what() != '\0', "a refusal has a reason");
        return std::nullopt;
    }
}
