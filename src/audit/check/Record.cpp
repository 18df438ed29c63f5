// Marks are found with vectors, the widest where the processor has them. By a loop over the bytes,
// checking a million records takes 2.8 to 3 times as long as reading them, not 2.3; bench_check
// allows 3.
#include "audit/check/Record.h"

#include "records/DBARecord.h"
#include "text/Characters.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace vorandine::audit {
namespace {

constexpr std::size_t Block = Record::Block;
constexpr std::size_t Ahead = 8; // attributes that may be put behind the last one

// The bytes of a block, a bit each.
struct Bits {
    std::uint64_t attributes = 0; // marks between attributes
    std::uint64_t ends = 0;       // these, and those between values
    std::uint64_t others = 0;     // neither marks nor printable ASCII
};

// Whether a byte is neither a mark nor printable ASCII.
bool isOther(char c) noexcept {
    const auto byte = static_cast<unsigned char>(c);
    return c != records::AttributeMark && c != records::ValueMark && (byte <= 0x1F || byte >= 0x7F);
}

std::size_t endOfOthers(std::string_view text, std::size_t at) noexcept {
    while (at < text.size() && isOther(text[at]))
        ++at;
    return at;
}

// Puts where attributes behind the first one begin from `begin` on, which is left behind the last,
// and the bits of the bytes that end values from `ends` on. False if the text cannot be read.
template <Bits bitsOf(const char*) noexcept>
inline bool find(std::string_view text, std::uint32_t*& begin, std::uint64_t* ends) noexcept {
    std::uint32_t* next = begin;
    std::size_t plain = 0; // up to here
    std::array<char, Block> rest;
    rest.fill(' ');
    text.copy(rest.data(), Block, text.size() / Block * Block);
    for (std::size_t from = 0; from <= text.size(); from += Block) {
        const Bits bits = bitsOf(text.size() - from < Block ? rest.data() : text.data() + from);
        *ends++ = bits.ends;
        std::uint64_t left = bits.attributes;
        const auto put = [&](std::size_t i) {
            next[i] = static_cast<std::uint32_t>(from) + 1 +
                      static_cast<std::uint32_t>(std::countr_zero(left));
            left &= left - 1;
        };
        // A fixed number at once, which processors foresee, whether or not there are as many.
        for (std::size_t i = 0; i < Ahead; ++i)
            put(i);
        const auto count = static_cast<std::size_t>(std::popcount(bits.attributes));
        for (std::size_t i = Ahead; i < count; ++i)
            put(i);
        next += count;
        // Marks and ASCII end a character, so that what stands between them stands alone.
        for (std::uint64_t others = bits.others; others != 0;) {
            const std::size_t at = from + static_cast<std::size_t>(std::countr_zero(others));
            if (at >= plain) {
                plain = endOfOthers(text, at);
                if (!text::IsPlain(text.substr(at, plain - at)))
                    return false;
            }
            others &= others - 1;
        }
    }
    begin = next;
    return true;
}

Bits bitsOf(const char* block) noexcept {
    Bits found;
    for (std::size_t i = 0; i < Block; ++i) {
        const bool attribute = block[i] == records::AttributeMark;
        const bool end = attribute || block[i] == records::ValueMark;
        found.attributes |= std::uint64_t{attribute} << i;
        found.ends |= std::uint64_t{end} << i;
        found.others |= std::uint64_t{isOther(block[i])} << i;
    }
    return found;
}

#if defined(__x86_64__)
using Vector = char __attribute__((vector_size(32)));
constexpr std::size_t Wide = sizeof(Vector);

const bool HasWideVectors = __builtin_cpu_supports("avx2") != 0 &&
                            __builtin_cpu_supports("bmi") != 0 &&
                            __builtin_cpu_supports("popcnt") != 0;

[[gnu::target("avx2,bmi,popcnt")]] inline Bits bitsOfWide(const char* block) noexcept {
    Bits found;
    for (std::size_t at = 0; at < Block; at += Wide) {
        Vector bytes;
        std::memcpy(&bytes, block + at, Wide);
        const Vector attributes = bytes == records::AttributeMark;
        const Vector ends = attributes | (bytes == records::ValueMark);
        // Bytes above 0x7F are below zero here.
        const Vector others = ~(((bytes > 0x1F) & (bytes < 0x7F)) | ends);
        const auto add = [at](std::uint64_t& bits, int mask) {
            bits |= std::uint64_t{static_cast<std::uint32_t>(mask)} << at;
        };
        add(found.attributes, __builtin_ia32_pmovmskb256(attributes));
        add(found.ends, __builtin_ia32_pmovmskb256(ends));
        add(found.others, __builtin_ia32_pmovmskb256(others));
    }
    return found;
}

[[gnu::target("avx2,bmi,popcnt"), gnu::flatten]] bool
findWide(std::string_view text, std::uint32_t*& begin, std::uint64_t* ends) noexcept {
    return find<bitsOfWide>(text, begin, ends);
}
#endif

bool findAll(std::string_view text, std::uint32_t*& begin, std::uint64_t* ends) noexcept {
#if defined(__x86_64__)
    if (HasWideVectors)
        return findWide(text, begin, ends);
#endif
    return find<bitsOf>(text, begin, ends);
}

} // namespace

bool Record::show(std::string_view key, std::string_view text) {
    key_ = key;
    text_ = text;
    if (begins_.size() < text.size() + 2 + Ahead) {
        begins_.resize(text.size() + 2 + Ahead);
        ends_.resize(text.size() / Block + 1);
    }
    begins_[0] = 0;
    std::uint32_t* next = begins_.data() + 1;
    const bool plain = findAll(text, next, ends_.data());
    *next = static_cast<std::uint32_t>(text.size() + 1);
    attributes_ = static_cast<std::size_t>(next - begins_.data());
    ends_[text.size() / Block] |= std::uint64_t{1} << text.size() % Block;
    return plain && text::IsPlain(key);
}

int Record::count(int attribute) const noexcept {
    const auto number = static_cast<std::size_t>(attribute);
    if ((*this)(attribute).empty())
        return 0;
    // The ends from the first byte to the mark behind the last one.
    const std::size_t first = begins_[number - 1];
    const std::size_t last = begins_[number] - 1;
    Values values = this->values(attribute);
    if (values.next().size() == last - first)
        return 1; // as most are
    int count = 0;
    for (std::size_t block = first / Block; block <= last / Block; ++block) {
        std::uint64_t ends = ends_[block];
        if (block == first / Block)
            ends = ends >> first % Block << first % Block;
        if (block == last / Block)
            ends &= ~std::uint64_t{0} >> (Block - 1 - last % Block);
        count += std::popcount(ends);
    }
    return count;
}

} // namespace vorandine::audit
