#pragma once
// Files that are written together: each beside its place, and then all of them renamed into it, or none.

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kx {

/// A file of its own name that is removed in the end, unless it has been let go. Neither asks for memory.
class TTemporaryFile {
public:
    TTemporaryFile() = default;
    explicit TTemporaryFile(std::string Name) noexcept : FName(std::move(Name)) {}
    TTemporaryFile(TTemporaryFile&& Other) noexcept { FName.swap(Other.FName); }
    TTemporaryFile& operator=(TTemporaryFile&& Other) noexcept {
        FName.swap(Other.FName);
        return *this;
    }
    ~TTemporaryFile();

    /// Empty when there is no file.
    const std::string& GetName() const { return FName; }
    void LetGo() noexcept { FName.clear(); }

private:
    std::string FName;
};

/// Replaces several files together, as far as renaming allows. What the destructor finds that has not been
/// moved into place is removed, and the files that were to be replaced are as they were.
class TFileGroup {
public:
    TFileGroup() = default;
    TFileGroup(const TFileGroup&) = delete;
    TFileGroup& operator=(const TFileGroup&) = delete;

    /// Writes Contents beside FileName, or beside what it links to, with the mode of the file that is there,
    /// and flushes it to the disk. Raises EFileError, as CheckWritable does. A device, a pipe or the like is
    /// never replaced: Contents wait for WriteDevices.
    void Add(const std::string& FileName, std::string_view Contents);
    /// Renames all into place and flushes their directories. When one cannot be renamed, those before it
    /// become again what they were, where the file system has hard links, and EFileError is raised.
    void MoveIntoPlace();
    /// Writes to the devices and pipes that were added; there is no way back from them.
    void WriteDevices();

private:
    struct TItem {
        std::string Name, Target;
        TTemporaryFile New, Old; ///< Old is a second name of the file that is replaced
        bool Existed = false;
        void KeepOld();
        void Place();
        void PutBack() noexcept;
    };
    struct TSpecial {
        std::string Name, Contents;
    };
    std::vector<TItem> FItems;
    std::vector<TSpecial> FSpecials;
};

/// Raises EFileError ("name: reason") for a file that must not be replaced: a directory, and a file that is
/// write-protected, also for a user who may write everything.
void CheckWritable(const std::string& FileName);
/// Whether a write to A would reach the file B: by name, through links, or as another name of one file.
/// Devices and pipes are never taken for the same.
bool IsSameFile(const std::string& A, const std::string& B);

} // namespace kx
