// The way from the typing row to the ledgers and back.
#include "control/TrainingDif.h"

#include "dif/Frm_DIF.h"
#include "dif/Hours.h"
#include "rules/LongTask.h"
#include "rules/ModalForm.h"
#include "rules/Numbers.h"
#include "text/Characters.h"
#include "text/Decimal.h"

namespace vorandine::control {
namespace {

constexpr std::size_t CodeLength = 3;
constexpr std::int16_t WholeDigits = 4;
constexpr std::int16_t Decimals = 2;

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

TrainingDif::TrainingDif(Screen& screen, dif::Ledgers& ledgers, dif::FileNotice& notice,
                         ports::Variables& variables, const ports::DateObject& Conv_Date,
                         const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                         widgets::UserControl& control, widgets::World& world)
    : s_(screen), ledgers_(ledgers), notice_(notice), v_(variables), Conv_Date_(Conv_Date),
      rights_(rights), control_(control), world_(world) {}

bool TrainingDif::charge(const std::string& code) {
    rules::LongTask task(control_, world_);
    dif::Frm_DIF form(v_, ledgers_, world_);
    form.DroitsUtilisateur(rights_);
    form.Etq_CodeDif.Caption(s_.Etq_CodeAidant.Caption());
    form.Etq_NomDif.Caption(s_.Etq_NomPrenomAidant.Caption());
    form.W_DateFormation = Conv_Date_.Date_Stockee(s_.Txt_DatFormAidant.Text());
    // Hours that are no number propose none.
    const std::string hours = s_.Txt_HhFormAidant.Text();
    form.W_NbreHre = text::Decimal::parse(hours)
                         ? rules::Format_Numerique(hours, WholeDigits, Decimals, false)
                         : "0";
    form.W_CodeForm = code;
    v_.W_DifRetenu = s_.Cbo_DifFormAidant.Text();
    form.Init();
    rules::runModal(form, control_, world_);
    task.letEventsThrough();
    return v_.W_DifRetenu != "NON";
}

// Of the line as it stands in the lists, whatever label was chosen since.
std::string TrainingDif::codeOfSelected() const {
    const int line = s_.Lst_CodFormAidant.ListIndex();
    return line == -1 ? std::string() : text::Left(s_.Lst_CodeForm.List(line), CodeLength);
}

std::string TrainingDif::wouldGiveBack() {
    return told(ledgers_.wouldTakeOut(s_.Etq_CodeAidant.Caption(), codeOfSelected(),
                                      Conv_Date_.Date_Stockee(s_.Txt_DatFormAidant.Text())),
                "Des heures de D.I.F. n'ont pas pu être lues.");
}

std::string TrainingDif::Recherche_DifAidant() {
    const std::string date = s_.Txt_DatFormAidant.Text();
    const dif::TakenOut taken = ledgers_.takeOut(s_.Etq_CodeAidant.Caption(), codeOfSelected(),
                                                 Conv_Date_.Date_Stockee(date));
    if (taken.outcome != dif::Stored::Done)
        notice_.tell(taken.outcome,
                     "Heures de la formation du " + date + " à retirer des lignes de détail.");
    return told(taken, "Des heures n'ont pas pu être rendues : voyez l'onglet D.I.F.");
}

} // namespace vorandine::control
