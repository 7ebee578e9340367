#include "kxplot/messages.h"

#include <kxgraph/platform/base/exceptions.h>

#include <iostream>

namespace kxplot {

void Tell(std::string Message) {
    constexpr std::size_t most = 1000;
    if (Message.size() > most) {
        std::size_t end = most;
        while (end > 0 && (Message[end] & 0xC0) == 0x80) --end; // not inside of a character
        Message.resize(end);
        Message += "…";
    }
    std::cerr << "kxplot: " << Message << '\n';
}

void Print(const std::string& Text) {
    if (!(std::cout << Text << std::flush)) throw kx::EFileError("standard output: cannot be written");
}

} // namespace kxplot
