// A line comes in pieces; those past the limit are read and dropped.
#include "exchange/LineReader.h"

namespace vorandine::exchange {

bool LineReader::next(std::string& line) {
    line.clear();
    tooLong_ = false;
    for (bool begun = false;; begun = true) {
        in_.getline(piece_.data(), static_cast<std::streamsize>(piece_.size()));
        auto count = static_cast<std::size_t>(in_.gcount());
        const bool ended = in_.good(); // the break was counted too
        if (ended)
            --count;
        if (line.size() + count > longest_)
            tooLong_ = true;
        else if (!tooLong_)
            line.append(piece_.data(), count);
        if (ended)
            return true;
        if (in_.bad() || in_.eof())
            return !in_.bad() && (begun || count > 0);
        in_.clear(); // the piece was full
    }
}

} // namespace vorandine::exchange
