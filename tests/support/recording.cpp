#include "support/recording.h"

#include <kxgraph/platform/text/files.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace kx::test {

namespace {

bool IsSet(const char* Name) {
    const char* value = std::getenv(Name);
    return value && *value;
}

/// The first line in which the two differ, for a message that can be read.
std::string FirstDifference(const std::string& Expected, const std::string& Actual) {
    std::size_t line = 1, begin = 0, i = 0;
    while (i < Expected.size() && i < Actual.size() && Expected[i] == Actual[i]) {
        if (Expected[i] == '\n') {
            ++line;
            begin = i + 1;
        }
        ++i;
    }
    const auto rest = [begin](const std::string& Text) {
        return begin < Text.size() ? Text.substr(begin, Text.find('\n', begin) - begin) : "(end)";
    };
    return "line " + std::to_string(line) + "\n  recorded: " + rest(Expected) +
           "\n  drawn now: " + rest(Actual);
}

} // namespace

void ExpectRecording(const std::string& Name, const std::string& Actual) {
    const std::string file = std::string(KX_RECORDINGS) + "/" + Name + ".txt";
    if (!FileExists(file)) {
        if (!IsSet("CI")) ReplaceFile(file, Actual);
        FAIL() << "no recording " << Name << (IsSet("CI") ? "" : "; it has been written: look at it");
    }
    const std::string expected = ReadFile(file);
    if (expected == Actual) return;
    if (IsSet("KX_UPDATE_RECORDINGS")) ReplaceFile(file, Actual);
    ADD_FAILURE() << Name << " differs in " << FirstDifference(expected, Actual);
}

TTemporaryDirectory::TTemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kxgraph-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary directory");
    FPath = pattern;
}

TTemporaryDirectory::~TTemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(FPath, ignored);
}

} // namespace kx::test
