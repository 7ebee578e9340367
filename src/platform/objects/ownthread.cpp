#include <kxgraph/platform/objects/ownthread.h>

#include <thread>

namespace kx {

bool IsOwnThread() {
    static const std::thread::id own = std::this_thread::get_id();
    return std::this_thread::get_id() == own;
}

} // namespace kx
