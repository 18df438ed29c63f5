// The caregiver's file between record and screen: shown once, composed anew from the whole screen,
// written, and left. A change is a difference between two texts; there is no flag.
#pragma once

#include "control/Screen.h"
#include "dif/Ledgers.h"
#include "experience/Activities.h"
#include "experience/Availability.h"
#include "experience/Studies.h"
#include "ports/Variables.h"
#include "text/Error.h"
#include "trainings/TrainingLines.h"
#include "widgets/World.h"

#include <cstdint>

namespace vorandine::control {

// The subjects of tabs 0 and 1, whose widgets together hold the file.
struct Subjects {
    experience::Studies& studies;
    trainings::TrainingLines& trainings;
    experience::Activities& activities;
    experience::Availability& availability;
};

// Takes over Cmd_OK and Cmd_Retour. `ledgers` tells whether D.I.F. hours were stored meanwhile. All
// that is handed over must outlive it.
class Dossier {
  public:
    Dossier(Screen& screen, const Subjects& subjects, const dif::Ledgers& ledgers,
            ports::Variables& variables, widgets::UserControl& control, widgets::World& world,
            std::int16_t& W_Sortir);
    Dossier(const Dossier&) = delete;
    Dossier& operator=(const Dossier&) = delete;
    ~Dossier() = default;

    // Shows Rec_Dossier; runs on after any error, without a message.
    void Afficher_Donnees();
    // Composes Rec_Dossier from the screen. Writes nothing.
    void MAJ_TabDyn();
    // Composes and stores. Throws Error(RecordTooLong) where the stored record holds more lines
    // than the lists could show: a save would cut it.
    void Ecrire_Donnees();

  private:
    Screen& s_;
    Subjects on_;
    const dif::Ledgers& ledgers_;
    ports::Variables& v_;
    widgets::UserControl& control_;
    widgets::World& world_;
    std::int16_t& W_Sortir_;
    bool storingFailed_ = false; // of storeAllActivities

    void Cmd_OK_Click();
    void Cmd_Retour_Click();
    // What Cmd_Retour stores by itself in a file without activities.
    void storeAllActivities();
    // Whether the user leaves though that failed.
    [[nodiscard]] bool leavesAfter(const Error& error);
    void leave();
};

} // namespace vorandine::control
