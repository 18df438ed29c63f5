// Values in the server's binary form, beside bytes, which are themselves.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vorandine::store::postgresql {

// A bigint.
inline std::string binary(std::int64_t number) {
    constexpr int Bits = 8;
    std::string bytes(sizeof number, '\0');
    for (auto at = bytes.rbegin(); at != bytes.rend(); ++at, number >>= Bits)
        *at = static_cast<char>(number & 0xFF);
    return bytes;
}

inline std::string_view binary(bool value) {
    return {value ? "\1" : "\0", 1};
}

inline bool isTrue(std::string_view bytes) {
    return bytes == binary(true);
}

} // namespace vorandine::store::postgresql
