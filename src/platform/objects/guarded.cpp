#include <kxgraph/platform/objects/guarded.h>

#include <kxgraph/platform/text/text.h>

#include <cstdio>

namespace kx {

namespace {

TExceptionSink CurrentSink = &WriteException;

} // namespace

void SetExceptionSink(TExceptionSink Sink) { CurrentSink = Sink ? Sink : &WriteException; }

void HandleException(const std::exception& Error) { CurrentSink(Error); }

void WriteException(const std::exception& Error) noexcept {
    try {
        std::fprintf(stderr, "kxgraph: %s\n", Escaped(Error.what()).c_str());
    } catch (...) {
        std::fputs("kxgraph: out of memory\n", stderr);
    }
}

} // namespace kx
