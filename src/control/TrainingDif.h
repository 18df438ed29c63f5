// Where trainings and D.I.F. hours meet: a training's hours are charged to employers, or given back
// by them.
#pragma once

#include "control/Screen.h"
#include "dif/FileNotice.h"
#include "dif/Ledgers.h"
#include "ports/DateObject.h"
#include "ports/Rights.h"
#include "ports/Variables.h"
#include "trainings/TypingRow.h"
#include "widgets/Form.h"
#include "widgets/World.h"

#include <memory>
#include <string>

namespace vorandine::control {

// All that is handed over must outlive it; `rights` may be set later.
class TrainingDif : public trainings::DifHours {
  public:
    TrainingDif(Screen& screen, dif::Ledgers& ledgers, dif::FileNotice& notice,
                ports::Variables& variables, const ports::DateObject& Conv_Date,
                const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                widgets::UserControl& control, widgets::World& world);
    TrainingDif(const TrainingDif&) = delete;
    TrainingDif& operator=(const TrainingDif&) = delete;
    ~TrainingDif() override = default;

    bool charge(const std::string& code) override;
    [[nodiscard]] std::string wouldGiveBack() override;
    // Takes the selected training out of the stored ledgers.
    std::string Recherche_DifAidant() override;

  private:
    Screen& s_;
    dif::Ledgers& ledgers_;
    dif::FileNotice& notice_;
    ports::Variables& v_;
    const ports::DateObject& Conv_Date_;
    const std::shared_ptr<ports::DroitsUtilisateur>& rights_;
    widgets::UserControl& control_;
    widgets::World& world_;

    [[nodiscard]] std::string codeOfSelected() const;
};

} // namespace vorandine::control
