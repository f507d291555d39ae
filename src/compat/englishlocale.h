// The numeric locale with "." as its decimal point that programs switch to.
#pragma once

namespace kvarn {

#if defined(_WIN32)
inline constexpr char const* englishLocale = "English";
#else
inline constexpr char const* englishLocale = "C"; // the one that every host has
#endif

} // namespace kvarn
