#include "cannotopen.h"

#include "../core/messageout.h"
#include "../text/codepage.h"
#include "../text/format.h"

namespace kvarn {

// The kind of file is missing before "-filen", and stays so.

void CannotRead(char const* path, char const* caption) {
    DesktopMessage(Format("Kan inte öppna -filen\n%s\nAvbryter läsning!"_1252, path).c_str(),
                   caption);
}

void CannotWrite(char const* path, char const* caption) {
    DesktopMessage(Format("Kan inte öppna -filen\n%s\nAvbryter!"_1252, path).c_str(), caption);
}

} // namespace kvarn
