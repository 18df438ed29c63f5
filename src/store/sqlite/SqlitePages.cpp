// Nothing that is read is trusted: every number is held against the page that it came from.
#include "store/sqlite/SqlitePages.h"

#include "text/Error.h"

#include <array>
#include <cerrno>
#include <system_error>

namespace vorandine::store {
namespace {

constexpr std::size_t FileHeader = 100;
constexpr std::size_t PageSizeAt = 16;
constexpr std::size_t ReservedAt = 20;
constexpr unsigned char InteriorPage = 2;
constexpr unsigned char LeafPage = 10;
constexpr std::size_t CellCountAt = 3;
constexpr std::size_t LastChildAt = 8;
constexpr std::size_t LeafHeader = 8;
constexpr std::size_t InteriorHeader = 12;
constexpr std::size_t PageNumber = 4; // bytes
constexpr int DeepestTree = 20;
constexpr std::size_t LargestEntry = std::size_t{1} << 30U;

// A big-endian number; the caller has seen to it that its bytes are there.
std::uint32_t number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < size; ++i)
        value = value << 8U | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

// A number of 1 to 9 bytes, 7 bits in each but the ninth; `at` moves behind it. None where the
// bytes end within.
std::optional<std::uint64_t> varint(std::string_view bytes, std::size_t& at) {
    std::uint64_t value = 0;
    for (int i = 0; i < 9; ++i) {
        if (at >= bytes.size())
            return std::nullopt;
        const auto byte = static_cast<unsigned char>(bytes[at++]);
        if (i == 8)
            return value << 8U | byte;
        value = value << 7U | (byte & 0x7FU);
        if (byte < 0x80)
            return value;
    }
    return value;
}

// The sizes of the two BLOBs of an entry, and where the first of them begins.
struct Columns {
    std::size_t begin;
    std::array<std::size_t, 2> sizes;
};

std::optional<Columns> columnsOf(std::string_view entry) {
    std::size_t at = 0;
    const auto header = varint(entry, at);
    if (!header || *header > entry.size())
        return std::nullopt;
    Columns columns{static_cast<std::size_t>(*header), {}};
    for (std::size_t& size : columns.sizes) {
        const auto type = varint(entry.substr(0, columns.begin), at);
        if (!type || *type < 12 || *type % 2 != 0 || *type / 2 > LargestEntry)
            return std::nullopt;
        size = static_cast<std::size_t>((*type - 12) / 2);
    }
    if (at != columns.begin || columns.begin + columns.sizes[0] + columns.sizes[1] != entry.size())
        return std::nullopt;
    return columns;
}

} // namespace

SqlitePages::SqlitePages(const std::string& path) : file_(path, std::ios::binary) {
    if (!file_)
        throw Error(errors::StoreFailed, "La base « " + path + " » n'a pas pu être ouverte : " +
                                             std::generic_category().message(errno) + ".");
    std::string header(FileHeader, '\0');
    file_.read(header.data(), static_cast<std::streamsize>(header.size()));
    pageBytes_ = number(header, PageSizeAt, 2);
    if (pageBytes_ == 1) // 65536 does not fit
        pageBytes_ = 65536;
    const auto reserved = static_cast<unsigned char>(header[ReservedAt]);
    if (!file_ || pageBytes_ < 512 || (pageBytes_ & (pageBytes_ - 1)) != 0 ||
        pageBytes_ - reserved < 480)
        throw Error(errors::Damaged, "Le début de la base « " + path +
                                         " » ne peut pas être lu. Remplacez-la par une copie de "
                                         "sauvegarde.");
    usable_ = pageBytes_ - reserved;
    file_.seekg(0, std::ios::end);
    pages_ = static_cast<std::uint32_t>(static_cast<std::size_t>(file_.tellg()) / pageBytes_);
}

std::optional<SqlitePages::Page> SqlitePages::read(std::uint32_t page) {
    if (page < 2 || page > pages_)
        return std::nullopt;
    Page bytes(pageBytes_, '\0');
    file_.clear();
    file_.seekg(static_cast<std::streamoff>(pageBytes_) * (page - 1));
    file_.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file_)
        return std::nullopt;
    bytes.resize(usable_);
    return bytes;
}

void SqlitePages::visit(std::uint32_t root, const Visitor& visitor) {
    visitPage(root, visitor, 0);
}

void SqlitePages::visitPage(std::uint32_t page, const Visitor& visitor, int depth) {
    const std::optional<Page> bytes = read(page);
    if (!bytes || depth > DeepestTree || !visited_.insert(page).second) {
        ++lost_;
        return;
    }
    const auto kind = static_cast<unsigned char>(bytes->front());
    const std::size_t header = kind == LeafPage ? LeafHeader : InteriorHeader;
    const std::size_t cells = number(*bytes, CellCountAt, 2);
    if ((kind != LeafPage && kind != InteriorPage) || header + 2 * cells > usable_) {
        ++lost_;
        return;
    }
    for (std::size_t i = 0; i < cells; ++i) {
        std::size_t cell = number(*bytes, header + 2 * i, 2);
        if (cell < header + 2 * cells || cell + PageNumber > usable_) {
            ++lost_;
            continue;
        }
        if (kind == InteriorPage) {
            visitPage(number(*bytes, cell, PageNumber), visitor, depth + 1);
            cell += PageNumber;
        }
        visitCell(*bytes, cell, visitor);
    }
    if (kind == InteriorPage)
        visitPage(number(*bytes, LastChildAt, PageNumber), visitor, depth + 1);
}

void SqlitePages::visitCell(const Page& page, std::size_t at, const Visitor& visitor) {
    const auto payload = payloadAt(page, at);
    const auto entry = payload ? whole(page, *payload) : std::nullopt;
    const auto columns = entry ? columnsOf(*entry) : std::nullopt;
    if (!columns) {
        ++lost_;
        return;
    }
    const std::string_view bytes = *entry;
    visitor(bytes.substr(columns->begin, columns->sizes[0]),
            bytes.substr(columns->begin + columns->sizes[0]));
}

// How much of an entry stays in its page is given by the format.
std::optional<SqlitePages::Payload> SqlitePages::payloadAt(const Page& page, std::size_t at) const {
    const auto size = varint(page, at);
    if (!size || *size > LargestEntry)
        return std::nullopt;
    Payload payload{static_cast<std::size_t>(*size), at, static_cast<std::size_t>(*size)};
    const std::size_t most = (usable_ - 12) * 64 / 255 - 23;
    if (payload.size > most) {
        const std::size_t least = (usable_ - 12) * 32 / 255 - 23;
        const std::size_t local = least + (payload.size - least) % (usable_ - PageNumber);
        payload.local = local <= most ? local : least;
    }
    const std::size_t link = payload.local < payload.size ? PageNumber : 0;
    if (payload.at + payload.local + link > page.size())
        return std::nullopt;
    return payload;
}

std::optional<std::string> SqlitePages::whole(const Page& page, const Payload& payload) {
    std::string entry = page.substr(payload.at, payload.local);
    if (entry.size() == payload.size)
        return entry;
    std::uint32_t next = number(page, payload.at + payload.local, PageNumber);
    while (entry.size() < payload.size) {
        const std::optional<Page> more = read(next);
        if (!more || !visited_.insert(next).second)
            return std::nullopt;
        entry += more->substr(PageNumber, payload.size - entry.size());
        next = number(*more, 0, PageNumber);
    }
    return entry;
}

} // namespace vorandine::store
