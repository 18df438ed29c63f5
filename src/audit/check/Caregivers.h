// The caregivers, each with a number, and those whose code a key begins with.
#pragma once

#include "records/StoredFiles.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::audit {

class Caregivers {
  public:
    using Number = std::uint32_t;

    // The keys of AIDANT, ascending, then those of FORMVORANDINE, ascending; then complete() once.
    void addNamed(std::string_view code);
    Number addTrained(std::string_view code);
    void complete();

    [[nodiscard]] std::size_t size() const noexcept { return codes_.size(); }
    [[nodiscard]] const std::string& code(Number number) const noexcept { return codes_[number]; }
    // The file that the caregiver stands in, the first of the two.
    [[nodiscard]] const char* fileOf(Number number) const noexcept {
        return number < named_ ? records::caregiver::File : records::training_file::File;
    }
    // All of them, by their codes.
    [[nodiscard]] const std::vector<Number>& sorted() const noexcept { return sorted_; }

  private:
    std::vector<std::string> codes_; // by number: those of AIDANT first
    std::size_t named_ = 0;
    std::size_t passed_ = 0; // of those of AIDANT, by the codes of FORMVORANDINE
    std::vector<Number> sorted_;
};

// Goes through keys and caregivers side by side.
class Beginnings {
  public:
    using Found = std::vector<Caregivers::Number>; // the shortest code first

    // `caregivers`, complete when the first key comes, must outlive it.
    explicit Beginnings(const Caregivers& caregivers) noexcept : caregivers_(caregivers) {}

    // The caregivers whose codes `key` begins with. Keys come ascending. Holds until the next call.
    const Found& of(std::string_view key);

  private:
    const Caregivers& caregivers_;
    std::size_t next_ = 0;
    Found found_;
};

} // namespace vorandine::audit
