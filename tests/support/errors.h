#pragma once
// What went wrong, as a text to compare.

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/host/application.h>

#include <string>

namespace kx::test {

/// Collects what goes to the application's OnException.
struct TFaults {
    TFaults() {
        TApplication::Instance().OnException = [this](const std::exception& E) {
            Text += E.what();
            ++Count;
        };
    }
    ~TFaults() { TApplication::Instance().OnException = nullptr; }
    std::string Text;
    int Count = 0;
};

/// The text that an action raises an E with; empty when it does not.
template <class E = Exception>
std::string MessageOf(const auto& Action) {
    try {
        Action();
    } catch (const E& error) {
        return error.what();
    }
    return "";
}

} // namespace kx::test
