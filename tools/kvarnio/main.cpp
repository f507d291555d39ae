// kvarnio: the settings and data files of the drawing programs, from the command line.
#include <exception>
#include <iostream>

#include <kvarnprog.h>
#include <text/codepage.h>

#include "commands.h"
#include "shared/failure.h"
#include "shared/platform.h"

int main(int argc, char** argv) {
    using namespace kvarnio;
    ShowUtf8();
    try {
        CommandLine line;
        AddCommands(line);
        int const status = line.Execute(Arguments(argc, argv));
        if (!std::cout.flush()) {
            throw Failure("standard output cannot be written");
        }
        return status;
    } catch (ListFel const& error) {
        std::cerr << "kvarnio: " << kvarn::ToUtf8(error.what()) << '\n';
    } catch (std::exception const& error) {
        std::cerr << "kvarnio: " << error.what() << '\n';
    }
    return failed;
}
