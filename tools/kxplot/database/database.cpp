#include "kxplot/database/database.h"

#include "kxplot/database/wire.h"

#include <kxgraph/platform/base/exceptions.h>

#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>
#include <utility>

extern char** environ;

namespace kxplot {

namespace {

/// Beside this program, or where installing puts it.
std::string PartnersProgram() {
    namespace fs = std::filesystem;
    std::error_code failure;
    const fs::path here = fs::read_symlink("/proc/self/exe", failure).parent_path(),
                   beside = here / "kxplot-db";
    return fs::exists(beside, failure) ? beside : here.parent_path() / "libexec/kxgraph/kxplot-db";
}

/// A child that one speaks with by its standard streams.
class TPartner {
public:
    explicit TPartner(const std::string& Program);
    ~TPartner() {
        close(FSocket);
        int status = 0;
        while (waitpid(FChild, &status, 0) < 0 && errno == EINTR) {
        }
    }
    TPartner(const TPartner&) = delete;
    TPartner& operator=(const TPartner&) = delete;

    /// Says all, and that it is all. What a child that has ended does not hear shows in its answer.
    void Say(std::string_view Text) const {
        while (!Text.empty()) {
            const ssize_t count = send(FSocket, Text.data(), Text.size(), MSG_NOSIGNAL);
            if (count < 0 && errno != EINTR) break;
            Text.remove_prefix(std::size_t(std::max<ssize_t>(count, 0)));
        }
        shutdown(FSocket, SHUT_WR);
    }
    std::string Answer() const {
        std::string answer;
        std::array<char, 1 << 16> block;
        for (;;) {
            const ssize_t count = read(FSocket, block.data(), block.size());
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) return answer;
            answer.append(block.data(), std::size_t(count));
        }
    }

private:
    pid_t FChild = -1;
    int FSocket = -1;
};

TPartner::TPartner(const std::string& Program) {
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw kx::Exception("no pipe for another process can be had");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO})
        posix_spawn_file_actions_adddup2(&actions, ends[1], stream);
    std::string name = Program;
    char* arguments[] = {name.data(), nullptr};
    const int failure = posix_spawn(&FChild, Program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    FSocket = ends[0];
    if (failure == 0) return;
    close(FSocket);
    throw kx::Exception("--db: the program " + Program + " cannot be run; it belongs to kxplot");
}

} // namespace

kx::TKxTable ReadDatabase(const TDatabaseRequest& Request) {
    const TPartner partner(PartnersProgram());
    partner.Say(Request.Url + '\0' + Request.Query);
    TAnswerOfDatabase answer = FromWire(partner.Answer());
    if (!answer.Failure.empty()) throw kx::Exception(answer.Failure);
    return kx::TKxTable(std::move(answer.Columns), "--query");
}

} // namespace kxplot
