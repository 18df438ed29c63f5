// The order in which the subjects take a record and give it back.
#include "control/Subjects.h"

#include "rules/StatementByStatement.h"

namespace vorandine::control {

void Subjects::show(const records::DBARecord& rec, const records::DBARecord& F_FORMPRO) const {
    rules::StatementByStatement tries;
    studies.showStudies(rec, tries);
    trainings.show(rec, F_FORMPRO, tries);
    studies.showExperience(rec, tries);
    activities.show(rec, tries);
    availability.show(rec, tries);
    studies.showQualification(rec, tries);
}

void Subjects::compose(records::DBARecord& rec) const {
    trainings.compose(rec);
    studies.compose(rec);
    activities.compose(rec);
    availability.compose(rec);
}

} // namespace vorandine::control
