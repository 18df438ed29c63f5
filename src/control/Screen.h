// Every control of the screen, as members under the names that the code uses. What they look like
// at start stands in the inventory (control/Inventory.h), from which the constructor builds the
// screen.
#pragma once

#include "dif/DetailArea.h"
#include "dif/Employers.h"
#include "experience/Activities.h"
#include "experience/Availability.h"
#include "experience/Studies.h"
#include "trainings/TrainingLines.h"
#include "trainings/TypingRow.h"
#include "widgets/Form.h"
#include "widgets/Simple.h"

#include <vector>

namespace vorandine::control {

// The widgets that a subject works with are that subject's own struct. The screen is all of them,
// so that whoever makes a subject hands it the screen; and the rest, told here by its place.
struct Screen : dif::CaregiverLabels,
                experience::StudyWidgets,
                trainings::TrainingWidgets,
                trainings::TypingWidgets,
                experience::ActivityWidgets,
                experience::AvailabilityWidgets,
                dif::EmployerWidgets,
                dif::DetailWidgets {
    // Makes the screen as it is before any code has run, on `surface`, which must outlive it.
    explicit Screen(widgets::UserControl& surface);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen() = default;

    // Outside the tabs.
    widgets::Label Etq_Aidant;
    widgets::CommandButton Cmd_OK;
    widgets::CommandButton Cmd_Retour;
    widgets::TabContainer Ong_Vorandine;

    // Tab 0: studies.
    widgets::Frame Cdr_Etudes;
    widgets::Label Etq_AnDipAidant;
    widgets::Label Etq_SpecialAidant;

    // Tab 0: training lines.
    widgets::Label Etq_DatFormAidant;
    widgets::Label Etq_CodFormAidant;
    widgets::Label Etq_HhFormAidant;
    widgets::Label Etq_ObsFormAidant;
    widgets::Label Etq_DifFormAidant;

    // Tab 1: experience, activities, qualification, dates.
    widgets::Frame Cdr_Experience;
    widgets::Label Etq_SectPossibles;
    widgets::Label Etq_SectSelect;
    widgets::Label Etq_Qualif;
    widgets::Label Etq_DatSaisieAidant;
    widgets::Label Etq_DatDispoAidant;
    widgets::Label Etq_DatFinDispoAidant;

    // Tab 2: employers.
    widgets::Label Label1;
    widgets::Label Label2;
    widgets::Label Label3;
    widgets::Label Label4;
    widgets::Label Label5;
    widgets::Label Label6;

    // Tab 2: detail of one employer.
    widgets::Label Label7;
    widgets::Label Label8;
    widgets::Label Label9;
    widgets::Label Label10;
    widgets::Label Label11;
    widgets::Label Etq_MessageDif;

    widgets::Menu Mnu_Aide{"Mnu_Aide", "Aide", false};
    widgets::Menu Mnu_Sommaire{"Mnu_Sommaire", "Aide_ORMELAINE", true};

    // All controls, in the order of the inventory.
    std::vector<widgets::Control*> controls;
};

} // namespace vorandine::control
