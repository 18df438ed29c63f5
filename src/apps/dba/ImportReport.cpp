// The outcome goes to standard output, everything else to standard error.
#include "apps/dba/ImportReport.h"

#include "apps/dba/Commands.h"
#include "text/Characters.h"

#include <ostream>

namespace vorandine::dba {

ImportReport::ImportReport(const CommandLine& line, const Console& console)
    : line_(line), console_(console), progress_(console, "looked at") {
    watch_.complain = [this](const std::string& complaint) {
        progress_.clear();
        console_.err << text::Printable(complaint) << '\n';
    };
    watch_.step = [this] { progress_.step(); };
}

exchange::BadLines ImportReport::badLines() const {
    return line_.has("--skip-bad") ? exchange::BadLines::Skip : exchange::BadLines::StoreNothing;
}

int ImportReport::tell(const exchange::ImportResult& result, const std::string& what) {
    progress_.clear();
    const std::size_t stored = result.stored ? result.good : 0;
    if (line_.has("--json")) {
        console_.out << "{\"stored\":" << stored << ",\"bad\":" << result.bad << "}\n";
    } else if (result.stored) {
        console_.out << stored << ' ' << what << (stored == 1 ? "" : "s") << " stored";
        if (result.bad > 0)
            console_.out << ", " << result.bad << (result.bad == 1 ? " line" : " lines")
                         << " skipped";
        console_.out << '\n';
    }
    if (!result.stored)
        console_.complain("nothing was stored");
    return result.stored ? Done : Findings;
}

} // namespace vorandine::dba
