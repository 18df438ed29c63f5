// The row of fields under the table of trainings, in which one line is typed: its browse, add and
// modify states. What is enabled in each is the screen's affair, not the row's.
#pragma once

#include "trainings/TrainingLines.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <cstdint>
#include <string>

namespace vorandine::trainings {

// What the screen must know of the line: it alone says what is enabled then, the row itself
// included. The control answers it.
class ScreenLock {
  public:
    ScreenLock() = default;
    ScreenLock(const ScreenLock&) = delete;
    ScreenLock& operator=(const ScreenLock&) = delete;
    virtual ~ScreenLock() = default;

    // A line is open: nothing else can be reached. `stored` tells one of the table, which can be
    // deleted, from a new one.
    virtual void lineOpened(bool stored) = 0;
    // None is open any more.
    virtual void lineClosed() = 0;
};

// How charging a training ended.
struct Charge {
    bool retained = false; // whether it stays under the D.I.F.
    std::string told = {}; // what the user must know of it; "" for nothing
};

// What the D.I.F. side does with a training. The control answers it.
class DifHours {
  public:
    DifHours() = default;
    DifHours(const DifHours&) = delete;
    DifHours& operator=(const DifHours&) = delete;
    virtual ~DifHours() = default;

    // Ledgers know a training by its date and its code: `alike` says how many under the D.I.F. have
    // both, itself included.

    // Lets the user charge the hours of `training` to employers, on its date and under its code.
    virtual Charge charge(const TrainingLine& training, int alike) = 0;
    // Which employers would give back how many hours if `training` went, as a text for the user; ""
    // if none would. The hours are shared among those alike.
    [[nodiscard]] virtual std::string wouldGiveBack(const TrainingLine& training, int alike) = 0;
    // Takes `training` out of all ledgers. The same text, of what was done, and of what could not
    // be; no error leaves it.
    virtual std::string takeOut(const TrainingLine& training, int alike) = 0;
};

struct TypingWidgets {
    widgets::TextBox Txt_DatFormAidant;
    widgets::ComboBox Cbo_CodFormAidant;
    widgets::TextBox Txt_HhFormAidant;
    widgets::TextBox Txt_ObsFormAidant;
    widgets::ComboBox Cbo_DifFormAidant;
    widgets::CommandButton Cmd_AjouterForm;
    widgets::CommandButton Cmd_SupprimerForm;
    widgets::CommandButton Cmd_AjouterFormation;
    widgets::CommandButton Cmd_OKForm;
    widgets::CommandButton Cmd_AnnulerForm;
    widgets::Label Etq_MessageForm; // what became of its hours, until the next line is opened
};

// Takes over the events of its fields and buttons and the double clicks of the table. All that is
// handed over must outlive it.
class TypingRow {
  public:
    TypingRow(TypingWidgets& widgets, TrainingLines& lines, ScreenLock& lock, DifHours& dif,
              const records::DBARecord& F_FORMPRO, ports::DateObject& Conv_Date,
              widgets::World& world);
    TypingRow(const TypingRow&) = delete;
    TypingRow& operator=(const TypingRow&) = delete;
    ~TypingRow() = default;

    // Opens the selected line; nothing if no line is selected.
    void Afficher_DonneesListe();
    // Back to browsing: row empty, no line selected, screen free.
    void Effacer_Donnees();
    // Takes the selected training, on the date typed, out of all ledgers: DifHours::takeOut.
    std::string Recherche_DifAidant();

  private:
    TypingWidgets& w_;
    TrainingLines& lines_;
    ScreenLock& lock_;
    DifHours& dif_;
    const records::DBARecord& F_FORMPRO_;
    const ports::DateObject& Conv_Date_;
    widgets::World& world_;
    std::int16_t W_ModeForm_ = 0; // 1 while a new line is being typed
    std::string W_DifAvant_;      // "OUI" or "NON": the open line's answer when it was opened

    void Cmd_AjouterForm_Click();
    // Nothing has changed where it throws: Error(TooManyLines) for a full table.
    void Cmd_OKForm_Click();
    void Cmd_SupprimerForm_Click();
    void Cmd_AnnulerForm_Click();
    [[nodiscard]] TrainingLine typed(const std::string& code) const;
    [[nodiscard]] TrainingLine leaving() const;
    [[nodiscard]] int alike(const TrainingLine& training) const;
};

} // namespace vorandine::trainings
