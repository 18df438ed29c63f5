// Bare words, JSON strings and JSON values.
#include "apps/scenario/Words.h"

#include "apps/scenario/LineError.h"
#include "exchange/RecordJson.h"
#include "text/Error.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace vorandine::scenario {
namespace {

constexpr std::string_view Blanks = " \t";

nlohmann::json parse(std::string_view text) {
    try {
        return exchange::parseJson(text);
    } catch (const Error& error) {
        throw LineError("cannot read " + std::string(text) + ": " + error.what());
    }
}

} // namespace

void Words::skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(Blanks), rest_.size()));
}

// The JSON string at the beginning of what is left, quotes included.
std::string_view Words::quoted() const {
    for (std::size_t i = 1; i < rest_.size(); ++i) {
        if (rest_[i] == '\\')
            ++i;
        else if (rest_[i] == '"')
            return rest_.substr(0, i + 1);
    }
    throw LineError("the closing quote is missing: " + std::string(rest_));
}

std::string Words::word(std::string_view what) {
    if (atEnd())
        throw LineError(std::string(what) + " is missing at the end of the line");
    const bool isQuoted = rest_.front() == '"';
    const std::string_view found =
        isQuoted ? quoted() : rest_.substr(0, rest_.find_first_of(Blanks));
    rest_.remove_prefix(found.size());
    if (isQuoted && !atEnd() && Blanks.find(rest_.front()) == std::string_view::npos)
        throw LineError("a blank is missing after " + std::string(found));
    if (!isQuoted && found.find('"') != std::string_view::npos)
        throw LineError("a word with a double quote in it must be a JSON string: " +
                        std::string(found));
    skipBlanks();
    return isQuoted ? parse(found).get<std::string>() : std::string(found);
}

std::vector<std::string> Words::words() {
    std::vector<std::string> all;
    while (!atEnd())
        all.push_back(word({}));
    return all;
}

nlohmann::json Words::json() {
    if (atEnd())
        throw LineError("a JSON value is missing at the end of the line");
    const std::string_view text = rest_;
    rest_ = {};
    return parse(text);
}

void Words::end() const {
    if (!atEnd())
        throw LineError("there is more on the line than the command takes: " + std::string(rest_));
}

std::optional<Words> Words::cutAt(std::string_view mark) {
    for (Words ahead = *this; !ahead.atEnd();) {
        const std::string_view from = ahead.rest_;
        if (ahead.word({}) == mark && from.front() != '"') {
            rest_.remove_suffix(from.size());
            return ahead;
        }
    }
    return std::nullopt;
}

std::string toText(const nlohmann::json& value) {
    return value.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string toText(const std::string& text) {
    return toText(nlohmann::json(text));
}

} // namespace vorandine::scenario
