// Stands for "Markvida.ConfigSwitcher.exe" in the tests of the first start: leaves an INI file and
// a release, as the environment says.
#include <cstdlib>
#include <fstream>

#include "core/registry.h"

int main() {
    if (char const* const ini = std::getenv("SWITCHER_INI")) {
        std::ofstream(ini) << "[SYSTEM]\nACADEXEB=b.exe\nSCRIPTPATH=\nDOCEXE=switched\n";
    }
    if (char const* const release = std::getenv("SWITCHER_RELEASE")) {
        CRegistry registry;
        registry.SetKey("SOFTWARE\\Orsakor\\Vallentra\\Markvida\\Samlaren", 1, KEY_ALL_ACCESS);
        registry.WriteString("ACADVER", release);
    }
}
