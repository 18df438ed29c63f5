// Comparing two pieces of work fairly: they take turns in one process, and what counts is the
// median over the rounds, so that whatever else the machine does meets both.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace bench {

using Seconds = double;

// Wall counts everything, waiting for the disk included. Processor leaves out what other programs
// take meanwhile, and so is the steadier one for work that waits for nothing.
enum class Clock { Wall, Processor };

inline Seconds timed(const std::function<void()>& work, Clock clock = Clock::Wall) {
    if (clock == Clock::Processor) {
        const std::clock_t from = std::clock();
        work();
        return static_cast<double>(std::clock() - from) / CLOCKS_PER_SEC;
    }
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
                          const std::function<void()>& theirs, Clock clock) {
    std::vector<Seconds> a;
    std::vector<Seconds> b;
    std::vector<double> ratios;
    ours();
    theirs();
    for (int round = 0; round < rounds; ++round) {
        if (round % 2 == 0) {
            a.push_back(timed(ours, clock));
            b.push_back(timed(theirs, clock));
        } else {
            b.push_back(timed(theirs, clock));
            a.push_back(timed(ours, clock));
        }
        ratios.push_back(a.back() / b.back());
    }
    return {median(a), median(b), median(ratios)};
}

// One line: times of one repetition in microseconds, the ratio, and the limit it is held to, if
// any.
inline void report(const std::string& what, const Comparison& result, double repetitions,
                   double limit = 0) {
    std::printf("%-48s %10.2f us %10.2f us   ratio %.2f", what.c_str(),
                result.ours / repetitions * 1e6, result.theirs / repetitions * 1e6, result.ratio);
    if (limit > 0)
        std::printf(" (at most %.2f)%s", limit, result.ratio > limit ? "  too much" : "");
    std::printf("\n");
    std::fflush(stdout);
}

} // namespace bench
