// The entry of libFuzzer: the one target of the program.

#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    kx::fuzz::TData data({Bytes, Size});
    kx::fuzz::Targets().begin()->second(data);
    return 0;
}
