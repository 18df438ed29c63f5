// The D.I.F. half of the random walk: employers and ledgers for it to work on, files that fail now
// and then, and what must hold of the tab and of what is stored after each gesture.
#pragma once

#include "apps/scenario/RehearsalEngine.h"
#include "unit/control_support.h"

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace vorandine::control_test {

// What stands on the screen. Freed: the end of a training line has enabled everything; the next
// arrival on the tab closes it.
enum class DifState { Closed, EmployerOpen, RightsLine, HoursLine, NewLine, Freed };

class DifWatch {
  public:
    // From here on the desk's engine fails on demand.
    explicit DifWatch(Desk& desk);

    enum class Failing { Nothing, Writes, Reads };
    void fail(Failing failing);
    [[nodiscard]] Failing failing() const noexcept { return failing_; }

    using Ledgers = std::map<std::string, std::string>; // stored texts by key
    // Not disturbed by failures, as all that follows.
    [[nodiscard]] Ledgers ledgers() const;
    [[nodiscard]] static records::DBARecord record(const std::string& text);
    // Whether the dates of a ledger are in order.
    [[nodiscard]] static bool inOrder(const records::DBARecord& ledger);

    void before(host::CaregiverForm& form, bool trainingOpen);
    // `gesture` is the control it was made on. Whether a ledger was stored.
    bool after(host::CaregiverForm& form, const std::string& gesture, bool trainingOpen);

    [[nodiscard]] static DifState state(host::CaregiverForm& form);
    [[nodiscard]] static bool lineOpen(DifState state);
    // Whether a control of the frame is enabled in that state; nothing for any other control.
    [[nodiscard]] static std::optional<bool> enabled(DifState state, const std::string& name);
    // All that is stored beside the ledgers, told in a text.
    [[nodiscard]] std::string wholeStore() const;

  private:
    std::shared_ptr<store::Engine> below_;
    std::shared_ptr<scenario::RehearsalEngine> rehearsal_;
    Failing failing_ = Failing::Nothing;
    DifState stateBefore_ = DifState::Closed;
    bool trainingOpenBefore_ = false;
    Ledgers ledgersBefore_;

    void checkStored(const std::string& text, const std::string& before, bool byTab) const;
    void checkShown(host::CaregiverForm& form) const;
};

} // namespace vorandine::control_test
