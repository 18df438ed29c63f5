// Rules of the fields, and the closed state of the D.I.F. detail.
#include "dif/DetailArea.h"

#include "rules/FieldRules.h"

#include <initializer_list>

namespace vorandine::dif {

DetailArea::DetailArea(const DetailWidgets& widgets, data::DateObject& Conv_Date,
                       widgets::World& world)
    : w_(widgets) {
    rules::dateRule(w_.Txt_DateDif, Conv_Date, world,
                    "Erreur de saisie dans la date, veuillez la ressaisir.");
    rules::difNumberRule(w_.Txt_DroitDif, world);
    rules::difNumberRule(w_.Txt_HreDif, world);
}

void DetailArea::close() {
    w_.Lst_DetailDif.Clear();
    w_.Lst_CodeFormDif.Clear();
    for (widgets::Control* const control : std::initializer_list<widgets::Control*>{
             &w_.Cdr_DetailDif, &w_.Lst_DetailDif, &w_.Txt_DateDif, &w_.Txt_DroitDif,
             &w_.Txt_FormDif, &w_.Txt_HreDif, &w_.Txt_SoldeDif, &w_.Cmd_AjoutDif, &w_.Cmd_AnnuleDif,
             &w_.Cmd_SupprDif, &w_.Cmd_OkDif, &w_.Cmd_CalculDif})
        control->Enabled(false);
}

} // namespace vorandine::dif
