// The frame of D.I.F. detail: the lines of one employer, and its closed state.
#pragma once

#include "data/DateObject.h"
#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

namespace vorandine::dif {

struct DetailWidgets {
    widgets::Frame& Cdr_DetailDif;
    widgets::ListBox& Lst_DetailDif;
    widgets::ListBox& Lst_CodeFormDif;
    widgets::TextBox& Txt_DateDif;
    widgets::TextBox& Txt_DroitDif;
    widgets::TextBox& Txt_FormDif;
    widgets::TextBox& Txt_HreDif;
    widgets::TextBox& Txt_SoldeDif;
    widgets::CommandButton& Cmd_AjoutDif;
    widgets::CommandButton& Cmd_AnnuleDif;
    widgets::CommandButton& Cmd_SupprDif;
    widgets::CommandButton& Cmd_OkDif;
    widgets::CommandButton& Cmd_CalculDif;
};

class DetailArea {
  public:
    // Gives the fields their rules. All that is handed over must outlive it.
    DetailArea(const DetailWidgets& widgets, data::DateObject& Conv_Date, widgets::World& world);

    // No employer is open: lists empty, everything in the frame disabled. Each arrival on the tab
    // begins so, since freeing the screen after a training line has enabled all of it.
    void close();

  private:
    DetailWidgets w_;
};

} // namespace vorandine::dif
