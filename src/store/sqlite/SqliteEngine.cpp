// Creation and checks of an SQLite store, and its files: one table each, keys and records as BLOBs
// in a tree ordered by key.
#include "store/sqlite/SqliteEngine.h"

#include "store/sqlite/SqliteBackup.h"
#include "store/sqlite/SqliteLayout.h"
#include "text/Error.h"

#include <memory>
#include <set>
#include <string_view>
#include <utility>

namespace vorandine::store {

using namespace sqlite;

namespace {

// Pages kept by one connection, in KiB: the upper levels of the trees of a large store.
constexpr int CacheKiB = 16384;

} // namespace

class SqliteEngine::File : public EngineFile {
  public:
    File(SqliteEngine& engine, const std::string& name)
        : engine_(engine),
          read_(engine.database_, "SELECT fiche FROM \"" + name + "\" WHERE cle = ?1"),
          add_(engine.database_,
               "INSERT INTO \"" + name + "\" VALUES (?1, ?2) ON CONFLICT (cle) DO NOTHING"),
          write_(engine.database_, "INSERT INTO \"" + name +
                                       "\" VALUES (?1, ?2) "
                                       "ON CONFLICT (cle) DO UPDATE SET fiche = excluded.fiche"),
          erase_(engine.database_, "DELETE FROM \"" + name + "\" WHERE cle = ?1 RETURNING fiche"),
          scanFrom_(engine.database_, "SELECT 1 FROM \"" + name +
                                          "\" WHERE cle >= ?1 AND visite(cle, fiche) ORDER BY cle"),
          scanBetween_(engine.database_,
                       "SELECT 1 FROM \"" + name +
                           "\" WHERE cle >= ?1 AND cle < ?2 AND visite(cle, fiche) ORDER BY cle") {}

    std::optional<std::string> read(std::string_view key) override {
        SqliteStatement::Run run(read_);
        run.bind(1, key);
        if (!run.step())
            return std::nullopt;
        return std::string(run.column(0));
    }

    std::optional<std::string> write(std::string_view key, std::string_view record) override {
        engine_.requireWritable();
        // Most records of a load are new: for those the key is looked for once.
        if (put(add_, key, record))
            return std::nullopt;
        std::optional<std::string> before = read(key);
        put(write_, key, record);
        return before;
    }

    std::optional<std::string> erase(std::string_view key) override {
        engine_.requireWritable();
        SqliteStatement::Run run(erase_);
        run.bind(1, key);
        std::optional<std::string> before;
        while (run.step())
            before = run.column(0);
        return before;
    }

    void scan(const KeyRange& range, const Visitor& visit, std::size_t atMost) override {
        if (atMost == 0)
            return;
        SqliteStatement::Run run(range.to ? scanBetween_ : scanFrom_);
        run.bind(1, range.from);
        if (range.to)
            run.bind(2, *range.to);
        if (atMost == NoLimit)
            return run.visitAll(visit);
        run.visitAll([&](std::string_view key, std::string_view record) {
            return visit(key, record) && --atMost > 0;
        });
    }

  private:
    SqliteEngine& engine_;
    SqliteStatement read_;
    SqliteStatement add_;
    SqliteStatement write_;
    SqliteStatement erase_;
    SqliteStatement scanFrom_;
    SqliteStatement scanBetween_;

    // Whether `statement` changed anything.
    bool put(SqliteStatement& statement, std::string_view key, std::string_view record) {
        SqliteStatement::Run run(statement);
        run.bind(1, key);
        run.bind(2, record);
        while (run.step()) {
        }
        return run.changed();
    }
};

SqliteEngine::SqliteEngine(const std::string& path, OpenMode mode,
                           std::chrono::milliseconds patience)
    : database_(checkedPath(path, mode), mode == OpenMode::Create, patience) {
    // A schema made by others could hold triggers and functions; nothing of it is to run.
    database_.run("PRAGMA trusted_schema = OFF");
    database_.run("PRAGMA cell_size_check = ON");
    database_.run("PRAGMA synchronous = EXTRA");
    // A write needs no other folder than its own, which may be full while this one is not, and in
    // which a program that is killed would leave its files.
    database_.run("PRAGMA temp_store = MEMORY");
    if (mode == OpenMode::Create && database_.number("PRAGMA page_count") == 0)
        create();
    // Not before: SQLite counts the cache in pages, and a new file changes their size.
    database_.run("PRAGMA cache_size = -" + std::to_string(CacheKiB));
    verify();
    if (database_.text("PRAGMA journal_mode = DELETE") != "delete")
        refuse(errors::StoreFailed, database_.path(),
               "n'a pas pu être mise dans son mode d'écriture.");
    for (const std::string& name : tables())
        if (name != HistoryFile || database_.number("PRAGMA user_version") == FormatVersion)
            files_.emplace(name, std::make_unique<File>(*this, name));
}

SqliteEngine::~SqliteEngine() = default;

void SqliteEngine::create() {
    database_.run("PRAGMA page_size = " + std::to_string(PageBytes));
    atomically([&] {
        // Another process may have made the store since it was found empty.
        if (database_.number("PRAGMA schema_version") != 0)
            return;
        database_.run("PRAGMA application_id = " + std::to_string(ApplicationId));
        database_.run("PRAGMA user_version = " + std::to_string(FormatVersion));
        for (const std::string& name : tables())
            database_.run(createTable(name));
    });
}

// False where that cannot be written now: the store can be read all the same.
bool SqliteEngine::addHistory() {
    try {
        atomically([&] {
            // Another process may have done it meanwhile.
            if (database_.number("PRAGMA user_version") != WithoutHistory)
                return;
            database_.run(createTable(HistoryFile));
            database_.run("PRAGMA user_version = " + std::to_string(FormatVersion));
        });
    } catch (const Error& error) {
        if (error.number() != errors::ReadOnly && error.number() != errors::DiskFull &&
            error.number() != errors::Locked)
            throw;
        return false;
    }
    return true;
}

void SqliteEngine::verify() {
    const std::string& path = database_.path();
    // The making of a store that was interrupted has only now been undone: it may be empty.
    requireStore(database_);
    const bool withoutHistory =
        database_.number("PRAGMA user_version") == WithoutHistory && !addHistory();
    std::set<std::string, std::less<>> missing;
    for (const std::string& name : tables())
        if (name != HistoryFile || !withoutHistory)
            missing.insert(createTable(name));
    SqliteStatement statement(database_, "SELECT sql FROM sqlite_schema WHERE name NOT LIKE "
                                         "'sqlite\\_%' ESCAPE '\\'");
    SqliteStatement::Run run(statement);
    while (run.step())
        if (missing.erase(std::string(run.column(0))) == 0)
            refuse(errors::OtherProgram, path,
                   "contient des tables d'un autre programme. Choisissez un autre chemin.");
    if (!missing.empty())
        refuse(errors::Damaged, path,
               "est incomplète : une de ses tables manque. Remplacez-la par une copie de "
               "sauvegarde.");
}

EngineFile* SqliteEngine::file(const std::string& name) {
    const auto at = files_.find(name);
    return at == files_.end() ? nullptr : at->second.get();
}

std::vector<std::string> SqliteEngine::files() {
    std::vector<std::string> names;
    names.reserve(files_.size());
    for (const auto& [name, file] : files_)
        if (name != HistoryFile)
            names.push_back(name);
    return names;
}

void SqliteEngine::atomically(const std::function<void()>& work) {
    if (transaction_)
        throw Error(errors::StoreFailed,
                    "Une transaction est déjà en cours dans la base « " + database_.path() + " ».");
    requireOneName();
    database_.run("BEGIN IMMEDIATE");
    transaction_ = true;
    try {
        work();
        requireTransaction();
        database_.run("COMMIT");
    } catch (...) {
        transaction_ = false;
        database_.rollBack();
        throw;
    }
    transaction_ = false;
}

void SqliteEngine::consistently(const std::function<void()>& work) {
    database_.run("BEGIN");
    try {
        work();
    } catch (...) {
        database_.rollBack();
        throw;
    }
    database_.rollBack(); // nothing was written
}

std::unique_ptr<Engine> SqliteEngine::another() {
    return std::make_unique<SqliteEngine>(database_.path(), OpenMode::Existing);
}

std::uint64_t SqliteEngine::writesOfOthers() {
    // A screen asks for this on its own account: its user must not wait for another's long write.
    struct Impatience {
        SqliteDatabase& database;
        explicit Impatience(SqliteDatabase& of) : database(of) { database.waitNever(); }
        Impatience(const Impatience&) = delete;
        Impatience& operator=(const Impatience&) = delete;
        ~Impatience() { database.waitAnew(); }
    };
    const Impatience impatience(database_);
    SqliteStatement::Run run(dataVersion_);
    return run.step() ? static_cast<std::uint64_t>(run.number(0)) : 0;
}

std::vector<std::string> SqliteEngine::faults() {
    std::vector<std::string> found;
    SqliteStatement statement(database_, "PRAGMA integrity_check");
    SqliteStatement::Run run(statement);
    while (run.step())
        found.emplace_back(run.column(0));
    if (found == std::vector<std::string>{"ok"})
        found.clear();
    // A key that has become anything but a BLOB stands before all keys, where nobody looks for it.
    for (const auto& [name, file] : files_)
        if (database_.number("SELECT count(*) FROM \"" + name + "\" WHERE cle < x''") > 0)
            found.push_back("keys in " + name + " are no BLOBs");
    return found;
}

std::vector<std::string> SqliteEngine::dangers() {
    std::vector<std::string> found;
    if (nameCount(database_.path()) > 1)
        found.emplace_back("the file has several names (hard links): it is only read, since what "
                           "undoes a write stands beside one of them; make a copy with backup");
    if (const std::string type = networkFileSystem(database_.path()); !type.empty())
        found.push_back("the file is on a network file system (" + type +
                        "): its locks may not hold, and two programs that write at once damage "
                        "the store; keep it on a disk of the machine that uses it");
    return found;
}

void SqliteEngine::backUp(const std::string& path, const CopyStep& step) {
    store::backUp(database_, path, step);
}

// Nothing is written without its history.
void SqliteEngine::requireWritable() const {
    if (!files_.contains(std::string(HistoryFile)))
        refuse(errors::ReadOnly, database_.path(),
               "est d'un format ancien, qui n'a pas pu être mis à jour à l'ouverture. Rouvrez-la "
               "avec le droit de la modifier et de la place sur le disque.");
    if (!transaction_)
        requireOneName();
    requireTransaction();
}

// The journal of a write that was cut short stands beside the name that the writer used. Whoever
// comes by another one finds no journal, takes half a write for a whole one, and writes over it.
void SqliteEngine::requireOneName() const {
    if (nameCount(database_.path()) > 1)
        refuse(errors::ReadOnly, database_.path(),
               "a plusieurs noms (des liens physiques) : elle est ouverte en lecture seule. "
               "Faites-en une copie avec vorandine-dba backup, et travaillez dans la copie.");
}

// A disk that fills up ends a transaction from within. Whoever then goes on writing must not have
// the rest stored alone.
void SqliteEngine::requireTransaction() const {
    if (transaction_ && !database_.inTransaction())
        throw Error(errors::StoreFailed,
                    "La base « " + database_.path() +
                        " » a annulé la transaction en cours après une erreur : rien n'en a été "
                        "enregistré.");
}

} // namespace vorandine::store
