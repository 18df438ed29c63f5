// The tables of an SQLite file read page by page, past pages that are damaged: what SQLite itself
// gives up at. Made for stores alone: trees of two BLOBs, the first of them the key.
// The format is that of https://www.sqlite.org/fileformat2.html.
#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::store {

class SqlitePages {
  public:
    // Gets key and record; both views end with the call.
    using Visitor = std::function<void(std::string_view key, std::string_view record)>;

    // Reads the file at `path`, which must not be written meanwhile. Throws Error(Damaged) where
    // not even the size of its pages can be made out, Error(StoreFailed) where it cannot be opened.
    explicit SqlitePages(const std::string& path);

    // Hands over every entry that can be read of the tree whose root is page `root` (from 1), in
    // the order of their keys as far as the tree is sound.
    void visit(std::uint32_t root, const Visitor& visitor);

    // How many pages and entries were found unreadable so far. A page takes with it what stood in
    // it, and for one that led to others, those.
    [[nodiscard]] std::size_t lost() const noexcept { return lost_; }

  private:
    using Page = std::string;

    // What a cell of a tree tells of its entry; the rest may lie in pages of its own.
    struct Payload {
        std::size_t size = 0;
        std::size_t at = 0;    // of its first bytes, in the page
        std::size_t local = 0; // how many of them
    };

    std::ifstream file_;
    std::size_t pageBytes_ = 0;
    std::size_t usable_ = 0; // bytes of a page
    std::uint32_t pages_ = 0;
    std::set<std::uint32_t> visited_; // no page may stand in two places, nor below itself
    std::size_t lost_ = 0;

    std::optional<Page> read(std::uint32_t number);
    void visitPage(std::uint32_t number, const Visitor& visitor, int depth);
    void visitCell(const Page& page, std::size_t at, const Visitor& visitor);
    [[nodiscard]] std::optional<Payload> payloadAt(const Page& page, std::size_t at) const;
    std::optional<std::string> whole(const Page& page, const Payload& payload);
};

} // namespace vorandine::store
