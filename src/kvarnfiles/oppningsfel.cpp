#include "oppningsfel.h"

#include "../core/messageout.h"
#include "../text/codepage.h"
#include "../text/format.h"

namespace kvarn {

// The kind of file is missing before "-filen", and stays so.

void KanInteLasa(char const* path, char const* rubrik) {
    DesktopMessage(Format("Kan inte öppna -filen\n%s\nAvbryter läsning!"_1252, path).c_str(),
                   rubrik);
}

void KanInteSkriva(char const* path, char const* rubrik) {
    DesktopMessage(Format("Kan inte öppna -filen\n%s\nAvbryter!"_1252, path).c_str(), rubrik);
}

} // namespace kvarn
