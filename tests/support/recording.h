#pragma once
// Compares a text (as a rule the listing of a recorded drawing) with the reviewed file of that name in
// tests/recordings. A missing file is written and the test fails, so that a person looks at it first; with
// CI=true nothing is written. KX_UPDATE_RECORDINGS=1 rewrites files that differ.

#include <string>

namespace kx::test {

void ExpectRecording(const std::string& Name, const std::string& Actual);

/// A new empty directory that is removed with its contents at the end of the scope.
class TTemporaryDirectory {
public:
    TTemporaryDirectory();
    ~TTemporaryDirectory();
    std::string operator/(const std::string& Name) const { return FPath + "/" + Name; }

private:
    std::string FPath;
};

} // namespace kx::test
