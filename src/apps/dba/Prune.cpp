// vorandine-dba prune: drops versions of records that are older than a number of days.
#include "apps/dba/Agreement.h"
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"

#include <array>
#include <charconv>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 2> pruneOptions{{
    YesOption,
    {"--json", "", "the outcome as {\"dropped\":12}"},
}};

constexpr store::Moment Day = store::Moment{24} * 60 * 60 * 1'000'000;
constexpr int MostDays = 36500;

int daysOf(const std::string& word) {
    int days = 0;
    const char* const end = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), end, days);
    if (error != std::errc() || rest != end || days < 0 || days > MostDays)
        throw UsageError("DAYS is a whole number from 0 to " + std::to_string(MostDays) +
                         ", not '" + word + "'");
    return days;
}

int prune(const CommandLine& line, const Console& console) {
    const int days = daysOf(line.words()[1]);
    store::Store store(openStore(line.words().front()));
    const store::Moment limit = store::now() - days * Day;
    if (!agreed(line, console,
                "Drop for good what changes before " + store::momentText(limit) + " replaced?")) {
        console.complain("nothing was dropped");
        return Findings;
    }
    Progress progress(console, "dropped", "versions");
    const std::size_t dropped =
        store.changes().prune(limit, [&](std::size_t count) { progress.reach(count); });
    progress.clear();
    if (line.has("--json"))
        console.out << "{\"dropped\":" << dropped << "}\n";
    else
        console.out << dropped << (dropped == 1 ? " version" : " versions") << " dropped\n";
    return Done;
}

} // namespace

constexpr Command pruneCommand{
    "prune",
    "URL DAYS",
    2,
    2,
    "drop the versions that were replaced more than DAYS days ago",
    "Records stay as they are; history and restore no longer know what they were before. Asks\n"
    "before it does: a version that was dropped is gone. The room is used again by what is stored\n"
    "later, the file does not become smaller.\n",
    pruneOptions,
    "  vorandine-dba prune sqlite:agence.vor 3650\n"
    "  vorandine-dba prune --yes sqlite:agence.vor 365\n",
    prune,
    true,
};

} // namespace vorandine::dba
