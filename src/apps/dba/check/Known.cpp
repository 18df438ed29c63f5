// One scan a file; keys of the two kinds of employers cannot meet, since their lengths differ.
#include "apps/dba/check/Known.h"

#include "apps/dba/check/Records.h"
#include "dif/Employers.h"

namespace vorandine::dba {
namespace {

void keysOf(store::Engine& engine, const char* file, Known::Codes& codes) {
    eachRecord(engine, file, [&](const data::DBARecord& record) { codes.insert(record.key()); });
}

void entriesOf(const data::DBARecord& table, Known::Codes& codes) {
    for (int i = 1; i <= table.DCount(2); ++i)
        codes.insert(table(2, i));
}

std::string pair(const std::string& caregiver, const std::string& employer) {
    return caregiver + '\xFF' + employer;
}

} // namespace

Known::Known(store::Engine& engine) {
    keysOf(engine, "ACTIVITES", activities_);
    keysOf(engine, "AIDANT", caregivers_);
    keysOf(engine, "FORMVORANDINE", caregivers_);
    eachRecord(engine, "TABLES", [&](const data::DBARecord& record) {
        if (record.key() == "DIPLOMES")
            entriesOf(record, studies_);
        else if (record.key() == "FORMPRO")
            entriesOf(record, trainings_);
        else if (record.key() == "QUALIF")
            entriesOf(record, qualifications_);
    });
    eachRecord(engine, "CIVILAIDE", [&](const data::DBARecord& record) {
        if (dif::employerCode(record.key()).size() == record.key().size())
            employers_[record.key()] = {record(2), record(3)};
    });
    eachRecord(engine, "ASSOCIATION", [&](const data::DBARecord& record) {
        employers_[record.key()] = {record(1), {}};
    });
    readContracts(engine);
}

void Known::readContracts(store::Engine& engine) {
    eachRecord(engine, "CONTRAT", [&](const data::DBARecord& record) {
        const std::string employer = dif::employerCode(record(3));
        // A key that two caregivers' codes begin belongs to both, as it does for a request.
        for (std::size_t size = 1; size <= record.key().size(); ++size) {
            const std::string caregiver = record.key().substr(0, size);
            if (caregivers_.contains(caregiver))
                contracts_[pair(caregiver, employer)] |= record(65).empty();
        }
    });
}

const EmployerName* Known::employer(const std::string& code) const {
    const auto found = employers_.find(code);
    return found == employers_.end() ? nullptr : &found->second;
}

std::optional<SplitKey> Known::split(std::string_view key) const {
    for (std::size_t size = key.size(); size > 0; --size)
        if (caregivers_.contains(key.substr(0, size)))
            return SplitKey{std::string(key.substr(0, size)), std::string(key.substr(size))};
    return std::nullopt;
}

std::optional<SplitKey> Known::splitLedger(std::string_view key) const {
    for (std::size_t size = key.size(); size > 0; --size)
        if (caregivers_.contains(key.substr(0, size)) &&
            employer(std::string(key.substr(size))) != nullptr)
            return SplitKey{std::string(key.substr(0, size)), std::string(key.substr(size))};
    return split(key);
}

bool Known::hasContract(const std::string& caregiver, const std::string& employer) const {
    const auto found = contracts_.find(pair(caregiver, employer));
    return found != contracts_.end() && found->second;
}

bool Known::everHadContract(const std::string& caregiver, const std::string& employer) const {
    return contracts_.contains(pair(caregiver, employer));
}

} // namespace vorandine::dba
