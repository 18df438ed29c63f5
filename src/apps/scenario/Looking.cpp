// Records and rows as JSON, told apart at the separators of their whole text.
#include "apps/scenario/Looking.h"

#include "apps/scenario/LineError.h"
#include "apps/scenario/Properties.h"
#include "text/Error.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace vorandine::scenario {
namespace {

using nlohmann::json;

std::vector<std::string_view> split(std::string_view text, char mark) {
    std::vector<std::string_view> parts;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t to = std::min(text.find(mark, from), text.size());
        parts.push_back(text.substr(from, to - from));
        from = to + 1;
    }
    return parts;
}

json array(std::string_view text, char mark) {
    json all = json::array();
    if (!text.empty())
        for (const std::string_view part : split(text, mark))
            all.push_back(part);
    return all;
}

} // namespace

bool Looking::namesControl(const std::string& what) {
    return what != "Form" && what != "Focus" && what != "Detail" && what != "journal" &&
           what.find('.') == std::string::npos;
}

json Looking::look(const std::string& what) const {
    const widgets::Form* const front = forms_.front();
    if (what == "Form")
        return front != nullptr ? front->Name() : std::string();
    if (what == "Focus") {
        const widgets::Control* const focus = front != nullptr ? front->focus() : nullptr;
        return focus != nullptr ? focus->fullName() : std::string();
    }
    if (what == "Detail")
        return detail_;
    const std::size_t dot = what.rfind('.');
    if (dot == std::string::npos)
        throw LineError("no CONTROL.PROPERTY: " + what);
    return property(forms_.control(what.substr(0, dot)), what.substr(dot + 1));
}

json Looking::show(const std::string& file, const std::string& key) const {
    const auto stored = stage_.records().OpenFile(file);
    const std::optional<records::DBARecord> record = ports::find(*stored, key);
    if (!record)
        return nullptr;
    const std::string text = (*record)();
    json attributes = json::array();
    if (!text.empty())
        for (const std::string_view attribute : split(text, records::AttributeMark))
            attributes.push_back(array(attribute, records::ValueMark));
    while (!attributes.empty() && attributes.back().empty())
        attributes.erase(attributes.size() - 1);
    return attributes;
}

json Looking::rows(const std::string& file, const std::string& attributes,
                   const std::string& query) const {
    // The key in front, taken off again below, so that a row of empty attributes still shows.
    const bool any = attributes.find_first_not_of(' ') != std::string::npos;
    records::DBARecord request;
    request(1) = query;
    request(2) = file;
    request(3) = any ? "0 " + attributes : attributes;
    const records::DBARecord result = stage_.records().Select(std::as_const(request)());
    const std::string text = result();
    json rows = json::array();
    if (text.empty())
        return rows;
    for (const std::string_view line : split(text, records::AttributeMark)) {
        json row = json::array();
        for (const std::string_view value : split(line, records::ValueMark)) {
            json values = array(value, records::SubvalueMark);
            if (values.size() < 2)
                values = value;
            row.push_back(std::move(values));
        }
        row.erase(0);
        rows.push_back(std::move(row));
    }
    return rows;
}

json Looking::journal() const {
    return stage_.takeJournal();
}

} // namespace vorandine::scenario
