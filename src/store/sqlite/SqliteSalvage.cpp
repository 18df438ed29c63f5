// SQLite undoes an interrupted write, keeps writers out and says where the tables begin; their
// pages are read beside it.
#include "store/sqlite/SqliteSalvage.h"

#include "records/RecordText.h"
#include "store/Changes.h"
#include "store/sqlite/PartFile.h"
#include "store/sqlite/SqliteDatabase.h"
#include "store/sqlite/SqliteEngine.h"
#include "store/sqlite/SqliteLayout.h"
#include "store/sqlite/SqlitePages.h"

#include <map>
#include <memory>

namespace vorandine::store {
namespace {

std::map<std::string, std::uint32_t> rootsOf(SqliteDatabase& database) {
    std::map<std::string, std::uint32_t> roots;
    SqliteStatement statement(database, "SELECT name, rootpage FROM sqlite_schema");
    SqliteStatement::Run run(statement);
    while (run.step())
        roots.emplace(run.column(0), static_cast<std::uint32_t>(run.number(1)));
    return roots;
}

} // namespace

std::size_t salvage(const std::string& path, const SalvageVisitor& take) {
    const std::string absolute = sqlite::checkedPath(path, OpenMode::Existing);
    SqliteDatabase database(absolute, false, SqlitePatience);
    // Else SQLite would not even name the tables of a file that has lost its end.
    database.run("PRAGMA writable_schema = ON");
    database.run("BEGIN");
    sqlite::requireStore(database);
    const std::map<std::string, std::uint32_t> roots = rootsOf(database);
    const bool withoutHistory = database.number("PRAGMA user_version") == sqlite::WithoutHistory;
    SqlitePages pages(absolute);
    std::size_t lost = 0;
    for (const std::string& file : sqlite::tables()) {
        const auto root = roots.find(file);
        if (root == roots.end()) {
            if (file != HistoryFile || !withoutHistory)
                ++lost;
            continue;
        }
        pages.visit(root->second, [&](std::string_view key, std::string_view record) {
            const bool plain = file == HistoryFile ? isPlainVersion(key, record)
                                                   : records::isPlainEntry(key, record);
            if (plain)
                take(file, key, record);
            else
                ++lost;
        });
    }
    database.rollBack(); // nothing was written
    return lost + pages.lost();
}

Repaired repair(const std::string& path, const std::string& target,
                const std::function<void()>& step) {
    PartFile part(target, path);
    std::unique_ptr<Engine> engine = openEngine("sqlite:" + part.path(), OpenMode::Create);
    Repaired repaired;
    engine->atomically([&] {
        repaired.lost = salvage(
            path, [&](const std::string& file, std::string_view key, std::string_view record) {
                step();
                engine->file(file)->write(key, record);
                ++(file == HistoryFile ? repaired.versions : repaired.records);
            });
    });
    engine.reset();
    part.keep();
    return repaired;
}

} // namespace vorandine::store
