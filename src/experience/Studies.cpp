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
        rules::addEntry(Cbo_CodFormAidant_, v_.F_FORMPRO(table::Labels, i));
    const int qualifications = v_.F_QUALIF.DCount(table::Codes);
    for (int i = 1; i <= qualifications; ++i)
        rules::addEntry(w_.Cbo_Qualif, v_.F_QUALIF(table::Codes, i));
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
    several_.showed(rec, attribute::StudyType, studyType());
    several_.showed(rec, attribute::StudyCode, w_.Cbo_EtudeAidant.Text());
    showText(w_.Txt_AnDipAidant, rec, attribute::DiplomaYear, tries);
    showText(w_.Txt_SpecialAidant, rec, attribute::Speciality, tries);
}

std::string Studies::studyType() const {
    return w_.Opt_Diplome.Value() ? "D" : "N";
}

void Studies::showText(widgets::TextField& field, const records::DBARecord& rec, int attribute,
                       rules::StatementByStatement& tries) {
    tries([&] {
        field.Text(SeveralValues::inOneLine(rec, attribute, [](const auto& text) { return text; }));
    });
    several_.showed(rec, attribute, field.Text());
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
    if (!rec(attribute::Qualification).empty())
        showText(w_.Cbo_Qualif, rec, attribute::Qualification, tries);
}

void Studies::compose(records::DBARecord& rec) const {
    const auto put = [&](int number, const std::string& state, const std::string& composed) {
        rec(number) = several_.stored(number, state, composed);
    };
    const std::string study = w_.Cbo_EtudeAidant.Text();
    put(attribute::StudyType, studyType(), studyType());
    put(attribute::StudyCode, study, text::Left(study, CodeLength));
    put(attribute::DiplomaYear, w_.Txt_AnDipAidant.Text(), w_.Txt_AnDipAidant.Text());
    put(attribute::Speciality, w_.Txt_SpecialAidant.Text(), w_.Txt_SpecialAidant.Text());
    for (const widgets::TextBox& line : w_.Txt_ExpProfAidant)
        rec(attribute::Experience, -1) = line.Text();
    put(attribute::Qualification, w_.Cbo_Qualif.Text(), w_.Cbo_Qualif.Text());
}

} // namespace vorandine::experience
