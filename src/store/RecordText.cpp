// Separators are counted block by block, in loops of fixed length that compilers turn into vector
// instructions: a request may look at the end of a million records.
#include "store/RecordText.h"

#include "data/DBARecord.h"
#include "text/Characters.h"

#include <cstddef>
#include <cstring>

namespace vorandine::store {
namespace {

// Passes over whole blocks as long as they hold fewer marks than are still to be passed.
template <std::size_t Block>
void passBlocks(const char*& at, const char* end, std::size_t& marks) noexcept {
    static_assert(Block <= 255, "the count of one block must fit a byte");
    while (static_cast<std::size_t>(end - at) >= Block) {
        unsigned char count = 0;
        for (std::size_t i = 0; i < Block; ++i)
            count = static_cast<unsigned char>(count + (at[i] == data::AttributeMark ? 1 : 0));
        if (count >= marks)
            return;
        marks -= count;
        at += Block;
    }
}

} // namespace

std::string_view attributeText(std::string_view record, int number) noexcept {
    if (number < 1)
        return {};
    const char* at = record.data();
    const char* const end = at + record.size();
    auto marks = static_cast<std::size_t>(number) - 1;
    passBlocks<64>(at, end, marks);
    passBlocks<16>(at, end, marks);
    for (; marks > 0; ++at) {
        if (at == end)
            return {};
        if (*at == data::AttributeMark)
            --marks;
    }
    const auto rest = static_cast<std::size_t>(end - at);
    if (rest == 0)
        return {};
    const void* const mark = std::memchr(at, data::AttributeMark, rest);
    return {at, mark == nullptr ? rest
                                : static_cast<std::size_t>(static_cast<const char*>(mark) - at)};
}

bool isPlainRecord(std::string_view record) noexcept {
    const auto ends = [&](std::size_t at) {
        return record[at] == data::AttributeMark || record[at] == data::ValueMark;
    };
    for (std::size_t from = 0; from < record.size();) {
        std::size_t to = from;
        while (to < record.size() && !ends(to))
            ++to;
        if (!text::IsPlain(record.substr(from, to - from)))
            return false;
        from = to + 1;
    }
    return true;
}

} // namespace vorandine::store
