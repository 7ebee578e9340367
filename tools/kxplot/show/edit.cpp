#include "kxplot/show/edit.h"

#include <kxgraph/platform/base/exceptions.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace kxplot {

namespace {

[[noreturn]] void Fail(const std::string& Reason) { throw kx::Exception("--edit: " + Reason); }

/// Beside this program.
std::string Designer() {
    namespace fs = std::filesystem;
    std::error_code failure;
    const fs::path here = fs::read_symlink("/proc/self/exe", failure).parent_path(), file = here / "kxdesign";
    if (!fs::exists(file, failure)) Fail("kxdesign is not installed: there is none in " + here.string());
    return file.string();
}

/// Makes Text what is read from standard input. No file is left of it.
void GiveAsInput(const std::string& Text) {
    std::FILE* file = std::tmpfile();
    const bool written = file && std::fwrite(Text.data(), 1, Text.size(), file) == Text.size();
    if (!written || std::fflush(file) != 0 || std::fseek(file, 0, SEEK_SET) != 0 ||
        dup2(fileno(file), STDIN_FILENO) < 0)
        Fail(std::strerror(errno));
}

} // namespace

void GoOnEditing(const std::string& FormFile, const std::string& Text) {
    const std::string program = Designer();
    std::fflush(nullptr);
    if (FormFile.empty()) {
        GiveAsInput(Text);
        execl(program.c_str(), "kxdesign", "--untitled", "-", nullptr);
    } else {
        execl(program.c_str(), "kxdesign", "--", FormFile.c_str(), nullptr);
    }
    Fail(program + ": " + std::strerror(errno));
}

} // namespace kxplot
