// The check's findings in the words of the screen.
#include "apps/host/ChargesNotice.h"

#include "audit/check/CaregiverCharges.h"
#include "dif/Employers.h"
#include "records/StoredFiles.h"
#include "records/TrainingLabels.h"
#include "text/Listing.h"

#include <string>
#include <utility>
#include <vector>

namespace vorandine::host {
namespace {

namespace ledger = records::ledger;
namespace training_file = records::training_file;

constexpr std::size_t MostTold = 5; // of each kind
constexpr std::size_t MostOfLabel = 60;

std::string listed(const std::vector<std::string>& texts) {
    return text::Listed(texts, MostTold, " ; ", " ; ");
}

// "10/03/2006 Manutention".
std::string training(const std::string& date, const std::string& code,
                     const records::TrainingLabels& labels, const ports::DateObject& dates) {
    const std::string* const label = labels.find(code);
    return (date.empty() ? "sans date" : dates.Date_Affichee(date)) + " " +
           text::Shortened(label != nullptr ? *label : code, MostOfLabel);
}

// Of the ledger: whoever it was may still be at it.
std::string changed(const records::ChangedMeanwhile::Maker& last) {
    return last.when.empty() ? "" : ", par " + last.name() + " le " + last.when;
}

std::string told(const std::vector<std::string>& withoutTraining,
                 const std::vector<std::string>& withoutHours) {
    std::string text;
    if (!withoutTraining.empty())
        text =
            "Heures imputées sans formation OUI dans le dossier : " + listed(withoutTraining) +
            ". Quelqu'un travaille peut-être encore dans ce dossier : attendez alors qu'il l'ait "
            "enregistré. Sinon, supprimez-les dans l'onglet D.I.F. ; si la formation a eu lieu, "
            "saisissez-la ensuite avec OUI.";
    if (!withoutHours.empty())
        text +=
            (text.empty() ? "" : " ") +
            ("Formations OUI sans heures imputées : " + listed(withoutHours)) +
            ". Ouvrez-les, choisissez NON et Ok ; rouvrez-les, choisissez OUI, l'employeur et Ok.";
    return text;
}

} // namespace

std::optional<Notice> chargesNotice(CaregiverRecords& caregiver, const ports::DateObject& dates) {
    ports::Variables& v = caregiver.tables;
    const records::DBARecord& file = caregiver.file;
    const records::TrainingLabels labels(v.F_FORMPRO);
    std::vector<std::pair<std::string, std::string>> ledgers;
    for (const auto& [key, ledger] : caregiver.ledgers)
        ledgers.emplace_back(key, ledger());
    std::vector<std::string> withoutTraining;
    std::vector<std::string> withoutHours;
    audit::checkCharges(caregiver.code, file(), ledgers, [&](const audit::Finding& found) {
        if (found.file == training_file::File) {
            if (caregiver.all)
                withoutHours.push_back(training(file(training_file::Date, found.position),
                                                found.value, labels, dates));
            return;
        }
        const records::DBARecord& charged = caregiver.ledgers.at(found.key);
        withoutTraining.push_back(
            training(charged(ledger::Date, found.position), found.value, labels, dates) + " (" +
            text::Shortened(dif::employerNameOrCode(v, found.key.substr(caregiver.code.size())),
                            MostOfLabel) +
            changed(v.F_DIFAIDANT->LastChange(found.key)) + ")");
    });
    std::string text = told(withoutTraining, withoutHours);
    if (text.empty())
        return std::nullopt;
    return Notice{.name = "charges",
                  .kind = NoticeKind::Warning,
                  .head = "À l'ouverture, des heures et des formations ne se répondaient pas.",
                  .text = std::move(text),
                  .button = {}};
}

} // namespace vorandine::host
