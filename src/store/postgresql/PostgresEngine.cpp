// Files, transactions, and what is done where an answer was lost.
#include "store/postgresql/PostgresEngine.h"

#include "store/postgresql/Binary.h"
#include "store/postgresql/Schema.h"

#include <algorithm>
#include <exception>
#include <random>
#include <utility>

namespace vorandine::store {

using namespace postgresql;

namespace {

// As many as nearly all requests find are kept as they come. What finds more is asked anew, to be
// handed over row by row: a store need not have room in this machine's memory.
constexpr std::int64_t FirstRows = 500;
constexpr std::size_t SessionBytes = 16;

std::string randomBytes(std::size_t count) {
    std::random_device random;
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes += static_cast<char>(random());
    return bytes;
}

} // namespace

// A visitor is being called.
class PostgresEngine::Visiting {
  public:
    explicit Visiting(PostgresEngine& engine) : engine_(engine) { engine.visiting_ = true; }
    Visiting(const Visiting&) = delete;
    Visiting& operator=(const Visiting&) = delete;
    ~Visiting() { engine_.visiting_ = false; }

  private:
    PostgresEngine& engine_;
};

class PostgresEngine::File : public EngineFile {
  public:
    File(PostgresEngine& engine, const std::string& name)
        : engine_(engine), table_(tableName(engine.connection_.address(), name)),
          swap_("SELECT * FROM " + writerName(engine.connection_.address(), name) +
                "($1, $2, $3, $4, $5, $6, $7, $8, $9)") {}

    // Of one key, which must outlive it.
    [[nodiscard]] Call reading(std::string_view key) { return {read_, {key}}; }

    std::optional<std::string> read(std::string_view key) override {
        const Rows rows = engine_.ask({reading(key)}).front();
        return rows.count() == 0 ? std::nullopt : rows.copy(0, 0);
    }

    std::optional<std::string> write(std::string_view key, std::string_view record) override {
        return change({key, record, std::nullopt, {}, false, {}}, true).before;
    }

    std::optional<std::string> erase(std::string_view key) override {
        return change({key, std::nullopt, std::nullopt, {}, false, {}}, true).before;
    }

    std::optional<Swapped> swap(const Swap& swap) override { return change(swap, false); }

    void scan(const KeyRange& range, const Visitor& visit, std::size_t atMost) override {
        engine_.requireFree();
        const bool whole = range.from.empty() && !range.to && atMost == NoLimit;
        if (whole || !scanFew(range, visit, atMost))
            engine_.stream(range.to ? Call{allBetween_, {range.from, *range.to}}
                                    : Call{allFrom_, {range.from}},
                           limited(visit, atMost));
    }

  private:
    PostgresEngine& engine_;
    std::string table_;
    Statement read_{"SELECT fiche FROM " + table_ + " WHERE cle = $1"};
    Statement swap_;
    std::string from_ = "SELECT cle, fiche FROM " + table_ + " WHERE cle >= $1";
    Statement allFrom_{from_ + " ORDER BY cle"};
    Statement allBetween_{from_ + " AND cle < $2 ORDER BY cle"};
    Statement fewFrom_{from_ + " ORDER BY cle LIMIT $2"};
    Statement fewBetween_{from_ + " AND cle < $2 ORDER BY cle LIMIT $3"};

    [[nodiscard]] static Visitor limited(const Visitor& visit, std::size_t atMost) {
        if (atMost == NoLimit)
            return visit;
        return [&visit, atMost](std::string_view key, std::string_view record) mutable {
            return visit(key, record) && --atMost > 0;
        };
    }

    // Whether that was all that was asked for; nothing is visited if not.
    [[nodiscard]] bool scanFew(const KeyRange& range, const Visitor& visit, std::size_t atMost) {
        const bool few = atMost <= static_cast<std::size_t>(FirstRows);
        const std::string limit = binary(few ? static_cast<std::int64_t>(atMost) : FirstRows + 1);
        const Rows rows = engine_
                              .ask({range.to ? Call{fewBetween_, {range.from, *range.to, limit}}
                                             : Call{fewFrom_, {range.from, limit}}})
                              .front();
        if (!few && rows.count() > FirstRows)
            return false;
        const Visiting visiting(engine_);
        for (int row = 0; row < rows.count(); ++row)
            if (!visit(rows.bytes(row, 0), rows.bytes(row, 1)))
                break;
        return true;
    }

    Swapped change(const Swap& swap, bool withoutHistory) {
        if (swap.key.size() > LongestKey)
            engine_.connection_.fail(errors::KeyRefused, "ne prend pas de code de plus de " +
                                                             std::to_string(LongestKey) +
                                                             " octets.");
        const auto given = [](std::string_view text) {
            return text.empty() ? std::nullopt : std::optional(text);
        };
        Call call{swap_,
                  {swap.key, swap.record, binary(swap.expected.has_value()),
                   swap.expected.value_or(std::nullopt), swap.user, binary(swap.load),
                   given(swap.moment), binary(withoutHistory), binary(false)}};
        Call again = call;
        again.values.back() = binary(true);
        const Rows rows = engine_.change(call, again);
        return {isTrue(rows.bytes(0, 0)), rows.copy(0, 1), rows.copy(0, 2).value_or("")};
    }
};

PostgresEngine::PostgresEngine(const std::string& url, OpenMode mode,
                               std::chrono::milliseconds patience)
    : url_(url), patience_(patience), connection_(parseAddress(url)),
      alone_(writeAlone(connection_.address())),
      noteSession_("SELECT " + sessionName(connection_.address()) + "($1, $2)"),
      lastNoted_("SELECT numero FROM " + sessionsName(connection_.address()) +
                 " WHERE session = $1 AND role = session_user"),
      session_(randomBytes(SessionBytes)), marks_(session_ + "+") {
    openSchema(connection_, mode);
    for (const std::string& name : tables())
        files_.emplace(name, std::make_unique<File>(*this, name));
}

PostgresEngine::~PostgresEngine() = default;

EngineFile* PostgresEngine::file(const std::string& name) {
    const auto at = files_.find(name);
    return at == files_.end() ? nullptr : at->second.get();
}

std::vector<std::string> PostgresEngine::files() {
    std::vector<std::string> names;
    names.reserve(files_.size());
    for (const auto& [name, file] : files_)
        if (name != HistoryFile)
            names.push_back(name);
    return names;
}

std::vector<std::optional<std::string>> PostgresEngine::readMany(const std::vector<Place>& places) {
    std::vector<Call> calls;
    calls.reserve(places.size());
    for (const Place& place : places)
        calls.push_back(static_cast<File&>(existing(place.file)).reading(place.key));
    std::vector<std::optional<std::string>> records;
    if (calls.empty())
        return records;
    for (const Rows& rows : ask(calls))
        records.push_back(rows.count() == 0 ? std::nullopt : rows.copy(0, 0));
    return records;
}

void PostgresEngine::requireFree() const {
    if (visiting_)
        connection_.fail(errors::StoreFailed, "est en cours de lecture.");
    if (broken_)
        connection_.fail(errors::StoreFailed, "a annulé la transaction en cours après une erreur : "
                                              "rien n'en a été enregistré.");
}

std::vector<Call> PostgresEngine::opening() {
    if (within_ == Within::Nothing || begun_)
        return {};
    begun_ = true;
    if (within_ == Within::Reads)
        return {{beginReads_, {}}};
    return {{begin_, {}}, {alone_, {}}};
}

// The server ends a transaction by itself where one of its statements fails.
template <typename Work>
auto PostgresEngine::inTransaction(const Work& work) {
    try {
        return work();
    } catch (...) {
        broken_ = within_ != Within::Nothing;
        throw;
    }
}

template <typename Work>
auto PostgresEngine::insisting(const Work& work) {
    const Time until = std::chrono::steady_clock::now() + patience_;
    for (;;) {
        try {
            return work();
        } catch (const Unreachable&) {
            if (std::chrono::steady_clock::now() >= until)
                throw;
        }
        connection_.reconnect(until);
    }
}

std::vector<Rows> PostgresEngine::ask(const std::vector<Call>& calls) {
    requireFree();
    if (within_ == Within::Nothing)
        return insisting([&] { return connection_.run(calls); });
    const auto run = [&] {
        std::vector<Call> all = opening();
        const auto before = static_cast<std::ptrdiff_t>(all.size());
        all.insert(all.end(), calls.begin(), calls.end());
        std::vector<Rows> rows = connection_.run(all);
        rows.erase(rows.begin(), rows.begin() + before);
        return rows;
    };
    // With its beginning, nothing of the transaction is lost.
    const bool first = !begun_;
    return inTransaction([&] {
        return !first ? run() : insisting([&] {
            begun_ = false;
            return run();
        });
    });
}

// What was handed over cannot be taken back, so that a stream that breaks off is not begun anew.
void PostgresEngine::stream(const Call& call, const EngineFile::Visitor& visit) {
    std::exception_ptr thrown;
    inTransaction([&] {
        const Visiting visiting(*this);
        const bool first = !begun_;
        std::vector<Call> all = opening();
        all.push_back(call);
        bool handedOver = false;
        const auto note = [&](std::string_view key, std::string_view record) {
            handedOver = true;
            try {
                return visit(key, record);
            } catch (...) { // by the visitor, of which the server knows nothing
                thrown = std::current_exception();
                return false;
            }
        };
        const auto run = [&] { connection_.stream(all, note, within_ == Within::Nothing); };
        try {
            run();
        } catch (const Unreachable&) {
            if (handedOver || !first)
                throw;
            begun_ = false;
            all = opening();
            all.push_back(call);
            insisting(run);
        }
    });
    if (thrown)
        std::rethrow_exception(thrown);
}

template <typename Work>
auto PostgresEngine::settling(const Work& work) {
    try {
        auto found = insisting(work);
        if (connection_.takeWarning())
            connection_.fail(errors::StoreFailed, "a été écrite, mais aucun serveur de secours ne "
                                                  "l'a confirmé. Recommencez.");
        return found;
    } catch (const Error& lost) {
        // Whoever waits for the transaction's end may have to wait for long.
        if (lost.number() != errors::Unreachable && lost.number() != errors::Locked)
            throw;
        connection_.fail(errors::Unreachable,
                         "n'a pas répondu à un enregistrement, qui est peut-être fait. Quand elle "
                         "sera joignable, voyez-le en rouvrant le dossier avant de recommencer. " +
                             std::string(lost.what()));
    }
}

// A change whose answer is lost is made again on the same condition: where the record is what it
// was to become, it had been made. With it goes a mark, so that there is something whose storing by
// the standby is waited for in any case.
Rows PostgresEngine::change(const Call& call, const Call& again) {
    if (within_ != Within::Nothing) {
        wrote_ = true;
        return ask({call}).front();
    }
    requireFree();
    if (!connection_.connected())
        connection_.reconnect(std::chrono::steady_clock::now() + patience_);
    try {
        Rows rows = connection_.run({call}).front();
        if (!connection_.takeWarning())
            return rows;
    } catch (const Unreachable&) { // to be settled below
    }
    const std::string number = binary(++marked_);
    return settling([&] {
        return connection_.run(
            {{begin_, {}}, again, {noteSession_, {marks_, number}}, {commit_, {}}})[1];
    });
}

void PostgresEngine::run(Within within, const std::function<void()>& work) {
    requireFree();
    if (within_ != Within::Nothing)
        connection_.fail(errors::StoreFailed, "a déjà une transaction en cours.");
    within_ = within;
    begun_ = wrote_ = false;
    try {
        work();
        requireFree();
        commit();
    } catch (...) {
        rollBack();
        throw;
    }
    within_ = Within::Nothing;
}

void PostgresEngine::atomically(const std::function<void()>& work) {
    run(Within::Writes, work);
}

void PostgresEngine::consistently(const std::function<void()>& work) {
    run(Within::Reads, work);
}

void PostgresEngine::commit() {
    if (!begun_)
        return;
    if (!wrote_) {
        connection_.run({{commit_, {}}});
        return;
    }
    const std::string number = binary(++noted_);
    try {
        connection_.run({{noteSession_, {session_, number}}, {commit_, {}}});
        if (!connection_.takeWarning())
            return;
    } catch (const Unreachable&) { // to be settled below
    }
    settle(noted_);
}

// Whoever writes alone has waited for the transaction's end, whatever it was.
void PostgresEngine::settle(std::int64_t number) {
    begun_ = false;
    const std::string next = binary(++marked_);
    const bool done = settling([&] {
        const std::vector<Rows> rows = connection_.run({{begin_, {}},
                                                        {alone_, {}},
                                                        {lastNoted_, {session_}},
                                                        {noteSession_, {marks_, next}},
                                                        {commit_, {}}});
        return rows[2].count() > 0 && rows[2].bytes(0, 0) == binary(number);
    });
    if (!done)
        connection_.fail(errors::Unreachable, "n'était plus joignable au moment d'enregistrer : "
                                              "rien n'a été enregistré. Recommencez.");
}

// Where that fails the connection is lost, and with it the transaction.
void PostgresEngine::rollBack() noexcept {
    within_ = Within::Nothing;
    broken_ = false;
    if (!std::exchange(begun_, false) || !connection_.connected())
        return;
    try {
        connection_.run({{rollBack_, {}}});
    } catch (...) { // NOLINT(bugprone-empty-catch)
    }
}

std::unique_ptr<Engine> PostgresEngine::another() {
    return std::make_unique<PostgresEngine>(url_, OpenMode::Existing, patience_);
}

std::uint64_t PostgresEngine::writesOfOthers() {
    return connection_.news();
}

} // namespace vorandine::store
