// What only an engine on a server has to hold: what it asks of the network, answers that are lost,
// and what a seat that does not own the store may do.
#include "apps/scenario/RehearsalEngine.h"
#include "store/postgresql/PostgresEngine.h"
#include "store_support.h"

#include <gtest/gtest.h>
#include <thread>

namespace vorandine::store {
namespace {

using postgresql::Connection;
using store_test::numberOf;

class StorePostgresql : public testing::Test {
  protected:
    store_test::Folder folder;
    std::string url = store_test::urlOf("postgresql", folder);
    std::string schema = folder.path().filename();
    std::string quoted = '"' + schema + '"';
    std::shared_ptr<Engine> owner = openEngine(url, OpenMode::Create);
    Connection server{postgresql::parseAddress(url)};

    std::string tell(const std::string& sql) {
        postgresql::Statement statement(sql);
        const auto rows = server.run({{statement, {}}}).front();
        return rows.count() == 0 ? "" : std::string(rows.bytes(0, 0));
    }
    // A seat with a role of its own, called as the schema is.
    std::shared_ptr<Engine> seat() {
        tell("CREATE ROLE " + quoted + " LOGIN");
        tell("GRANT USAGE ON SCHEMA " + quoted + " TO " + quoted);
        tell("GRANT SELECT ON ALL TABLES IN SCHEMA " + quoted + " TO " + quoted);
        for (const std::string function : {"\"ecrire_TABLES\"", "noter_session"})
            tell("GRANT EXECUTE ON FUNCTION " + quoted + '.' + function + " TO " + quoted);
        return openEngine(std::string(url).replace(url.find("//") + 2, 9, schema),
                          OpenMode::Existing);
    }
    // Ends the seat's connections; whether there was one.
    bool end(const std::string& where = "") {
        return !tell("SELECT pg_terminate_backend(pid, 5000)::text FROM pg_stat_activity "
                     "WHERE usename = '" +
                     schema + "'" + where)
                    .empty();
    }
};

TEST_F(StorePostgresql, AGestureTakesFewWaysThroughTheNetworkWhoeverStandsBetween) {
    const auto engine = std::make_shared<scenario::RehearsalEngine>(owner);
    EngineFile& records = *engine->file("TABLES");
    Store store(engine);
    const auto file = store.OpenFile("TABLES");
    const auto expectWays = [&](std::uint64_t most, const std::function<void()>& work) {
        const std::uint64_t before = engine->roundTrips();
        work();
        EXPECT_EQ(engine->roundTrips() - before, most);
    };
    expectWays(1, [&] { file->WriteRecord("k", "un", std::nullopt); });
    expectWays(1, [&] { file->WriteRecord("k", "deux", "un"); });
    expectWays(3, [&] { // with who did it, and who before
        EXPECT_EQ(numberOf([&] { file->DeleteRecord("k", "un"); }), errors::ChangedMeanwhile);
    });
    expectWays(1, [&] { EXPECT_EQ(records.read("k"), "deux"); });
    expectWays(1, [&] { (void)engine->readMany({{"TABLES", "k"}, {"CONTRAT", "k"}}); });
    expectWays(0, [&] { (void)owner->writesOfOthers(); });
    expectWays(3, [&] {
        store.atomically([&] {
            (void)file->ReadRecord("k");
            file->WriteRecord("k", "trois", "deux");
        });
    });
    // More than comes at once is handed over as it comes, each once; so is a part of it.
    store.atomically([&] {
        for (int i = 0; i < 600; ++i)
            file->WriteRecord("l" + std::to_string(i), "un");
    });
    for (const std::size_t most : {std::size_t{500}, std::size_t{501}, NoLimit}) {
        std::size_t seen = 0;
        const auto count = [&](auto, auto) { return ++seen > 0; };
        expectWays(most > 500 ? 2 : 1, [&] { records.scan({"l", "m"}, count, most); });
        EXPECT_EQ(seen, std::min(most, std::size_t{600}));
    }
}

// The server has stored the change when it ends the connection: its answer never comes.
TEST_F(StorePostgresql, WhatMayHaveBeenDoneIsDoneOnce) {
    const auto engine = seat();
    Store store(engine);
    const auto file = store.OpenFile("TABLES");
    const std::function<void()> works[] = {
        [&] { file->WriteRecord("k", "un", std::nullopt); },
        [&] { store.atomically([&] { file->WriteRecord("k", "deux", "un"); }); },
        [&] { file->DeleteRecord("k", "deux"); },
    };
    std::size_t versions = 0;
    const auto commits = [&](const std::string& synchronous) {
        tell("ALTER ROLE " + quoted + " SET synchronous_commit = " + synchronous);
    };
    for (const auto& work : works) {
        commits("on"); // its commits wait for a standby that there is none of
        end();
        (void)engine->file("TABLES")->read("k");
        commits("off"); // the next connection's do not
        std::thread ending([&] {
            for (int i = 0; i < 5000 && !end(" AND wait_event = 'SyncRep'"); ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
        });
        EXPECT_EQ(store_test::raisedBy(work).text, "");
        ending.join();
        EXPECT_EQ(Changes(owner).history("TABLES", "k").size(), ++versions);
    }
    EXPECT_EQ(engine->file("TABLES")->read("k"), std::nullopt);
}

TEST_F(StorePostgresql, ALostConnectionUndoesItsTransactionAndIsMadeAnew) {
    const auto engine = seat();
    Store store(engine);
    const auto file = store.OpenFile("TABLES");
    file->WriteRecord("k", "un", std::nullopt);
    const std::uint64_t news = engine->writesOfOthers();
    end();
    EXPECT_EQ(engine->file("TABLES")->read("k"), "un");
    EXPECT_NE(engine->writesOfOthers(), news); // some may have been missed
    end();
    file->WriteRecord("k", "deux", "un");
    const auto write = [&] { return numberOf([&] { file->WriteRecord("l", "un"); }); };
    const auto lost = [&] {
        file->WriteRecord("k", "trois", "deux");
        end();
        EXPECT_EQ(write(), errors::Unreachable);
        EXPECT_EQ(write(), errors::StoreFailed); // not alone
    };
    EXPECT_EQ(numberOf([&] { store.atomically(lost); }), errors::StoreFailed);
    EXPECT_EQ(engine->readMany({{"TABLES", "k"}, {"TABLES", "l"}}),
              (std::vector<std::optional<std::string>>{"deux", {}}));
}

TEST_F(StorePostgresql, ASeatWritesByItsFunctionsUnderItsName) {
    const auto user = [&](const std::shared_ptr<Engine>& engine) {
        Store store(engine);
        store.changes().user("sylvie");
        store.OpenFile("TABLES")->WriteRecord("k", "un");
        return store.changes().history("TABLES", "k").back().user;
    };
    const auto engine = seat();
    EXPECT_EQ(user(engine), schema);
    EXPECT_EQ(user(owner), "sylvie @ vorandine");
    // No other file, nothing beside the history, no moment of its own.
    Store early(engine, [] { return 0; });
    const std::function<void()> works[] = {
        [&] { Store(engine).OpenFile("DROITS")->WriteRecord("k", "2"); },
        [&] { engine->file("HISTORIQUE")->erase("k"); },
        [&] { engine->file("TABLES")->write("k", "deux"); },
        [&] { early.OpenFile("TABLES")->WriteRecord("k", "deux"); },
    };
    for (const auto& work : works)
        EXPECT_EQ(numberOf(work), errors::ReadOnly);
    EXPECT_EQ(owner->file("TABLES")->read("k"), "un");
    // Who works for others is believed who they are.
    tell("GRANT EXECUTE ON FUNCTION " + quoted + ".au_nom_de TO " + quoted);
    EXPECT_EQ(user(engine), "sylvie @ " + schema);
    EXPECT_EQ(Changes(owner).lastChange("TABLES", "k")->user, "sylvie");
}

TEST_F(StorePostgresql, OpensAStoreAndNothingElse) {
    const auto number = [](const std::string& at) {
        return numberOf([&] { (void)openEngine(at, OpenMode::Existing); });
    };
    const std::string base = url.substr(0, url.find('#'));
    EXPECT_EQ(number(url + "x"), errors::StoreMissing);
    EXPECT_EQ(number(base + "#pg_catalog"), errors::OtherProgram);
    EXPECT_EQ(number(base + "#"), errors::UrlRefused);
    const auto refused = store_test::raisedBy(
        [] { (void)openEngine("postgresql://a:secret@h/b", OpenMode::Existing); });
    EXPECT_EQ(refused.number, errors::UrlRefused);
    EXPECT_NE(refused.text.find("~/.pgpass"), std::string::npos) << refused.text;
    EXPECT_EQ(refused.text.find("secret"), std::string::npos) << refused.text;
    EXPECT_EQ(number("postgresql://a@/b?host=" + folder / "none"), errors::Unreachable);
    tell("COMMENT ON SCHEMA \"" + schema + "\" IS 'vorandine 9'");
    EXPECT_EQ(number(url), errors::OtherVersion);
    EXPECT_EQ(numberOf([&] { owner->file("TABLES")->write(std::string(2601, 'k'), "un"); }),
              errors::KeyRefused);
}

} // namespace
} // namespace vorandine::store
