// One pass over the words.
#include "apps/dba/CommandLine.h"

#include <algorithm>

namespace vorandine::dba {

CommandLine::CommandLine(const Arguments& arguments, std::span<const Option> options,
                         std::size_t least, std::size_t most) {
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (optionsEnded || word == "-" || !word.starts_with("-")) {
            words_.push_back(word);
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const auto option = std::find_if(options.begin(), options.end(),
                                         [&](const Option& one) { return one.name == name; });
        if (option == options.end())
            throw UsageError("there is no option " + name);
        if (given_.contains(option->name) && !option->repeatable)
            throw UsageError(name + " is given twice");
        std::vector<std::string>& values = given_[option->name];
        if (option->value.empty()) {
            if (equals != std::string::npos)
                throw UsageError(name + " takes no value");
        } else if (equals != std::string::npos) {
            values.push_back(word.substr(equals + 1));
        } else if (i + 1 < arguments.size()) {
            values.push_back(arguments[++i]);
        } else {
            throw UsageError(name + " needs a value, " + std::string(option->value));
        }
    }
    if (words_.size() < least)
        throw UsageError("something is missing");
    if (words_.size() > most)
        throw UsageError("'" + words_[most] + "' is too much");
}

std::optional<std::string> CommandLine::value(std::string_view option) const {
    const auto found = given_.find(option);
    return found == given_.end() ? std::nullopt : std::optional(found->second.back());
}

std::vector<std::string> CommandLine::values(std::string_view option) const {
    const auto found = given_.find(option);
    return found == given_.end() ? std::vector<std::string>() : found->second;
}

} // namespace vorandine::dba
