// Files of other programs are taken over or refused with a reason, and nothing else.
#pragma once

#include <optional>

#include <neighbours/road/alignment.h>

#include "check.h"

// What an action makes; nothing when it refuses.
template <class Action> auto Taken(Action action) -> std::optional<decltype(action())> {
    try {
        return action();
    } catch (kvarnio::NotTaken const& refusal) {
        Check(*refusal.what() != '\0', "a refusal has a reason");
        return std::nullopt;
    }
}
