// What a caregiver brings: studies, seven lines of experience, a qualification. Diploma and
// qualification must be entries of their tables.
#pragma once

#include "experience/SeveralValues.h"
#include "ports/Variables.h"
#include "records/DBARecord.h"
#include "rules/StatementByStatement.h"
#include "widgets/Simple.h"
#include "widgets/TextField.h"
#include "widgets/World.h"

#include <array>
#include <string>

namespace vorandine::experience {

struct StudyWidgets {
    widgets::OptionButton Opt_Diplome;
    widgets::OptionButton Opt_Niveau;
    widgets::ComboBox Cbo_EtudeAidant;
    widgets::TextBox Txt_AnDipAidant;
    widgets::TextBox Txt_SpecialAidant;
    std::array<widgets::TextBox, 7> Txt_ExpProfAidant;
    widgets::ComboBox Cbo_Qualif;
};

// Gives its fields their leaving rules. All that is handed over must outlive it.
class Studies {
  public:
    // `Cbo_CodFormAidant` is the box of training labels, filled with the other two.
    Studies(StudyWidgets& widgets, widgets::ComboBox& Cbo_CodFormAidant,
            const ports::Variables& variables, widgets::World& world);
    Studies(const Studies&) = delete;
    Studies& operator=(const Studies&) = delete;
    ~Studies() = default;

    // Fills the boxes of diplomas, training labels and qualifications from their tables.
    void Remplir_Diplome();

    // Each shows its attributes of `rec`.
    void showStudies(const records::DBARecord& rec, rules::StatementByStatement& tries);
    void showExperience(const records::DBARecord& rec, rules::StatementByStatement& tries);
    void showQualification(const records::DBARecord& rec, rules::StatementByStatement& tries);
    // Puts all of them into `rec`, which is empty of them.
    void compose(records::DBARecord& rec) const;

  private:
    StudyWidgets& w_;
    widgets::ComboBox& Cbo_CodFormAidant_;
    const ports::Variables& v_;
    SeveralValues several_;

    [[nodiscard]] std::string studyType() const;
    void showText(widgets::TextField& field, const records::DBARecord& rec, int attribute,
                  rules::StatementByStatement& tries);
};

} // namespace vorandine::experience
