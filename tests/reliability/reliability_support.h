// What the programs that put the store's promises to the test share: content that shows whether it
// is whole, steps of work, what a store holds read back and compared, and how a fault is told.
#pragma once

#include "apps/dba/Program.h"
#include "records/DBARecord.h"
#include "store/Store.h"
#include "text/Error.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace reliability {

namespace store = vorandine::store;

// Everything that is drawn comes from a seed, which a fault is told with.
class Random {
  public:
    explicit Random(std::uint64_t seed) : source_(seed) {}
    std::uint64_t below(std::uint64_t limit) { return limit == 0 ? 0 : source_() % limit; }
    bool one(std::uint64_t in) { return below(in) == 0; }
    std::uint64_t number() { return source_(); }

  private:
    std::mt19937_64 source_;
};

[[noreturn]] inline void wrong(const std::string& what) {
    throw std::runtime_error(what);
}

// Stands for a content, all of whose bytes follow from it. Its last digit to the base of Sizes
// says how large the content may be.
using Id = std::uint64_t;
// From some bytes to several pages of a store.
constexpr std::array<std::uint64_t, 4> Sizes{30, 500, 5000, 50000};

inline Id idOfSize(Random& random, std::uint64_t size) {
    return random.number() / Sizes.size() / 2 * Sizes.size() + size;
}

inline std::string content(Id id) {
    std::uint64_t state = id * 6364136223846793005U;
    const auto next = [&state] {
        state = state * 6364136223846793005U + 1442695040888963407U;
        return state >> 33U;
    };
    std::string text = std::to_string(id) + vorandine::records::AttributeMark;
    for (std::uint64_t left = next() % Sizes[id % Sizes.size()]; left > 0; --left)
        text += static_cast<char>('a' + next() % 26);
    return text + vorandine::records::AttributeMark + "fin";
}

// What `text` is the whole content of.
inline Id idOf(const std::string& text, const std::string& where) {
    const Id id = std::strtoull(text.c_str(), nullptr, 10);
    if (text != content(id))
        wrong(where + " holds a text of " + std::to_string(text.size()) +
              " bytes that nobody wrote so: " + text.substr(0, 60));
    return id;
}

inline std::optional<Id> idOf(const std::optional<std::string>& text, const std::string& where) {
    return text ? std::optional(idOf(*text, where)) : std::nullopt;
}

inline const std::string File = "TABLES";
constexpr std::uint64_t Keys = 40;

inline std::string keyName(std::uint64_t number) {
    return "F" + std::to_string(number);
}

// What a host does at a time. Several writes are one transaction; none prunes the history.
struct Step {
    struct Write {
        std::string key;
        std::optional<Id> made; // none: the record is deleted
    };
    std::string user;
    std::vector<Write> writes;
};

inline void perform(store::Store& store, const Step& step) {
    constexpr store::Moment Ahead = 1000000;
    store.changes().user(step.user);
    const auto write = [&, file = store.OpenFile(File)] {
        for (const Step::Write& each : step.writes) {
            if (each.made)
                file->WriteRecord(each.key, content(*each.made));
            else
                file->DeleteRecord(each.key);
        }
    };
    if (step.writes.empty())
        store.changes().prune(store::now() + Ahead);
    else if (step.writes.size() == 1)
        write();
    else
        store.atomically(write);
}

// What a store holds of one key: the record as it is, and its history.
struct Life {
    struct Change {
        std::string user;
        std::optional<Id> before;
        bool operator==(const Change&) const = default;
    };
    std::optional<Id> record;
    std::vector<Change> changes;
    bool operator==(const Life&) const = default;
};

// What a store holds, or ought to; keys of which nothing is known do not appear.
using State = std::map<std::string, Life>;

inline State after(State state, const Step& step) {
    for (const Step::Write& write : step.writes) {
        Life& life = state[write.key];
        if (write.made || life.record)
            life.changes.push_back({step.user, life.record});
        life.record = write.made;
    }
    if (step.writes.empty())
        for (auto& [key, life] : state)
            life.changes.clear();
    std::erase_if(state, [](const auto& entry) { return entry.second == Life(); });
    return state;
}

inline State stateOf(store::Store& store) {
    State state;
    std::size_t changes = 0;
    store::Engine& engine = store.changes().engine();
    engine.file(File)->scan({}, [&](std::string_view key, std::string_view record) {
        state[std::string(key)].record = idOf(std::string(record), std::string(key));
        return true;
    });
    for (std::uint64_t number = 0; number < Keys; ++number) {
        const std::string key = keyName(number);
        for (const store::Version& version : store.changes().history(File, key)) {
            state[key].changes.push_back(
                {version.user, idOf(version.record, "the history of " + key)});
            ++changes;
        }
    }
    std::size_t kept = 0;
    engine.file(std::string(store::HistoryFile))->scan({}, [&](auto, auto) { return ++kept > 0; });
    if (kept != changes)
        wrong(std::to_string(kept) + " versions are kept, the keys have " +
              std::to_string(changes));
    return state;
}

inline void requireSame(const State& found, const State& expected, const std::string& when) {
    if (found == expected)
        return;
    std::string keys;
    for (std::uint64_t number = 0; number < Keys; ++number)
        if (const std::string key = keyName(number);
            found.count(key) != expected.count(key) ||
            (found.count(key) > 0 && found.at(key) != expected.at(key)))
            keys += " " + key;
    wrong(when + ", the store holds something else than it ought to of" + keys);
}

// As a user has a store verified.
inline void verify(const std::string& path) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    if (vorandine::dba::run({"verify", "sqlite:" + path}, {in, out, err}) != 0)
        wrong("the store does not verify: " + out.str() + err.str());
}

inline store::Store opened(const std::string& path,
                           store::OpenMode mode = store::OpenMode::Existing) {
    return store::Store(store::openEngine("sqlite:" + path, mode));
}

inline State stateOf(const std::string& path) {
    store::Store store = opened(path);
    return stateOf(store);
}

// The number at `position` of the command line, or what stands for it.
inline std::uint64_t argument(const std::vector<std::string>& words, std::size_t position,
                              std::uint64_t otherwise) {
    return position < words.size() ? std::stoull(words[position]) : otherwise;
}

// Does `work`: the exit status of a program.
inline int run(const std::function<void()>& work) {
    try {
        work();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}

} // namespace reliability
