// The table of commands, their help, and what becomes of errors.
#include "apps/dba/Program.h"

#include "apps/dba/Commands.h"
#include "exchange/Naming.h"
#include "text/Error.h"

#include <algorithm>
#include <array>
#include <exception>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array Commands{
    &createCommand,    &filesCommand,  &getCommand,     &putCommand,
    &deleteCommand,    &queryCommand,  &exportCommand,  &importCommand,
    &importCsvCommand, &checkCommand,  &historyCommand, &restoreCommand,
    &pruneCommand,     &backupCommand, &verifyCommand,  &repairCommand,
};

constexpr std::size_t NameWidth = 12;
constexpr std::size_t OptionWidth = 24;

std::string padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size() + 1, width), ' ');
    return text;
}

void printHelp(std::ostream& out) {
    out << "Usage: vorandine-dba COMMAND ...\n\n"
           "Works on a store: looks at its records, changes them, takes them out and in.\n\n"
           "Commands:\n";
    for (const Command* command : Commands)
        out << "  " << padded(std::string(command->name), NameWidth) << command->summary << '\n';
    out << "\nOptions:\n"
           "  --help      show this text, or that of a command: vorandine-dba COMMAND --help\n"
           "  --version   show the version\n"
           "\nURL names a store: sqlite:PATH, postgresql://USER@HOST/BASE#SCHEMA, or memory: for "
           "one\n"
           "that is gone with the program (import into it to check files).\n"
           "Exit status: 0 done; 1 something was found wrong, or there is no such record;\n"
           "2 the command could not run. Of commands that change a store it tells what became of "
           "that,\n"
           "even where nothing can be printed.\n";
}

std::string synopsis(const Command& command) {
    return "vorandine-dba " + std::string(command.name) +
           (command.options.empty() ? " " : " [OPTION...] ") + std::string(command.words);
}

void printHelp(const Command& command, std::ostream& out) {
    out << "Usage: " << synopsis(command) << "\n\n" << command.summary << ".\n";
    if (!command.details.empty())
        out << '\n' << command.details;
    out << "\nOptions:\n";
    for (const Option& option : command.options)
        out << "  "
            << padded(std::string(option.name) + ' ' + std::string(option.value), OptionWidth)
            << option.help << '\n';
    out << "  " << padded("--help", OptionWidth) << "show this text\n"
        << "\nExamples:\n"
        << command.examples;
}

const Command& find(const std::string& name) {
    for (const Command* command : Commands)
        if (command->name == name)
            return *command;
    throw UsageError("there is no command " + name);
}

bool isHelp(const std::string& word) {
    return word == "--help" || word == "-h";
}

bool asksForHelp(const Arguments& words) {
    const auto end = std::find(words.begin(), words.end(), "--");
    return std::any_of(words.begin(), end, isHelp);
}

int refuse(const Command& command, const char* why, const Console& console) {
    console.complain(why);
    console.err << "Usage: " << synopsis(command) << "\nMore with: vorandine-dba " << command.name
                << " --help\n";
    return CannotRun;
}

struct Outcome {
    int status = CannotRun;
    bool stands = false; // even where nothing of it can be printed
};

Outcome runWords(const Arguments& words, const Console& console) {
    if (words.empty())
        throw UsageError("a command is missing");
    if (isHelp(words.front())) {
        printHelp(console.out);
        return {Done};
    }
    if (words.front() == "--version") {
        console.out << "vorandine-dba " << VORANDINE_VERSION << '\n';
        return {Done};
    }
    const Command& command = find(words.front());
    if (asksForHelp(words)) {
        printHelp(command, console.out);
        return {Done};
    }
    try {
        const CommandLine line({words.begin() + 1, words.end()}, command.options, command.least,
                               command.most);
        return {command.run(line, console), command.changes};
    } catch (const UsageError& error) {
        return {refuse(command, error.what(), console)};
    } catch (const exchange::NamingError& error) {
        return {refuse(command, error.what(), console)};
    }
}

} // namespace

int run(const Arguments& words, const Console& console) {
    try {
        const auto [status, stands] = runWords(words, console);
        console.out.flush();
        if (console.out)
            return status;
        console.complain(stands ? "the outcome could not be printed; the exit status tells it"
                                : "what was asked for could not be written to its end");
        return stands ? status : CannotRun;
    } catch (const UsageError& error) {
        console.complain(error.what() + std::string("; see vorandine-dba --help"));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        console.complain(error.what());
    }
    return CannotRun;
}

} // namespace vorandine::dba
