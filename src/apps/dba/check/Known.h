// What records refer to, gathered once: the codes, names and contracts that there are.
#pragma once

#include "store/Engine.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace vorandine::dba {

// An employer's name as contracts repeat it.
struct EmployerName {
    std::string name;
    std::string firstName; // "" for an association

    friend bool operator==(const EmployerName&, const EmployerName&) = default;
};

// A caregiver's code at the beginning of a key, and what stands behind it.
struct SplitKey {
    std::string caregiver;
    std::string rest;
};

class Known {
  public:
    // Reads the small files and the contracts. Records that are damaged are passed over.
    explicit Known(store::Engine& engine);

    using Codes = std::set<std::string, std::less<>>;

    [[nodiscard]] const Codes& activities() const noexcept { return activities_; }
    [[nodiscard]] const Codes& studies() const noexcept { return studies_; }
    [[nodiscard]] const Codes& trainings() const noexcept { return trainings_; }
    [[nodiscard]] const Codes& qualifications() const noexcept { return qualifications_; }
    // Who has a name, or a training file.
    [[nodiscard]] const Codes& caregivers() const noexcept { return caregivers_; }

    // The name of an employer, by its code cut as dif::employerCode does; none if there is none.
    [[nodiscard]] const EmployerName* employer(const std::string& code) const;

    // The key of a contract or of a line of pay: the longest caregiver's code that it begins with.
    [[nodiscard]] std::optional<SplitKey> split(std::string_view key) const;
    // The key of a ledger. Where several caregivers' codes begin it, one whose rest is an employer
    // comes before a longer one.
    [[nodiscard]] std::optional<SplitKey> splitLedger(std::string_view key) const;

    // Whether the caregiver has a contract with the employer (cut code); one that is not left out.
    [[nodiscard]] bool hasContract(const std::string& caregiver, const std::string& employer) const;
    // Likewise, the contracts that are left out included.
    [[nodiscard]] bool everHadContract(const std::string& caregiver,
                                       const std::string& employer) const;

  private:
    Codes activities_;
    Codes studies_;
    Codes trainings_;
    Codes qualifications_;
    Codes caregivers_;
    std::map<std::string, EmployerName> employers_;
    std::map<std::string, bool> contracts_; // caregiver 0xFF employer: whether one counts

    void readContracts(store::Engine& engine);
};

} // namespace vorandine::dba
