// The subjects of check. Each is handed the records that it looks at, file by file in the order
// that Known needs, and tells what it finds as it meets it.
#pragma once

#include "audit/check/Findings.h"
#include "audit/check/Known.h"
#include "records/Layout.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::audit {

// The records of one file against its layout: lists of one length, dates, numbers and codes as they
// must be. What is handed over must outlive it.
class LayoutCheck {
  public:
    LayoutCheck(std::string file, Known& known, const TellFinding& tell)
        : file_(std::move(file)), attributes_(records::layout(file_)), known_(known), tell_(tell) {}

    void look(const Record& record) const;

  private:
    std::string file_;
    std::span<const records::AttributeLayout> attributes_;
    Known& known_;
    const TellFinding& tell_;

    void find(const Record& record, int attribute, int position, std::string_view value,
              const std::string& problem, const std::string& advice) const;
    // How many values the attribute has; tells those that are not right.
    int values(const Record& record, const records::AttributeLayout& attribute) const;
    void lengths(const Record& record, const records::AttributeLayout& attribute, int count,
                 int lines) const;
    void order(const Record& record, const records::AttributeLayout& attribute) const;
};

// What the next save by the control drops or changes of a training file, or the next change on the
// D.I.F. tab of a ledger: added to what the layout says of the value, else told by itself.
class SavingCheck {
  public:
    // `by` says what loses it, as "next save of the file". All that is handed over must outlive it.
    SavingCheck(const char* file, const char* by,
                std::function<std::vector<Loss>(std::string_view record)> losses,
                const TellFinding& tell)
        : file_(file), by_(by), losses_(std::move(losses)), tell_(tell) {}
    SavingCheck(const SavingCheck&) = delete;
    SavingCheck& operator=(const SavingCheck&) = delete;

    // Takes the findings of the layout: those on values wait until their record is looked at.
    [[nodiscard]] const TellFinding& layout() const noexcept { return layout_; }
    void look(const Record& record);

  private:
    const char* file_;
    const char* by_;
    std::function<std::vector<Loss>(std::string_view record)> losses_;
    const TellFinding& tell_;
    std::vector<Finding> found_;
    TellFinding layout_ = [this](const Finding& finding) {
        finding.attribute > 0 ? found_.push_back(finding) : tell_(finding);
    };
};

// Contracts against caregivers and employers, dates that belong together, lines of pay and ledgers
// against contracts, caregivers' codes against each other.
class ReferenceCheck {
  public:
    ReferenceCheck(Known& known, const TellFinding& tell) : known_(known), tell_(tell) {}

    void caregivers() const;
    // The tables of labels and of qualifications: entries that nobody can choose.
    void table(const Record& record) const;
    void trainingFile(const Record& record) const;
    // With the caregivers whose codes the key begins with, and for a ledger, what its key says.
    void contract(const Record& record, const Beginnings::Found& caregivers) const;
    void pay(const Record& record, const Beginnings::Found& caregivers) const;
    void ledger(const Record& record, const std::optional<LedgerKey>& key) const;

  private:
    Known& known_;
    const TellFinding& tell_;

    void span(const char* file, const Record& record, int first, int last) const;
    void noCaregiver(const char* file, const Record& record) const;
};

// The balances of the ledgers, and their lines against the trainings that count for the D.I.F.
class LedgerCheck {
  public:
    LedgerCheck(Known& known, const TellFinding& tell) : known_(known), tell_(tell) {}

    // All training files come before the first ledger.
    void trainingFile(const Record& record, Caregivers::Number caregiver);
    void ledger(const Record& record, const std::optional<LedgerKey>& key);
    // A ledger that is no readable text: what else is charged to trainings of theirs is not known.
    void unreadable(const Beginnings::Found& caregivers) {
        unreadable_.insert(caregivers.begin(), caregivers.end());
    }
    // All ledgers have come.
    void complete() const;

  private:
    // A training that counts. There are as many as records: they are kept as numbers.
    struct Training {
        std::uint32_t date;
        std::uint32_t code; // of codes_
        std::uint32_t line : 31;
        std::uint32_t charged : 1;
        std::uint32_t hours; // in hundredths; 0 where none are known
    };
    // What one ledger holds of trainings of one day and code.
    struct Charges {
        std::ptrdiff_t first; // of these trainings
        int trainings;
        std::int64_t theirs; // hours, as above
        int lines;
        std::int64_t hours;
    };
    struct Range {
        std::ptrdiff_t from = 0;
        std::ptrdiff_t to = 0;
    };

    Known& known_;
    const TellFinding& tell_;
    Codes noDates_; // texts that stand where a date should
    Codes codes_;
    std::deque<Training> trainings_;
    std::vector<Range> trainingsOf_;          // by caregiver; may end before the last ones
    std::set<Caregivers::Number> unreadable_; // those with a ledger that could not be read
    std::vector<Charges> ofLedger_;           // of the one that is looked at

    void balances(const Record& record) const;
    void charges(const Record& record, Caregivers::Number caregiver);
    // What the ledger is charged with so far for that day and code; null if there is no training.
    Charges* charge(Caregivers::Number caregiver, std::string_view date, std::string_view code);
};

} // namespace vorandine::audit
