// kvarnio: the settings and data files of the drawing programs, from the command line.
#include <exception>
#include <iostream>

#include "commands.h"
#include "shared/failure.h"
#include "shared/platform.h"

int main(int argc, char** argv) {
    using namespace kvarnio;
    ShowUtf8();
    try {
        return Execute(Arguments(argc, argv));
    } catch (std::exception const& error) {
        std::cerr << "kvarnio: " << error.what() << '\n';
    }
    return notDone;
}
