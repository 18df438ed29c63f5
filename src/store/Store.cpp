// URLs to engines, and the database that the control sees.
#include "store/Store.h"

#include "records/RecordText.h"
#include "store/Request.h"
#include "store/Selection.h"
#include "store/StoreFile.h"
#include "store/memory/MemoryEngine.h"
#include "store/postgresql/PostgresEngine.h"
#include "store/sqlite/SqliteEngine.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <string_view>
#include <utility>

namespace vorandine::store {

std::unique_ptr<Engine> openEngine(const std::string& url, OpenMode mode) {
    constexpr std::string_view Sqlite = "sqlite:";
    if (url == "memory:")
        return std::make_unique<MemoryEngine>();
    if (url.starts_with(Sqlite) && url.size() > Sqlite.size() && text::IsPlain(url))
        return std::make_unique<SqliteEngine>(url.substr(Sqlite.size()), mode);
    if (url.starts_with("postgresql://") && text::IsPlain(url))
        return std::make_unique<PostgresEngine>(url, mode);
    throw Error(errors::UrlRefused,
                "L'adresse de la base n'est pas reconnue. Écrivez memory:, sqlite:CHEMIN ou "
                "postgresql://POSTE@SERVEUR/BASE#SCHEMA.");
}

Store::Store(std::shared_ptr<Engine> engine, std::function<Moment()> clock)
    : changes_(std::make_shared<Changes>(std::move(engine), std::move(clock))) {}

// The history has an own way in: it holds no records.
EngineFile* Store::find(const std::string& name) {
    return name == HistoryFile ? nullptr : changes_->engine().file(name);
}

std::shared_ptr<ports::DBAFile> Store::OpenFile(const std::string& name) {
    EngineFile* const file = find(name);
    if (file == nullptr)
        throw Error(errors::FileUnknown,
                    "Le fichier « " + name + " » n'existe pas dans cette base.");
    return std::make_shared<StoreFile>(changes_, *file, name);
}

records::DBARecord Store::Select(const std::string& request) {
    const Request parsed = parseRequest(request);
    EngineFile* const file = find(parsed.file);
    if (file == nullptr)
        throw Error(errors::FileUnknown, "Le fichier « " + parsed.file +
                                             " » de la requête n'existe pas dans cette base.");
    return select(parsed, *file);
}

std::vector<std::string> Store::files() {
    return changes_->engine().files();
}

void Store::atomically(const std::function<void()>& work) {
    changes_->atomically(work);
}

} // namespace vorandine::store
