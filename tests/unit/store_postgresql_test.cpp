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
    std::shared_ptr<Engine> owner = openEngine(url, OpenMode::Create);
    Connection server{postgresql::parseAddress(url)};

    std::string tell(const std::string& sql) {
        postgresql::Statement statement(sql);
        const auto rows = server.run({{statement, {}}}).front();
        return rows.count() == 0 ? "" : std::string(rows.bytes(0, 0));
    }
    // A seat with a role of its own, called as the schema is with `name` behind.
    std::shared_ptr<Engine> seat(const std::string& name, bool onBehalf = false) {
        const std::string role = '"' + schema + name + '"';
        const std::string of = '"' + schema + "\".";
        tell("CREATE ROLE " + role + " LOGIN");
        tell("GRANT USAGE ON SCHEMA \"" + schema + "\" TO " + role);
        tell("GRANT SELECT ON ALL TABLES IN SCHEMA \"" + schema + "\" TO " + role);
        for (const std::string function :
             {"\"ecrire_TABLES\"", "noter_session", onBehalf ? "au_nom_de" : "noter_session"})
            tell("GRANT EXECUTE ON FUNCTION " + of + function + " TO " + role);
        return openEngine(std::string(url).replace(url.find("//") + 2, 9, schema + name),
                          OpenMode::Existing);
    }
    // Who is said to have made the last change of a record.
    std::string lastUser(const std::string& key) {
        const auto versions = Changes(owner).history("TABLES", key);
        return versions.empty() ? "nobody" : versions.back().user;
    }
};

TEST_F(StorePostgresql, AGestureTakesFewWaysThroughTheNetworkWhoeverStandsBetween) {
    const auto engine = std::make_shared<scenario::RehearsalEngine>(owner);
    Store store(engine);
    const auto file = store.OpenFile("TABLES");
    const auto ways = [&](const std::function<void()>& work) {
        const std::uint64_t before = engine->roundTrips();
        work();
        return engine->roundTrips() - before;
    };
    EXPECT_EQ(ways([&] { file->WriteRecord("k", "un", std::nullopt); }), 1U);
    EXPECT_EQ(ways([&] { file->WriteRecord("k", "deux", "un"); }), 1U);
    EXPECT_EQ(ways([&] {
                  EXPECT_EQ(numberOf([&] { file->DeleteRecord("k", "un"); }),
                            errors::ChangedMeanwhile);
              }),
              2U); // with who did it
    EXPECT_EQ(ways([&] { EXPECT_EQ(engine->file("TABLES")->read("k"), "deux"); }), 1U);
    EXPECT_EQ(ways([&] {
                  EXPECT_EQ(engine->readMany({{"TABLES", "k"}, {"CONTRAT", "k"}, {"TABLES", "k"}}),
                            (std::vector<std::optional<std::string>>{"deux", {}, "deux"}));
              }),
              1U);
    EXPECT_EQ(ways([&] {
                  store.atomically([&] {
                      (void)file->ReadRecord("k");
                      file->WriteRecord("k", "trois", "deux");
                  });
              }),
              3U);
    EXPECT_EQ(ways([&] { (void)owner->writesOfOthers(); }), 0U);
    // More than comes at once is handed over as it comes, each once; so is a part of it.
    store.atomically([&] {
        for (int i = 0; i < 600; ++i)
            file->WriteRecord("l" + std::to_string(i), "un");
    });
    for (const std::size_t most : {std::size_t{500}, std::size_t{501}, NoLimit}) {
        std::size_t seen = 0;
        const auto count = [&](auto, auto) { return ++seen > 0; };
        EXPECT_EQ(ways([&] {
                      engine->file("TABLES")->scan({"l", "m"}, count, most);
                  }),
                  most > 500 ? 2U : 1U);
        EXPECT_EQ(seen, std::min(most, std::size_t{600}));
    }
}

// The server has stored the change when it ends the connection: its answer never comes.
TEST_F(StorePostgresql, WhatMayHaveBeenDoneIsDoneOnce) {
    const auto engine = seat("_doubt");
    const std::string role = schema + "_doubt";
    Store store(engine);
    const auto file = store.OpenFile("TABLES");
    const std::function<void()> works[] = {
        [&] { file->WriteRecord("k", "un", std::nullopt); },
        [&] { store.atomically([&] { file->WriteRecord("k", "deux", "un"); }); },
        [&] { file->DeleteRecord("k", "deux"); },
    };
    std::size_t versions = 0;
    for (const auto& work : works) {
        // Its commits wait for a standby that there is none of.
        tell("ALTER ROLE \"" + role + "\" SET synchronous_commit = on");
        tell("SELECT pg_terminate_backend(pid)::text FROM pg_stat_activity WHERE usename = '" +
             role + "'");
        std::thread end([&] {
            const std::string waiting =
                " FROM pg_stat_activity WHERE usename = '" + role + "' AND wait_event = 'SyncRep'";
            for (int i = 0; i < 5000 && tell("SELECT pid::text" + waiting).empty(); ++i)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            tell("ALTER ROLE \"" + role + "\" SET synchronous_commit = off");
            tell("SELECT pg_terminate_backend(pid)::text" + waiting);
        });
        EXPECT_EQ(store_test::raisedBy(work).text, "");
        end.join();
        EXPECT_EQ(Changes(owner).history("TABLES", "k").size(), ++versions);
    }
    EXPECT_EQ(engine->file("TABLES")->read("k"), std::nullopt);
}

TEST_F(StorePostgresql, ALostConnectionUndoesItsTransactionAndIsMadeAnew) {
    const auto engine = seat("_lost");
    const auto lose = [&] {
        tell("SELECT count(pg_terminate_backend(pid, 5000)) FROM pg_stat_activity WHERE usename = "
             "'" +
             schema + "_lost'");
    };
    Store store(engine);
    const auto file = store.OpenFile("TABLES");
    file->WriteRecord("k", "un", std::nullopt);
    const std::uint64_t news = engine->writesOfOthers();
    lose();
    EXPECT_EQ(engine->file("TABLES")->read("k"), "un");
    EXPECT_NE(engine->writesOfOthers(), news); // some may have been missed
    lose();
    file->WriteRecord("k", "deux", "un");
    EXPECT_EQ(numberOf([&] {
                  store.atomically([&] {
                      file->WriteRecord("k", "trois", "deux");
                      lose();
                      EXPECT_EQ(numberOf([&] { file->WriteRecord("l", "un"); }),
                                errors::Unreachable);
                      EXPECT_EQ(numberOf([&] { file->WriteRecord("l", "un"); }),
                                errors::StoreFailed); // not alone
                  });
              }),
              errors::StoreFailed);
    EXPECT_EQ(engine->file("TABLES")->read("k"), "deux");
    EXPECT_EQ(engine->file("TABLES")->read("l"), std::nullopt);
}

TEST_F(StorePostgresql, ASeatWritesByItsFunctionsUnderItsName) {
    const auto poste = seat("_poste");
    const auto web = seat("_web", true);
    for (const auto& [engine, key] : {std::pair(poste, "poste"), {web, "web"}, {owner, "owner"}}) {
        Store store(engine);
        store.changes().user("sylvie");
        store.OpenFile("TABLES")->WriteRecord(key, "un", std::nullopt);
    }
    EXPECT_EQ(lastUser("poste"), schema + "_poste");
    EXPECT_EQ(lastUser("web"), "sylvie @ " + schema + "_web");
    EXPECT_EQ(lastUser("owner"), "sylvie @ vorandine");
    EXPECT_EQ(Changes(owner).lastChange("TABLES", "web")->user, "sylvie");
    // No other file, nothing beside the history, no moment of its own.
    for (const auto& engine : {poste, web}) {
        EXPECT_EQ(numberOf([&] { engine->file("DROITS")->write("k", "un"); }), errors::ReadOnly);
        EXPECT_EQ(numberOf([&] { engine->file("HISTORIQUE")->erase("k"); }), errors::ReadOnly);
        EXPECT_EQ(numberOf([&] { engine->file("TABLES")->write("k", "un"); }), errors::ReadOnly);
        EXPECT_EQ(numberOf([&] {
                      Store(engine, [] { return 0; }).OpenFile("TABLES")->WriteRecord("k", "un");
                  }),
                  errors::ReadOnly);
        EXPECT_EQ(engine->file("TABLES")->read("k"), std::nullopt);
    }
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
