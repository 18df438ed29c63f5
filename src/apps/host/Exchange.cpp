// All lines are looked at even when one was wrong, so that a file can be mended in one go; the
// transaction is given up at the end.
#include "apps/host/Exchange.h"

#include "apps/host/RecordJson.h"
#include "text/Error.h"

#include <map>
#include <memory>

namespace vorandine::host {
namespace {

using nlohmann::json;

// Ends a transaction whose lines were not all good.
struct GivenUp {};

[[noreturn]] void refuse(const std::string& text) {
    throw Error(errors::TextRefused, text);
}

// Whether an error lies in the line, not in the store.
bool isOfTheLine(const Error& error) {
    switch (error.number()) {
    case errors::TextRefused:
    case errors::KeyRefused:
    case errors::FileUnknown:
        return true;
    default:
        return false;
    }
}

// The member of that name, taken out of `entry`.
json take(json& entry, const char* name) {
    const auto found = entry.find(name);
    if (found == entry.end())
        refuse("« " + std::string(name) + " » manque.");
    json member = std::move(*found);
    entry.erase(found);
    return member;
}

std::string takeText(json& entry, const char* name) {
    const json member = take(entry, name);
    if (!member.is_string())
        refuse("« " + std::string(name) + " » doit être un texte.");
    return member.get<std::string>();
}

class Importer {
  public:
    Importer(store::Store& store, const std::function<void(const std::string&)>& complain)
        : store_(store), complain_(complain) {}

    void read(const ImportSource& source) {
        std::string line;
        for (std::size_t number = 1; std::getline(source.lines, line); ++number) {
            if (line.find_first_not_of(" \t\r") == std::string::npos)
                continue;
            try {
                put(parseJson(line));
                ++stored_;
            } catch (const Error& error) {
                if (!isOfTheLine(error))
                    throw;
                good_ = false;
                complain_(source.name + ":" + std::to_string(number) + ": " + error.what());
            }
        }
        if (source.lines.bad())
            throw Error(errors::Unexpected, "La lecture de « " + source.name + " » a échoué.");
    }

    [[nodiscard]] bool good() const noexcept { return good_; }
    [[nodiscard]] std::size_t stored() const noexcept { return stored_; }

  private:
    store::Store& store_;
    const std::function<void(const std::string&)>& complain_;
    std::map<std::string, std::shared_ptr<data::DBAFile>> files_;
    bool good_ = true;
    std::size_t stored_ = 0;

    void put(json entry) {
        if (!entry.is_object())
            refuse("La ligne doit être un objet JSON.");
        const std::string name = takeText(entry, "file");
        const std::string key = takeText(entry, "key");
        const json content = take(entry, "record");
        if (!entry.empty())
            refuse("« " + entry.begin().key() + " » n'est ni « file », ni « key », ni « record ».");
        data::DBARecord record = file(name).NewRecord(key);
        // The exchange format knows attributes by number alone.
        fill(record, content, [](const std::string&) { return 0; });
        record.DBWrite();
    }

    data::DBAFile& file(const std::string& name) {
        const auto known = files_.find(name);
        if (known != files_.end())
            return *known->second;
        return *files_.emplace(name, store_.OpenFile(name)).first->second;
    }
};

} // namespace

std::optional<std::size_t> importRecords(store::Store& store,
                                         const std::vector<ImportSource>& sources,
                                         const std::function<void(const std::string&)>& complain) {
    Importer importer(store, complain);
    try {
        store.atomically([&] {
            for (const ImportSource& source : sources)
                importer.read(source);
            if (!importer.good())
                throw GivenUp();
        });
    } catch (const GivenUp&) {
        return std::nullopt;
    }
    return importer.stored();
}

} // namespace vorandine::host
