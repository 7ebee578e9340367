// Puts every file of the corpora through its target, without libFuzzer: what was found once stays mended.

#include "fuzz/fuzz.h"

#include <kxgraph/platform/text/files.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace kx::fuzz {
namespace {

class TReplay : public testing::Test {
public:
    TReplay(std::string Name, TBody Body) : FName(std::move(Name)), FBody(Body) {}

    void TestBody() override {
        int files = 0;
        for (const auto& entry : std::filesystem::directory_iterator(KX_CORPUS "/" + FName)) {
            const std::string bytes = ReadFile(entry.path().string());
            std::fprintf(stderr, "%s\n", entry.path().filename().c_str()); // the last one when it aborts
            TData data({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
            FBody(data);
            ++files;
        }
        EXPECT_GT(files, 0);
    }

private:
    std::string FName;
    TBody FBody;
};

} // namespace
} // namespace kx::fuzz

// Tests are registered here and not in their files: the order of files is not known before main.
int main(int Count, char** Arguments) {
    testing::InitGoogleTest(&Count, Arguments);
    for (const auto& [name, body] : kx::fuzz::Targets())
        testing::RegisterTest(
            "Fuzz", name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
            [name = name, body = body]() -> testing::Test* { return new kx::fuzz::TReplay(name, body); });
    return RUN_ALL_TESTS();
}
