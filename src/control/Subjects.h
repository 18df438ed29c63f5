// The subjects of tabs 0 and 1, whose widgets together hold a caregiver's file.
#pragma once

#include "experience/Activities.h"
#include "experience/Availability.h"
#include "experience/Studies.h"
#include "records/DBARecord.h"
#include "trainings/TrainingLines.h"

namespace vorandine::control {

struct Subjects {
    experience::Studies& studies;
    trainings::TrainingLines& trainings;
    experience::Activities& activities;
    experience::Availability& availability;

    // Shows `rec`; runs on after any error, without a message.
    void show(const records::DBARecord& rec, const records::DBARecord& F_FORMPRO) const;
    // Puts what is shown into `rec`, which is empty.
    void compose(records::DBARecord& rec) const;
};

} // namespace vorandine::control
