// What the random walk looks at on the file's own form: all that a gesture could change, what a
// save keeps of it, the lists of trainings and activities, and which controls are enabled when.
#pragma once

#include "property/dif_watch.h"
#include "unit/control_support.h"

#include <string>
#include <vector>

namespace vorandine::control_test {

class WalkScreen {
  public:
    explicit WalkScreen(Desk& desk) : desk_(desk) {}

    // From here on it is this file; its form must outlive the use.
    void look(host::CaregiverForm& form);
    [[nodiscard]] host::CaregiverForm& form() const { return *form_; }

    [[nodiscard]] bool editing() const;
    [[nodiscard]] std::string focus() const;
    [[nodiscard]] widgets::TabContainer& tabs() const;
    // What the record keeps, the labels of trainings aside: they are the table's.
    [[nodiscard]] std::string kept() const;
    // Everything, the focus included.
    [[nodiscard]] std::string whole() const;

    // One line of the table of trainings, its date in stored form.
    struct Training {
        std::string date;
        std::string code;
        std::string dif;
    };
    [[nodiscard]] std::vector<Training> trainings() const;

    // `origin` is the control on which the gesture was made.
    void follow(bool editingBefore, const std::string& origin);
    // The line in the typing row, its code as listed and its date as typed; each "" if there is
    // none.
    [[nodiscard]] Training opened() const;
    // `charged`: a form that charges hours has just done so.
    void checkTrainings(const std::vector<Training>& before, bool charged) const;
    // A training that was deleted, or left the D.I.F., has left the ledgers.
    void checkTakenOut(const std::vector<Training>& before, const Training& opened,
                       const DifWatch::Ledgers& ledgers) const;
    void checkLists() const;
    void checkStates() const;
    // The labels shown and the entries to choose from are those of the table, as far as it was not
    // changed since they were read.
    void checkLabels() const;

  private:
    Desk& desk_;
    host::CaregiverForm* form_ = nullptr;
    bool fresh_ = true;   // no edit has ended yet: Cbo_DifFormAidant is still enabled
    bool byList_ = false; // the line open was opened from a list

    [[nodiscard]] std::string lines(const std::string& name) const;
    [[nodiscard]] bool expected(const widgets::Control& control, bool open, DifState dif) const;
};

} // namespace vorandine::control_test
