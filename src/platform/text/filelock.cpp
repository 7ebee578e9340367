#include <kxgraph/platform/text/filelock.h>

#include <kxgraph/platform/base/exceptions.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>

namespace kx {

namespace {

bool TakeLock(int Handle) {
    while (flock(Handle, LOCK_EX | LOCK_NB) != 0)
        if (errno != EINTR) return false;
    return true;
}

} // namespace

TFileLock::TFileLock(const std::string& FileName)
    : FName(FileName), FHandle(open(FileName.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (FHandle >= 0 && TakeLock(FHandle)) return;
    const int error = errno;
    if (FHandle >= 0) close(FHandle);
    throw EFileError(FileName + ": " + std::generic_category().message(error));
}

TFileLock::~TFileLock() {
    unlink(FName.c_str());
    close(FHandle);
}

bool TFileLock::IsHeld(const std::string& FileName) {
    const int handle = open(FileName.c_str(), O_RDWR | O_CLOEXEC);
    if (handle < 0) return false;
    const bool held = !TakeLock(handle);
    close(handle);
    return held;
}

} // namespace kx
