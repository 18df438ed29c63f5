// Cells are converted row by row; a record is stored once the rows of its key have ended.
#include "exchange/TableImport.h"

#include "ports/Database.h"
#include "records/DBARecord.h"
#include "text/Error.h"

#include <functional>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

namespace vorandine::exchange {
namespace {

// Rows that follow each other with one key make one record: each adds a value to the lists.
class Rows {
  public:
    Rows(ports::DBAFile& file, const CsvMapping& mapping, const TableSource& table, ImportRun& run)
        : file_(file), mapping_(mapping), name_(table.name), width_(table.first.cells.size()),
          run_(run) {}

    // Whether the row is good; what is wrong with it was told.
    bool take(const CsvRow& row) {
        if (row.fault)
            return complain(row, row.faultColumn, *row.fault);
        if (row.cells.size() != width_)
            return complain(row, 0,
                            "the row has " + std::to_string(row.cells.size()) + " cells, not " +
                                std::to_string(width_));
        if (!convertCells(row))
            return false;
        return stored_.front() == key_ ? add(row) : begin(row);
    }

    // Stores the record of the last rows.
    void finish() {
        if (!key_.empty())
            record_.DBWrite();
        key_.clear();
    }

  private:
    ports::DBAFile& file_;
    const CsvMapping& mapping_;
    const std::string& name_;
    std::size_t width_;
    ImportRun& run_;
    std::vector<std::string> stored_; // the row's cells as they are stored, the key first
    std::string key_;
    records::DBARecord record_;
    int rows_ = 0;                         // that make the record
    std::unordered_set<std::size_t> seen_; // hashes of keys

    // Of a column from 1, or of the whole row with 0.
    bool complain(const CsvRow& row, std::size_t column, const std::string& what) {
        run_.complain(name_ + ":" + std::to_string(row.line) + ":" +
                      (column > 0 ? std::to_string(column) + ":" : "") + " " + what);
        return false;
    }

    bool complain(const CsvRow& row, const MappedColumn& column, const std::string& what) {
        return complain(row, column.column + 1, "'" + column.head + "': " + what);
    }

    bool convertCells(const CsvRow& row) {
        bool good = true;
        stored_.clear();
        for (const MappedColumn& column : mapping_.columns()) {
            ConvertedCell cell = convert(row.cells[column.column], column.kind);
            if (!cell.fault.empty())
                good = complain(row, column, cell.fault);
            stored_.push_back(std::move(cell.stored));
        }
        if (stored_.front().empty())
            good = complain(row, mapping_.columns().front(), "the key is empty");
        return good;
    }

    bool begin(const CsvRow& row) {
        finish();
        // The same key further down would replace what the rows here have stored.
        if (!seen_.insert(std::hash<std::string>()(stored_.front())).second)
            return complain(row, mapping_.columns().front(),
                            "'" + stored_.front() +
                                "' stands further up too: rows of one key must follow each other");
        key_ = stored_.front();
        record_ = existing(key_);
        rows_ = 1;
        for (std::size_t i = 1; i < stored_.size(); ++i)
            record_(mapping_.columns()[i].attribute) = stored_[i];
        return true;
    }

    bool add(const CsvRow& row) {
        bool good = true;
        for (std::size_t i = 1; i < stored_.size(); ++i) {
            const MappedColumn& column = mapping_.columns()[i];
            if (!column.list && std::as_const(record_)(column.attribute) != stored_[i])
                good = complain(row, column,
                                "differs from the row above of the same key, and the attribute "
                                "has one value only");
        }
        if (!good)
            return false;
        ++rows_;
        for (std::size_t i = 1; i < stored_.size(); ++i)
            if (mapping_.columns()[i].list)
                record_(mapping_.columns()[i].attribute, rows_) = stored_[i];
        return true;
    }

    // What is not mapped stays as it is.
    records::DBARecord existing(const std::string& key) {
        std::optional<records::DBARecord> stored = ports::find(file_, key);
        return stored ? *std::move(stored) : file_.NewRecord(key);
    }
};

} // namespace

ImportResult importTable(store::Store& store, const std::string& file, const TableSource& table,
                         const CsvMapping& mapping, const ImportWatch& watch, BadLines badLines) {
    const auto opened = store.OpenFile(file);
    ImportRun run(store, badLines, watch);
    return run.run([&] {
        Rows rows(*opened, mapping, table, run);
        CsvRow row = table.first;
        bool more = !table.heads || table.rows.next(row);
        for (; more; more = table.rows.next(row))
            if (!row.empty())
                run.line(table.name, row.line, [&] { return rows.take(row); });
        if (table.rows.failed())
            throw Error(errors::Unexpected, "La lecture de « " + table.name + " » a échoué.");
        rows.finish();
    });
}

} // namespace vorandine::exchange
