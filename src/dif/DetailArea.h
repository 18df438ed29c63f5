// The frame of D.I.F. detail: the lines of one employer's ledger, of which one at a time is added,
// changed or deleted. What is confirmed is stored at once, then shown as the file holds it.
#pragma once

#include "dif/Columns.h"
#include "dif/DetailLines.h"
#include "dif/Employers.h"
#include "dif/FileNotice.h"
#include "dif/Ledgers.h"
#include "ports/DateObject.h"
#include "ports/Variables.h"
#include "widgets/Form.h"
#include "widgets/ListBox.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vorandine::dif {

// What an open line asks of the rest of the screen. The control answers it.
class LineLock {
  public:
    LineLock() = default;
    LineLock(const LineLock&) = delete;
    LineLock& operator=(const LineLock&) = delete;
    virtual ~LineLock() = default;

    // The ways out of the frame: the list of employers, the other tabs and the buttons that end the
    // file, closed or open.
    virtual void openWaysOut(bool open) = 0;
};

struct DetailWidgets {
    widgets::Frame Cdr_DetailDif;
    widgets::ListBox Lst_DetailDif;
    widgets::ListBox Lst_CodeFormDif; // the code of each line's training
    widgets::TextBox Txt_DateDif;
    widgets::TextBox Txt_DroitDif;
    widgets::TextBox Txt_FormDif;
    widgets::TextBox Txt_HreDif;
    widgets::TextBox Txt_SoldeDif;
    widgets::CommandButton Cmd_AjoutDif;
    widgets::CommandButton Cmd_AnnuleDif;
    widgets::CommandButton Cmd_SupprDif;
    widgets::CommandButton Cmd_OkDif;
    widgets::CommandButton Cmd_CalculDif;
};

// What the frame works with. All must outlive it.
struct DetailCollaborators {
    const CaregiverLabels& caregiver;
    Employers& employers;
    Ledgers& ledgers;
    FileNotice& notice;
    LineLock& lock;
    ports::Variables& variables;
    ports::DateObject& Conv_Date;
    widgets::UserControl& control;
    widgets::World& world;
};

// Takes over the events of its widgets and of the list of employers.
class DetailArea {
  public:
    DetailArea(DetailWidgets& widgets, EmployerWidgets& employers, const DetailCollaborators& with);
    DetailArea(const DetailArea&) = delete;
    DetailArea& operator=(const DetailArea&) = delete;
    ~DetailArea() = default;

    // No employer is open: lists empty, everything in the frame disabled. Each arrival on the tab
    // begins so, since freeing the screen after a training line has enabled all of it.
    void close();
    // Back from a line: fields empty, an employer open, the rest of the screen free.
    void Effacer_Donnees_Dif();
    // Finds where a new line goes: behind all lines that are not later.
    void Recherche_Place();
    // Recomputes the balance of every line shown. Throws Error(Overflow) or Error(FigureTooWide)
    // where one does not fit; the lines are then as they were.
    void Calcul_MV_Dif();
    // Stores the lines shown as the ledger that is open, then rebuilds the list of employers. No
    // error leaves it; a change that was not stored is told in the frame.
    void Maj_DifAidant();

  private:
    enum class State { Closed, EmployerOpen, Creating, Modifying };

    DetailWidgets& w_;
    EmployerWidgets& e_;
    DetailCollaborators with_;
    std::int16_t W_CreationDif_ = 0; // 1 while a new line is being typed
    std::int16_t W_PlaceDif_ = 0;
    // The key of the ledger whose lines are shown; "" if they could not be: nothing is stored then.
    std::string W_CleDif_;
    std::string lastKey_;      // the key of the ledger shown last, also once it is closed
    records::DBARecord shown_; // a free copy of the ledger whose lines are shown

    void Lst_DifEmpl_DblClick();
    void Lst_DetailDif_DblClick();
    void Cmd_AjoutDif_Click();
    void Cmd_OkDif_Click();
    void Cmd_SupprDif_Click();
    void Cmd_AnnuleDif_Click();

    void set(State state);
    void showLedger();
    [[nodiscard]] bool check();
    [[nodiscard]] DetailLine typed() const;
    // Stores what the lists now hold, which `change` has made of what was shown, and shows what the
    // file then holds. `lost` tells what to do again if it could not be stored.
    void finish(const LineChange& change, const std::string& lost);
    [[nodiscard]] std::vector<ShownLine> lines() const;
    [[nodiscard]] int lineOf(const std::string& employer) const;
};

} // namespace vorandine::dif
