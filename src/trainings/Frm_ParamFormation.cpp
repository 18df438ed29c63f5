// The form around the parameters control.
#include "trainings/Frm_ParamFormation.h"

#include "rules/Messages.h"

namespace vorandine::trainings {
namespace {

// In twips.
constexpr int Width = 7215;
constexpr int Height = 5250;
constexpr int Sides = 240; // left and right of the control together

} // namespace

Frm_ParamFormation::Frm_ParamFormation(const ports::MakeParameters& make, widgets::World& world)
    : world_(world), Ctr_Galvarde_(make(*this)) {
    identify("Frm_ParamFormation");
    Caption("Ajout d'une formation");
    place({0, 0, Width, Height});
    QueryUnload = [this](bool& cancel) { cancel = !Ctr_Galvarde_->Sortie_Param; };
    Ctr_Galvarde_->surface().identify("Ctr_Galvarde");
    add(Ctr_Galvarde_->surface());
}

void Frm_ParamFormation::AdapteExe(const std::string& Texte) {
    Caption(Texte);
    widgets::Place adapted = place();
    adapted.width = children().front()->place().width + Sides;
    place(adapted);
}

void Frm_ParamFormation::refuse(const std::string& text) {
    rules::warn(world_, text);
}

bool Frm_ParamFormation::confirm(const std::string& text) {
    return rules::confirm(world_, text);
}

} // namespace vorandine::trainings
