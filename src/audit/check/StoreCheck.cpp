// The order in which the files are passed over, and which check sees which.
#include "audit/check/StoreCheck.h"

#include "audit/check/Checks.h"
#include "records/RecordText.h"
#include "records/StoredFiles.h"

#include <string>
#include <vector>

namespace vorandine::audit {
namespace {

using Look = std::function<void(const Record&)>;

// One pass over a file: its layout, and whatever else is asked of its records.
void pass(store::Engine& engine, const std::string& file, Known& known, const TellFinding& tell,
          const std::function<void()>& step, const Look& look = {},
          const std::function<void(std::string_view key)>& unreadable = {}) {
    const LayoutCheck layouts(file, known, tell);
    Record record;
    engine.file(file)->scan({}, [&](std::string_view key, std::string_view text) {
        step();
        if (!record.show(key, text)) {
            tell({file, records::shownKey(key), 0, 0, "", "is damaged: it is no readable text",
                  "store the record anew, or take it from a copy of the store"});
            if (unreadable)
                unreadable(key);
            return true;
        }
        layouts.look(record);
        if (look)
            look(record);
        return true;
    });
}

} // namespace

// Each file once, those that others refer to before them.
void checkStore(store::Engine& engine, const TellFinding& tell, const std::function<void()>& step) {
    Known known;
    ReferenceCheck references(known, tell);
    LedgerCheck ledgers(known, tell);
    SavingCheck saving(
        records::training_file::File, "next save of the file",
        [&](std::string_view record) { return lossesOfSaving(record, known.choices()); }, tell);
    SavingCheck ledgerSaving(records::ledger::File, "next change on the D.I.F. tab", lossesOfLedger,
                             tell);
    std::vector<std::string> rest = engine.files();
    const auto over = [&](const std::string& file, const Look& look) {
        std::erase(rest, file);
        const bool ofTrainings = file == records::training_file::File;
        pass(engine, file, known, ofTrainings ? saving.layout() : tell, step, look);
    };
    over(records::activity::File, [&](const Record& record) { known.activity(record); });
    over(records::association::File, [&](const Record& record) { known.association(record); });
    over(records::household::File, [&](const Record& record) { known.household(record); });
    over(records::table::File, [&](const Record& record) {
        known.table(record);
        references.table(record);
    });
    over(records::caregiver::File,
         [&](const Record& record) { known.caregivers().addNamed(record.key()); });
    over(records::training_file::File, [&](const Record& record) {
        saving.look(record);
        references.trainingFile(record);
        ledgers.trainingFile(record, known.caregivers().addTrained(record.key()));
    });
    known.caregivers().complete();
    references.caregivers();
    Beginnings ofContracts(known.caregivers());
    over(records::contract::File, [&](const Record& record) {
        const Beginnings::Found& caregivers = ofContracts.of(record.key());
        known.contract(record, caregivers);
        references.contract(record, caregivers);
    });
    known.completeContracts();
    Beginnings ofPay(known.caregivers());
    over(records::pay::File,
         [&](const Record& record) { references.pay(record, ofPay.of(record.key())); });
    Beginnings ofLedgers(known.caregivers());
    std::erase(rest, records::ledger::File);
    pass(
        engine, records::ledger::File, known, ledgerSaving.layout(), step,
        [&](const Record& record) {
            const auto key = known.split(record.key(), ofLedgers.of(record.key()));
            ledgerSaving.look(record);
            references.ledger(record, key);
            ledgers.ledger(record, key);
        },
        [&](std::string_view key) { ledgers.unreadable(ofLedgers.of(key)); });
    ledgers.complete();
    for (const std::string& file : rest)
        pass(engine, file, known, tell, step);
}

} // namespace vorandine::audit
