// What both imports tell: wrong lines and progress on the way, the outcome at the end.
#pragma once

#include "apps/dba/CommandLine.h"
#include "apps/dba/Console.h"
#include "apps/dba/Progress.h"
#include "exchange/ImportRun.h"

#include <string>

namespace vorandine::dba {

class ImportReport {
  public:
    // Reads --skip-bad and --json; both arguments must outlive it.
    ImportReport(const CommandLine& line, const Console& console);

    [[nodiscard]] const exchange::ImportWatch& watch() const noexcept { return watch_; }
    [[nodiscard]] exchange::BadLines badLines() const;
    // Tells the outcome and gives the exit status. `what` is stored, one a line.
    [[nodiscard]] int tell(const exchange::ImportResult& result, const std::string& what);

  private:
    const CommandLine& line_;
    const Console& console_;
    Progress progress_;
    exchange::ImportWatch watch_;
};

} // namespace vorandine::dba
