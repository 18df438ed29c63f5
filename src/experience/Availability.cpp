// Showing, checking and composing the dates. Stored dates have eight digits, so that comparing them
// as texts compares them as numbers, and a missing one comes before all.
#include "experience/Availability.h"

#include "records/StoredFiles.h"
#include "rules/FieldRules.h"
#include "rules/Messages.h"

namespace vorandine::experience {

namespace {

namespace attribute = records::training_file;
constexpr int DatesTab = 1;

} // namespace

Availability::Availability(AvailabilityWidgets& widgets, widgets::TabContainer& Ong_Vorandine,
                           ports::DateObject& Conv_Date, widgets::World& world)
    : w_(widgets), Ong_Vorandine_(Ong_Vorandine), Conv_Date_(Conv_Date), world_(world) {
    for (widgets::TextBox* const field :
         {&w_.Txt_DatSaisieAidant, &w_.Txt_DatDispoAidant, &w_.Txt_DatFinDispoAidant})
        rules::dateRule(*field, Conv_Date, world,
                        "La date saisie est invalide, veuillez la saisir à nouveau.");
}

void Availability::show(const records::DBARecord& rec, rules::StatementByStatement& tries) {
    const auto showDate = [&](widgets::TextBox& field, int number) {
        tries([&] {
            field.Text(SeveralValues::inOneLine(rec, number, [this](const std::string& date) {
                return Conv_Date_.Date_Affichee(date);
            }));
        });
        several_.showed(rec, number, field.Text());
    };
    showDate(w_.Txt_DatSaisieAidant, attribute::EntryDay);
    showDate(w_.Txt_DatDispoAidant, attribute::AvailableFrom);
    if (!rec(attribute::AvailableTo).empty())
        showDate(w_.Txt_DatFinDispoAidant, attribute::AvailableTo);
}

std::string Availability::stored(const widgets::TextBox& field) const {
    return Conv_Date_.Date_Stockee(field.Text());
}

void Availability::compose(records::DBARecord& rec) const {
    const auto put = [&](int number, const widgets::TextBox& field) {
        rec(number) = several_.stored(number, field.Text(), stored(field));
    };
    put(attribute::EntryDay, w_.Txt_DatSaisieAidant);
    put(attribute::AvailableFrom, w_.Txt_DatDispoAidant);
    if (!w_.Txt_DatDispoAidant.empty())
        put(attribute::AvailableTo, w_.Txt_DatFinDispoAidant);
}

void Availability::fillWithToday() {
    const std::string today = widgets::displayed(world_.today());
    for (widgets::TextBox* const field : {&w_.Txt_DatSaisieAidant, &w_.Txt_DatDispoAidant})
        if (field->empty())
            field->Text(today);
}

bool Availability::refuse(const char* message, widgets::TextBox& field) {
    rules::warn(world_, message);
    Ong_Vorandine_.Tab(DatesTab);
    field.SetFocus();
    return false;
}

bool Availability::check() {
    if (stored(w_.Txt_DatDispoAidant) < stored(w_.Txt_DatSaisieAidant))
        return refuse(
            "La date de saisie du salarié doit être inférieure à la date de disponibilité.",
            w_.Txt_DatSaisieAidant);
    if (!w_.Txt_DatFinDispoAidant.empty() &&
        stored(w_.Txt_DatFinDispoAidant) < stored(w_.Txt_DatDispoAidant))
        return refuse("La date de début de disponibilité du salarié doit être inférieure à la date "
                      "de fin de disponibilité.",
                      w_.Txt_DatDispoAidant);
    return true;
}

} // namespace vorandine::experience
