// The program vorandine-dba, apart from its process: so that tests call it as a user does.
#pragma once

#include "apps/dba/CommandLine.h"
#include "apps/dba/Console.h"

namespace vorandine::dba {

// Runs the command that `words`, the command line without the program's name, asks for, and gives
// the exit status. Whatever goes wrong is told on console.err; nothing is thrown save bad_alloc.
int run(const Arguments& words, const Console& console);

} // namespace vorandine::dba
