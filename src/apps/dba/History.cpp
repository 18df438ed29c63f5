// vorandine-dba history: what changes have made of one record, and who made them.
#include "apps/dba/Commands.h"
#include "apps/dba/Opening.h"
#include "audit/history/RecordHistory.h"
#include "audit/history/Statement.h"
#include "exchange/RecordJson.h"
#include "records/RecordText.h"
#include "text/Characters.h"

#include <array>
#include <ostream>
#include <vector>

namespace vorandine::dba {
namespace {

constexpr std::array<Option, 1> historyOptions{{
    {"--json", "", "one JSON object a change, with version, user, before and after"},
}};

using audit::RecordChange;
using audit::State;

class Telling {
  public:
    Telling(std::string name, std::string key, const Console& console)
        : name_(std::move(name)), key_(std::move(key)), console_(console) {}

    void tell(const std::vector<RecordChange>& changes, bool json) {
        if (json) {
            for (const RecordChange& change : changes)
                printJson(change);
            return;
        }
        const auto statement = audit::statementFor(name_);
        if (const State& first = changes.front().before) {
            statement->heading("as first kept");
            statement->opening(record(first));
        }
        for (const RecordChange& change : changes) {
            statement->heading(change.moment + ' ' + wordFor(change.before, change.after) +
                               (change.user.empty() ? "" : " by " + change.user));
            statement->tell(record(change.before), record(change.after));
        }
        statement->print(console_.out);
    }

    [[nodiscard]] bool damaged() const noexcept { return damaged_; }

  private:
    std::string name_;
    std::string key_;
    const Console& console_;
    bool damaged_ = false;

    // Damage is told once for each state; the rest of the history can still be read.
    records::DBARecord record(const State& state) {
        if (state && !records::isPlainRecord(*state)) {
            if (!damaged_)
                console_.complain("a version is damaged, it is shown empty");
            damaged_ = true;
            return {nullptr, key_, ""};
        }
        return {nullptr, key_, state.value_or("")};
    }

    static std::string wordFor(const State& before, const State& after) {
        if (!before)
            return after ? "created" : "never there";
        if (!after)
            return "deleted";
        return *before == *after ? "stored again as it was" : "changed";
    }

    void printJson(const RecordChange& change) {
        std::string json = "{\"version\":";
        exchange::appendJsonText(json, text::Printable(change.moment));
        json += ",\"user\":";
        exchange::appendJsonText(json, text::Printable(change.user));
        const auto member = [&](const char* name, const State& state) {
            json += name;
            const records::DBARecord shown = record(state);
            if (state)
                exchange::appendJson(json, shown());
            else
                json += "null";
        };
        member(",\"before\":", change.before);
        member(",\"after\":", change.after);
        console_.out << json << "}\n";
    }
};

int history(const CommandLine& line, const Console& console) {
    const std::string& name = line.words()[1];
    const std::string& key = line.words()[2];
    store::Store store(openStore(line.words().front()));
    static_cast<void>(engineFile(store.changes().engine(), name));
    const audit::RecordHistory history = audit::historyOf(store, name, key);
    if (history.changes.empty()) {
        console.complain("no change of '" + key + "' in " + name + " was kept" +
                         (history.today ? "" : ", and there is no such record"));
        return Findings;
    }
    Telling telling(name, key, console);
    telling.tell(history.changes, line.has("--json"));
    return telling.damaged() ? Findings : Done;
}

} // namespace

constexpr Command historyCommand{
    "history",
    "URL FILE KEY",
    3,
    3,
    "show what changes have made of one record",
    "Each change begins with its moment (UTC), which names it for restore, and who made it; then\n"
    "come the values that left and came. A ledger (DIFAIDANT) is shown as a statement, with dates\n"
    "and hours as on the screen: lines that are new, gone or changed (was, is), and lines whose\n"
    "balance followed. Where no change was kept, the exit status is 1.\n",
    historyOptions,
    "  vorandine-dba history sqlite:agence.vor DIFAIDANT 00012PSD\n"
    "  vorandine-dba history --json sqlite:agence.vor CONTRAT '00012*1'\n",
    history,
};

} // namespace vorandine::dba
