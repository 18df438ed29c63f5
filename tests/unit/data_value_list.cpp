// The gap buffer against a plain vector: whatever is done to both, both hold the same values.
#include "data/DBARecord.h"
#include "data/ValueList.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace vorandine::data {
namespace {

std::string joined(const std::vector<std::string>& values) {
    std::string text;
    for (std::size_t i = 0; i < values.size(); ++i)
        text += (i > 0 ? std::string(1, ValueMark) : std::string()) + values[i];
    return text;
}

class Twins {
  public:
    explicit Twins(const std::vector<std::string>& values)
        : list_(joined(values)), plain_(values) {}

    void step(std::mt19937& random) {
        // Two places past the end are in play as well.
        const std::size_t i = random() % (plain_.size() + 2);
        const std::string value = random() % 4 == 0 ? "" : std::to_string(random() % 100000) + "é";
        switch (random() % 8) {
        case 0:
        case 1:
            list_.set(i, value);
            if (i >= plain_.size())
                plain_.resize(i + 1);
            plain_[i] = value;
            break;
        case 2:
        case 3:
        case 4:
            list_.insert(i, value);
            if (i >= plain_.size())
                plain_.resize(i);
            plain_.insert(plain_.begin() + static_cast<std::ptrdiff_t>(i), value);
            break;
        case 5:
        case 6:
            list_.erase(i);
            if (i < plain_.size())
                plain_.erase(plain_.begin() + static_cast<std::ptrdiff_t>(i));
            break;
        default:
            // Stored and read back: one text again until a value is asked for.
            list_ = ValueList(list_.text());
            if (plain_.size() == 1 && plain_[0].empty())
                plain_.clear();
            break;
        }
    }

    void compare(unsigned seed) const {
        ASSERT_EQ(list_.text(), joined(plain_)) << "seed " << seed;
        ASSERT_EQ(list_.size(), plain_.size()) << "seed " << seed;
        ASSERT_EQ(list_.empty(), joined(plain_).empty()) << "seed " << seed;
        for (std::size_t i = 0; i < plain_.size() + 2; ++i)
            ASSERT_EQ(list_.at(i), i < plain_.size() ? plain_[i] : "") << "seed " << seed;
    }

  private:
    ValueList list_;
    std::vector<std::string> plain_;
};

TEST(ValueList, HoldsWhatAPlainVectorWouldHold) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        Twins twins(std::vector<std::string>(seed % 3 * 5, "v"));
        for (int i = 0; i < 300; ++i) {
            twins.step(random);
            twins.compare(seed);
            if (testing::Test::HasFatalFailure())
                return;
        }
    }
}

} // namespace
} // namespace vorandine::data
