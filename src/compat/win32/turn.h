// One program at a time changes the files of a folder that are read, changed and written back: the
// stand-ins of INI files and of the registry take turns, as Windows' own functions do.
#pragma once

#include <filesystem>

namespace kvarn {

// Waits for the turn, five seconds at most, and gives it back with its scope; a program that is
// killed gives it back too. Nothing is left in the folder: the lock is the folder's own. Programs
// that do not ask for a turn are not kept from anything.
class Turn {
  public:
    explicit Turn(std::filesystem::path const& file);
    ~Turn();
    Turn(Turn const&) = delete;
    Turn& operator=(Turn const&) = delete;

    // False when another program has it still. A folder that cannot be locked gives every turn.
    bool Taken() const { return m_taken; }

  private:
    int m_folder;
    bool m_taken = true;
};

} // namespace kvarn
