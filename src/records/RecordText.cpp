// A request may look at the end of a million records: separators are counted in blocks of fixed
// length, which compilers turn into vector instructions, then eight at a time. One by one, or from
// mark to mark, bench_store's request over a whole file takes longer than it may.
#include "records/RecordText.h"

#include "records/DBARecord.h"
#include "text/Characters.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vorandine::records {
namespace {

constexpr std::size_t Block = 64;
constexpr std::size_t Word = sizeof(std::uint64_t);
constexpr std::size_t FewMarks = 8; // not worth counting a block for
constexpr std::uint64_t EachByte = 0x0101010101010101U;

std::size_t bytesFrom(const char* at, const char* end) noexcept {
    return static_cast<std::size_t>(end - at);
}

// Passes over whole blocks as long as they hold fewer marks than are still to be passed.
void passBlocks(const char*& at, const char* end, std::size_t& marks) noexcept {
    while (bytesFrom(at, end) >= Block) {
        unsigned char count = 0; // one byte, so that a vector holds as many as it can
        for (std::size_t i = 0; i < Block; ++i)
            count = static_cast<unsigned char>(count + (at[i] == AttributeMark ? 1 : 0));
        if (count >= marks)
            return;
        marks -= count;
        at += Block;
    }
}

// The marks among eight bytes: the top bit of each byte that is one.
std::uint64_t marksOfWord(const char* at) noexcept {
    constexpr std::uint64_t Low = 0x7F * EachByte;
    std::uint64_t word = 0;
    std::memcpy(&word, at, Word);
    word ^= static_cast<unsigned char>(AttributeMark) * EachByte; // a mark becomes zero
    return ~(((word & Low) + Low) | word | Low);
}

// Behind the mark that is `marks` (at least 1) marks further on; null if the text ends before.
const char* passMarks(const char* at, const char* end, std::size_t marks) noexcept {
    if (marks > FewMarks)
        passBlocks(at, end, marks);
    if constexpr (std::endian::native == std::endian::little) {
        for (; bytesFrom(at, end) >= Word; at += Word) {
            std::uint64_t found = marksOfWord(at);
            const std::size_t count = ((found >> 7U) * EachByte) >> 56U;
            if (count < marks) {
                marks -= count;
                continue;
            }
            for (; marks > 1; --marks)
                found &= found - 1;
            return at + std::countr_zero(found) / 8 + 1;
        }
    }
    for (; at < end; ++at)
        if (*at == AttributeMark && --marks == 0)
            return at + 1;
    return nullptr;
}

// What needs no decoding: printable ASCII and separators.
bool simple(char c) noexcept {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x20 && byte < 0x7F) || (byte >= 0xFC && byte <= 0xFE);
}

// Passes over whole blocks of simple characters.
void passSimple(const char*& at, const char* end) noexcept {
    while (bytesFrom(at, end) >= Block) {
        unsigned char others = 0;
        for (std::size_t i = 0; i < Block; ++i)
            others |= simple(at[i]) ? 0 : 1;
        if (others != 0)
            return;
        at += Block;
    }
}

} // namespace

std::string_view AttributeCursor::text(int number) noexcept {
    if (number < 1)
        return {};
    if (number < next_) {
        next_ = 1;
        at_ = record_.data();
    }
    const char* const end = record_.data() + record_.size();
    if (number > next_ && at_ != nullptr)
        at_ = passMarks(at_, end, static_cast<std::size_t>(number - next_));
    next_ = number + 1;
    if (at_ == nullptr || at_ == end) {
        at_ = nullptr;
        return {};
    }
    const char* const from = at_;
    const auto* const mark =
        static_cast<const char*>(std::memchr(from, AttributeMark, bytesFrom(from, end)));
    at_ = mark == nullptr ? nullptr : mark + 1;
    return {from, bytesFrom(from, mark == nullptr ? end : mark)};
}

bool isPlainResult(std::string_view result) noexcept {
    const char* at = result.data();
    const char* const end = at + result.size();
    while (at != end) {
        passSimple(at, end);
        while (at != end && simple(*at))
            ++at;
        // Separators and ASCII end a character, so that what lies between stands alone.
        const char* const from = at;
        while (at != end && !simple(*at))
            ++at;
        if (!text::IsPlain({from, bytesFrom(from, at)}))
            return false;
    }
    return true;
}

bool isPlainEntry(std::string_view key, std::string_view record) noexcept {
    return text::IsPlain(key) && isPlainRecord(record);
}

bool isPlainRecord(std::string_view record) noexcept {
    return record.find(SubvalueMark) == std::string_view::npos && isPlainResult(record);
}

std::string shownKey(std::string_view key) {
    return text::IsPlain(key) ? std::string(key) : "(unreadable key)";
}

} // namespace vorandine::records
