// Studies, experience and qualification, from the tables and the record to the screen and back.
#include "experience/Studies.h"

#include "records/StoredFiles.h"
#include "rules/FieldRules.h"
#include "text/Characters.h"

#include <algorithm>

namespace vorandine::experience {
namespace {

namespace attribute = records::training_file;
namespace table = records::table;

constexpr std::size_t CodeLength = 2; // of a study, at the beginning of its entry

} // namespace

Studies::Studies(StudyWidgets& widgets, widgets::ComboBox& Cbo_CodFormAidant,
                 const ports::Variables& variables, widgets::World& world)
    : w_(widgets), Cbo_CodFormAidant_(Cbo_CodFormAidant), v_(variables) {
    rules::entryRule(w_.Cbo_EtudeAidant, world,
                     "Le diplôme saisi n'existe pas, veuillez le ressaisir.");
    rules::entryRule(
        w_.Cbo_Qualif, world,
        "La qualification professionnelle saisie n'existe pas, veuillez la ressaisir.");
    rules::yearRule(w_.Txt_AnDipAidant);
}

void Studies::Remplir_Diplome() {
    const int diplomas = v_.F_DIPLOMES.DCount(table::Codes);
    for (int i = 1; i <= diplomas; ++i)
        w_.Cbo_EtudeAidant.AddItem(v_.F_DIPLOMES(table::Codes, i) + " " +
                                   v_.F_DIPLOMES(table::Labels, i));
    const int trainings = v_.F_FORMPRO.DCount(table::Codes);
    for (int i = 1; i <= trainings; ++i)
        Cbo_CodFormAidant_.AddItem(v_.F_FORMPRO(table::Labels, i));
    const int qualifications = v_.F_QUALIF.DCount(table::Codes);
    for (int i = 1; i <= qualifications; ++i)
        w_.Cbo_Qualif.AddItem(v_.F_QUALIF(table::Codes, i));
}

void Studies::showStudies(const records::DBARecord& rec, rules::StatementByStatement& tries) {
    tries([&] {
        if (rec(attribute::StudyType) == "D")
            w_.Opt_Diplome.Value(true);
        else if (rec(attribute::StudyType) == "N")
            w_.Opt_Niveau.Value(true);
    });
    tries([&] {
        const std::string code = rec(attribute::StudyCode);
        for (int i = 0; !code.empty() && i < w_.Cbo_EtudeAidant.ListCount(); ++i)
            if (text::Left(w_.Cbo_EtudeAidant.List(i), CodeLength) == code) {
                w_.Cbo_EtudeAidant.Text(w_.Cbo_EtudeAidant.List(i));
                break;
            }
    });
    tries([&] { w_.Txt_AnDipAidant.Text(rec(attribute::DiplomaYear)); });
    tries([&] { w_.Txt_SpecialAidant.Text(rec(attribute::Speciality)); });
}

void Studies::showExperience(const records::DBARecord& rec, rules::StatementByStatement& tries) {
    const int shown =
        std::min(rec.DCount(attribute::Experience), static_cast<int>(w_.Txt_ExpProfAidant.size()));
    for (int i = 1; i <= shown; ++i)
        tries([&] {
            w_.Txt_ExpProfAidant.at(static_cast<std::size_t>(i) - 1)
                .Text(rec(attribute::Experience, i));
        });
}

void Studies::showQualification(const records::DBARecord& rec, rules::StatementByStatement& tries) {
    tries([&] {
        if (!rec(attribute::Qualification).empty())
            w_.Cbo_Qualif.Text(rec(attribute::Qualification));
    });
}

void Studies::compose(records::DBARecord& rec) const {
    rec(attribute::StudyType) = w_.Opt_Diplome.Value() ? "D" : "N";
    rec(attribute::StudyCode) = text::Left(w_.Cbo_EtudeAidant.Text(), CodeLength);
    rec(attribute::DiplomaYear) = w_.Txt_AnDipAidant.Text();
    rec(attribute::Speciality) = w_.Txt_SpecialAidant.Text();
    for (const widgets::TextBox& line : w_.Txt_ExpProfAidant)
        rec(attribute::Experience, -1) = line.Text();
    rec(attribute::Qualification) = w_.Cbo_Qualif.Text();
}

} // namespace vorandine::experience
