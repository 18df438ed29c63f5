// The random walk goes on in a modal form until that ends, and holds what must hold in it: its
// states, its lists, that nothing is stored before it ends, and what then is.
#pragma once

#include "dif/Frm_CalculRemu.h"
#include "dif/Frm_DIF.h"
#include "property/dif_watch.h"
#include "property/walk_hand.h"

namespace vorandine::control_test {

class WalkModal {
  public:
    WalkModal(WalkHand& hand, const DifWatch& watch) : hand_(hand), watch_(watch) {}

    void walk(widgets::Form& form);

    struct Tally {
        unsigned long gestures = 0;
        int charged = 0;  // forms that charged hours
        int computed = 0; // pay that was shown
        int labelled = 0; // forms that changed the table of labels
    };
    [[nodiscard]] const Tally& tally() const noexcept { return tally_; }
    // The last gesture, for whoever reads a failure; "" when none was made since the last call.
    std::string takeLast() { return std::exchange(last_, {}); }

  private:
    // A line of the list of employers as it stood before a gesture.
    struct Charge {
        std::string head;
        std::string code;
        long hours = 0; // in hundredths; 0 for none
    };
    enum class State { Opening, Listing, LineOpen };

    WalkHand& hand_;
    const DifWatch& watch_;
    Tally tally_;
    std::string last_;

    void gesture(widgets::Form& form);
    [[nodiscard]] std::vector<std::string> sensibleTargets(widgets::Form& form);

    void chargeHours(dif::Frm_DIF& form);
    [[nodiscard]] static State state(dif::Frm_DIF& form);
    [[nodiscard]] static std::vector<Charge> charges(dif::Frm_DIF& form);
    static void checkState(dif::Frm_DIF& form, State state);
    static void checkAccount(dif::Frm_DIF& form);
    void checkCharged(dif::Frm_DIF& form, const DifWatch::Ledgers& before,
                      const std::vector<Charge>& charges) const;

    void computePay(dif::Frm_CalculRemu& form);
    void addLabels(widgets::Form& form);
};

} // namespace vorandine::control_test
