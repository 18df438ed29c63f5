// vorandine-dba check: looks for what in a store does not agree with itself.
#include "apps/dba/Commands.h"
#include "apps/dba/Layout.h"
#include "apps/dba/Opening.h"
#include "apps/dba/Progress.h"
#include "apps/dba/check/Checks.h"
#include "apps/host/Exchange.h"
#include "apps/host/RecordJson.h"

#include <array>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> Options{{
    {"--json", "", "one JSON object a finding, with file, key, attribute, position, value, ..."},
}};

void printJson(const Finding& finding, std::ostream& out) {
    std::string json;
    const auto member = [&](const char* before, const std::string& text) {
        json += before;
        host::appendJsonText(json, text);
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

void printText(const Finding& finding, std::ostream& out) {
    out << finding.file << ' ' << finding.key;
    if (finding.attribute > 0) {
        out << ", attribute " << finding.attribute;
        if (const AttributeLayout* const known = layout(finding.file, finding.attribute))
            out << " (" << known->meaning << ')';
        if (finding.position > 0)
            out << ", value " << finding.position << ": '" << finding.value << '\'';
    }
    out << ' ' << finding.problem << "\n    " << finding.advice << '\n';
}

using Look = std::function<void(const Record&)>;

// One pass over a file: its layout, and whatever else is asked of its records.
void pass(store::Engine& engine, const std::string& file, Known& known, const TellFinding& tell,
          Progress& progress, const Look& look = {}) {
    const LayoutCheck layouts(file, known, tell);
    Record record;
    engine.file(file)->scan({}, [&](std::string_view key, std::string_view text) {
        progress.step();
        if (!record.show(key, text)) {
            tell({file, host::shownKey(key), 0, 0, "", "is damaged: it is no readable text",
                  "store the record anew, or take it from a copy of the store"});
            return true;
        }
        layouts.look(record);
        if (look)
            look(record);
        return true;
    });
}

// Each file once, those that others refer to before them.
void passAll(store::Engine& engine, const TellFinding& tell, Progress& progress) {
    Known known;
    ReferenceCheck references(known, tell);
    LedgerCheck ledgers(known, tell);
    std::vector<std::string> rest = engine.files();
    const auto over = [&](const char* file, const Look& look) {
        std::erase(rest, file);
        pass(engine, file, known, tell, progress, look);
    };
    over("ACTIVITES", [&](const Record& record) { known.activity(record); });
    over("ASSOCIATION", [&](const Record& record) { known.association(record); });
    over("CIVILAIDE", [&](const Record& record) { known.household(record); });
    over("TABLES", [&](const Record& record) { known.table(record); });
    over("AIDANT", [&](const Record& record) { known.caregivers().addNamed(record.key()); });
    over("FORMVORANDINE", [&](const Record& record) {
        references.trainingFile(record);
        ledgers.trainingFile(record, known.caregivers().addTrained(record.key()));
    });
    known.caregivers().complete();
    references.caregivers();
    Beginnings ofContracts(known.caregivers());
    over("CONTRAT", [&](const Record& record) {
        const Beginnings::Found& caregivers = ofContracts.of(record.key());
        known.contract(record, caregivers);
        references.contract(record, caregivers);
    });
    known.completeContracts();
    Beginnings ofPay(known.caregivers());
    over("DETAILCALCUL",
         [&](const Record& record) { references.pay(record, ofPay.of(record.key())); });
    Beginnings ofLedgers(known.caregivers());
    over("DIFAIDANT", [&](const Record& record) {
        const auto key = known.split(record.key(), ofLedgers.of(record.key()));
        references.ledger(record, key);
        ledgers.ledger(record, key);
    });
    ledgers.complete();
    for (const std::string& file : rest)
        pass(engine, file, known, tell, progress);
}

int check(const CommandLine& line, const Console& console) {
    const auto engine = openStore(line.words().front());
    Progress progress(console, "looked at");
    std::size_t findings = 0;
    const TellFinding tell = [&](const Finding& finding) {
        ++findings;
        progress.clear();
        line.has("--json") ? printJson(finding, console.out) : printText(finding, console.out);
    };
    engine->consistently([&] { passAll(*engine, tell, progress); });
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
    "that are none, dates out of order; balances that do not follow from the line before; hours\n"
    "charged for a training that is no more, and trainings that count without being charged;\n"
    "hours and pay without a contract, contracts that call their employer otherwise than its own\n"
    "file, and caregivers' codes that begin another's. Nothing is changed. The exit status is 1\n"
    "where something was found.\n",
    Options,
    "  vorandine-dba check sqlite:agence.vor\n"
    "  vorandine-dba check --json sqlite:agence.vor | grep '\"file\":\"DIFAIDANT\"'\n",
    check,
};

} // namespace vorandine::dba
