// What one value costs in a walk over an attribute, in a short one and in a long one: the cost must
// not grow with the length. Fails if a value of the long attribute costs more than twice as much.
#include "measure.h"
#include "records/DBARecord.h"

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using vorandine::records::DBARecord;

constexpr int Short = 1'000;
constexpr int Long = 30'000;
constexpr int Rounds = 41;
constexpr double MostAllowed = 2.0;

std::size_t kept = 0; // what the walks read, so that they are not optimised away

struct Walk {
    const char* name;
    bool whole; // from the record's text, splitting included
    void (*run)(DBARecord& record, int values);
};

const Walk Walks[] = {
    {"read forwards", false,
     [](DBARecord& record, int values) {
         for (int v = 1; v <= values; ++v)
             kept += std::as_const(record)(1, v).size();
     }},
    {"read backwards", false,
     [](DBARecord& record, int values) {
         for (int v = values; v >= 1; --v)
             kept += std::as_const(record)(1, v).size();
     }},
    {"read forwards, from the text", true,
     [](DBARecord& record, int /*values*/) {
         for (int v = 1; v <= record.DCount(1); ++v)
             kept += std::as_const(record)(1, v).size();
     }},
    {"set forwards", false,
     [](DBARecord& record, int values) {
         for (int v = 1; v <= values; ++v)
             record(1, v) = "20040229";
     }},
    {"set backwards", false,
     [](DBARecord& record, int values) {
         for (int v = values; v >= 1; --v)
             record(1, v) = "20040229";
     }},
    {"append to an empty record", false,
     [](DBARecord& record, int values) {
         record() = "";
         for (int v = 1; v <= values; ++v)
             record(1, -1) = "20040229";
     }},
    {"insert before every value", false,
     [](DBARecord& record, int values) {
         for (int v = 1; v <= values; ++v)
             record.Insert(1, 2 * v - 1) = "20040229";
     }},
    {"delete from the front", false,
     [](DBARecord& record, int /*values*/) {
         while (record.DCount(1) > 0)
             record.Delete(1, 1);
     }},
    {"delete backwards", false,
     [](DBARecord& record, int values) {
         for (int v = values; v >= 1; --v)
             record.Delete(1, v);
     }},
    {"delete every second", false,
     [](DBARecord& record, int /*values*/) {
         for (int v = 1; v <= record.DCount(1); ++v)
             record.Delete(1, v);
     }},
};

std::string attribute(int values) {
    std::string text = "20030101";
    for (int v = 2; v <= values; ++v)
        text += vorandine::records::ValueMark + std::to_string(20030000 + v % 9999);
    return text;
}

// Nanoseconds a value. Both lengths walk over equally many values, so that what a clock reading
// costs weighs alike.
double cost(const Walk& walk, const std::string& text, int values) {
    std::chrono::steady_clock::duration spent{};
    for (int repeat = 0; repeat < Long / values; ++repeat) {
        DBARecord record(nullptr, "", text);
        if (!walk.whole)
            kept += std::as_const(record)(1, 1).size();
        const auto start = std::chrono::steady_clock::now();
        walk.run(record, values);
        spent += std::chrono::steady_clock::now() - start;
    }
    return std::chrono::duration<double, std::nano>(spent).count() / Long;
}

} // namespace

int main() {
    const std::string shortText = attribute(Short);
    const std::string longText = attribute(Long);
    bool good = true;
    std::printf("%-30s %14s %14s %8s\n", "ns a value", "1,000 values", "30,000 values", "ratio");
    for (const Walk& walk : Walks) {
        // The two lengths take turns, so that what slows the machine slows both.
        std::vector<double> shortCosts;
        std::vector<double> longCosts;
        std::vector<double> ratios;
        for (int round = 0; round < Rounds; ++round) {
            shortCosts.push_back(cost(walk, shortText, Short));
            longCosts.push_back(cost(walk, longText, Long));
            ratios.push_back(longCosts.back() / shortCosts.back());
        }
        const double ratio = bench::median(ratios);
        good = good && ratio <= MostAllowed;
        std::printf("%-30s %14.1f %14.1f %8.2f%s\n", walk.name, bench::median(shortCosts),
                    bench::median(longCosts), ratio, ratio <= MostAllowed ? "" : "  too much");
    }
    return good && kept > 0 ? 0 : 1;
}
