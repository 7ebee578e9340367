#pragma once
// Where exceptions go that leave a handler, so that whoever called it can go on.

#include <exception>

namespace kx {

/// Takes what HandleException is given. Must not raise.
using TExceptionSink = void (*)(const std::exception& Error);

/// Replaces the sink; null restores the first one, WriteException. The application object sets its own.
void SetExceptionSink(TExceptionSink Sink);
/// Gives Error to the sink.
void HandleException(const std::exception& Error);
/// One line on standard error; says less, rather than raise, when memory is short.
void WriteException(const std::exception& Error) noexcept;

/// Calls Action; what it raises goes to HandleException.
template <class F>
void Guarded(F Action) {
    try {
        Action();
    } catch (const std::exception& error) {
        HandleException(error);
    }
}

} // namespace kx
