// Lines of a file that may hold anything: one that is longer than makes sense is passed over, not
// held in memory.
#pragma once

#include <array>
#include <cstddef>
#include <istream>
#include <string>

namespace vorandine::exchange {

class LineReader {
  public:
    // `in` is the caller's. A line of more than `longest` bytes is too long.
    LineReader(std::istream& in, std::size_t longest) : in_(in), longest_(longest) {}

    // The next line, without its break; false at the end. Of one that is too long `line` has no
    // more than about the beginning that is allowed.
    [[nodiscard]] bool next(std::string& line);
    // Whether the last line was too long.
    [[nodiscard]] bool tooLong() const noexcept { return tooLong_; }
    // Whether reading failed before the end.
    [[nodiscard]] bool failed() const { return in_.bad(); }

  private:
    static constexpr std::size_t PieceBytes = 1U << 16U;

    std::istream& in_;
    std::size_t longest_;
    std::array<char, PieceBytes> piece_{};
    bool tooLong_ = false;
};

} // namespace vorandine::exchange
