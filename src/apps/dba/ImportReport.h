// What both imports tell: wrong lines and progress on the way, the outcome at the end.
#pragma once

#include "apps/dba/CommandLine.h"
#include "apps/dba/Console.h"
#include "apps/dba/Progress.h"
#include "apps/host/ImportRun.h"

#include <string>

namespace vorandine::dba {

class ImportReport {
  public:
    // Reads --skip-bad and --json; both arguments must outlive it.
    ImportReport(const CommandLine& line, const Console& console);

    [[nodiscard]] const host::ImportWatch& watch() const noexcept { return watch_; }
    [[nodiscard]] host::BadLines badLines() const;
    // Tells the outcome and gives the exit status. `what` is stored, one a line.
    [[nodiscard]] int tell(const host::ImportResult& result, const std::string& what);

  private:
    const CommandLine& line_;
    const Console& console_;
    Progress progress_;
    host::ImportWatch watch_;
};

} // namespace vorandine::dba
