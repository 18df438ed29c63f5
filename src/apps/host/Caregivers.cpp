// Listing by requests, searching by the letters of the French order, and the checks of a new code.
#include "apps/host/Caregivers.h"

#include "apps/host/CaregiverForm.h"
#include "text/Characters.h"
#include "text/Collation.h"
#include "text/Error.h"

#include <algorithm>
#include <map>
#include <utility>

namespace vorandine::host {
namespace {

constexpr int Name = 1; // the attribute of AIDANT and UTILISATEURS

// The letters of a text without accents and case: the first level of its key.
std::string letters(std::string_view text) {
    std::string key = text::CollationKey(text);
    key.erase(key.find('\0'));
    return key;
}

// Adds each key of `file` with its name, if the file has names; keys that are there stay.
void collect(data::DBADatabase& database, const std::string& file, bool named,
             std::map<std::string, std::string>& into) {
    const std::string wanted = named ? "0 " + std::to_string(Name) : "0";
    const data::DBARecord rows = database.Select("SSELECT " + file + data::AttributeMark + file +
                                                 data::AttributeMark + wanted);
    const int count = rows.DCount();
    for (int row = 1; row <= count; ++row) {
        std::string name = named ? rows(row, 2) : std::string();
        std::replace(name.begin(), name.end(), data::SubvalueMark, ' ');
        into.emplace(rows(row, 1), text::Trim(name));
    }
}

std::optional<data::DBARecord> readIfThere(data::DBADatabase& database, const std::string& file,
                                           const std::string& key) {
    try {
        return database.OpenFile(file)->ReadRecord(key);
    } catch (const Error& error) {
        if (error.number() != errors::RecordMissing)
            throw;
        return std::nullopt;
    }
}

[[noreturn]] void refuseCode(const std::string& why) {
    throw Error(errors::CodeRefused, "Le code de l'aidant est refusé : " + why);
}

} // namespace

std::vector<User> users(data::DBADatabase& database) {
    std::map<std::string, std::string> names;
    collect(database, "UTILISATEURS", true, names);
    std::vector<User> found;
    found.reserve(names.size());
    for (const auto& [login, name] : names)
        found.push_back({login, name.empty() ? login : name});
    std::stable_sort(found.begin(), found.end(), [](const User& a, const User& b) {
        return text::CollatesBefore(a.name, b.name);
    });
    return found;
}

CaregiverSearch::CaregiverSearch(std::string_view typed) {
    // Split after folding: what is typed or pasted may hold other blanks than the plain one.
    const std::string blank = letters(" ");
    const std::string folded = letters(typed);
    for (std::size_t from = 0; from < folded.size();) {
        const std::size_t end = std::min(folded.find(blank, from), folded.size());
        if (end > from)
            words_.push_back(folded.substr(from, end - from));
        from = end + blank.size();
    }
}

std::string CaregiverSearch::folded(const Caregiver& caregiver) {
    // No word holds a zero byte, so none is found across code and name.
    return letters(caregiver.code) + '\0' + letters(caregiver.name);
}

bool CaregiverSearch::finds(std::string_view folded) const {
    return std::all_of(words_.begin(), words_.end(), [&](const std::string& word) {
        return folded.find(word) != std::string_view::npos;
    });
}

Caregivers::Caregivers(std::shared_ptr<store::Store> store) : store_(std::move(store)) {}

std::vector<Caregiver> Caregivers::all() {
    std::map<std::string, std::string> names;
    collect(*store_, "AIDANT", true, names);
    collect(*store_, "FORMVORANDINE", false, names);
    std::vector<Caregiver> found;
    found.reserve(names.size());
    for (auto& [code, name] : names)
        found.push_back({code, std::move(name)});
    return found;
}

std::optional<Caregiver> Caregivers::find(const std::string& code) {
    checkCode(code);
    if (const auto record = readIfThere(*store_, "AIDANT", code)) {
        std::string name = (*record)(Name);
        std::replace(name.begin(), name.end(), data::ValueMark, ' ');
        return Caregiver{code, text::Trim(name)};
    }
    if (readIfThere(*store_, "FORMVORANDINE", code))
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
        data::DBARecord record = store_->OpenFile("AIDANT")->NewRecord(caregiver.code);
        record(Name) = caregiver.name;
        record.DBWrite();
    });
    return caregiver;
}

std::optional<std::string> Caregivers::trainingFile(const std::string& code) {
    const auto record = readIfThere(*store_, "FORMVORANDINE", code);
    return record ? std::optional((*record)()) : std::nullopt;
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
