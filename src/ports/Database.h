// What the control asks of a multi-value database: files by name, records by key, requests.
#pragma once

#include "records/ChangedMeanwhile.h"
#include "records/DBARecord.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace vorandine::ports {

// One stored file. Keys and values are UTF-8 without control characters. Always owned by a
// std::shared_ptr: each record that it gives keeps its file alive.
class DBAFile : public records::RecordHome, public std::enable_shared_from_this<DBAFile> {
  public:
    // The stored record. Throws Error(RecordMissing) if there is none, another Error if it could
    // not be read.
    [[nodiscard]] virtual records::DBARecord ReadRecord(const std::string& key) = 0;

    // An empty record bound to `key`, for one that is not stored yet: stored by DBWrite only if
    // there still is none.
    [[nodiscard]] records::DBARecord NewRecord(const std::string& key) {
        return {shared_from_this(), key, std::nullopt};
    }

    // Who last changed the record, and when, as far as the database keeps it.
    [[nodiscard]] virtual records::ChangedMeanwhile::Maker LastChange(const std::string& /*key*/) {
        return {};
    }

    // Removes the stored record; nothing happens if there is none. Throws Error if it could not.
    virtual void DeleteRecord(const std::string& key) = 0;
    using RecordHome::DeleteRecord;
};

// The record of `key`; nothing if there is none. Throws what reading it throws.
[[nodiscard]] std::optional<records::DBARecord> find(DBAFile& file, const std::string& key);

// The database that the host hands in.
class DBADatabase {
  public:
    DBADatabase() = default;
    DBADatabase(const DBADatabase&) = delete;
    DBADatabase& operator=(const DBADatabase&) = delete;
    virtual ~DBADatabase() = default;

    // Throws Error(FileUnknown) if the database has no such file.
    [[nodiscard]] virtual std::shared_ptr<DBAFile> OpenFile(const std::string& name) = 0;

    // `request` is a record's whole text: attribute 1 the query, 2 the file's name, 3 the
    // attributes wanted as numbers with one blank between, 0 being the key. The result is a free
    // record with one attribute a row, in the query's order, and one value a wanted attribute;
    // several values of a stored attribute come as one, with 0xFC between them.
    // Throws Error(RequestRefused), which says what is wrong and at which character of the query,
    // Error(FileUnknown), or the error met while reading.
    [[nodiscard]] virtual records::DBARecord Select(const std::string& request) = 0;

    // Runs `work`, whose changes through this database take effect together, or none if it throws;
    // what it reads, nobody else changes before its end. A database without transactions just runs
    // it. Not to be called by `work`.
    virtual void atomically(const std::function<void()>& work) { work(); }
};

// The database client. The control only passes it on.
class DBAClient {
  public:
    DBAClient() = default;
    DBAClient(const DBAClient&) = delete;
    DBAClient& operator=(const DBAClient&) = delete;
    virtual ~DBAClient() = default;
};

} // namespace vorandine::ports
