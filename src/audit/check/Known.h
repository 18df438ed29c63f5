// What records refer to, gathered as the files are read: the codes, names and contracts that there
// are. What a file refers to must have been read before it.
#pragma once

#include "audit/check/Caregivers.h"
#include "audit/check/Codes.h"
#include "audit/check/Record.h"
#include "audit/saving/Losses.h"

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::audit {

// An employer's name as contracts repeat it.
struct EmployerName {
    std::string name;
    std::string firstName; // "" for an association
};

// A caregiver's code at the beginning of a ledger's key, and the employer's code behind it.
struct LedgerKey {
    Caregivers::Number caregiver;
    std::string_view employer;
};

class Known {
  public:
    using Employer = std::uint32_t; // its number; a code that has no employer has one too

    // One record of the file that each is named after.
    void activity(const Record& record) { activities_.add(record.key()); }
    void association(const Record& record);
    void household(const Record& record); // of CIVILAIDE
    void table(const Record& record);
    void contract(const Record& record, const Beginnings::Found& caregivers);
    // All contracts have been read.
    void completeContracts();

    [[nodiscard]] const Codes& activities() const noexcept { return activities_; }
    [[nodiscard]] const Codes& studies() const noexcept { return studies_; }
    [[nodiscard]] const Codes& trainings() const noexcept { return trainings_; }
    [[nodiscard]] const Codes& qualifications() const noexcept { return qualifications_; }
    [[nodiscard]] const Choices& choices() const noexcept { return choices_; }
    // Who has a name, or a training file.
    [[nodiscard]] Caregivers& caregivers() noexcept { return caregivers_; }

    // The employer whose code is stored, cut as dif::employerCode does.
    [[nodiscard]] Employer employer(std::string_view stored);
    // Its name; none if there is no such employer.
    [[nodiscard]] const EmployerName* nameOf(Employer employer) const noexcept;

    // Where several caregivers' codes begin the key (shortest first), one whose rest is an employer
    // comes before a longer one. None if there are none.
    [[nodiscard]] std::optional<LedgerKey> split(std::string_view key,
                                                 const Beginnings::Found& caregivers) const;

    // Whether the caregiver has a contract with the employer, and one that is not left out.
    [[nodiscard]] bool everHadContract(Caregivers::Number caregiver, Employer employer) const;
    [[nodiscard]] bool hasContract(Caregivers::Number caregiver, std::string_view employer) const;

  private:
    struct Contract {
        Caregivers::Number caregiver;
        Employer employer;
        bool counts;
    };

    Codes activities_;
    Codes studies_;
    Codes trainings_;
    Codes qualifications_;
    Choices choices_;
    Caregivers caregivers_;
    Codes employers_;
    std::vector<std::optional<EmployerName>> names_; // by employer; may end before the last ones
    Codes spellings_;                                // employers' codes as they are stored
    std::vector<Employer> spelled_;                  // by spelling
    std::uint32_t last_ = 0;                         // spelling
    std::deque<Contract> contracts_;                 // sorted once they are complete
    std::vector<std::size_t> contractsOf_; // by caregiver, where they begin; and where all end

    void name(std::string_view code, EmployerName name);
    [[nodiscard]] bool has(Caregivers::Number caregiver, Employer employer, bool counting) const;
};

} // namespace vorandine::audit
