// The way from the typing row to the ledgers and back.
#include "control/TrainingDif.h"

#include "dif/Frm_DIF.h"
#include "dif/Hours.h"
#include "rules/LongTask.h"
#include "rules/ModalForm.h"
#include "text/Characters.h"
#include "text/Decimal.h"

namespace vorandine::control {
namespace {

// "" where nobody gives anything back and nothing failed; `failed` tells what did.
std::string told(const dif::TakenOut& taken, const char* failed) {
    std::string text;
    for (const dif::GivenBack& given : taken.given)
        text += (text.empty() ? "Heures rendues au D.I.F. : " : ", ") + given.employer + " (" +
                dif::plainHours(given.hours) + " h)";
    if (!text.empty())
        text += ".";
    if (taken.outcome != dif::Stored::Done)
        text += (text.empty() ? "" : " ") + std::string(failed);
    return text;
}

} // namespace

TrainingDif::TrainingDif(const dif::CaregiverLabels& caregiver, dif::Ledgers& ledgers,
                         dif::FileNotice& notice, ports::Variables& variables,
                         const ports::DateObject& Conv_Date,
                         const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                         widgets::UserControl& control, widgets::World& world)
    : caregiver_(caregiver), ledgers_(ledgers), notice_(notice), v_(variables),
      Conv_Date_(Conv_Date), rights_(rights), control_(control), world_(world) {}

bool TrainingDif::charge(const trainings::TrainingLine& training) {
    rules::LongTask task(control_, world_);
    dif::Frm_DIF form(v_, ledgers_, world_);
    form.DroitsUtilisateur(rights_);
    form.Etq_CodeDif.Caption(caregiver_.Etq_CodeAidant.Caption());
    form.Etq_NomDif.Caption(caregiver_.Etq_NomPrenomAidant.Caption());
    form.W_DateFormation = Conv_Date_.Date_Stockee(training.date);
    // Hours that are no number propose none.
    form.W_NbreHre = text::Decimal::isNumber(training.hours) ? training.hours : "0";
    form.W_CodeForm = training.code;
    form.Init();
    rules::runModal(form, control_, world_);
    task.letEventsThrough();
    return form.retained();
}

dif::LeavingTraining TrainingDif::leaving(const trainings::TrainingLine& training,
                                          int alike) const {
    return {.training = {.date = Conv_Date_.Date_Stockee(training.date),
                         .code = text::Left(training.code, trainings::CodeLength)},
            .alike = alike,
            .hours = rules::storedHours(training.hours)};
}

std::string TrainingDif::wouldGiveBack(const trainings::TrainingLine& training, int alike) {
    return told(
        ledgers_.wouldTakeOut(caregiver_.Etq_CodeAidant.Caption(), leaving(training, alike)),
        "Des heures de D.I.F. n'ont pas pu être lues.");
}

std::string TrainingDif::takeOut(const trainings::TrainingLine& training, int alike) {
    const dif::TakenOut taken =
        ledgers_.takeOut(caregiver_.Etq_CodeAidant.Caption(), leaving(training, alike));
    if (taken.outcome != dif::Stored::Done)
        notice_.tell(taken.outcome, "Heures de la formation du " + training.date +
                                        " à retirer des lignes de détail.");
    return told(taken, "Des heures n'ont pas pu être rendues : voyez l'onglet D.I.F.");
}

} // namespace vorandine::control
