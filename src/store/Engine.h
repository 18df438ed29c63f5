// What a storage engine does for the store: named files of records by key, in binary key order.
// Engines know bytes; keys, records and requests are the store's affair.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::store {

// The engine's file in which records are kept as they were (store/Changes.h). Every store has it;
// it is none of those that hosts open.
constexpr std::string_view HistoryFile = "HISTORIQUE";

// Keys k with from <= k, and k < to if there is a `to`, in binary order.
struct KeyRange {
    std::string from;
    std::optional<std::string> to;
};

constexpr std::size_t NoLimit = static_cast<std::size_t>(-1);

// A change of one record, with the history that it leaves (store/Changes.h tells which).
struct Swap {
    std::string_view key;
    std::optional<std::string_view> record; // none: it is erased
    // What must be stored for it to be made, no record being one; none: whatever is there.
    std::optional<std::optional<std::string_view>> expected;
    std::string_view user;   // who makes it, as far as the engine lets itself be told
    bool load = false;       // one of many, of which the history keeps what replaced something
    std::string_view moment; // to date it by, before the engine sees to the order; "": its clock
};
struct Swapped {
    bool done = false; // not where something else than expected is stored
    std::optional<std::string> before;
    std::string moment; // of the version kept; "" where none was
};

// One file of an engine. Every member throws Error with one of the store's numbers (ReadOnly,
// Locked, Damaged, DiskFull, StoreFailed, StoreMissing where the file was taken away) when the
// engine fails. A failed write or erase changes nothing, save where only the disk's last word is
// missing, that it is there for good: the text of that StoreFailed says so.
class EngineFile {
  public:
    // Gets key and record; false ends the scan. Both views end with the call.
    using Visitor = std::function<bool(std::string_view key, std::string_view record)>;

    EngineFile() = default;
    EngineFile(const EngineFile&) = delete;
    EngineFile& operator=(const EngineFile&) = delete;
    virtual ~EngineFile() = default;

    [[nodiscard]] virtual std::optional<std::string> read(std::string_view key) = 0;
    // Both give the record that was there, none if there was none. When they return outside a
    // transaction, the change survives a power cut, if the engine keeps anything at all.
    virtual std::optional<std::string> write(std::string_view key, std::string_view record) = 0;
    virtual std::optional<std::string> erase(std::string_view key) = 0;
    // Compares, changes and keeps the history in one step of the engine's; none where the engine
    // has no such step, and the caller does the same in a transaction.
    [[nodiscard]] virtual std::optional<Swapped> swap(const Swap& /*change*/) {
        return std::nullopt;
    }
    // The first `atMost` in key order, one state of the file: that of the transaction that it runs
    // in, else that in which it begins. Entries are handed over as they come, so that one that
    // fails half-way has visited some. It may hold the engine's one way to its files: the visitor
    // calls nothing of the engine (Error(StoreFailed)). It may throw.
    virtual void scan(const KeyRange& range, const Visitor& visit,
                      std::size_t atMost = NoLimit) = 0;
};

// Where a record stands.
struct Place {
    std::string file;
    std::string key;
};

// Used by one thread at a time.
class Engine {
  public:
    Engine() = default;
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    virtual ~Engine() = default;

    // The file of that name, which lives as long as the engine; null if there is none.
    [[nodiscard]] virtual EngineFile* file(const std::string& name) = 0;
    // The names of all files of records/Layout.h, sorted; the history is none of them.
    [[nodiscard]] virtual std::vector<std::string> files() = 0;
    // The records at those places, none where there is none, in their order: all at once, where
    // each asking takes a way over a network. Throws Error(FileUnknown), and what reading throws.
    [[nodiscard]] virtual std::vector<std::optional<std::string>>
    readMany(const std::vector<Place>& places);
    // Runs `work`; all its writes take effect together, or none if it throws, which it may. Not to
    // be called by `work`: that throws Error(StoreFailed).
    virtual void atomically(const std::function<void()>& work) = 0;
    // Runs `work`, which only reads: all its reads see one state of all files. Whoever writes
    // meanwhile may have to wait for its end. Not within atomically, which sees one state anyway.
    // An engine that nobody else can write to has nothing to do for it.
    virtual void consistently(const std::function<void()>& work) { work(); }

    // Another connection to the same store, as another program would have: what one has written,
    // the other reads. Throws as openEngine does.
    [[nodiscard]] virtual std::unique_ptr<Engine> another() = 0;
    // A number that is another one once another connection has written, and stays as it is through
    // own writes: cheap enough to be asked before each gesture. A number, since of several who ask
    // whether others wrote, the first would have the answer and the rest would not. Waits for
    // nobody: Error(Locked) at once.
    [[nodiscard]] virtual std::uint64_t writesOfOthers() = 0;
    // How often so far it has asked a server and waited for the answer; 0 where there is no server.
    [[nodiscard]] virtual std::uint64_t roundTrips() { return 0; }

  protected:
    // The file of that name. Throws Error(FileUnknown).
    [[nodiscard]] EngineFile& existing(const std::string& name);
};

} // namespace vorandine::store
