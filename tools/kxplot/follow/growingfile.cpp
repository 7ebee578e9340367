#include "kxplot/follow/growingfile.h"

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kxplot {

namespace {

constexpr std::size_t CRemembered = 64; // bytes by which a file that was written over is known
constexpr std::size_t CPiece = std::size_t(1) << 16;

} // namespace

TGrowingFile::TGrowingFile(std::string Name) : FName(std::move(Name)), FIsInput(FName == "-") {
    if (FIsInput) FFile = STDIN_FILENO;
    struct stat state {};
    if (!FIsInput && stat(FName.c_str(), &state) == 0 && S_ISDIR(state.st_mode))
        throw kx::EFileError(kx::Escaped(FName) + " is a directory");
}

TGrowingFile::~TGrowingFile() { Close(); }

void TGrowingFile::Close() {
    if (FFile >= 0 && !FIsInput) close(FFile);
    if (!FIsInput) FFile = -1;
    FRead = 0;
    FLast.clear();
}

bool TGrowingFile::Open() {
    if (FFile < 0) FFile = open(FName.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    return FFile >= 0;
}

/// Whether another file has the name now.
bool TGrowingFile::WasReplaced() const {
    struct stat mine {
    }, named{};
    return fstat(FFile, &mine) == 0 && stat(FName.c_str(), &named) == 0 &&
           (mine.st_ino != named.st_ino || mine.st_dev != named.st_dev);
}

/// Whether the file is shorter than what was read, or has other bytes there.
bool TGrowingFile::WasWrittenOver() const {
    struct stat mine {};
    if (fstat(FFile, &mine) != 0 || !S_ISREG(mine.st_mode)) return false;
    if (mine.st_size < FRead) return true;
    std::array<char, CRemembered> now{};
    const auto length = static_cast<ssize_t>(FLast.size());
    return pread(FFile, now.data(), FLast.size(), FRead - length) == length &&
           std::memcmp(now.data(), FLast.data(), FLast.size()) != 0;
}

void TGrowingFile::Remember(const std::string& Bytes) {
    FLast += Bytes.substr(Bytes.size() - std::min(Bytes.size(), CRemembered));
    FLast.erase(0, FLast.size() - std::min(FLast.size(), CRemembered));
}

/// Adds what there is to Bytes.
void TGrowingFile::ReadTo(std::string& Bytes) {
    std::string piece(CPiece, '\0');
    for (;;) {
        pollfd waiting{FFile, POLLIN, 0};
        if (FIsInput && poll(&waiting, 1, 0) <= 0) return;
        const ssize_t got = read(FFile, piece.data(), piece.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0 && errno != EAGAIN)
            throw kx::EFileError("cannot read " + kx::Escaped(FName) + ": " + std::strerror(errno));
        if (got == 0 && FIsInput) FEnded = true;
        if (got <= 0) return;
        Bytes.append(piece, 0, static_cast<std::size_t>(got));
        FRead += got;
    }
}

TGrowingFile::TNews TGrowingFile::Read() {
    TNews news;
    if (!Open()) return news;
    if (!FIsInput && WasWrittenOver()) {
        lseek(FFile, 0, SEEK_SET);
        FRead = 0;
        FLast.clear();
        news.IsAnew = FHasRead;
    }
    ReadTo(news.Bytes);
    // The end of the one before is not lost: it is read before the next one is opened.
    if (news.Bytes.empty() && !FIsInput && WasReplaced()) {
        Close();
        if (!Open()) return news;
        news.IsAnew = FHasRead;
        ReadTo(news.Bytes);
    }
    Remember(news.Bytes);
    FHasRead = FHasRead || !news.Bytes.empty();
    return news;
}

} // namespace kxplot
