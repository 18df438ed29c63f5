// vorandine-dba: work on a store from the command line, one subcommand a task.
#include "apps/dba/Program.h"
#include "store/WriteSignals.h"

#include <exception>
#include <iostream>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

int main(int argc, char** argv) {
    using namespace vorandine;
    store::ignoreWriteSignals();
    struct stat in {};
    const bool inIsFile = fstat(STDIN_FILENO, &in) == 0 && S_ISREG(in.st_mode);
    try {
        std::ios::sync_with_stdio(false);
        return dba::run(dba::Arguments(argv + 1, argv + argc),
                        {std::cin, std::cout, std::cerr, isatty(STDIN_FILENO) != 0,
                         isatty(STDERR_FILENO) != 0, inIsFile});
    } catch (const std::bad_alloc&) {
        std::cerr << "vorandine-dba: there is not enough memory\n";
    } catch (const std::exception& error) {
        std::cerr << "vorandine-dba: " << error.what() << '\n';
    }
    return 2;
}
