// Where trainings and D.I.F. hours meet: a training's hours are charged to employers, or given back
// by them. Nothing of the training is known here but the line handed over.
#pragma once

#include "dif/Employers.h"
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
    TrainingDif(const dif::CaregiverLabels& caregiver, dif::Ledgers& ledgers,
                dif::FileNotice& notice, ports::Variables& variables,
                const ports::DateObject& Conv_Date,
                const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                widgets::UserControl& control, widgets::World& world);
    TrainingDif(const TrainingDif&) = delete;
    TrainingDif& operator=(const TrainingDif&) = delete;
    ~TrainingDif() override = default;

    trainings::Charge charge(const trainings::TrainingLine& training, int alike) override;
    [[nodiscard]] std::string wouldGiveBack(const trainings::TrainingLine& training,
                                            int alike) override;
    std::string takeOut(const trainings::TrainingLine& training, int alike) override;

  private:
    const dif::CaregiverLabels& caregiver_;
    dif::Ledgers& ledgers_;
    dif::FileNotice& notice_;
    ports::Variables& v_;
    const ports::DateObject& Conv_Date_;
    const std::shared_ptr<ports::DroitsUtilisateur>& rights_;
    widgets::UserControl& control_;
    widgets::World& world_;

    [[nodiscard]] dif::LeavingTraining leaving(const trainings::TrainingLine& training,
                                               int alike) const;
};

} // namespace vorandine::control
