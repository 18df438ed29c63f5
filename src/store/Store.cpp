// URLs to engines, and the database that the control sees.
#include "store/Store.h"

#include "store/MemoryEngine.h"
#include "store/RecordText.h"
#include "store/Request.h"
#include "store/Selection.h"
#include "store/SqliteEngine.h"
#include "store/StoreFile.h"
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
    throw Error(errors::UrlRefused,
                "L'adresse de la base n'est pas reconnue. Écrivez memory: ou sqlite:CHEMIN.");
}

Store::Store(std::shared_ptr<Engine> engine) : engine_(std::move(engine)) {}

std::shared_ptr<data::DBAFile> Store::OpenFile(const std::string& name) {
    EngineFile* const file = engine_->file(name);
    if (file == nullptr)
        throw Error(errors::FileUnknown,
                    "Le fichier « " + name + " » n'existe pas dans cette base.");
    return std::make_shared<StoreFile>(engine_, *file, name);
}

data::DBARecord Store::Select(const std::string& request) {
    const Request parsed = parseRequest(request);
    EngineFile* const file = engine_->file(parsed.file);
    if (file == nullptr)
        throw Error(errors::FileUnknown, "Le fichier « " + parsed.file +
                                             " » de la requête n'existe pas dans cette base.");
    return select(parsed, *file);
}

std::vector<std::string> Store::files() {
    return engine_->files();
}

void Store::atomically(const std::function<void()>& work) {
    engine_->atomically(work);
}

} // namespace vorandine::store
