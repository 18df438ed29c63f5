// Records against the records that they belong to.
#include "apps/dba/check/Checks.h"
#include "apps/dba/check/Records.h"
#include "dif/Employers.h"

#include <string_view>
#include <vector>

namespace vorandine::dba {
namespace {

constexpr const char* NoCaregiver = "begins with the code of no caregiver";
constexpr const char* AddCaregiver =
    "add the caregiver to AIDANT, or delete the record if it belongs to nobody";

// The two ends of a time, of which the last may be open.
void checkSpan(const std::string& file, const data::DBARecord& record, int first, int last,
               const TellFinding& tell) {
    const std::string from = record(first);
    const std::string to = record(last);
    if (!from.empty() && !to.empty() && to < from)
        tell({file, record.key(), last, 1, to, "is earlier than the first day, " + from,
              "mend one of the two dates"});
}

void checkContract(const data::DBARecord& record, const Known& known, const TellFinding& tell) {
    if (!known.split(record.key()))
        tell({"CONTRAT", record.key(), 0, 0, "", NoCaregiver, AddCaregiver});
    checkSpan("CONTRAT", record, 7, 8, tell);
    const std::string code = dif::employerCode(record(3));
    const EmployerName* const employer = known.employer(code);
    if (employer == nullptr)
        return; // told as a code that does not exist
    const EmployerName stored{record(4), record(5)};
    if (stored == *employer)
        return;
    const int attribute = stored.name == employer->name ? 5 : 4;
    tell({"CONTRAT", record.key(), attribute, 1, record(attribute),
          "is not what the employer's file says, '" +
              (attribute == 4 ? employer->name : employer->firstName) + "'",
          std::string("take the name over from ") +
              (dif::isAssociation(code) ? "ASSOCIATION" : "CIVILAIDE") +
              ", or mend it there: contracts are sorted by it"});
}

void checkPay(const data::DBARecord& record, const Known& known, const TellFinding& tell) {
    const auto key = known.split(record.key());
    if (!key)
        tell({"DETAILCALCUL", record.key(), 0, 0, "", NoCaregiver, AddCaregiver});
    else if (!known.everHadContract(key->caregiver, dif::employerCode(record(1))))
        tell({"DETAILCALCUL", record.key(), 1, 1, record(1),
              "is an employer with whom the caregiver has no contract",
              "mend the employer, or add the contract"});
}

void checkLedger(const data::DBARecord& record, const Known& known, const TellFinding& tell) {
    const auto key = known.splitLedger(record.key());
    if (!key)
        tell({"DIFAIDANT", record.key(), 0, 0, "", NoCaregiver, AddCaregiver});
    else if (!known.hasContract(key->caregiver, key->rest))
        tell({"DIFAIDANT", record.key(), 0, 0, "",
              "belongs to employer '" + key->rest +
                  "', with whom the caregiver has no contract that counts: nobody sees its hours",
              "add the contract, or delete the record if the hours are not due"});
}

// In order, a code stands right behind all those that begin it.
void checkCodes(const Known& known, const TellFinding& tell) {
    std::vector<std::string_view> beginnings;
    for (const std::string& code : known.caregivers()) {
        while (!beginnings.empty() && !code.starts_with(beginnings.back()))
            beginnings.pop_back();
        if (!beginnings.empty())
            tell({"AIDANT", code, 0, 0, "",
                  "begins with the code of another caregiver, '" + std::string(beginnings.back()) +
                      "', who is shown what belongs to this one",
                  "give one of the two another code, in all files"});
        beginnings.push_back(code);
    }
}

} // namespace

void checkReferences(store::Engine& engine, const Known& known, const TellFinding& tell) {
    checkCodes(known, tell);
    eachRecord(engine, "CONTRAT",
               [&](const data::DBARecord& record) { checkContract(record, known, tell); });
    eachRecord(engine, "DETAILCALCUL",
               [&](const data::DBARecord& record) { checkPay(record, known, tell); });
    eachRecord(engine, "DIFAIDANT",
               [&](const data::DBARecord& record) { checkLedger(record, known, tell); });
    eachRecord(engine, "FORMVORANDINE", [&](const data::DBARecord& record) {
        checkSpan("FORMVORANDINE", record, 12, 13, tell);
    });
}

} // namespace vorandine::dba
