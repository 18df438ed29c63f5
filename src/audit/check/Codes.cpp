// Filling the table.
#include "audit/check/Codes.h"

#include <utility>

namespace vorandine::audit {

std::uint32_t Codes::add(std::string_view text) {
    const std::uint64_t head = headOf(text);
    std::size_t at = slotOf(text, head);
    if (slots_[at].number != None)
        return slots_[at].number;
    if ((texts_.size() + 1) * 4 > slots_.size()) {
        grow();
        at = slotOf(text, head);
    }
    const auto number = static_cast<std::uint32_t>(texts_.size());
    texts_.emplace_back(text);
    slots_[at] = {head, static_cast<std::uint32_t>(text.size()), number};
    return number;
}

void Codes::grow() {
    const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    for (const Slot& slot : before)
        if (slot.number != None)
            slots_[slotOf(texts_[slot.number], slot.head)] = slot;
}

} // namespace vorandine::audit
