// The way from the typing row to the ledgers and back.
#include "control/TrainingDif.h"

#include "dif/Frm_DIF.h"
#include "dif/Hours.h"
#include "rules/LongTask.h"
#include "rules/ModalForm.h"
#include "rules/StatementByStatement.h"
#include "text/Characters.h"
#include "text/Decimal.h"
#include "text/Listing.h"

#include <utility>

namespace vorandine::control {
namespace {

void addSentence(std::string& text, const std::string& sentence) {
    text += (text.empty() || sentence.empty() ? "" : " ") + sentence;
}

// "" where nobody gives anything back and nothing failed; `failed` tells what did. `hours` are
// the training's own: what is given back beyond them was charged by another entry of it.
std::string told(const dif::TakenOut& taken, const std::string& hours, const char* failed) {
    std::string text;
    for (const dif::GivenBack& given : taken.given)
        text += (text.empty() ? "Heures rendues au D.I.F. : " : ", ") + given.employer + " (" +
                dif::plainHours(given.hours) + " h)";
    if (!text.empty())
        text += ".";
    rules::StatementByStatement tries; // odd figures may be beyond all hours
    tries([&] {
        text::Fixed4 given;
        for (const dif::GivenBack& one : taken.given)
            given += one.hours;
        if (const text::Fixed4 own = dif::hoursOr0(hours); given > own)
            addSentence(text, "Attention : " + dif::plainHours(given - own) +
                                  " h de plus que cette formation n'en compte.");
    });
    if (taken.outcome != dif::Stored::Done)
        addSentence(text, failed);
    addSentence(text, taken.others);
    return text;
}

// What stood there before, where it is more than the `others` of the training's day and code
// account for.
std::string told(const dif::Standing& standing, int others) {
    if (standing.lines <= others)
        return {};
    return "Attention : " + dif::plainHours(standing.hours) + " h étaient déjà imputées pour " +
           (others == 0 ? "cette formation" : "les formations de ce jour et de ce libellé") + " (" +
           text::Listed(standing.employers, standing.employers.size(), ", ", "") +
           "). Voyez l'onglet D.I.F.";
}

} // namespace

TrainingDif::TrainingDif(const dif::CaregiverLabels& caregiver, dif::Ledgers& ledgers,
                         dif::FileNotice& notice, ports::Variables& variables,
                         const ports::DateObject& Conv_Date,
                         const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                         widgets::UserControl& control, widgets::World& world)
    : caregiver_(caregiver), ledgers_(ledgers), notice_(notice), v_(variables),
      Conv_Date_(Conv_Date), rights_(rights), control_(control), world_(world) {}

trainings::Charge TrainingDif::charge(const trainings::TrainingLine& training, int alike) {
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
    if (!form.retained())
        return {};
    if (!form.others().empty())
        notice_.ofOthers(form.others());
    std::string text = told(form.standing(), alike - 1);
    addSentence(text, form.others());
    return {.retained = true, .told = std::move(text)};
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
        training.hours, "Des heures de D.I.F. n'ont pas pu être lues.");
}

std::string TrainingDif::takeOut(const trainings::TrainingLine& training, int alike) {
    const dif::TakenOut taken =
        ledgers_.takeOut(caregiver_.Etq_CodeAidant.Caption(), leaving(training, alike));
    if (taken.outcome != dif::Stored::Done)
        notice_.tell(taken.outcome, "Heures de la formation du " + training.date +
                                        " à retirer des lignes de détail.");
    if (!taken.others.empty())
        notice_.ofOthers(taken.others);
    return told(taken, training.hours,
                "Des heures n'ont pas pu être rendues : voyez l'onglet D.I.F.");
}

} // namespace vorandine::control
