// Comparing two pieces of work fairly: they take turns in one process, and what counts is the
// median over the rounds, so that whatever else the machine does meets both.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace bench {

using Seconds = double;

inline Seconds timed(const std::function<void()>& work) {
    const auto from = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - from).count();
}

template <class T>
T median(std::vector<T> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

struct Comparison {
    Seconds ours = 0;
    Seconds theirs = 0;
    double ratio = 0; // median of the ratios of each round
};

// Both once to warm up, then `rounds` times each, whoever comes first changing from round to round.
inline Comparison compare(int rounds, const std::function<void()>& ours,
                          const std::function<void()>& theirs) {
    std::vector<Seconds> a;
    std::vector<Seconds> b;
    std::vector<double> ratios;
    ours();
    theirs();
    for (int round = 0; round < rounds; ++round) {
        if (round % 2 == 0) {
            a.push_back(timed(ours));
            b.push_back(timed(theirs));
        } else {
            b.push_back(timed(theirs));
            a.push_back(timed(ours));
        }
        ratios.push_back(a.back() / b.back());
    }
    return {median(a), median(b), median(ratios)};
}

// One line: times of one repetition in microseconds, the ratio, and the limit it is held to.
inline void report(const std::string& what, const Comparison& result, double repetitions,
                   double limit) {
    std::printf("%-44s %10.2f us %10.2f us   ratio %.2f (at most %.2f)%s\n", what.c_str(),
                result.ours / repetitions * 1e6, result.theirs / repetitions * 1e6, result.ratio,
                limit, result.ratio > limit ? "  MISSED" : "");
    std::fflush(stdout);
}

} // namespace bench
