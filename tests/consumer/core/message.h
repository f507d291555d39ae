// The client's own header of this name.
#pragma once

inline char const* ClientMessage() {
    return "client";
}
