// What check finds, and who is told.
#pragma once

#include <functional>
#include <string>

namespace vorandine::audit {

struct Finding {
    std::string file;
    std::string key;
    int attribute = 0; // 0: the record as a whole, or its key
    int position = 0;  // of the value, from 1; 0: the attribute as a whole
    std::string value; // as it is stored
    std::string problem;
    std::string advice; // what to do
};

using TellFinding = std::function<void(const Finding&)>;

} // namespace vorandine::audit
