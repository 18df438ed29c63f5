// vorandine-dba check: looks for what in a store does not agree with itself.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "audit/check/StoreCheck.h"
#include "exchange/Exchange.h"
#include "exchange/RecordJson.h"
#include "records/Layout.h"

#include <array>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> checkOptions{{
    {"--json", "", "one JSON object a finding, with file, key, attribute, position, value, ..."},
}};

void printJson(const audit::Finding& finding, std::ostream& out) {
    std::string json;
    const auto member = [&](const char* before, const std::string& text) {
        json += before;
        exchange::appendJsonText(json, text);
    };
    member("{\"file\":", finding.file);
    member(",\"key\":", finding.key);
    json += ",\"attribute\":" + std::to_string(finding.attribute) +
            ",\"position\":" + std::to_string(finding.position);
    member(",\"value\":", finding.value);
    member(",\"problem\":", finding.problem);
    member(",\"advice\":", finding.advice);
    out << json << "}\n";
}

void printText(const audit::Finding& finding, const Console& console) {
    std::string line = finding.file + ' ' + finding.key;
    if (finding.attribute > 0) {
        line += ", attribute " + std::to_string(finding.attribute);
        if (const records::AttributeLayout* const known =
                records::layout(finding.file, finding.attribute))
            line += " (" + std::string(known->meaning) + ')';
        if (finding.position > 0)
            line += ", value " + std::to_string(finding.position) + ": '" + finding.value + '\'';
    }
    console.tell(line + ' ' + finding.problem);
    console.tell("    " + finding.advice);
}

int check(const CommandLine& line, const Console& console) {
    const auto engine = openStore(line.words().front());
    Progress progress(console, "looked at");
    std::size_t findings = 0;
    const audit::TellFinding tell = [&](const audit::Finding& finding) {
        ++findings;
        progress.clear();
        line.has("--json") ? printJson(finding, console.out) : printText(finding, console);
    };
    engine->consistently([&] { audit::checkStore(*engine, tell, [&] { progress.step(); }); });
    progress.clear();
    if (!line.has("--json"))
        console.out << findings << (findings == 1 ? " finding\n" : " findings\n");
    return findings == 0 ? Done : Findings;
}

} // namespace

constexpr Command checkCommand{
    "check",
    "URL",
    1,
    1,
    "look for what in a store does not agree with itself",
    "Looks at every record: lists longer than the one that counts them, dates, numbers and codes\n"
    "that are none, what the next save of a training file erases, empty entries of tables, dates\n"
    "out of order; balances that do not follow from the line before; hours charged for a training\n"
    "that is no more, and trainings that count without being charged; hours and pay without a\n"
    "contract, contracts that call their employer otherwise than its own file, and caregivers'\n"
    "codes that begin another's. Nothing is changed. The exit status is 1 where something was\n"
    "found.\n",
    checkOptions,
    "  vorandine-dba check sqlite:agence.vor\n"
    "  vorandine-dba check --json sqlite:agence.vor | grep '\"file\":\"DIFAIDANT\"'\n",
    check,
};

} // namespace vorandine::dba
