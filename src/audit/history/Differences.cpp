// The longest common subsequence of what lies between a common beginning and a common end.
#include "audit/history/Differences.h"

#include <algorithm>
#include <cstdint>

namespace vorandine::audit {
namespace {

// Beyond so many pairs of entries, what lies between is taken as wholly new.
constexpr std::size_t MostPairs = 16'000'000;

class Comparison {
  public:
    Comparison(const std::vector<std::string>& before, const std::vector<std::string>& after)
        : before_(before), after_(after) {}

    std::vector<Step> run() {
        std::size_t ends = 0;
        while (first_ < smaller() && before_[first_] == after_[first_])
            ++first_;
        while (ends < smaller() - first_ &&
               before_[before_.size() - 1 - ends] == after_[after_.size() - 1 - ends])
            ++ends;
        for (std::size_t i = 0; i < first_; ++i)
            steps_.push_back({i, i, true});
        between(before_.size() - ends, after_.size() - ends);
        for (std::size_t i = ends; i > 0; --i)
            steps_.push_back({before_.size() - i, after_.size() - i, true});
        return std::move(steps_);
    }

  private:
    const std::vector<std::string>& before_;
    const std::vector<std::string>& after_;
    std::size_t first_ = 0; // where the lists begin to differ
    std::vector<Step> steps_;

    [[nodiscard]] std::size_t smaller() const { return std::min(before_.size(), after_.size()); }

    void between(std::size_t beforeEnd, std::size_t afterEnd) {
        const std::size_t rows = beforeEnd - first_;
        const std::size_t columns = afterEnd - first_;
        if (rows * columns > MostPairs) {
            changed(first_, beforeEnd, first_, afterEnd);
            return;
        }
        // The longest common subsequence from each pair of positions on.
        std::vector<std::uint32_t> longest((rows + 1) * (columns + 1));
        const auto at = [&](std::size_t row, std::size_t column) -> std::uint32_t& {
            return longest[row * (columns + 1) + column];
        };
        for (std::size_t row = rows; row-- > 0;)
            for (std::size_t column = columns; column-- > 0;)
                at(row, column) = before_[first_ + row] == after_[first_ + column]
                                      ? at(row + 1, column + 1) + 1
                                      : std::max(at(row + 1, column), at(row, column + 1));
        std::size_t row = 0;
        std::size_t column = 0;
        std::size_t openRow = 0; // from here on, all entries so far differ
        std::size_t openColumn = 0;
        while (row < rows && column < columns) {
            if (before_[first_ + row] == after_[first_ + column]) {
                changed(first_ + openRow, first_ + row, first_ + openColumn, first_ + column);
                steps_.push_back({first_ + row++, first_ + column++, true});
                openRow = row;
                openColumn = column;
            } else if (at(row + 1, column) >= at(row, column + 1)) {
                ++row;
            } else {
                ++column;
            }
        }
        changed(first_ + openRow, beforeEnd, first_ + openColumn, afterEnd);
    }

    // Entries between two that stayed: one takes another's place as long as there are both.
    void changed(std::size_t before, std::size_t beforeEnd, std::size_t after,
                 std::size_t afterEnd) {
        while (before < beforeEnd && after < afterEnd)
            steps_.push_back({before++, after++, false});
        for (; before < beforeEnd; ++before)
            steps_.push_back({before, std::nullopt, false});
        for (; after < afterEnd; ++after)
            steps_.push_back({std::nullopt, after, false});
    }
};

} // namespace

std::vector<Step> differences(const std::vector<std::string>& before,
                              const std::vector<std::string>& after) {
    return Comparison(before, after).run();
}

} // namespace vorandine::audit
