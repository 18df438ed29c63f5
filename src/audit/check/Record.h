// A record where it lies in the store, with where its attributes and values begin: a check meets
// millions of values, and copies none that is right.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace vorandine::audit {

// Shows one record after the other, so that room is made once for all.
class Record {
  public:
    class Values;

    static constexpr std::size_t Block = 64; // bytes told by the bits of one number

    // From now on, the record of this key and whole text, which must stay as long as it is shown.
    // False if it cannot be read: then nothing may be asked of it.
    [[nodiscard]] bool show(std::string_view key, std::string_view text);

    [[nodiscard]] std::string_view key() const noexcept { return key_; }
    [[nodiscard]] std::string_view text() const noexcept { return text_; }
    // The text of an attribute (from 1), which lies in the record; empty if there is none.
    [[nodiscard]] std::string_view operator()(int attribute) const noexcept {
        const auto number = static_cast<std::size_t>(attribute);
        return number > attributes_ ? std::string_view()
                                    : std::string_view(text_.data() + begins_[number - 1],
                                                       begins_[number] - begins_[number - 1] - 1);
    }
    // The values of an attribute.
    [[nodiscard]] Values values(int attribute) const noexcept;
    // How many there are; none in an empty attribute.
    [[nodiscard]] int count(int attribute) const noexcept;

  private:
    std::string_view key_;
    std::string_view text_;
    std::size_t attributes_ = 0;
    // Where each attribute begins, and one behind the end of the text. Room is never given back.
    std::vector<std::uint32_t> begins_;
    // The bytes that end a value: marks, and the end of the text. As begins_.
    std::vector<std::uint64_t> ends_;
};

// Goes through the values of an attribute. To be gone when the next record is shown.
class Record::Values {
  public:
    // Whether there is another one.
    [[nodiscard]] bool more() const noexcept { return at_ < end_; }
    // The next value, which lies in the record; empty past the last one.
    std::string_view next() noexcept {
        if (at_ >= end_)
            return {};
        const std::size_t from = at_;
        std::size_t block = from / Block;
        std::uint64_t ends = ends_[block] >> from % Block << from % Block;
        while (ends == 0)
            ends = ends_[++block];
        const std::size_t to = block * Block + static_cast<std::size_t>(std::countr_zero(ends));
        at_ = to + 1;
        return {text_ + from, to - from};
    }

  private:
    friend class Record;
    Values(const char* text, const std::uint64_t* ends, std::size_t from, std::size_t end) noexcept
        : text_(text), ends_(ends), at_(from), end_(end) {}

    const char* text_;
    const std::uint64_t* ends_;
    std::size_t at_;
    std::size_t end_; // behind the mark or the end that ends the last value
};

inline Record::Values Record::values(int attribute) const noexcept {
    const auto number = static_cast<std::size_t>(attribute);
    const bool none = number > attributes_ || begins_[number] == begins_[number - 1] + 1;
    return {text_.data(), ends_.data(), none ? 0 : begins_[number - 1], none ? 0 : begins_[number]};
}

} // namespace vorandine::audit
