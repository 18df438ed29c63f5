// Texts told apart by numbers: each is kept once, however many records repeat it, and two of them
// are compared as numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace vorandine::audit {

class Codes {
  public:
    static constexpr std::uint32_t None = UINT32_MAX;

    // The number of the text, which is added if it is not there yet. Numbers count from 0.
    std::uint32_t add(std::string_view text);
    // The number of the text; None if it was never added.
    [[nodiscard]] std::uint32_t find(std::string_view text) const noexcept {
        return slots_[slotOf(text, headOf(text))].number;
    }
    [[nodiscard]] bool contains(std::string_view text) const noexcept { return find(text) != None; }
    [[nodiscard]] const std::string& operator[](std::uint32_t number) const noexcept {
        return texts_[number];
    }

  private:
    static constexpr std::size_t Word = sizeof(std::uint64_t);

    // A table of open addressing, most of it empty, so that nearly every text stands in its first
    // place. Most codes are short, and told apart without looking at their texts.
    struct Slot {
        std::uint64_t head = 0;
        std::uint32_t size = UINT32_MAX;
        std::uint32_t number = None; // None: nothing is here
    };

    std::vector<std::string> texts_;
    std::vector<Slot> slots_ = std::vector<Slot>(256);

    // A text of up to eight bytes is told by it and by its length; longer ones hardly ever share
    // it.
    [[nodiscard]] static std::uint64_t headOf(std::string_view text) noexcept {
        const char* const end = text.data() + text.size();
        const auto byte = [&](std::size_t i) -> std::uint32_t {
            return static_cast<unsigned char>(text[i]);
        };
        if (text.size() > Word)
            return load<std::uint64_t>(text.data()) * 31 + load<std::uint64_t>(end - Word);
        if (text.size() >= Word / 2)
            return load<std::uint32_t>(text.data()) |
                   std::uint64_t{load<std::uint32_t>(end - Word / 2)} << 32U;
        return text.empty() ? 0
                            : byte(0) | byte(text.size() / 2) << 8U | byte(text.size() - 1) << 16U;
    }
    // Where the text is, or where it would be put.
    [[nodiscard]] std::size_t slotOf(std::string_view text, std::uint64_t head) const noexcept {
        constexpr std::uint64_t Spread = 0x9E3779B97F4A7C15U;
        const std::size_t mask = slots_.size() - 1;
        std::size_t at = (((head ^ text.size()) * Spread) >> 32U) & mask;
        for (;; at = (at + 1) & mask) {
            const Slot& slot = slots_[at];
            if ((slot.head == head && slot.size == text.size() &&
                 (text.size() <= Word || texts_[slot.number] == text)) ||
                slot.number == None)
                return at;
        }
    }
    template <class Number>
    [[nodiscard]] static Number load(const char* from) noexcept {
        Number number = 0;
        std::memcpy(&number, from, sizeof number);
        return number;
    }
    void grow();
};

} // namespace vorandine::audit
