#pragma once
// Files that say that a program is still there: the lock goes with the program, however that ends.

#include <string>

namespace kx {

/// Holds a file that no other program can hold at the same time. The destructor removes it.
class TFileLock {
public:
    /// Makes the file. Raises EFileError where that fails, and where another one holds it.
    explicit TFileLock(const std::string& FileName);
    TFileLock(const TFileLock&) = delete;
    TFileLock& operator=(const TFileLock&) = delete;
    ~TFileLock();

    const std::string& GetName() const { return FName; }
    /// Whether a program holds FileName, this one or another. False where there is no such file.
    static bool IsHeld(const std::string& FileName);

private:
    std::string FName;
    int FHandle;
};

} // namespace kx
