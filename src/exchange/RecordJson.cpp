// A record is built from its JSON form apart and then handed over whole, so that what is refused
// leaves no half of itself behind.
#include "exchange/RecordJson.h"

#include "records/Layout.h"
#include "text/Characters.h"
#include "text/Error.h"

#include <charconv>
#include <nlohmann/json.hpp>
#include <set>
#include <vector>

namespace vorandine::exchange {
namespace {

using nlohmann::json;

[[noreturn]] void refuse(const std::string& text) {
    throw Error(errors::TextRefused, text);
}

// Names the character that byte `at` belongs to.
[[noreturn]] void refuseJson(std::string_view text, std::size_t at) {
    refuse("JSON incorrect au caractère " + std::to_string(text::Len(text.substr(0, at)) + 1) +
           ".");
}

// The attribute that a member's name is the number of, in its one form without leading zeros; 0 if
// it is no number.
int attributeNumber(const std::string& name) {
    int number = 0;
    const char* end = name.data() + name.size();
    const auto [rest, error] = std::from_chars(name.data(), end, number);
    if (error != std::errc() || rest != end || number < 1 || number > records::LastAttribute ||
        std::to_string(number) != name)
        return 0;
    return number;
}

std::string valueOf(const json& value, const std::string& what) {
    if (!value.is_string())
        refuse(what + " : chaque valeur doit être un texte entre guillemets.");
    std::string text = value.get<std::string>();
    text::RequirePlain(text, what);
    return text;
}

void setAttribute(records::DBARecord& record, int attribute, const json& member,
                  const std::string& what) {
    if (!member.is_array()) {
        record(attribute) = valueOf(member, what);
        return;
    }
    for (const json& value : member)
        record(attribute, -1) = valueOf(value, what);
}

} // namespace

json parseJson(std::string_view text) {
    std::vector<std::set<std::string>> open; // names met in each object not yet ended
    const auto watch = [&open](int, json::parse_event_t event, json& parsed) {
        if (event == json::parse_event_t::object_start)
            open.emplace_back();
        else if (event == json::parse_event_t::object_end)
            open.pop_back();
        else if (event == json::parse_event_t::key) {
            // Names come back in error texts, so they must be fit to be shown.
            text::RequirePlain(parsed.get_ref<const std::string&>(), "Un nom d'objet JSON");
            if (!open.back().insert(parsed.get<std::string>()).second)
                refuse("« " + parsed.get<std::string>() + " » figure deux fois.");
        }
        return true;
    };
    json parsed;
    try {
        parsed = json::parse(text, watch);
    } catch (const json::parse_error& error) {
        refuseJson(text, error.byte > 0 ? error.byte - 1 : 0);
    } catch (const json::exception&) {
        refuse("JSON incorrect : un nombre dépasse les limites.");
    }
    // The parser takes a zero byte for the end of the text, whatever stands behind it.
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos)
        refuseJson(text, zero);
    return parsed;
}

void fill(records::DBARecord& record, const json& object,
          const std::function<int(const std::string&)>& attributeByName) {
    if (!object.is_object())
        refuse("La fiche doit être un objet JSON, de numéros d'attribut vers leurs valeurs.");
    records::DBARecord built;
    std::set<int> named;
    for (const auto& [name, member] : object.items()) {
        const std::string what = "L'attribut « " + name + " »";
        int attribute = attributeNumber(name);
        if (attribute == 0)
            attribute = attributeByName(name);
        if (attribute < 1)
            refuse(what + " est inconnu.");
        if (!named.insert(attribute).second)
            refuse(what + " figure deux fois, par son numéro et par son nom.");
        setAttribute(built, attribute, member, what);
    }
    record() = std::as_const(built)();
}

void appendJsonText(std::string& json, std::string_view text) {
    json.push_back('"');
    // Plain text has no control characters: two characters alone need an escape.
    for (;;) {
        const std::size_t special = text.find_first_of("\"\\");
        json += text.substr(0, special);
        if (special == std::string_view::npos)
            break;
        json.push_back('\\');
        json.push_back(text[special]);
        text.remove_prefix(special + 1);
    }
    json.push_back('"');
}

void appendJsonValues(std::string& json, std::string_view attribute) {
    if (attribute.find(records::ValueMark) == std::string_view::npos) {
        appendJsonText(json, attribute);
        return;
    }
    json.push_back('[');
    for (;;) {
        const std::size_t mark = attribute.find(records::ValueMark);
        appendJsonText(json, attribute.substr(0, mark));
        if (mark == std::string_view::npos)
            break;
        json.push_back(',');
        attribute.remove_prefix(mark + 1);
    }
    json.push_back(']');
}

void appendJson(std::string& json, std::string_view record) {
    json.push_back('{');
    bool first = true;
    for (int attribute = 1; !record.empty(); ++attribute) {
        const std::size_t mark = record.find(records::AttributeMark);
        if (mark != 0) {
            json += first ? "\"" : ",\"";
            first = false;
            json += std::to_string(attribute) + "\":";
            appendJsonValues(json, record.substr(0, mark));
        }
        if (mark == std::string_view::npos)
            break;
        record.remove_prefix(mark + 1);
    }
    json.push_back('}');
}

} // namespace vorandine::exchange
