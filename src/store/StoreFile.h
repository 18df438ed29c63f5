// A file of a store as the control knows it: checks what goes in and out of the engine, and guards
// records that could not be read against being replaced.
#pragma once

#include "ports/Database.h"
#include "store/Changes.h"
#include "store/Engine.h"

#include <set>

namespace vorandine::store {

class StoreFile : public ports::DBAFile {
  public:
    // `file` is of the engine of `changes`, which is kept alive.
    StoreFile(std::shared_ptr<Changes> changes, EngineFile& file, std::string name);

    // Throws, beyond what DBAFile tells and the engine's errors: Error(KeyRefused) on an empty key,
    // Error(TextRefused) where key or text is not plain, Error(Damaged) on a stored record that is
    // no plain text. Error(ReadHadFailed) guards a key from a failed read until a later read of it,
    // through this object, finds the record or finds that there is none.
    [[nodiscard]] records::DBARecord ReadRecord(const std::string& key) override;
    [[nodiscard]] records::ChangedMeanwhile::Maker LastChange(const std::string& key) override;
    void DeleteRecord(const std::string& key) override;
    void DeleteRecord(const std::string& key, const std::optional<std::string>& read) override;
    void WriteRecord(const std::string& key, std::string_view text) override;
    void WriteRecord(const std::string& key, std::string_view text,
                     const std::optional<std::string>& read) override;

  private:
    std::shared_ptr<Changes> changes_;
    EngineFile& file_;
    std::string name_;
    std::set<std::string> unread_; // keys whose last read failed

    [[nodiscard]] std::optional<std::string> readText(const std::string& key);
    void requireWritable(const std::string& key) const;
    void requirePlain(const std::string& key, std::string_view text) const;
    // That `read`, which must outlive the condition as the key must, is what is stored.
    [[nodiscard]] Changes::Condition unchanged(const std::string& key,
                                               const std::optional<std::string>& read);
};

} // namespace vorandine::store
