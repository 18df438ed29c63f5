// The retrieval language: a request's text becomes a tree, or an error that says what is wrong and
// where. docs/store.md has the grammar and examples.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vorandine::store {

enum class Operator { Equal, NotEqual, AtLeast, AtMost };

// One comparison: what stands right of a condition's attribute.
struct Alternative {
    Operator op = Operator::Equal;
    std::string value;       // without the bracket of "begins with"
    bool beginsWith = false; // with Equal and NotEqual only
};

// Satisfied if one of the alternatives is; there is at least one.
struct Condition {
    int attribute = 0; // 0 is the key
    std::vector<Alternative> alternatives;
};

struct Request {
    std::string file;
    std::vector<Condition> conditions; // all must hold
    std::vector<int> order;            // attributes, ascending, the first one weighing most
    std::vector<int> wanted;           // attributes, at least one
};

// `request` is the whole text of a request record: attribute 1 the query, 2 its file, 3 the
// attributes wanted. Throws Error(RequestRefused); its text in French says what is wrong and at
// which character of the query, the first one being 1.
[[nodiscard]] Request parseRequest(std::string_view request);

} // namespace vorandine::store
