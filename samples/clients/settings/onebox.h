// The library's messages as this program shows them.
#pragma once

#include <string>

// While this object lives, only the first message of the library is shown, over the program's main
// window: a file that cannot be opened fails again for each key that is read from it.
class OneBox {
  public:
    OneBox();
    ~OneBox();
    OneBox(OneBox const&) = delete;
    OneBox& operator=(OneBox const&) = delete;
};

// The text with its paths on lines of their own, which end after a backslash: a box that breaks
// lines by itself breaks inside names.
std::string WithPathLines(std::string const& text);
