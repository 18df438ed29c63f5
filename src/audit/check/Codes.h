// Texts told apart by numbers: each is kept once, however many records repeat it, and two of them
// are compared as numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vorandine::audit {

class Codes {
  public:
    static constexpr std::uint32_t None = UINT32_MAX;

    Codes() = default;
    Codes(const Codes&) = delete;
    Codes& operator=(const Codes&) = delete;

    // The number of the text, which is added if it is not there yet. Numbers count from 0.
    std::uint32_t add(std::string_view text) {
        const std::uint32_t known = find(text);
        if (known != None)
            return known;
        const auto number = static_cast<std::uint32_t>(texts_.size());
        texts_.push_back(&numbers_.emplace(text, number).first->first);
        return number;
    }
    // The number of the text; None if it was never added.
    [[nodiscard]] std::uint32_t find(std::string_view text) const noexcept {
        const auto found = numbers_.find(text);
        return found == numbers_.end() ? None : found->second;
    }
    [[nodiscard]] bool contains(std::string_view text) const noexcept { return find(text) != None; }
    [[nodiscard]] const std::string& operator[](std::uint32_t number) const noexcept {
        return *texts_[number];
    }

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const noexcept {
            return std::hash<std::string_view>()(text);
        }
    };

    std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> numbers_;
    std::vector<const std::string*> texts_; // by number; keys of numbers_ stay where they are
};

} // namespace vorandine::audit
