// libpq in pipeline mode, and what the server's codes of failures mean to the user.
#include "store/postgresql/Connection.h"

#include <algorithm>
#include <array>
#include <libpq-fe.h>
#include <new>
#include <thread>
#include <utility>

namespace vorandine::store::postgresql {
namespace {

// What a URL may set otherwise. A server that is gone is noticed within half a minute, wherever the
// line is cut; of several servers the one that takes writes is meant.
constexpr std::array<std::pair<const char*, const char*>, 9> Defaults{{
    {"connect_timeout", "5"},
    {"keepalives", "1"},
    {"keepalives_idle", "10"},
    {"keepalives_interval", "5"},
    {"keepalives_count", "3"},
    {"tcp_user_timeout", "20000"},
    {"gssencmode", "disable"}, // each connection would ask for it
    {"target_session_attrs", "read-write"},
    {"fallback_application_name", "vorandine"},
}};
// The same for the server, so that a seat that died silently holds no lock; how long another's lock
// is waited for; and always the way by the keys: a plan that sorts would begin with the whole file.
constexpr const char* Settings =
    "SELECT set_config(name, value, false) FROM (VALUES ('lock_timeout', '5s'), "
    "('idle_in_transaction_session_timeout', '60s'), ('tcp_user_timeout', '20s'), "
    "('tcp_keepalives_idle', '10s'), ('tcp_keepalives_interval', '5s'), "
    "('tcp_keepalives_count', '3'), ('plan_cache_mode', 'force_generic_plan'), ('jit', 'off'), "
    "('enable_sort', 'off'), ('enable_seqscan', 'off'), ('enable_bitmapscan', 'off'), "
    "('default_transaction_isolation', 'read committed')) AS wanted (name, value)";

constexpr std::chrono::milliseconds Pause{200}; // between two attempts to connect
constexpr int MostEmpty = 100; // answers in a row that are none: more come of no sound connection

struct Meaning {
    std::string_view state; // begins so
    std::uint32_t number;
    const char* text; // goes on after "La base « url » "
};

constexpr const char* Full = "n'a plus de place sur le disque du serveur. Libérez-y de la place, "
                             "puis recommencez.";
constexpr const char* Busy = "est occupée par un autre poste ou un autre programme. Attendez qu'il "
                             "ait fini, puis recommencez.";
constexpr const char* Broken = "est endommagée. Remplacez-la par une copie de sauvegarde.";
constexpr const char* Gone = "n'est plus complète : une de ses tables ou fonctions a été supprimée "
                             "ou changée. Remplacez-la par une copie de sauvegarde.";
constexpr std::array<Meaning, 11> Meanings{{
    {"55P03", errors::Locked, Busy},
    {"40", errors::Locked, Busy},
    {"53100", errors::DiskFull, Full},
    {"42501", errors::ReadOnly,
     "refuse cela à ce poste : ses droits ne le permettent pas. Demandez-les à votre "
     "administrateur."},
    {"XX001", errors::Damaged, Broken},
    {"XX002", errors::Damaged, Broken},
    {"42P01", errors::StoreMissing, Gone},
    {"42883", errors::StoreMissing, Gone},
    {"42703", errors::StoreMissing, Gone},
    {"3F000", errors::StoreMissing, Gone},
    {"", errors::StoreFailed, "n'a pas pu être lue ou écrite."},
}};

// The server ends the connection, or is none to write to any more.
constexpr std::array<std::string_view, 7> Ends{"08",    "25P03", "57P01", "57P02",
                                               "57P03", "57P05", "25006"};

std::string_view field(const PGresult* result, int code) {
    const char* const text = PQresultErrorField(result, code);
    return text == nullptr ? std::string_view() : std::string_view(text);
}

bool isFailure(const PGresult* result) {
    switch (PQresultStatus(result)) {
    case PGRES_FATAL_ERROR:
    case PGRES_BAD_RESPONSE:
    case PGRES_PIPELINE_ABORTED:
        return true;
    default:
        return false;
    }
}

// libpq's texts are lines.
std::string oneLine(std::string text) {
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 2)
        text.replace(at, 1, " ; ");
    return text;
}

} // namespace

Rows::Rows(PGresult* result) : result_(result, &PQclear) {}

int Rows::count() const {
    return PQntuples(result_.get());
}

bool Rows::null(int row, int column) const {
    return PQgetisnull(result_.get(), row, column) != 0;
}

std::string_view Rows::bytes(int row, int column) const {
    return {PQgetvalue(result_.get(), row, column),
            static_cast<std::size_t>(PQgetlength(result_.get(), row, column))};
}

std::optional<std::string> Rows::copy(int row, int column) const {
    if (null(row, column))
        return std::nullopt;
    return std::string(bytes(row, column));
}

void Connection::Close::operator()(PGconn* handle) const noexcept {
    PQfinish(handle);
}

Connection::Connection(Address address) : address_(std::move(address)) {
    connect();
}

Connection::~Connection() = default;

void Connection::connect() {
    std::vector<const char*> names;
    std::vector<const char*> values;
    for (const auto& [name, value] : Defaults) {
        names.push_back(name);
        values.push_back(value);
    }
    for (const auto& [name, value] : {std::pair("dbname", address_.server.c_str()),
                                      {"client_encoding", "UTF8"},
                                      {static_cast<const char*>(nullptr), nullptr}}) {
        names.push_back(name);
        values.push_back(value);
    }
    handle_.reset(PQconnectdbParams(names.data(), values.data(), 1));
    if (handle_ == nullptr)
        throw std::bad_alloc();
    ++generation_;
    ++news_;
    if (PQstatus(handle_.get()) != CONNECTION_OK || PQenterPipelineMode(handle_.get()) == 0)
        lose();
    PQsetNoticeReceiver(handle_.get(), &Connection::noteNotice, this);
    Statement settings(Settings);
    Statement listen("LISTEN " + quotedName(address_.schema));
    run({{settings, {}}, {listen, {}}});
    warned_ = false;
}

void Connection::reconnect(std::chrono::steady_clock::time_point until) {
    for (;;) {
        try {
            handle_.reset();
            return connect();
        } catch (const Unreachable&) {
            if (std::chrono::steady_clock::now() + Pause >= until)
                throw;
        }
        std::this_thread::sleep_for(Pause);
    }
}

std::vector<Rows> Connection::run(const std::vector<Call>& calls) {
    std::vector<Statement*> fresh;
    std::shared_ptr<PGresult> failure;
    std::vector<Rows> rows;
    rows.reserve(calls.size());
    for (const bool wanted : send(calls, fresh)) {
        Rows answered = answer(failure);
        if (wanted)
            rows.push_back(std::move(answered));
    }
    finish(fresh, failure);
    return rows;
}

void Connection::stream(const std::vector<Call>& calls, const Visitor& visitor, bool mayCancel) {
    std::vector<Statement*> fresh;
    std::shared_ptr<PGresult> failure;
    for (std::size_t before = send(calls, fresh).size() - 1; before > 0; --before)
        static_cast<void>(answer(failure));
    PQsetSingleRowMode(handle_.get());
    bool ended = false;
    while (PGresult* const result = next()) {
        const Rows row(result);
        if (isFailure(result) && !failure)
            failure = row.keep();
        if (ended || PQresultStatus(result) != PGRES_SINGLE_TUPLE)
            continue;
        ended = !visitor(row.bytes(0, 0), row.bytes(0, 1));
        if (ended && mayCancel) {
            const std::unique_ptr<PGcancel, decltype(&PQfreeCancel)> cancel(
                PQgetCancel(handle_.get()), &PQfreeCancel);
            std::array<char, 256> why{};
            PQcancel(cancel.get(), why.data(), static_cast<int>(why.size()));
        }
    }
    if (ended && failure && field(failure.get(), PG_DIAG_SQLSTATE) == "57014")
        failure.reset();
    finish(fresh, failure);
}

void Connection::script(const std::vector<std::string>& statements) {
    std::string all;
    for (const std::string& statement : statements)
        all += statement + ";\n";
    if (handle_ == nullptr || PQexitPipelineMode(handle_.get()) == 0)
        lose();
    const Rows rows(PQexec(handle_.get(), all.c_str()));
    ++roundTrips_;
    if (PQenterPipelineMode(handle_.get()) == 0)
        lose();
    if (isFailure(rows.keep().get()))
        fail(rows.keep().get());
}

// A statement is prepared under a name that nobody had: one of a pipeline that failed may be there
// or not.
std::vector<bool> Connection::send(const std::vector<Call>& calls, std::vector<Statement*>& fresh) {
    if (handle_ == nullptr)
        connect();
    ++roundTrips_;
    PGconn* const to = handle_.get();
    bool sent = true;
    std::vector<bool> answers;
    for (const Call& call : calls) {
        Statement& statement = call.statement.get();
        if (statement.connection_ != generation_) {
            statement.connection_ = generation_;
            statement.name_ = std::to_string(++names_);
            fresh.push_back(&statement);
            answers.push_back(false);
            sent = sent && PQsendPrepare(to, statement.name_.c_str(), statement.sql_.c_str(), 0,
                                         nullptr) != 0;
        }
        answers.push_back(true);
        std::vector<const char*> values;
        std::vector<int> lengths;
        for (const auto& value : call.values) {
            // A null pointer would be NULL where an empty text is meant.
            values.push_back(!value ? nullptr : value->empty() ? "" : value->data());
            lengths.push_back(value ? static_cast<int>(value->size()) : 0);
        }
        const std::vector<int> binary(values.size(), 1);
        sent = sent &&
               PQsendQueryPrepared(to, statement.name_.c_str(), static_cast<int>(values.size()),
                                   values.data(), lengths.data(), binary.data(), 1) != 0;
    }
    if (!sent || PQpipelineSync(to) == 0)
        lose();
    return answers;
}

Rows Connection::answer(std::shared_ptr<PGresult>& failure) {
    Rows rows(nullptr);
    while (PGresult* const result = next()) {
        rows = Rows(result);
        if (isFailure(result) && !failure)
            failure = rows.keep();
    }
    return rows;
}

// Up to where the server is ready again.
void Connection::finish(const std::vector<Statement*>& fresh, std::shared_ptr<PGresult>& failure) {
    for (int empty = 0;;) {
        const Rows rows(next());
        if (PQresultStatus(rows.keep().get()) == PGRES_PIPELINE_SYNC)
            break;
        if (++empty > MostEmpty)
            lose();
    }
    takeNotifications();
    if (!failure)
        return;
    for (Statement* const statement : fresh)
        statement->connection_ = 0;
    fail(failure.get());
}

PGresult* Connection::next() {
    PGresult* const result = PQgetResult(handle_.get());
    if (PQstatus(handle_.get()) == CONNECTION_OK)
        return result;
    PQclear(result);
    lose();
}

bool Connection::takeWarning() noexcept {
    return std::exchange(warned_, false);
}

void Connection::noteNotice(void* connection, const PGresult* notice) {
    if (field(notice, PG_DIAG_SEVERITY_NONLOCALIZED) == "WARNING")
        static_cast<Connection*>(connection)->warned_ = true;
}

std::uint64_t Connection::news() {
    if (handle_ == nullptr || PQconsumeInput(handle_.get()) == 0)
        lose();
    takeNotifications();
    return news_;
}

void Connection::takeNotifications() {
    while (PGnotify* const notification = PQnotifies(handle_.get())) {
        if (notification->be_pid != PQbackendPID(handle_.get()))
            ++news_;
        PQfreemem(notification);
    }
}

void Connection::fail(std::uint32_t number, const std::string& why) const {
    throw Error(number, "La base « " + address_.shown + " » " + why);
}

void Connection::fail(const PGresult* result) {
    const std::string_view state = field(result, PG_DIAG_SQLSTATE);
    if (std::any_of(Ends.begin(), Ends.end(),
                    [&](std::string_view end) { return state.starts_with(end); }))
        lose();
    const Meaning& meaning =
        *std::find_if(Meanings.begin(), Meanings.end(),
                      [&](const Meaning& one) { return state.starts_with(one.state); });
    std::string text = meaning.text;
    if (meaning.number == errors::StoreFailed || meaning.number == errors::StoreMissing)
        text += " (PostgreSQL " + std::string(state) + " : " +
                oneLine(std::string(field(result, PG_DIAG_MESSAGE_PRIMARY))) + ")";
    fail(meaning.number, text);
}

void Connection::lose() {
    std::string text = "La base « " + address_.shown + " » n'est pas joignable. ";
    if (handle_ != nullptr) {
        if (PQconnectionNeedsPassword(handle_.get()) != 0)
            text +=
                "Le serveur demande un mot de passe : écrivez-le dans le fichier ~/.pgpass (une "
                "ligne SERVEUR:PORT:BASE:POSTE:MOTDEPASSE, chmod 600). ";
        else
            text += "Vérifiez que le serveur fonctionne et que ce poste est relié au réseau, puis "
                    "recommencez. ";
        text += '(' + oneLine(PQerrorMessage(handle_.get())) + ')';
        handle_.reset();
    }
    throw Unreachable(text);
}

} // namespace vorandine::store::postgresql
