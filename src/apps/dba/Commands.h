// The subcommands of vorandine-dba: how each is called, told to the reader of the command line and
// to --help, and the function that runs it. One file a command.
#pragma once

#include "apps/dba/CommandLine.h"
#include "apps/dba/Console.h"

#include <span>
#include <string_view>

namespace vorandine::dba {

enum ExitStatus {
    Done = 0,
    Findings =
        1, // wrong lines in what was imported, no such record, something check or verify found
    CannotRun = 2, // wrong arguments, a file that cannot be read, a store that fails
};

struct Command {
    std::string_view name;
    std::string_view words;   // as shown: "URL FILE KEY"
    std::size_t least, most;  // number of words
    std::string_view summary; // one line
    std::string_view details; // lines that end in a line break, or nothing
    std::span<const Option> options;
    std::string_view examples; // lines that end in a line break
    // Gives the exit status. Throws UsageError for words that make no sense together, Error for a
    // store that cannot be opened or fails.
    int (*run)(const CommandLine&, const Console&);
    // Whether it changes or makes a store: the exit status then tells what became of that, even
    // where nothing can be printed.
    bool changes = false;
};

extern const Command createCommand;
extern const Command filesCommand;
extern const Command getCommand;
extern const Command putCommand;
extern const Command deleteCommand;
extern const Command queryCommand;
extern const Command exportCommand;
extern const Command importCommand;
extern const Command importCsvCommand;
extern const Command checkCommand;
extern const Command historyCommand;
extern const Command restoreCommand;
extern const Command pruneCommand;
extern const Command backupCommand;
extern const Command verifyCommand;
extern const Command repairCommand;

} // namespace vorandine::dba
