// vorandine-dba: work on a store from the command line, one subcommand a task.
#include "apps/dba/Commands.h"
#include "text/Error.h"

#include <array>
#include <exception>
#include <iostream>
#include <string_view>

namespace vorandine::dba {
namespace {

struct Command {
    std::string_view name;
    std::string_view synopsis;
    std::string_view help;
    int (*run)(const Arguments&);
};

constexpr std::array Commands{
    Command{"create", "create URL", "      make an empty store; it must not exist yet\n", create},
    Command{"import", "import [--create] URL FILE...",
            "      store the records of JSON Lines files (- is standard input), all or none:\n"
            "      every wrong line is told as FILE:LINE, and one is enough to store nothing\n"
            "      --create  make the store if it is missing\n",
            import},
};

void printHelp() {
    std::cout << "Usage: vorandine-dba COMMAND ...\n\nCommands:\n";
    for (const Command& command : Commands)
        std::cout << "  " << command.synopsis << '\n' << command.help;
    std::cout << "\nOptions:\n"
                 "  --help     show this text\n"
                 "  --version  show the version\n"
                 "\nURL names a store: sqlite:PATH, or memory: for one that is gone with the\n"
                 "program (import into it to check files).\n"
                 "Exit status: 0 done, 1 wrong data, 2 the command could not run.\n";
}

int run(const Arguments& words) {
    if (words.empty())
        throw UsageError("no command given");
    if (words.front() == "--version") {
        std::cout << "vorandine-dba " << VORANDINE_VERSION << '\n';
        return Done;
    }
    for (const std::string& word : words) {
        if (word == "--help") {
            printHelp();
            return Done;
        }
    }
    for (const Command& command : Commands)
        if (words.front() == command.name)
            return command.run({words.begin() + 1, words.end()});
    throw UsageError("unknown command " + words.front());
}

} // namespace
} // namespace vorandine::dba

int main(int argc, char** argv) {
    using namespace vorandine;
    try {
        return dba::run(dba::Arguments(argv + 1, argv + argc));
    } catch (const dba::UsageError& error) {
        std::cerr << "vorandine-dba: " << error.what() << "; see vorandine-dba --help\n";
    } catch (const std::exception& error) {
        std::cerr << "vorandine-dba: " << error.what() << '\n';
    }
    return dba::CannotRun;
}
