// Records as JSON, for people and programs that read and write them as text: an object from an
// attribute's number to a string (one value) or an array of strings (several values).
#pragma once

#include "records/DBARecord.h"

#include <nlohmann/json_fwd.hpp>

#include <functional>
#include <string>
#include <string_view>

namespace vorandine::exchange {

// One JSON value and nothing after it but blanks. Throws Error(TextRefused) where `text` is not
// JSON, telling the character, where a member's name is not plain text, and where an object names a
// member twice: JSON allows it, but one of the two values would be lost without a word.
[[nodiscard]] nlohmann::json parseJson(std::string_view text);

// Replaces the content of `record` by that of `object`; its key and file stay. A member's name is
// an attribute's number or a name to which `attributeByName` gives a number above 0; an empty array
// is no value. Throws Error(TextRefused) if `object` is no such object or a value is not plain
// text; the record is then as it was.
void fill(records::DBARecord& record, const nlohmann::json& object,
          const std::function<int(const std::string&)>& attributeByName);

// The object that `fill` makes the same record from, put behind what `json` holds: attribute
// numbers alone, ascending, empty attributes left out, no blanks. `record` is a plain whole text.
void appendJson(std::string& json, std::string_view record);

// The values of one attribute, whose text is plain: a string for one, an array for several.
void appendJsonValues(std::string& json, std::string_view attribute);

// A plain text as a JSON string, characters outside ASCII as they are.
void appendJsonText(std::string& json, std::string_view text);

} // namespace vorandine::exchange
