// Files are read in the order of their keys, so that no caregiver is ever looked for.
#include "audit/check/Caregivers.h"

#include <algorithm>
#include <numeric>

namespace vorandine::audit {

void Caregivers::addNamed(std::string_view code) {
    codes_.emplace_back(code);
    named_ = codes_.size();
}

Caregivers::Number Caregivers::addTrained(std::string_view code) {
    while (passed_ < named_ && codes_[passed_] < code)
        ++passed_;
    if (passed_ < named_ && codes_[passed_] == code)
        return static_cast<Number>(passed_);
    codes_.emplace_back(code);
    return static_cast<Number>(codes_.size() - 1);
}

void Caregivers::complete() {
    sorted_.resize(codes_.size());
    std::iota(sorted_.begin(), sorted_.end(), Number{0});
    std::inplace_merge(sorted_.begin(), sorted_.begin() + static_cast<std::ptrdiff_t>(named_),
                       sorted_.end(), [&](Number a, Number b) { return codes_[a] < codes_[b]; });
}

// A code that begins some key, but not one that comes between, stands behind the one between: so
// none that was left is needed again.
const Beginnings::Found& Beginnings::of(std::string_view key) {
    while (!found_.empty() && !key.starts_with(caregivers_.code(found_.back())))
        found_.pop_back();
    for (; next_ < caregivers_.sorted().size(); ++next_) {
        const Caregivers::Number number = caregivers_.sorted()[next_];
        const std::string& code = caregivers_.code(number);
        if (code > key)
            break;
        if (key.starts_with(code))
            found_.push_back(number);
    }
    return found_;
}

} // namespace vorandine::audit
