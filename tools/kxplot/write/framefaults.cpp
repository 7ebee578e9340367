#include "kxplot/write/framefaults.h"

#include <kxgraph/platform/host/application.h>

#include <new>

namespace kxplot {

std::string ReasonOf(const std::exception& Error) {
    return dynamic_cast<const std::bad_alloc*>(&Error) ? "out of memory" : Error.what();
}

TFrameFaults::TFrameFaults() {
    kx::TApplication::Instance().OnException = [this](const std::exception& Error) { Hear(Error); };
}

TFrameFaults::~TFrameFaults() { kx::TApplication::Instance().OnException = nullptr; }

// Asks for no memory where it is short already.
void TFrameFaults::Hear(const std::exception& Error) {
    if (FAny) return;
    FAny = true;
    if (dynamic_cast<const std::bad_alloc*>(&Error)) return;
    try {
        FReason = Error.what();
    } catch (const std::bad_alloc&) {
        FReason.clear();
    }
}

void TFrameFaults::Check() const {
    if (!FAny) return;
    if (FReason.empty()) throw std::bad_alloc();
    throw TFrameError(FReason);
}

} // namespace kxplot
