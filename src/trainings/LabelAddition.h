// Cmd_AjouterFormation: a training label is added while the line in which it is wanted stays open.
#pragma once

#include "ports/ParametersControl.h"
#include "ports/Rights.h"
#include "ports/Variables.h"
#include "trainings/TypingRow.h"
#include "widgets/Form.h"
#include "widgets/World.h"

#include <memory>

namespace vorandine::trainings {

// Takes over Click of the button. All that is handed over must outlive it.
class LabelAddition {
  public:
    // `control` is the one on which the button stands; `rights` may be set later.
    LabelAddition(TypingWidgets& widgets, ports::Variables& variables,
                  const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                  widgets::UserControl& control, widgets::World& world, ports::MakeParameters make);
    LabelAddition(const LabelAddition&) = delete;
    LabelAddition& operator=(const LabelAddition&) = delete;
    ~LabelAddition() = default;

  private:
    TypingWidgets& w_;
    ports::Variables& v_;
    const std::shared_ptr<ports::DroitsUtilisateur>& rights_;
    widgets::UserControl& control_;
    widgets::World& world_;
    ports::MakeParameters make_;

    // Nothing of the line changes but the entries of its combo box. Throws what reading the table
    // throws; entries and text of the box are then as they were.
    void Cmd_AjouterFormation_Click();
    void showForm();
    void refill();
};

} // namespace vorandine::trainings
