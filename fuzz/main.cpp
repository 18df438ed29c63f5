// Where the library of the fuzzers comes in.
#include "Property.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    vorandine::fuzz::check({bytes, size});
    return 0;
}
