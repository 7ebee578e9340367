#include "kxplot/batch/worker.h"

#include <kxgraph/platform/base/exceptions.h>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <iostream>

namespace kxplot {

namespace {

[[noreturn]] void RunChild(int Pipe, const std::function<int()>& Work) {
    dup2(Pipe, STDERR_FILENO);
    close(Pipe);
    const int status = Work();
    std::cout.flush();
    std::cerr.flush();
    _exit(status); // what the parent has begun is for the parent to end
}

} // namespace

TWorker::TWorker(const std::function<int()>& Work) {
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0) throw kx::Exception("no pipe for another process can be had");
    std::cout.flush();
    FChild = fork();
    if (FChild == 0) {
        close(ends[0]);
        RunChild(ends[1], Work);
    }
    close(ends[1]);
    FPipe = ends[0];
    if (FChild < 0) {
        close(FPipe);
        throw kx::Exception("no other process can be begun");
    }
}

TWorker::TWorker(TWorker&& Other) noexcept
    : FChild(std::exchange(Other.FChild, -1)), FPipe(std::exchange(Other.FPipe, -1)),
      FSaid(std::move(Other.FSaid)) {}

TWorker& TWorker::operator=(TWorker&& Other) noexcept {
    std::swap(FChild, Other.FChild);
    std::swap(FPipe, Other.FPipe);
    std::swap(FSaid, Other.FSaid);
    return *this;
}

TWorker::~TWorker() {
    if (FChild < 0) return;
    kill(FChild, SIGTERM);
    Finish();
}

bool TWorker::Listen() {
    std::array<char, 4096> block;
    const ssize_t count = read(FPipe, block.data(), block.size());
    if (count < 0) return errno == EINTR;
    FSaid.append(block.data(), std::size_t(count));
    return count > 0;
}

std::pair<int, std::string> TWorker::Finish() {
    while (Listen()) {
    }
    close(FPipe);
    int status = 0;
    while (waitpid(FChild, &status, 0) < 0 && errno == EINTR) {
    }
    FChild = -1;
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return {code, std::move(FSaid)};
}

std::size_t AwaitOne(std::vector<TWorker>& Workers) {
    std::vector<pollfd> pipes;
    pipes.reserve(Workers.size());
    for (const TWorker& worker : Workers) pipes.push_back({worker.FPipe, POLLIN, 0});
    for (;;) {
        poll(pipes.data(), pipes.size(), -1);
        for (std::size_t i = 0; i < pipes.size(); ++i)
            if (pipes[i].revents != 0 && !Workers[i].Listen()) return i;
    }
}

} // namespace kxplot
