// Reading, writing and deleting one record, with the checks at the store's edge.
#include "store/StoreFile.h"

#include "records/ChangedMeanwhile.h"
#include "records/RecordText.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <utility>

namespace vorandine::store {
namespace {

void requireKey(const std::string& key) {
    if (key.empty())
        throw Error(errors::KeyRefused, "Une fiche ne peut pas avoir un code vide.");
    text::RequirePlain(key, "Le code de la fiche");
}

} // namespace

StoreFile::StoreFile(std::shared_ptr<Changes> changes, EngineFile& file, std::string name)
    : changes_(std::move(changes)), file_(file), name_(std::move(name)) {}

records::DBARecord StoreFile::ReadRecord(const std::string& key) {
    requireKey(key);
    std::optional<std::string> text;
    try {
        text = readText(key);
    } catch (...) {
        unread_.insert(key);
        throw;
    }
    unread_.erase(key);
    if (!text)
        throw Error(errors::RecordMissing,
                    "La fiche « " + key + " » n'existe pas dans le fichier « " + name_ + " ».");
    return {shared_from_this(), key, std::move(*text)};
}

std::optional<std::string> StoreFile::readText(const std::string& key) {
    std::optional<std::string> text = file_.read(key);
    if (text && !records::isPlainRecord(*text))
        throw Error(errors::Damaged, "La fiche « " + key + " » du fichier « " + name_ +
                                         " » est endommagée : ce n'est pas un texte lisible. "
                                         "Remplacez la base par une copie de sauvegarde.");
    return text;
}

void StoreFile::requireWritable(const std::string& key) const {
    requireKey(key);
    if (unread_.contains(key))
        throw Error(errors::ReadHadFailed,
                    "La fiche « " + key + " » du fichier « " + name_ +
                        " » n'a pas pu être lue à son ouverture : elle n'est donc pas remplacée. "
                        "Fermez et rouvrez le dossier, puis recommencez.");
}

records::ChangedMeanwhile::Maker StoreFile::LastChange(const std::string& key) {
    const std::optional<Change> last = changes_->lastChange(name_, key);
    if (!last)
        return {};
    return {.user = last->user, .when = localTime(last->moment)};
}

void StoreFile::DeleteRecord(const std::string& key) {
    requireWritable(key);
    changes_->erase(file_, name_, key);
}

void StoreFile::DeleteRecord(const std::string& key, const std::optional<std::string>& read) {
    requireWritable(key);
    const Changes::Condition condition = unchanged(key, read);
    changes_->erase(file_, name_, key, &condition);
}

void StoreFile::requirePlain(const std::string& key, std::string_view text) const {
    if (!records::isPlainRecord(text))
        throw Error(errors::TextRefused, "La fiche « " + key + " » du fichier « " + name_ +
                                             " » n'est pas enregistrée : une valeur contient un "
                                             "caractère de contrôle ou n'est pas codée en UTF-8.");
}

void StoreFile::WriteRecord(const std::string& key, std::string_view text) {
    requireWritable(key);
    requirePlain(key, text);
    changes_->write(file_, name_, key, text);
}

void StoreFile::WriteRecord(const std::string& key, std::string_view text,
                            const std::optional<std::string>& read) {
    requireWritable(key);
    requirePlain(key, text);
    const Changes::Condition condition = unchanged(key, read);
    changes_->write(file_, name_, key, text, &condition);
}

Changes::Condition StoreFile::unchanged(const std::string& key,
                                        const std::optional<std::string>& read) {
    const auto refuse = [this, &key, &read](const std::optional<std::string>& stored) {
        records::ChangedMeanwhile::Maker maker = LastChange(key);
        maker.before = changes_->othersSince(name_, key, read);
        throw records::ChangedMeanwhile(
            "La fiche « " + key + " » du fichier « " + name_ + " » a été modifiée entre-temps" +
                (maker.user.empty() ? "" : " par " + maker.user) +
                " : elle n'est pas remplacée. Rouvrez-la, puis recommencez.",
            stored, maker);
    };
    return {read, refuse};
}

} // namespace vorandine::store
