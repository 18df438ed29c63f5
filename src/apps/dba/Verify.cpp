// vorandine-dba verify: whether a store's file is sound to its last byte.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "audit/verify/Verification.h"
#include "store/Upkeep.h"
#include "text/Error.h"

#include <array>
#include <ostream>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> verifyOptions{{
    {"--json", "", "the outcome as {\"records\":12,\"versions\":3,\"findings\":0}"},
}};

void tell(const audit::Verified& verified, bool json, std::ostream& out) {
    const auto& [records, versions, findings] = verified;
    if (json)
        out << "{\"records\":" << records << ",\"versions\":" << versions
            << ",\"findings\":" << findings << "}\n";
    else
        out << records << (records == 1 ? " record" : " records") << " and " << versions
            << (versions == 1 ? " version" : " versions") << " can be read, "
            << (findings == 0 ? "the store is sound" : "the store is damaged") << '\n';
}

int verify(const CommandLine& line, const Console& console) {
    try {
        const auto engine = openStore(SqliteScheme + pathOf(line.words().front()));
        if (store::Upkeep* const upkeep = store::upkeepOf(*engine))
            for (const std::string& danger : upkeep->dangers())
                console.complain("warning: " + danger);
        Progress progress(console, "verified");
        audit::Verified verified;
        engine->consistently([&] {
            verified = audit::verify(
                *engine,
                [&](const std::string& fault) {
                    progress.clear();
                    console.complain(fault);
                },
                [&] { progress.step(); });
        });
        progress.clear();
        tell(verified, line.has("--json"), console.out);
        return verified.findings == 0 ? Done : Findings;
    } catch (const Error& error) {
        if (error.number() != errors::Damaged)
            throw;
        console.complain(error.what());
        if (line.has("--json"))
            console.out << "{\"records\":0,\"versions\":0,\"findings\":1}\n";
        return Findings;
    }
}

} // namespace

constexpr Command verifyCommand{
    "verify",
    "PATH",
    1,
    1,
    "tell whether the file of a store is sound to its last byte",
    "Looks at the whole file, at every record and at every version of the history. What is wrong\n"
    "is told on standard error, and the exit status is 1. So is, as a warning without that "
    "status,\n"
    "what may come to damage it: a network file system, several names (hard links) of the file.\n"
    "Whether records agree with each other is what check looks for.\n",
    verifyOptions,
    "  vorandine-dba verify agence.vor\n"
    "  vorandine-dba verify --json /media/usb/agence-2026-11-23.vor\n",
    verify,
};

} // namespace vorandine::dba
