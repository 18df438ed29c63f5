// One pass over each file fills it. Contracts are kept as numbers: there are as many as records.
#include "audit/check/Known.h"

#include "dif/Employers.h"
#include "records/StoredFiles.h"

#include <algorithm>
#include <utility>

namespace vorandine::audit {

void Known::name(std::string_view code, EmployerName name) {
    const Employer number = employers_.add(code);
    if (number >= names_.size())
        names_.resize(number + 1);
    names_[number] = std::move(name);
}

// The screen looks for an employer in one file or the other, by the length of the code.
void Known::association(const Record& record) {
    if (dif::isAssociation(record.key()))
        name(record.key(), {std::string(record(records::association::Name)), {}});
}

void Known::household(const Record& record) {
    namespace household = records::household;
    if (!dif::isAssociation(record.key()) &&
        dif::employerCode(std::string(record.key())) == record.key())
        name(record.key(),
             {std::string(record(household::Name)), std::string(record(household::FirstName))});
}

void Known::table(const Record& record) {
    namespace table = records::table;
    choices_.read(record.key(), record.text());
    Codes* const codes = record.key() == table::Diplomas         ? &studies_
                         : record.key() == table::Trainings      ? &trainings_
                         : record.key() == table::Qualifications ? &qualifications_
                                                                 : nullptr;
    if (codes != nullptr)
        for (Record::Values values = record.values(table::Codes); values.more();)
            codes->add(values.next());
}

// A key that two caregivers' codes begin belongs to both, as it does for the screen's request.
void Known::contract(const Record& record, const Beginnings::Found& caregivers) {
    const std::string_view code = record(records::contract::Employer);
    if (code.empty())
        return; // nobody's hours
    for (const Caregivers::Number caregiver : caregivers)
        contracts_.push_back(
            {caregiver, employer(code), record(records::contract::LeftOut).empty()});
}

void Known::completeContracts() {
    const auto before = [](const Contract& a, const Contract& b) {
        return a.caregiver < b.caregiver;
    };
    // They came so, save those of caregivers who have no name.
    if (!std::is_sorted(contracts_.begin(), contracts_.end(), before))
        std::sort(contracts_.begin(), contracts_.end(), before);
    contractsOf_.reserve(caregivers_.size() + 1);
    std::size_t at = 0;
    for (std::size_t caregiver = 0; caregiver < caregivers_.size(); ++caregiver) {
        contractsOf_.push_back(at);
        while (at < contracts_.size() && contracts_[at].caregiver == caregiver)
            ++at;
    }
    contractsOf_.push_back(at);
}

Known::Employer Known::employer(std::string_view stored) {
    // The same employer is asked for again and again, by a record and by those that follow it.
    if (spelled_.empty() || spellings_[last_] != stored) {
        last_ = spellings_.add(stored);
        if (last_ == spelled_.size())
            spelled_.push_back(employers_.add(dif::employerCode(std::string(stored))));
    }
    return spelled_[last_];
}

const EmployerName* Known::nameOf(Employer employer) const noexcept {
    return employer < names_.size() && names_[employer] ? &*names_[employer] : nullptr;
}

std::optional<LedgerKey> Known::split(std::string_view key,
                                      const Beginnings::Found& beginnings) const {
    const auto from = [&](Caregivers::Number caregiver) {
        return LedgerKey{caregiver, key.substr(caregivers_.code(caregiver).size())};
    };
    if (beginnings.empty())
        return std::nullopt;
    const auto found =
        std::find_if(beginnings.rbegin(), beginnings.rend(), [&](Caregivers::Number caregiver) {
            return nameOf(employers_.find(from(caregiver).employer)) != nullptr;
        });
    return from(found == beginnings.rend() ? beginnings.back() : *found);
}

bool Known::has(Caregivers::Number caregiver, Employer employer, bool counting) const {
    for (std::size_t i = contractsOf_[caregiver]; i < contractsOf_[caregiver + 1]; ++i)
        if (contracts_[i].employer == employer && (contracts_[i].counts || !counting))
            return true;
    return false;
}

bool Known::everHadContract(Caregivers::Number caregiver, Employer employer) const {
    return has(caregiver, employer, false);
}

bool Known::hasContract(Caregivers::Number caregiver, std::string_view employer) const {
    return has(caregiver, employers_.find(employer), true);
}

} // namespace vorandine::audit
