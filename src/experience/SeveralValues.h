// Single attributes of which a record holds several values, as the control never wrote them. No
// field can show them apart: they are shown in one line, and stored back as they were read until
// their field is touched.
#pragma once

#include "records/DBARecord.h"

#include <functional>
#include <map>
#include <string>

namespace vorandine::experience {

class SeveralValues {
  public:
    // The attribute as one line: each value as `shown` gives it.
    using Shown = std::function<std::string(const std::string&)>;
    [[nodiscard]] static std::string inOneLine(const records::DBARecord& rec, int attribute,
                                               const Shown& shown);

    // The attribute of `rec` was put on the screen, where its control now stands at `state`.
    void showed(const records::DBARecord& rec, int attribute, const std::string& state);
    // What is to be stored of it: what was read where it had several values and the control stands
    // as it did then, else `composed`.
    [[nodiscard]] std::string stored(int attribute, const std::string& state,
                                     const std::string& composed) const;

  private:
    struct Read {
        std::string text;
        std::string state;
    };
    std::map<int, Read> read_; // by attribute
};

} // namespace vorandine::experience
