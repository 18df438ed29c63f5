// Listing by requests, and the checks of a new code.
#include "apps/host/Caregivers.h"

#include "apps/host/CaregiverForm.h"
#include "ports/Query.h"
#include "records/StoredFiles.h"
#include "text/Characters.h"
#include "text/Collation.h"
#include "text/Error.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vorandine::host {
namespace {

namespace caregiver = records::caregiver;
namespace ledger = records::ledger;
namespace training_file = records::training_file;
namespace user = records::user;

using Names = std::map<std::string, std::string>;

// Adds each key of a file with its name, to those that are there; of rows that have no names, the
// keys.
void collect(const records::DBARecord& rows, Names& into) {
    const int count = rows.DCount();
    for (int row = 1; row <= count; ++row) {
        std::string name = rows(row, 2);
        std::replace(name.begin(), name.end(), records::SubvalueMark, ' ');
        into.emplace(rows(row, 1), text::Trim(name));
    }
}

[[noreturn]] void refuseCode(const std::string& why) {
    throw Error(errors::CodeRefused, "Le code de l'aidant est refusé : " + why);
}

} // namespace

std::vector<User> users(ports::DBADatabase& database) {
    Names names;
    collect(ports::select(database, ports::Query(user::File), {records::Key, user::Name}), names);
    std::vector<User> found;
    found.reserve(names.size());
    for (const auto& [login, name] : names)
        found.push_back({login, name.empty() ? login : name});
    std::stable_sort(found.begin(), found.end(), [](const User& a, const User& b) {
        return text::CollatesBefore(a.name, b.name);
    });
    return found;
}

Caregivers::Caregivers(std::shared_ptr<store::Store> store) : store_(std::move(store)) {}

std::vector<Caregiver> Caregivers::all() {
    Names names;
    collect(ports::select(*store_, ports::Query(caregiver::File), {records::Key, caregiver::Name}),
            names);
    collect(ports::select(*store_, ports::Query(training_file::File), {records::Key}), names);
    std::vector<Caregiver> found;
    found.reserve(names.size());
    for (auto& [code, name] : names)
        found.push_back({code, std::move(name)});
    return found;
}

std::optional<Caregiver> Caregivers::find(const std::string& code) {
    checkCode(code);
    if (const auto record = ports::find(*store_->OpenFile(caregiver::File), code)) {
        std::string name = (*record)(caregiver::Name);
        std::replace(name.begin(), name.end(), records::ValueMark, ' ');
        return Caregiver{code, text::Trim(name)};
    }
    if (ports::find(*store_->OpenFile(training_file::File), code))
        return Caregiver{code, {}};
    return std::nullopt;
}

Caregiver Caregivers::add(std::string_view code, std::string_view name) {
    Caregiver caregiver{text::Trim(code), text::Trim(name)};
    checkCode(caregiver.code);
    if (caregiver.code.back() == ']')
        refuseCode("il se termine par un crochet fermant (]), qui a un sens particulier dans les "
                   "recherches de la base.");
    if (caregiver.name.empty())
        throw Error(errors::TextRefused, "Le nom de l'aidant est refusé : il est vide.");
    text::RequirePlain(caregiver.name, "Le nom de l'aidant");
    // Another program may add one too: looking and writing are one.
    store_->atomically([&] {
        requireFree(caregiver.code);
        records::DBARecord record =
            store_->OpenFile(records::caregiver::File)->NewRecord(caregiver.code);
        record(records::caregiver::Name) = caregiver.name;
        record.DBWrite();
    });
    return caregiver;
}

std::string Caregivers::content(const std::string& code) {
    std::string content;
    if (const auto record = ports::find(*store_->OpenFile(training_file::File), code))
        content = (*record)();
    const records::DBARecord ledgers =
        ports::select(*store_, ports::Query(ledger::File).with(records::Key, "=", code + "]"),
                      {records::Key, ledger::Date, ledger::Rights, ledger::Hours, ledger::Balance,
                       ledger::Training, ledger::Carried});
    // No text of a record ends in an attribute mark, so that the two stay apart.
    return content + records::AttributeMark + ledgers();
}

void Caregivers::requireFree(const std::string& code) {
    for (const auto& [other, name] : all()) {
        const std::string who = name.empty() ? "un autre aidant" : name;
        if (other == code)
            refuseCode("« " + code + " » est déjà pris par " + who + ".");
        if (other.starts_with(code) || code.starts_with(other)) {
            const std::string rule =
                "Les fiches se retrouvent par le début de leur code : celles de l'un seraient "
                "prises pour celles de l'autre.";
            refuseCode(other.starts_with(code)
                           ? "« " + other + " » (" + who + ") commence par lui. " + rule
                           : "il commence par « " + other + " » (" + who + "). " + rule);
        }
    }
}

} // namespace vorandine::host
