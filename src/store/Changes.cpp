// Keys of the history are FILE 0xFF KEY 0xFF MOMENT, its records USER 0xFF RECORD, or USER alone
// where there was none: the byte occurs in no UTF-8 text, nor in a record's whole text.
#include "store/Changes.h"

#include "records/RecordText.h"
#include "text/Characters.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <utility>

namespace vorandine::store {
namespace {

constexpr char Mark = '\xFF';
constexpr Moment PerSecond = 1000000;
constexpr std::size_t PrunedTogether = 10000;
constexpr std::size_t OwnKnown = 10000;

std::string keysOf(const std::string& name, const std::string& key) {
    return name + Mark + key + Mark;
}

// Who a server was told that it works for stands before the role by which it did.
std::string_view personOf(std::string_view user) {
    return user.substr(0, user.find(" @ "));
}

// What momentText was made of; none where it is no such text.
std::optional<Moment> momentOf(std::string_view text) {
    std::tm utc{};
    int rest = 0;
    if (std::sscanf(std::string(text).c_str(), "%4d-%2d-%2dT%2d:%2d:%2d.%6dZ", &utc.tm_year,
                    &utc.tm_mon, &utc.tm_mday, &utc.tm_hour, &utc.tm_min, &utc.tm_sec, &rest) != 7)
        return std::nullopt;
    utc.tm_year -= 1900;
    utc.tm_mon -= 1;
    return timegm(&utc) * PerSecond + rest;
}

std::tm local(Moment moment) {
    const std::time_t seconds = moment / PerSecond;
    std::tm local{};
    localtime_r(&seconds, &local);
    return local;
}

} // namespace

Moment now() {
    using namespace std::chrono;
    return duration_cast<microseconds>(system_clock::now().time_since_epoch()).count();
}

std::string momentText(Moment moment) {
    const Moment rest = (moment % PerSecond + PerSecond) % PerSecond; // before 1970 too
    const std::time_t seconds = (moment - rest) / PerSecond;
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%06dZ",
                  utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min,
                  utc.tm_sec, static_cast<int>(rest));
    return text.data();
}

std::string localTime(const std::string& moment) {
    const std::optional<Moment> known = momentOf(moment);
    if (!known)
        return {};
    const std::tm then = local(*known);
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%d/%m/%Y à %H:%M", &then)};
}

std::string localTimeInSentence(const std::string& moment) {
    const std::string whole = localTime(moment);
    const std::string today = localTime(momentText(now()));
    const std::size_t day = whole.find(' ');
    if (whole.empty())
        return {};
    return whole.substr(0, day) == today.substr(0, day) ? whole.substr(day + 1) : "le " + whole;
}

bool isPlainVersion(std::string_view key, std::string_view content) noexcept {
    const std::size_t first = key.find(Mark);
    const std::size_t second = key.rfind(Mark);
    const std::size_t mark = content.find(Mark);
    return first != second && text::IsPlain(key.substr(0, first)) &&
           text::IsPlain(key.substr(first + 1, second - first - 1)) &&
           text::IsPlain(key.substr(second + 1)) && text::IsPlain(content.substr(0, mark)) &&
           (mark == std::string_view::npos || records::isPlainRecord(content.substr(mark + 1)));
}

Changes::Changes(std::shared_ptr<Engine> engine, std::function<Moment()> clock)
    : engine_(std::move(engine)), clock_(std::move(clock)) {}

EngineFile* Changes::versions() {
    return engine_->file(std::string(HistoryFile));
}

void Changes::atomically(const std::function<void()>& work) {
    struct Running {
        Changes& changes;
        explicit Running(Changes& of) : changes(of) { changes.transaction_ = true; }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        ~Running() {
            changes.transaction_ = false;
            changes.gap_.reset();
        }
    };
    engine_->atomically([&] {
        const Running running(*this);
        work();
    });
}

void Changes::user(const std::string& name) {
    text::RequirePlain(name, "Le nom de l'utilisateur");
    user_ = name;
}

bool Changes::swap(EngineFile& file, const std::string& name, const std::string& key,
                   std::optional<std::string_view> record, const Condition* condition) {
    const std::string moment = clock_ ? momentText(clock_()) : std::string();
    Swap change{key, record, std::nullopt, user_, !keepUnchanged_, moment};
    if (condition != nullptr)
        change.expected = condition->record;
    const std::optional<Swapped> swapped = file.swap(change);
    if (!swapped)
        return false;
    if (!swapped->done && condition != nullptr)
        condition->refuse(swapped->before);
    if (!swapped->moment.empty())
        remember(keysOf(name, key) + swapped->moment);
    return true;
}

void Changes::together(EngineFile& file, const std::string& key, const Condition* condition,
                       const std::function<void()>& work) {
    const auto both = [&] {
        if (condition != nullptr)
            if (const auto stored = file.read(key); stored != condition->record)
                condition->refuse(stored);
        work();
    };
    if (transaction_)
        both();
    else
        engine_->atomically(both);
}

void Changes::write(EngineFile& file, const std::string& name, const std::string& key,
                    std::string_view record, const Condition* condition) {
    if (swap(file, name, key, record, condition))
        return;
    together(file, key, condition, [&] {
        const std::optional<std::string> before = file.write(key, record);
        // After a deletion, the next version must say that there was no record.
        if (keepUnchanged_ || (before ? *before != record : known(name, key)))
            keep(name, key, before);
    });
}

void Changes::erase(EngineFile& file, const std::string& name, const std::string& key,
                    const Condition* condition) {
    if (swap(file, name, key, std::nullopt, condition))
        return;
    together(file, key, condition, [&] {
        if (const std::optional<std::string> before = file.erase(key))
            keep(name, key, before);
    });
}

// Whether there are versions of a record.
bool Changes::known(const std::string& name, const std::string& key) {
    EngineFile* const file = versions();
    if (file == nullptr)
        return false;
    const std::string before = keysOf(name, key);
    if (gap_ && gap_->from <= before &&
        (!gap_->to || (before < *gap_->to && !gap_->to->starts_with(before))))
        return false;
    std::optional<std::string> next;
    const auto take = [&](std::string_view at, std::string_view /*content*/) {
        next = at;
        return false;
    };
    file->scan({before, std::nullopt}, take, 1);
    const bool found = next && next->starts_with(before);
    if (transaction_ && !found)
        gap_ = KeyRange{before, next};
    return found;
}

// A clock that is put back, or has not ticked since the last change, must not change their order:
// what was kept from now on is there only then.
void Changes::keep(const std::string& name, const std::string& key,
                   const std::optional<std::string>& record) {
    EngineFile* const kept = versions();
    if (kept == nullptr)
        return;
    gap_.reset();
    const std::string before = keysOf(name, key);
    Moment moment = clock_ ? clock_() : now();
    kept->scan({before + momentText(moment), before + Mark}, [&](std::string_view at, auto) {
        moment = std::max(moment, momentOf(at.substr(before.size())).value_or(0) + 1);
        return true;
    });
    kept->write(before + momentText(moment), record ? user_ + Mark + *record : user_);
    remember(before + momentText(moment));
}

void Changes::remember(std::string version) {
    // One that was rolled back may come again.
    if (const auto [at, fresh] = own_.insert(std::move(version)); fresh)
        ownInOrder_.push_back(at);
    if (own_.size() > OwnKnown) {
        own_.erase(ownInOrder_.front());
        ownInOrder_.pop_front();
    }
}

std::vector<Version> Changes::history(const std::string& name, const std::string& key) {
    std::vector<Version> kept;
    const std::string before = keysOf(name, key);
    if (EngineFile* const file = versions())
        file->scan({before, before + Mark}, [&](std::string_view at, std::string_view content) {
            const std::size_t mark = content.find(Mark);
            kept.push_back({std::string(at.substr(before.size())),
                            std::string(content.substr(0, mark)), std::nullopt});
            if (mark != std::string::npos)
                kept.back().record = content.substr(mark + 1);
            return true;
        });
    return kept;
}

std::vector<Change> Changes::changes(const std::string& name, const std::string& prefix) {
    std::vector<Change> found;
    const std::string from = name + Mark + prefix;
    // Two marks stand nowhere, and behind all that begins so.
    const auto add = [&](std::string_view at, std::string_view content) {
        const std::size_t mark = at.rfind(Mark);
        found.push_back({std::string(at.substr(name.size() + 1, mark - name.size() - 1)),
                         std::string(at.substr(mark + 1)),
                         std::string(personOf(content.substr(0, content.find(Mark)))),
                         own_.contains(at)});
        return true;
    };
    if (EngineFile* const file = versions())
        file->scan({from, from + Mark + Mark}, add);
    return found;
}

std::optional<Change> Changes::lastChange(const std::string& name, const std::string& key) {
    std::vector<Change> all = changes(name, key + Mark);
    return all.empty() ? std::nullopt : std::optional(std::move(all.back()));
}

std::vector<std::string> Changes::othersSince(const std::string& name, const std::string& key,
                                              const std::optional<std::string>& read) {
    const std::vector<Version> kept = history(name, key);
    const auto since = std::find_if(kept.rbegin(), kept.rend(),
                                    [&](const Version& one) { return one.record == read; });
    std::vector<std::string> users;
    if (since == kept.rend())
        return users;
    for (auto one = std::prev(since.base()); one != kept.end(); ++one) {
        const std::string user(personOf(one->user));
        if (user != personOf(kept.back().user) && !user.empty() &&
            std::find(users.begin(), users.end(), user) == users.end())
            users.push_back(user);
    }
    return users;
}

// A scan must not be written under: keys are gathered first, so many at a time.
std::size_t Changes::prune(Moment moment, const std::function<void(std::size_t)>& step) {
    EngineFile* const file = versions();
    if (file == nullptr)
        return 0;
    const std::string limit = momentText(moment);
    std::size_t dropped = 0;
    std::string from;
    std::vector<std::string> old;
    do {
        old.clear();
        file->scan({from, std::nullopt}, [&](std::string_view key, std::string_view /*content*/) {
            from = std::string(key);
            if (key.substr(key.rfind(Mark) + 1) < limit)
                old.push_back(from);
            return old.size() < PrunedTogether;
        });
        engine_->atomically([&] {
            for (const std::string& key : old)
                dropped += file->erase(key) ? 1 : 0;
        });
        step(dropped);
    } while (old.size() == PrunedTogether);
    return dropped;
}

} // namespace vorandine::store
