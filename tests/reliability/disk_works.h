// The works that are done on a disk which fails or loses its power, each from a store as it was.
#pragma once

#include "reliability_support.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace reliability {

struct Work {
    std::string name;
    bool makesStore = false;
    bool smallCache = false; // SQLite gets so little memory that pages are written before the end
    std::vector<Step> steps;
};

// Each has a step before the one that it is about, and one after it.
inline std::vector<Work> diskWorks() {
    Random random(7);
    const auto made = [&](std::uint64_t key, std::uint64_t size) {
        return Step::Write{keyName(key), idOfSize(random, size)};
    };
    const auto gone = [](std::uint64_t key) { return Step::Write{keyName(key), std::nullopt}; };
    std::vector<Step::Write> many;
    for (std::uint64_t key = 0; key < 24; ++key)
        many.push_back(key % 8 == 5 ? gone(key) : made(key, 3));
    std::vector<Work> works{
        {"a write", false, false, {{"anne", {made(1, 3)}}}},
        {"a creation", false, false, {{"anne", {made(20, 2)}}}},
        {"a deletion", false, false, {{"anne", {gone(3)}}}},
        {"a transaction", false, false, {{"anne", {made(1, 1), gone(4), made(21, 0), made(5, 3)}}}},
        {"a transaction larger than the cache", false, true, {{"anne", many}}},
        {"a pruning", false, false, {{"anne", {}}}},
        {"a new store", true, false, {{"anne", {made(6, 2)}}}},
    };
    for (Work& work : works) {
        work.steps.insert(work.steps.begin(), {"before", {made(1, 0)}});
        work.steps.push_back({"after", {made(2, 1)}});
    }
    return works;
}

// Lays down the store that works begin with, or none, again and again.
class Beginning {
  public:
    explicit Beginning(const std::string& path) : path_(path) {
        Random random(8);
        store::Store store = opened(path, store::OpenMode::Create);
        for (std::uint64_t number = 0; number < 18; ++number) {
            const Step step{"base", {{keyName(number % 12), idOfSize(random, number % 4)}}};
            perform(store, step);
            state_ = after(std::move(state_), step);
        }
        std::ifstream in(path, std::ios::binary);
        bytes_ = std::string(std::istreambuf_iterator<char>(in), {});
    }

    State layDown(const Work& work) const {
        std::filesystem::remove(path_ + "-journal");
        std::filesystem::remove(path_);
        if (!work.makesStore)
            std::ofstream(path_, std::ios::binary) << bytes_;
        sqlite3_soft_heap_limit64(work.smallCache ? 400'000 : 0);
        return work.makesStore ? State() : state_;
    }

  private:
    std::string path_;
    std::string bytes_;
    State state_;
};

// Runs `round` with a fault at call 1 and every `step` calls after it, until it says that none was
// met.
inline void everyCall(const std::string& where, std::uint64_t step,
                      const std::function<bool(std::uint64_t call)>& round) {
    for (std::uint64_t call = 1;; call += step)
        try {
            if (!round(call))
                return;
        } catch (const std::exception& error) {
            wrong(where + ", fault at call " + std::to_string(call) + ": " + error.what());
        }
}

} // namespace reliability
