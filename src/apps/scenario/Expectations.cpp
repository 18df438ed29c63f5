// One function a form of `expect`.
#include "apps/scenario/Expectations.h"

#include "apps/scenario/LineError.h"
#include "text/Error.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <string_view>

namespace vorandine::scenario {
namespace {

using nlohmann::json;
using Failure = std::optional<std::string>;

Failure compare(const json& expected, const json& found) {
    if (expected == found)
        return std::nullopt;
    return "expected " + toText(expected) + ", found " + toText(found);
}

// The members of the object that ends the line, of which there is at least one.
std::map<std::string, json> members(Words& words) {
    const json object = words.json();
    if (!object.is_object() || object.empty())
        throw LineError("a JSON object with something in it must end the line: " + toText(object));
    return object.get<std::map<std::string, json>>();
}

void note(std::vector<std::string>& failures, const std::string& whose, const Failure& failure) {
    if (failure)
        failures.push_back(whose + ": " + *failure);
}

std::string lastWord(Words& words, std::string_view what) {
    std::string word = words.word(what);
    words.end();
    return word;
}

} // namespace

std::vector<std::string> Expectations::check(Words& words) const {
    const std::string what = words.word("what is expected");
    if (what == "each")
        return checkEach(words);
    if (words.rest().substr(0, 1) == "{" && Looking::namesControl(what))
        return checkControl(what, words);
    const Failure failure = checkOne(what, words);
    return failure ? std::vector{*failure} : std::vector<std::string>();
}

std::vector<std::string> Expectations::checkControl(const std::string& name, Words& words) const {
    std::vector<std::string> failures;
    for (const auto& [property, expected] : members(words))
        note(failures, property, compare(expected, looking_.look(name + "." + property)));
    return failures;
}

std::vector<std::string> Expectations::checkEach(Words& words) const {
    const std::string property = words.word("the property");
    std::vector<std::string> failures;
    for (const auto& [name, expected] : members(words))
        note(failures, name, compare(expected, looking_.look(name + "." + property)));
    return failures;
}

Failure Expectations::checkOne(const std::string& what, Words& words) const {
    if (what == "output")
        return checkOutput(lastWord(words, "the line"));
    if (what == "printed")
        return checkPrinted(lastWord(words, "the line"));
    if (what == "error" || what == "silence") {
        words.end();
        return what == "error" ? checkError() : checkSilence();
    }
    if (what == "enabled" || what == "disabled")
        return checkFlags(words, what == "enabled");
    if (what == "rows")
        return checkRows(words);
    if (what == "show") {
        const std::string file = words.word("the file");
        const std::string key = words.word("the key");
        return compare(words.json(), looking_.show(file, key));
    }
    const json expected = words.json();
    return compare(expected, what == "journal" ? looking_.journal() : looking_.look(what));
}

Failure Expectations::checkRows(Words& words) const {
    const std::string file = words.word("the file");
    const std::string attributes = words.word("the attributes");
    const std::string query = words.word("the query");
    const json expected = words.json();
    try {
        return compare(expected, looking_.rows(file, attributes, query));
    } catch (const Error& error) {
        return "expected " + toText(expected) + ", found " + errorLine(error);
    }
}

Failure Expectations::checkOutput(const std::string& text) const {
    if (output_.is(output_.last(), text))
        return std::nullopt;
    return "expected the output " + toText(text) + ", found " + toText(output_.last());
}

Failure Expectations::checkPrinted(const std::string& text) const {
    const auto& lines = output_.events();
    if (std::any_of(lines.begin(), lines.end(),
                    [&](const std::string& line) { return output_.is(line, text); }))
        return std::nullopt;
    return "expected " + toText(text) + " among the lines printed, found " + toText(lines);
}

Failure Expectations::checkError() const {
    const auto& lines = output_.events();
    if (std::any_of(lines.begin(), lines.end(),
                    [&](const std::string& line) { return output_.isError(line); }))
        return std::nullopt;
    return "expected an error, found " + toText(lines);
}

Failure Expectations::checkSilence() const {
    if (output_.events().empty())
        return std::nullopt;
    return "expected nothing printed, found " + toText(output_.events());
}

Failure Expectations::checkFlags(Words& words, bool enabled) const {
    const std::vector<std::string> names = words.words();
    if (names.empty())
        throw LineError("the controls are missing at the end of the line");
    json wrong = json::array();
    for (const std::string& name : names)
        if (forms_.control(name).Enabled() != enabled)
            wrong.push_back(name);
    if (wrong.empty())
        return std::nullopt;
    return std::string("expected all ") + (enabled ? "enabled" : "disabled") + ", found " +
           toText(wrong) + (enabled ? " disabled" : " enabled");
}

} // namespace vorandine::scenario
