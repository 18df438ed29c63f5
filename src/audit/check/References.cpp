// Records against the records that they belong to.
#include "audit/check/Checks.h"
#include "dif/Employers.h"
#include "records/StoredFiles.h"

namespace vorandine::audit {

namespace contract = records::contract;

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

void ReferenceCheck::table(const Record& record) const {
    namespace table = records::table;
    const bool labelled = record.key() == table::Trainings;
    if (!labelled && record.key() != table::Qualifications)
        return;
    Record::Values codes = record.values(table::Codes);
    Record::Values labels = record.values(table::Labels);
    for (int position = 1; codes.more() || (labelled && labels.more()); ++position) {
        const bool noCode = codes.next().empty();
        const bool noLabel = labels.next().empty() && labelled;
        if (noCode || noLabel)
            tell_({table::File, std::string(record.key()), noCode ? table::Codes : table::Labels,
                   position, "", "is an empty entry, which nobody can choose",
                   "remove the entry, or give it what it lacks"});
    }
}

void ReferenceCheck::trainingFile(const Record& record) const {
    span(records::training_file::File, record, records::training_file::AvailableFrom,
         records::training_file::AvailableTo);
}

void ReferenceCheck::contract(const Record& record, const Beginnings::Found& caregivers) const {
    if (caregivers.empty())
        noCaregiver(contract::File, record);
    const std::string_view code = record(contract::Employer);
    const EmployerName* const employer = known_.nameOf(known_.employer(code));
    if (employer != nullptr) { // else told as a code that does not exist
        const bool sameName = record(contract::EmployerName) == employer->name;
        if (!sameName || record(contract::EmployerFirstName) != employer->firstName) {
            const int attribute = sameName ? contract::EmployerFirstName : contract::EmployerName;
            tell_({contract::File, std::string(record.key()), attribute, 1,
                   std::string(record(attribute)),
                   "is not what the employer's file says, '" +
                       (sameName ? employer->firstName : employer->name) + "'",
                   std::string("take the name over from ") +
                       (dif::isAssociation(dif::employerCode(std::string(code)))
                            ? records::association::File
                            : records::household::File) +
                       ", or mend it there: contracts are sorted by it"});
        }
    }
    span(contract::File, record, contract::FirstDay, contract::LastDay);
}

void ReferenceCheck::pay(const Record& record, const Beginnings::Found& caregivers) const {
    if (caregivers.empty())
        noCaregiver(records::pay::File, record);
    else if (!known_.everHadContract(caregivers.back(),
                                     known_.employer(record(records::pay::Employer))))
        tell_({records::pay::File, std::string(record.key()), records::pay::Employer, 1,
               std::string(record(records::pay::Employer)),
               "is an employer with whom the caregiver has no contract",
               "mend the employer, or add the contract"});
}

void ReferenceCheck::ledger(const Record& record, const std::optional<LedgerKey>& key) const {
    if (!key)
        noCaregiver(records::ledger::File, record);
    else if (!known_.hasContract(key->caregiver, key->employer))
        tell_({records::ledger::File, std::string(record.key()), 0, 0, "",
               "belongs to employer '" + std::string(key->employer) +
                   "', with whom the caregiver has no contract that counts: nobody sees its hours",
               "add the contract, or delete the record if the hours are not due"});
}

} // namespace vorandine::audit
