// Reading goes through, and what was read belongs to the file that refuses.
#include "components/Consultation.h"

#include "text/Error.h"

#include <optional>
#include <string_view>
#include <utility>

namespace vorandine::components {
namespace {

[[noreturn]] void refuse() {
    throw Error(errors::MayNotWrite,
                "Vous consultez ce dossier : vos droits ne permettent pas d'y écrire, rien n'est "
                "enregistré. Pour le fermer, pressez Retour et répondez Non ; pour le changer, "
                "adressez-vous à quelqu'un qui a le droit d'écrire.");
}

class ConsultedFile : public ports::DBAFile {
  public:
    explicit ConsultedFile(std::shared_ptr<ports::DBAFile> file) : file_(std::move(file)) {}

    records::DBARecord ReadRecord(const std::string& key) override {
        const records::DBARecord stored = file_->ReadRecord(key);
        return {shared_from_this(), key, stored()};
    }
    void DeleteRecord(const std::string& /*key*/) override { refuse(); }
    void DeleteRecord(const std::string& /*key*/,
                      const std::optional<std::string>& /*read*/) override {
        refuse();
    }
    void WriteRecord(const std::string& /*key*/, std::string_view /*text*/) override { refuse(); }
    void WriteRecord(const std::string& /*key*/, std::string_view /*text*/,
                     const std::optional<std::string>& /*read*/) override {
        refuse();
    }
    records::ChangedMeanwhile::Maker LastChange(const std::string& key) override {
        return file_->LastChange(key);
    }

  private:
    std::shared_ptr<ports::DBAFile> file_;
};

class ConsultedDatabase : public ports::DBADatabase {
  public:
    explicit ConsultedDatabase(std::shared_ptr<ports::DBADatabase> database)
        : database_(std::move(database)) {}

    std::shared_ptr<ports::DBAFile> OpenFile(const std::string& name) override {
        return std::make_shared<ConsultedFile>(database_->OpenFile(name));
    }
    records::DBARecord Select(const std::string& request) override {
        return database_->Select(request);
    }

  private:
    std::shared_ptr<ports::DBADatabase> database_;
};

} // namespace

bool mayWrite(ports::DroitsUtilisateur& rights) {
    return rights.Droits("VORANDINEDROIT")->Niveau() == ports::WritingLevel;
}

std::shared_ptr<ports::DBADatabase> databaseFor(std::shared_ptr<ports::DBADatabase> database,
                                                ports::DroitsUtilisateur& rights) {
    if (mayWrite(rights))
        return database;
    return std::make_shared<ConsultedDatabase>(std::move(database));
}

} // namespace vorandine::components
