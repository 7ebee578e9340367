// The entry of libFuzzer: the one target of the program.

#include "fuzz/fuzz.h"

namespace kx::fuzz {

std::map<std::string, TBody>& Targets() {
    static std::map<std::string, TBody> targets;
    return targets;
}

} // namespace kx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Bytes, std::size_t Size) {
    kx::fuzz::TData data({Bytes, Size});
    kx::fuzz::Targets().begin()->second(data);
    return 0;
}
