// Choosing the month, asking for the pay, showing the result.
#include "dif/Frm_CalculRemu.h"

#include "dif/Hours.h"
#include "dif/ReferencePay.h"
#include "records/StoredFiles.h"
#include "rules/LongTask.h"
#include "rules/Messages.h"
#include "rules/ModalForm.h"
#include "rules/Numbers.h"
#include "text/Characters.h"
#include "widgets/Inventory.h"

#include <charconv>
#include <initializer_list>
#include <optional>
#include <utility>

namespace vorandine::dif {
namespace {

constexpr int YearsBefore = 5;
constexpr std::int16_t WholeDigits = 10;

// Characters of a period, yyyymm.
constexpr std::size_t YearLength = 4;
constexpr std::size_t MonthStart = 5;

// 0 where the period has no number there.
int monthOf(const std::string& period) {
    const std::string digits = text::Mid(period, MonthStart, 2);
    int month = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), month);
    return month;
}

} // namespace

Frm_CalculRemu::Frm_CalculRemu(ports::Variables& variables, widgets::World& world)
    : ButtonClosedForm("CALCULREMU"), v_(variables), world_(world) {
    furnish();
    Cmd_OK.Click = [this] { Cmd_OK_Click(); };
    Cmd_Retour.Click = [this] { end(); };
}

void Frm_CalculRemu::furnish() {
    using enum widgets::Trait;
    identify("Frm_CalculRemu");
    Caption("Rémunération nette horaire de référence");
    place({0, 0, 5400, 2115});
    // clang-format off
    widgets::furnish(*this, {
        {Label1, {.name = "Label1", .caption = "Période", .order = 5, .place = {240, 300, 855, 195}}},
        {Cbo_Mois, {.name = "Cbo_Mois", .traits = DropDownList, .order = 1, .place = {1200, 240, 2175, 315}}},
        {Cbo_An, {.name = "Cbo_An", .traits = DropDownList, .order = 2, .place = {3600, 240, 1335, 315}}},
        {Label2, {.name = "Label2", .caption = "Résultat", .order = 6, .place = {240, 900, 855, 195}}},
        {Txt_Resultat, {.name = "Txt_Resultat", .order = 0, .place = {1200, 840, 2175, 315}}},
        {Cmd_OK, {.name = "Cmd_OK", .caption = "OK", .mnemonic = 'O', .order = 4, .place = {2760, 1500, 1095, 375}}},
        {Cmd_Retour, {.name = "Cmd_Retour", .caption = "Retour", .mnemonic = 'R', .order = 3, .place = {4080, 1500, 1095, 375}}},
    });
    // clang-format on
    for (const char* const month : {"JANVIER", "FEVRIER", "MARS", "AVRIL", "MAI", "JUIN", "JUILLET",
                                    "AOUT", "SEPTEMBRE", "OCTOBRE", "NOVEMBRE", "DECEMBRE"})
        Cbo_Mois.AddItem(month);
    Cmd_Retour.cancelRank(4);
}

void Frm_CalculRemu::Init() {
    Txt_Resultat.Text("");
    if (W_PeriodeCloture.empty()) {
        for (widgets::Control* const control :
             std::initializer_list<widgets::Control*>{&Cbo_Mois, &Cbo_An, &Txt_Resultat, &Cmd_OK})
            control->Enabled(false);
        return;
    }
    Remplir_Annee();
    // A period that names no month, or a year not listed, chooses none.
    const std::string year = text::Left(W_PeriodeCloture, YearLength);
    const int month = monthOf(W_PeriodeCloture);
    if (month >= 1 && month <= Cbo_Mois.ListCount())
        Cbo_Mois.ListIndex(month - 1);
    for (int i = 0; i < Cbo_An.ListCount(); ++i)
        if (Cbo_An.List(i) == year)
            Cbo_An.ListIndex(i);
}

void Frm_CalculRemu::Remplir_Annee() {
    const int year = world_.today().year;
    for (int before = 0; before <= YearsBefore; ++before)
        Cbo_An.AddItem(std::to_string(year - before));
}

records::DBARecord Frm_CalculRemu::rows() {
    rules::LongTask task(*this, world_);
    const PaySought sought{.caregiver = W_Aidant,
                           .employer = W_Empl,
                           .period =
                               twelveMonthsTo(Cbo_Mois.ListIndex(), std::stoi(Cbo_An.Text()))};
    records::DBARecord found = payLines(*v_.TheDatabase, sought);
    task.letEventsThrough();
    return found;
}

void Frm_CalculRemu::Cmd_OK_Click() {
    // Whatever happens, no result of another month stays.
    Txt_Resultat.Text("");
    for (widgets::ComboBox* const choice : {&Cbo_Mois, &Cbo_An})
        if (choice->ListIndex() == -1) {
            rules::warn(world_, choice == &Cbo_Mois ? "Veuillez choisir un mois."
                                                    : "Veuillez choisir une année.");
            choice->SetFocus();
            return;
        }
    const records::DBARecord found = rows();
    if (found().empty()) {
        rules::warn(world_, "Aucun résultat pour la période sélectionnée.",
                    widgets::Icon::Information);
        return;
    }
    const std::optional<text::Decimal> pay = payOverHours(found);
    if (!pay) {
        rules::warn(world_,
                    "Aucun résultat ne peut être calculé : le total des heures de la période "
                    "est nul.",
                    widgets::Icon::Information);
        return;
    }
    Txt_Resultat.Text(text::Trim(rules::Format_Numerique(*pay, WholeDigits, Decimals, false)));
}

void runCalculRemu(const Employment& employment, ports::Variables& variables,
                   const std::shared_ptr<ports::DroitsUtilisateur>& rights,
                   widgets::UserControl& control, widgets::World& world) {
    variables.Rec_CONTRAT = variables.F_CONTRAT->ReadRecord(employment.contract);
    Frm_CalculRemu form(variables, world);
    form.DroitsUtilisateur(rights);
    form.W_Aidant = employment.caregiver;
    form.W_Empl = employment.employer;
    form.W_PeriodeCloture = std::as_const(variables.Rec_CONTRAT)(records::contract::ClosingPeriod);
    form.Init();
    rules::runModal(form, control, world);
}

} // namespace vorandine::dif
