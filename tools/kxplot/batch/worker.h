#pragma once
// Work in a process of its own.

#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kxplot {

/// A child that does some work; what it says on standard error is kept.
class TWorker {
public:
    /// Work returns the exit status. Raises kx::Exception where there is no room for another process.
    explicit TWorker(const std::function<int()>& Work);
    TWorker(TWorker&& Other) noexcept;
    TWorker& operator=(TWorker&& Other) noexcept;
    /// A worker that is still at work is ended.
    ~TWorker();

    /// Waits for the end: the exit status (128 and more: the signal that ended it), and what was said.
    std::pair<int, std::string> Finish();

private:
    friend std::size_t AwaitOne(std::vector<TWorker>& Workers);
    /// Takes what has been said; false at the end of it.
    bool Listen();

    pid_t FChild = -1;
    int FPipe = -1;
    std::string FSaid;
};

/// Waits until one of Workers, which are not none, is done, and returns which.
std::size_t AwaitOne(std::vector<TWorker>& Workers);

} // namespace kxplot
