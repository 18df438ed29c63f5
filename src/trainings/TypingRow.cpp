// Opening, confirming, deleting and giving up of a training line.
#include "trainings/TypingRow.h"

#include "records/TrainingLabels.h"
#include "rules/FieldRules.h"
#include "rules/Messages.h"
#include "rules/Numbers.h"
#include "text/Characters.h"
#include "text/Decimal.h"

#include <optional>
#include <utility>

namespace vorandine::trainings {

namespace {

constexpr std::int16_t WholeDigits = 4;
constexpr std::int16_t Decimals = 2;
constexpr int Yes = 0; // the entries of the D.I.F. answer
constexpr int No = 1;
constexpr const char* UnknownLabel = "Le diplôme saisi n'existe pas, veuillez le ressaisir.";

} // namespace

TypingRow::TypingRow(TypingWidgets& widgets, TrainingLines& lines, ScreenLock& lock, DifHours& dif,
                     const records::DBARecord& F_FORMPRO, ports::DateObject& Conv_Date,
                     widgets::World& world)
    : w_(widgets), lines_(lines), lock_(lock), dif_(dif), F_FORMPRO_(F_FORMPRO),
      Conv_Date_(Conv_Date), world_(world) {
    const char* const badDate = "La date saisie est invalide, veuillez la saisir à nouveau.";
    rules::dateRule(w_.Txt_DatFormAidant, Conv_Date, world_, badDate);
    rules::entryRule(w_.Cbo_CodFormAidant, world_, UnknownLabel);
    rules::hoursRule(w_.Txt_HhFormAidant, world_);
    lines_.onOpen([this] { Afficher_DonneesListe(); });
    w_.Cmd_AjouterForm.Click = [this] { Cmd_AjouterForm_Click(); };
    w_.Cmd_OKForm.Click = [this] { Cmd_OKForm_Click(); };
    w_.Cmd_SupprimerForm.Click = [this] { Cmd_SupprimerForm_Click(); };
    w_.Cmd_AnnulerForm.Click = [this] { Cmd_AnnulerForm_Click(); };
}

void TypingRow::Afficher_DonneesListe() {
    if (lines_.W_LigneForm() == -1)
        return;
    const TrainingLine line = lines_.line(lines_.W_LigneForm());
    w_.Txt_DatFormAidant.Text(line.date);
    w_.Cbo_CodFormAidant.Text(line.label);
    w_.Txt_HhFormAidant.Text(line.hours);
    w_.Txt_ObsFormAidant.Text(line.observations);
    w_.Cbo_DifFormAidant.Text(line.dif);
    W_DifAvant_ = line.dif;
    w_.Etq_MessageForm.Caption("");
    lock_.lineOpened(true);
}

void TypingRow::Effacer_Donnees() {
    W_ModeForm_ = 0;
    w_.Txt_DatFormAidant.Text("");
    w_.Cbo_CodFormAidant.Text("");
    w_.Txt_HhFormAidant.Text("");
    w_.Txt_ObsFormAidant.Text("");
    w_.Cbo_DifFormAidant.ListIndex(-1);
    lines_.deselect();
    lock_.lineClosed();
}

void TypingRow::Cmd_AjouterForm_Click() {
    W_ModeForm_ = 1;
    lock_.lineOpened(false);
    w_.Txt_DatFormAidant.SetFocus();
    w_.Cbo_DifFormAidant.ListIndex(No);
    w_.Etq_MessageForm.Caption("");
}

TrainingLine TypingRow::typed(const std::string& code) const {
    // Hours of an odd record that are no number stay what they are.
    const std::string hours = w_.Txt_HhFormAidant.Text();
    return {.date = w_.Txt_DatFormAidant.Text(),
            .label = w_.Cbo_CodFormAidant.Text(),
            .code = code,
            .hours = text::Decimal::parse(hours)
                         ? rules::Format_Numerique(hours, WholeDigits, Decimals, false)
                         : hours,
            .observations = w_.Txt_ObsFormAidant.Text(),
            .dif = w_.Cbo_DifFormAidant.Text(),
            .origin = W_ModeForm_ == 1 ? 0 : lines_.line(lines_.W_LigneForm()).origin};
}

// What the ledgers are asked to give back: the line as it stands in the lists, whatever label was
// chosen since, on the date that is typed.
TrainingLine TypingRow::leaving() const {
    TrainingLine line;
    if (lines_.W_LigneForm() != -1)
        line = lines_.line(lines_.W_LigneForm());
    line.date = w_.Txt_DatFormAidant.Text();
    return line;
}

// How many trainings under the D.I.F. the lists hold on its day and of its code, itself included.
int TypingRow::alike(const TrainingLine& training) const {
    const auto sameCode = [&](const TrainingLine& line) {
        return text::Left(line.code, CodeLength) == text::Left(training.code, CodeLength);
    };
    const std::string day = Conv_Date_.Date_Stockee(training.date);
    int count = 1;
    for (int i = 0; i < lines_.count(); ++i)
        if (const TrainingLine line = lines_.line(i);
            (W_ModeForm_ == 1 || i != lines_.W_LigneForm()) && line.dif == "OUI" &&
            sameCode(line) && Conv_Date_.Date_Stockee(line.date) == day)
            ++count;
    return count;
}

std::string TypingRow::Recherche_DifAidant() {
    const TrainingLine line = leaving();
    return dif_.takeOut(line, alike(line));
}

void TypingRow::Cmd_OKForm_Click() {
    const auto refuse = [&](const char* message, widgets::TextField& field) {
        rules::warn(world_, message);
        field.SetFocus();
    };
    const std::string label = w_.Cbo_CodFormAidant.Text();
    if (text::Trim(label).empty())
        return refuse("Le libellé de la formation est obligatoire.", w_.Cbo_CodFormAidant);
    const bool creating = W_ModeForm_ == 1;
    const bool underDif = w_.Cbo_DifFormAidant.ListIndex() == Yes;
    const bool charging = underDif && (creating || W_DifAvant_ == "NON");
    // Hours are charged on a day: text that is no date, as an odd record may hold, is none.
    if (underDif && (w_.Txt_DatFormAidant.empty() ||
                     (charging && Conv_Date_.Date_Stockee(w_.Txt_DatFormAidant.Text()).empty())))
        return refuse("La date de la formation est obligatoire.", w_.Txt_DatFormAidant);
    // All that can fail comes before hours are charged, which stays.
    // Nor would a training without a code be found again, in the ledgers least of all.
    const std::optional<std::string> code = records::trainingCode(F_FORMPRO_, label);
    if (!code || code->empty())
        return refuse(UnknownLabel, w_.Cbo_CodFormAidant);
    TrainingLine line = typed(*code);
    if (creating)
        lines_.requireRoom();

    std::string told;
    if (charging) {
        Charge charge = dif_.charge(line, alike(line));
        w_.Cbo_DifFormAidant.ListIndex(charge.retained ? Yes : No);
        told = std::move(charge.told);
        line.dif = w_.Cbo_DifFormAidant.Text();
    } else if (!underDif && !creating && W_DifAvant_ == "OUI") {
        told = Recherche_DifAidant();
    }
    if (!creating)
        lines_.remove(lines_.W_LigneForm());
    lines_.insert(std::move(line));
    Effacer_Donnees();
    w_.Etq_MessageForm.Caption(told);
}

void TypingRow::Cmd_SupprimerForm_Click() {
    const int line = lines_.W_LigneForm();
    if (line == -1)
        return;
    const TrainingLine training = leaving();
    if (!rules::confirm(world_, "Etes-vous sûr de vouloir supprimer cet article ?",
                        dif_.wouldGiveBack(training, alike(training))))
        return;
    const std::string given = Recherche_DifAidant();
    lines_.remove(line);
    Effacer_Donnees();
    w_.Etq_MessageForm.Caption(given);
}

void TypingRow::Cmd_AnnulerForm_Click() {
    if (W_ModeForm_ == 0 ||
        rules::confirm(world_, "Etes-vous sûr de vouloir quitter cette création ?"))
        Effacer_Donnees();
}

} // namespace vorandine::trainings
