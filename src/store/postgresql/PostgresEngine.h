// The engine of a schema on a PostgreSQL server, which many seats use at a time. docs/store.md
// describes its layout.
#pragma once

#include "store/Engine.h"
#include "store/Store.h"
#include "store/postgresql/Connection.h"

#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vorandine::store {

// How long a connection that was lost is tried for before Error(Unreachable).
constexpr std::chrono::milliseconds PostgresPatience{5000};

// Transactions write one at a time, single changes beside each other, those of one record one after
// the other: nobody waits for who waits for him. A connection that is lost outside a transaction is
// made anew unseen, and what was under way is done exactly once.
class PostgresEngine : public Engine {
  public:
    // Opens or makes the store at `url`; throws as openEngine does.
    PostgresEngine(const std::string& url, OpenMode mode,
                   std::chrono::milliseconds patience = PostgresPatience);
    ~PostgresEngine() override;

    [[nodiscard]] EngineFile* file(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> files() override;
    [[nodiscard]] std::vector<std::optional<std::string>>
    readMany(const std::vector<Place>& places) override;
    void atomically(const std::function<void()>& work) override;
    void consistently(const std::function<void()>& work) override;
    [[nodiscard]] std::unique_ptr<Engine> another() override;
    [[nodiscard]] std::uint64_t writesOfOthers() override;
    [[nodiscard]] std::uint64_t roundTrips() override { return connection_.roundTrips(); }

  private:
    class File;
    class Visiting;
    using Call = postgresql::Call;
    using Rows = postgresql::Rows;
    using Time = std::chrono::steady_clock::time_point;
    enum class Within { Nothing, Writes, Reads };

    std::string url_;
    std::chrono::milliseconds patience_;
    postgresql::Connection connection_;
    postgresql::Statement begin_{"BEGIN"};
    postgresql::Statement beginReads_{"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"};
    postgresql::Statement alone_;
    postgresql::Statement commit_{"COMMIT"};
    postgresql::Statement rollBack_{"ROLLBACK"};
    postgresql::Statement noteSession_;
    postgresql::Statement lastNoted_;
    std::map<std::string, std::unique_ptr<File>> files_;
    std::string session_;    // by which the server knows this engine's transactions
    std::string marks_;      // under which it leaves what only is to be stored
    std::int64_t noted_ = 0; // the number of the last transaction that wrote
    std::int64_t marked_ = 0;
    Within within_ = Within::Nothing;
    bool begun_ = false;  // on the server
    bool broken_ = false; // the transaction can only be given up
    bool wrote_ = false;
    bool visiting_ = false;

    void requireFree() const;
    // One round trip, with what begins the transaction before the first of it. Outside one, done
    // anew where the connection is lost: `calls` only read.
    std::vector<Rows> ask(const std::vector<Call>& calls);
    void stream(const Call& call, const EngineFile::Visitor& visit);
    // A change: `call`, or where it is not known whether it was done `again`.
    Rows change(const Call& call, const Call& again);
    template <typename Work>
    auto inTransaction(const Work& work);
    [[nodiscard]] std::vector<Call> opening();
    void run(Within within, const std::function<void()>& work);
    void commit();
    // Whether the transaction of that number took effect, its answer being lost.
    void settle(std::int64_t number);
    // The answer to what ended in `work`, being lost, is looked for until it is known.
    template <typename Work>
    auto settling(const Work& work);
    void rollBack() noexcept;
    // Within that time the server answers, or else Unreachable.
    template <typename Work>
    auto insisting(const Work& work);
};

} // namespace vorandine::store
