// Records against the records that they belong to.
#include "audit/check/Checks.h"
#include "dif/Employers.h"

namespace vorandine::audit {

// The two ends of a time, of which the last may be open.
void ReferenceCheck::span(const char* file, const Record& record, int first, int last) const {
    const std::string_view from = record(first);
    const std::string_view to = record(last);
    if (!from.empty() && !to.empty() && to < from)
        tell_({file, std::string(record.key()), last, 1, std::string(to),
               "is earlier than the first day, " + std::string(from), "mend one of the two dates"});
}

void ReferenceCheck::noCaregiver(const char* file, const Record& record) const {
    tell_({file, std::string(record.key()), 0, 0, "", "begins with the code of no caregiver",
           "add the caregiver to AIDANT, or delete the record if it belongs to nobody"});
}

// In order, a code stands right behind all those that begin it.
void ReferenceCheck::caregivers() const {
    const Caregivers& all = known_.caregivers();
    std::vector<std::string_view> beginnings;
    for (const Caregivers::Number number : all.sorted()) {
        const std::string& code = all.code(number);
        while (!beginnings.empty() && !code.starts_with(beginnings.back()))
            beginnings.pop_back();
        if (!beginnings.empty())
            tell_({all.fileOf(number), code, 0, 0, "",
                   "begins with the code of another caregiver, '" + std::string(beginnings.back()) +
                       "', who is shown what belongs to this one",
                   "give one of the two another code, in all files"});
        beginnings.emplace_back(code);
    }
}

void ReferenceCheck::trainingFile(const Record& record) const {
    span("FORMVORANDINE", record, 12, 13);
}

void ReferenceCheck::contract(const Record& record, const Beginnings::Found& caregivers) const {
    if (caregivers.empty())
        noCaregiver("CONTRAT", record);
    const std::string_view code = record(3);
    const EmployerName* const employer = known_.nameOf(known_.employer(code));
    if (employer != nullptr) { // else told as a code that does not exist
        const bool sameName = record(4) == employer->name;
        if (!sameName || record(5) != employer->firstName) {
            const int attribute = sameName ? 5 : 4;
            tell_({"CONTRAT", std::string(record.key()), attribute, 1,
                   std::string(record(attribute)),
                   "is not what the employer's file says, '" +
                       (sameName ? employer->firstName : employer->name) + "'",
                   std::string("take the name over from ") +
                       (dif::isAssociation(dif::employerCode(std::string(code))) ? "ASSOCIATION"
                                                                                 : "CIVILAIDE") +
                       ", or mend it there: contracts are sorted by it"});
        }
    }
    span("CONTRAT", record, 7, 8);
}

void ReferenceCheck::pay(const Record& record, const Beginnings::Found& caregivers) const {
    if (caregivers.empty())
        noCaregiver("DETAILCALCUL", record);
    else if (!known_.everHadContract(caregivers.back(), known_.employer(record(1))))
        tell_({"DETAILCALCUL", std::string(record.key()), 1, 1, std::string(record(1)),
               "is an employer with whom the caregiver has no contract",
               "mend the employer, or add the contract"});
}

void ReferenceCheck::ledger(const Record& record, const std::optional<LedgerKey>& key) const {
    if (!key)
        noCaregiver("DIFAIDANT", record);
    else if (!known_.hasContract(key->caregiver, key->employer))
        tell_({"DIFAIDANT", std::string(record.key()), 0, 0, "",
               "belongs to employer '" + std::string(key->employer) +
                   "', with whom the caregiver has no contract that counts: nobody sees its hours",
               "add the contract, or delete the record if the hours are not due"});
}

} // namespace vorandine::audit
