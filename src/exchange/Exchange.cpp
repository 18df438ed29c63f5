// Lines that a program wrote take the short way; all others, and all wrong ones, go through the
// full reader, which also says what is wrong.
#include "exchange/Exchange.h"

#include "exchange/ExchangeLine.h"
#include "exchange/LineReader.h"
#include "exchange/RecordJson.h"
#include "records/RecordText.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <map>
#include <memory>
#include <nlohmann/json.hpp>

namespace vorandine::exchange {
namespace {

using nlohmann::json;

// More than any record that people work with, and little enough to be taken apart in memory.
constexpr std::size_t LongestLine = 1U << 24U;

[[noreturn]] void refuseLine(const std::string& text) {
    throw Error(errors::TextRefused, text);
}

// The member of that name, taken out of `entry`.
json take(json& entry, const char* name) {
    const auto found = entry.find(name);
    if (found == entry.end())
        refuseLine("« " + std::string(name) + " » manque.");
    json member = std::move(*found);
    entry.erase(found);
    return member;
}

std::string takeText(json& entry, const char* name) {
    const json member = take(entry, name);
    if (!member.is_string())
        refuseLine("« " + std::string(name) + " » doit être un texte.");
    return member.get<std::string>();
}

class Importer {
  public:
    Importer(store::Store& store, ImportRun& run) : store_(store), run_(run) {}

    void read(const ImportSource& source) {
        LineReader lines(source.lines, LongestLine);
        for (std::size_t number = 1; lines.next(line_); ++number) {
            if (!lines.tooLong() && line_.find_first_not_of(" \t\r") == std::string::npos)
                continue;
            run_.line(source.name, number, [&] {
                if (lines.tooLong())
                    refuseLine("La ligne dépasse 16 Mio.");
                if (line_.back() == '\r')
                    line_.pop_back();
                if (readExchangeLine(line_, read_))
                    file(read_.file).WriteRecord(std::string(read_.key), read_.record);
                else
                    put(parseJson(line_));
                return true;
            });
        }
        if (lines.failed())
            throw Error(errors::Unexpected, "La lecture de « " + source.name + " » a échoué.");
    }

  private:
    store::Store& store_;
    ImportRun& run_;
    std::map<std::string, std::shared_ptr<ports::DBAFile>, std::less<>> files_;
    std::string line_;
    ExchangeLine read_;

    void put(json entry) {
        if (!entry.is_object())
            refuseLine("La ligne doit être un objet JSON.");
        const std::string name = takeText(entry, "file");
        const std::string key = takeText(entry, "key");
        const json content = take(entry, "record");
        if (!entry.empty())
            refuseLine("« " + entry.begin().key() +
                       " » n'est ni « file », ni « key », ni « record ».");
        records::DBARecord record;
        // The exchange format knows attributes by number alone.
        fill(record, content, [](const std::string&) { return 0; });
        file(name).WriteRecord(key, std::as_const(record)());
    }

    ports::DBAFile& file(std::string_view name) {
        const auto known = files_.find(name);
        if (known != files_.end())
            return *known->second;
        std::string text(name);
        auto opened = store_.OpenFile(text);
        return *files_.emplace(std::move(text), std::move(opened)).first->second;
    }
};

} // namespace

ImportResult importRecords(store::Store& store, const std::vector<ImportSource>& sources,
                           const ImportWatch& watch, BadLines badLines) {
    ImportRun run(store, badLines, watch);
    Importer importer(store, run);
    return run.run([&] {
        for (const ImportSource& source : sources)
            importer.read(source);
    });
}

ExportResult exportRecords(store::EngineFile& file, const std::string& name, std::ostream& out,
                           const std::function<void(const std::string&)>& complain,
                           const std::function<void()>& step) {
    ExportResult result;
    std::string line;
    file.scan({}, [&](std::string_view key, std::string_view record) {
        step();
        if (!records::isPlainEntry(key, record)) {
            ++result.damaged;
            complain(name + " " + records::shownKey(key) +
                     ": the record is damaged, it is left out");
            return true;
        }
        line.clear();
        appendExchangeLine(line, name, key, record);
        out.write(line.data(), static_cast<std::streamsize>(line.size()));
        ++result.written;
        return bool(out);
    });
    return result;
}

} // namespace vorandine::exchange
