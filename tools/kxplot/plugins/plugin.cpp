#include "kxplot/plugins/plugin.h"

#include <kxgraph/platform/base/exceptions.h>

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace kxplot {

namespace {

namespace fs = std::filesystem;

fs::path ProgramDirectory() {
    std::error_code failed;
    const fs::path program = fs::read_symlink("/proc/self/exe", failed);
    return failed ? fs::path(".") : program.parent_path();
}

[[noreturn]] void Fail(const char* What, const std::string& Reason) {
    throw kx::Exception(std::string(What).append(": ").append(Reason));
}

fs::path ModuleFile(const char* What, const std::string& Name) {
    const fs::path here = ProgramDirectory(), file = Name + ".so";
    const fs::path places[] = {here / file, here / ".." / "lib" / "kxplot" / file};
    for (const auto& place : places)
        if (std::error_code failed; fs::exists(place, failed)) return place;
    Fail(What, "this part of kxplot is not installed: there is no " + file.string() + " in " + here.string() +
                   " or " + places[1].lexically_normal().parent_path().string());
}

std::string LoadingError() {
    const char* error = dlerror();
    return error ? error : "it cannot be loaded";
}

} // namespace

void* PluginFunction(const char* What, const std::string& Name, const char* Function) {
    const fs::path file = ModuleFile(What, Name);
    void* module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module) Fail(What, LoadingError());
    void* function = dlsym(module, Function);
    if (!function) Fail(What, LoadingError());
    return function;
}

} // namespace kxplot
