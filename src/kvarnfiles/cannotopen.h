// The message boxes of settings and code files that cannot be opened.
#pragma once

namespace kvarn {

void CannotRead(char const* path, char const* caption);
void CannotWrite(char const* path, char const* caption);

} // namespace kvarn
