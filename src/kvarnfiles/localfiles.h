// The files that a project may have of its own.
#pragma once

#include <vector>

namespace kvarn {

struct LocalFile {
    char const* name;
    char const* empty; // its lines where there is nothing to copy; null: it is not made
    bool isReplaced;   // when that is asked for
};

// The first file of a set tells whether the project has settings of its own.
std::vector<LocalFile> DrawingFiles();      // of the drawing program
std::vector<LocalFile> RockDrillingFiles(); // of the rock-drilling program

} // namespace kvarn
