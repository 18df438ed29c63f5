// vorandine-dba: work on a store from the command line, one subcommand a task.
#include "apps/dba/Program.h"

#include <exception>
#include <iostream>
#include <unistd.h>

int main(int argc, char** argv) {
    using namespace vorandine;
    std::ios::sync_with_stdio(false);
    try {
        return dba::run(dba::Arguments(argv + 1, argv + argc),
                        {std::cin, std::cout, std::cerr, isatty(STDIN_FILENO) != 0,
                         isatty(STDERR_FILENO) != 0});
    } catch (const std::exception& error) {
        std::cerr << "vorandine-dba: " << error.what() << '\n';
        return 2;
    }
}
