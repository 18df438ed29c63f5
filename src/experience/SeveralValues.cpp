// What was read, and how its control stood then.
#include "experience/SeveralValues.h"

namespace vorandine::experience {

std::string SeveralValues::inOneLine(const records::DBARecord& rec, int attribute,
                                     const Shown& shown) {
    std::string line = shown(rec(attribute, 1));
    const int values = rec.DCount(attribute);
    for (int i = 2; i <= values; ++i)
        line += " ; " + shown(rec(attribute, i));
    return line;
}

void SeveralValues::showed(const records::DBARecord& rec, int attribute, const std::string& state) {
    read_.erase(attribute);
    if (rec.DCount(attribute) > 1)
        read_[attribute] = {rec(attribute), state};
}

std::string SeveralValues::stored(int attribute, const std::string& state,
                                  const std::string& composed) const {
    const auto found = read_.find(attribute);
    return found != read_.end() && found->second.state == state ? found->second.text : composed;
}

} // namespace vorandine::experience
