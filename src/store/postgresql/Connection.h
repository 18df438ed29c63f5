// One connection to a server: statements prepared once, several of them in one round trip, answers
// as the server keeps them; failures told as Errors in French with what to do.
#pragma once

#include "store/postgresql/Address.h"
#include "text/Error.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

extern "C" {
using PGconn = struct pg_conn;
using PGresult = struct pg_result;
}

namespace vorandine::store::postgresql {

// The connection is lost, or could not be made. What was asked may have been done all the same.
class Unreachable : public Error {
  public:
    explicit Unreachable(const std::string& text) : Error(errors::Unreachable, text) {}
};

// A statement of SQL, prepared when it is first run on a connection.
class Statement {
  public:
    explicit Statement(std::string sql) : sql_(std::move(sql)) {}

  private:
    friend class Connection;

    std::string sql_;
    std::string name_;             // on the connection
    std::uint64_t connection_ = 0; // on which it is prepared; 0: on none
};

// A run of a statement; `values` are in the server's binary form, must outlive the run, and none is
// NULL.
struct Call {
    std::reference_wrapper<Statement> statement;
    std::vector<std::optional<std::string_view>> values;
};

// The rows that a statement gave. Views end with them.
class Rows {
  public:
    explicit Rows(PGresult* result);

    [[nodiscard]] int count() const;
    [[nodiscard]] bool null(int row, int column) const;
    [[nodiscard]] std::string_view bytes(int row, int column) const;
    // None for NULL.
    [[nodiscard]] std::optional<std::string> copy(int row, int column) const;
    [[nodiscard]] const std::shared_ptr<PGresult>& keep() const noexcept { return result_; }

  private:
    std::shared_ptr<PGresult> result_;
};

class Connection {
  public:
    // Connects to one of the servers of `address`; throws Unreachable where none takes it.
    explicit Connection(Address address);
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection();

    [[nodiscard]] const Address& address() const noexcept { return address_; }
    [[nodiscard]] bool connected() const noexcept { return handle_ != nullptr; }
    // Tries again until `until`. What was prepared, and any transaction, is gone.
    void reconnect(std::chrono::steady_clock::time_point until);

    // Runs the statements one after the other, in one round trip; the rows of each. One that fails
    // ends them all, and what they have done is undone where they do not run in a transaction of
    // their own.
    std::vector<Rows> run(const std::vector<Call>& calls);
    // Runs statements that are prepared nowhere, in a transaction that is open.
    void script(const std::vector<std::string>& statements);
    // As `run`, `visitor`, which must not throw, being given the first two columns of the last
    // one's rows as they come; false from it ends the statement, by asking the server to give up
    // where it `mayCancel`.
    using Visitor = std::function<bool(std::string_view, std::string_view)>;
    void stream(const std::vector<Call>& calls, const Visitor& visitor, bool mayCancel);

    // Whether the server has warned since this was last asked. Waiting for a standby that is given
    // up is told so, after a change that looks done.
    [[nodiscard]] bool takeWarning() noexcept;
    // Changes with each notification of other connections, and with each new connection, during
    // whose making some may have been missed. Asks nothing: reads what has come. Throws
    // Unreachable.
    [[nodiscard]] std::uint64_t news();
    [[nodiscard]] std::uint64_t roundTrips() const noexcept { return roundTrips_; }

    [[noreturn]] void fail(std::uint32_t number, const std::string& why) const;

  private:
    struct Close {
        void operator()(PGconn* handle) const noexcept;
    };

    Address address_;
    std::unique_ptr<PGconn, Close> handle_;
    std::uint64_t generation_ = 0; // of connections
    std::uint64_t names_ = 0;      // of prepared statements, none given twice
    std::uint64_t news_ = 0;
    std::uint64_t roundTrips_ = 0;
    bool warned_ = false;

    void connect();
    // Each statement is prepared just before it runs: the beginning of a transaction must come
    // before anything else is. Of each answer to come, whether it is of a call.
    std::vector<bool> send(const std::vector<Call>& calls, std::vector<Statement*>& fresh);
    // The answer to the statement whose turn it is; the first failure is kept in `failure`.
    [[nodiscard]] Rows answer(std::shared_ptr<PGresult>& failure);
    void finish(const std::vector<Statement*>& fresh, std::shared_ptr<PGresult>& failure);
    [[nodiscard]] PGresult* next();
    void takeNotifications();
    [[noreturn]] void lose();
    [[noreturn]] void fail(const PGresult* result);
    static void noteNotice(void* connection, const PGresult* notice);
};

} // namespace vorandine::store::postgresql
