// The message boxes of settings and code files that cannot be opened.
#pragma once

namespace kvarn {

void KanInteLasa(char const* path, char const* rubrik);
void KanInteSkriva(char const* path, char const* rubrik);

} // namespace kvarn
