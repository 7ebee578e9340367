#pragma once
// Command lines in tests.

#include "kxplot/options/commandline.h"
#include "support/testing.h"

namespace kxplot::test {

using TNames = std::vector<std::string>;
using kx::test::Cases, kx::test::Holds, kx::test::TText;

inline TNames Words(const std::string& Text) {
    std::istringstream words(Text);
    return TNames(std::istream_iterator<std::string>(words), {});
}

/// What a command line asks for; Arguments are words.
inline TOptions Parsed(const std::string& Arguments) {
    TNames words = Words("kxplot " + Arguments);
    std::vector<char*> pointers;
    for (auto& word : words) pointers.push_back(word.data());
    return ParseOptions(int(pointers.size()), pointers.data()).value();
}

} // namespace kxplot::test
