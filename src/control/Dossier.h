// The caregiver's file between record and screen: shown once, composed anew from the whole screen,
// written, and left. A change is a difference between two texts; there is no flag.
#pragma once

#include "control/SaveMerge.h"
#include "control/Screen.h"
#include "control/Subjects.h"
#include "dif/Ledgers.h"
#include "ports/Variables.h"
#include "text/Error.h"
#include "widgets/World.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vorandine::control {

// Takes over Cmd_OK and Cmd_Retour. `ledgers` tells whether D.I.F. hours were stored meanwhile. All
// that is handed over must outlive it.
class Dossier {
  public:
    Dossier(Screen& screen, const Subjects& subjects, SaveMerge& saves, const dif::Ledgers& ledgers,
            ports::Variables& variables, widgets::UserControl& control, widgets::World& world,
            std::int16_t& W_Sortir);
    Dossier(const Dossier&) = delete;
    Dossier& operator=(const Dossier&) = delete;
    ~Dossier() = default;

    // Shows Rec_Dossier; runs on after any error, without a message.
    void Afficher_Donnees();
    // Composes Rec_Dossier from the screen. Writes nothing.
    void MAJ_TabDyn();
    // Composes and stores; what another seat has stored meanwhile is kept (SaveMerge). Throws
    // Error(RecordTooLong) where the stored record holds more lines
    // than the lists could show: a save would cut it.
    void Ecrire_Donnees();

  private:
    Screen& s_;
    Subjects on_;
    SaveMerge& saves_;
    const dif::Ledgers& ledgers_;
    ports::Variables& v_;
    widgets::UserControl& control_;
    widgets::World& world_;
    std::int16_t& W_Sortir_;
    bool storingFailed_ = false; // of storeAllActivities

    // What the program, not the user, put into the fields.
    struct Filled {
        int attribute;
        std::string value;
    };
    std::vector<Filled> filled_;

    void Cmd_OK_Click();
    void Cmd_Retour_Click();
    // Runs `fill`, and keeps what it put into the fields.
    void fillIn(const std::function<void()>& fill);
    // False where the user wants back to the form.
    bool composeAndStore();
    // What Cmd_Retour stores by itself in a file without activities.
    void storeAllActivities();
    // Whether the user leaves though that failed.
    [[nodiscard]] bool leavesAfter(const Error& error);
    void leave();
};

} // namespace vorandine::control
