#include <kxgraph/platform/text/filegroup.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/text.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <random>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace kx {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void Raise(const std::string& FileName, const std::string& Reason) {
    throw EFileError(Escaped(FileName) + ": " + Reason);
}

[[noreturn]] void RaiseErrno(const std::string& FileName, int Errno) {
    Raise(FileName, std::generic_category().message(Errno));
}

void Check(bool Done, const std::string& FileName) {
    if (!Done) RaiseErrno(FileName, errno);
}

struct TCloser {
    void operator()(std::FILE* File) const { std::fclose(File); }
};
using TFile = std::unique_ptr<std::FILE, TCloser>;

/// Opens File; a failure is told of Name.
TFile Opened(const std::string& File, const char* Mode, const std::string& Name) {
    TFile file(std::fopen(File.c_str(), Mode));
    Check(file != nullptr, Name);
    return file;
}

void WriteAll(std::FILE* File, std::string_view Contents, const std::string& Name) {
    Check(std::fwrite(Contents.data(), 1, Contents.size(), File) == Contents.size(), Name);
    Check(std::fflush(File) == 0, Name);
}

void Close(TFile File, const std::string& Name) { Check(std::fclose(File.release()) == 0, Name); }

/// Some file systems flush no directories, which cannot be helped.
void FlushDirectoryOf(const std::string& FileName) {
    const std::string path = ExtractFilePath(FileName);
    const int directory = ::open(path.empty() ? "." : path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0) return;
    ::fsync(directory);
    ::close(directory);
}

bool Exists(const std::string& FileName) {
    std::error_code error;
    return fs::exists(fs::symlink_status(FileName, error));
}

/// Whether FileName is a device, a pipe or the like.
bool IsSpecial(const std::string& FileName) {
    std::error_code error;
    const fs::file_status status = fs::status(FileName, error);
    return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

/// The file that a write to FileName reaches at the end of its symbolic links, existing or not.
std::string LinkTarget(const std::string& FileName) {
    constexpr int maxLinks = 40;
    std::error_code error;
    fs::path path = FileName;
    for (int i = 0; i < maxLinks && fs::is_symlink(path, error); ++i) {
        const fs::path target = fs::read_symlink(path, error);
        if (error) Raise(FileName, error.message());
        path = path.parent_path() / target; // an absolute target replaces the directory
    }
    if (fs::is_symlink(path, error)) RaiseErrno(FileName, ELOOP);
    return path.string();
}

/// Where FileName ends, with as much of it resolved as there is.
fs::path Place(const std::string& FileName) {
    std::error_code error;
    const fs::path target = LinkTarget(FileName),
                   place = fs::weakly_canonical(fs::absolute(target, error), error);
    return error ? target : place;
}

TTemporaryFile Written(const std::string& FileName, std::string_view Contents) {
    std::string name = TemporaryNameFor(FileName);
    TFile file = Opened(name, "wbx", FileName); // "x": never somebody else's file
    TTemporaryFile temporary(std::move(name));
    WriteAll(file.get(), Contents, FileName);
    Check(::fsync(::fileno(file.get())) == 0, FileName);
    Close(std::move(file), FileName);
    return temporary;
}

} // namespace

TTemporaryFile::~TTemporaryFile() {
    if (!FName.empty()) std::remove(FName.c_str());
}

void CheckWritable(const std::string& FileName) {
    std::error_code error;
    const fs::file_status status = fs::status(FileName, error);
    if (fs::is_directory(status)) Raise(FileName, "is a directory");
    if (!fs::exists(status)) return;
    constexpr auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if ((status.permissions() & write) == fs::perms::none) Raise(FileName, "is write-protected");
    Check(::access(FileName.c_str(), W_OK) == 0, FileName);
}

bool IsSameFile(const std::string& A, const std::string& B) {
    if (IsSpecial(A) || IsSpecial(B)) return false;
    std::error_code error;
    return fs::equivalent(A, B, error) || Place(A) == Place(B);
}

std::string TemporaryNameFor(const std::string& FileName) {
    const std::string directory = ExtractFilePath(LinkTarget(FileName));
    std::random_device random;
    for (;;) {
        std::string name = directory + ".kx" + std::to_string(random()) + ExtractFileExt(FileName);
        if (!Exists(name)) return name;
    }
}

void TFileGroup::TItem::KeepOld() {
    if (!Existed) return;
    std::string name = TemporaryNameFor(Name);
    if (::link(Target.c_str(), name.c_str()) == 0) Old = TTemporaryFile(std::move(name));
}

void TFileGroup::TItem::Place() {
    Check(std::rename(New.GetName().c_str(), Target.c_str()) == 0, Name);
    New.LetGo();
}

void TFileGroup::TItem::PutBack() noexcept {
    if (!Existed) std::remove(Target.c_str());
    if (Old.GetName().empty() || std::rename(Old.GetName().c_str(), Target.c_str()) != 0) return;
    Old.LetGo();
}

void TFileGroup::Add(const std::string& FileName, std::string_view Contents) {
    CheckWritable(FileName);
    if (IsSpecial(FileName)) {
        FSpecials.push_back({FileName, std::string(Contents)});
        return;
    }
    TItem item{FileName, LinkTarget(FileName), Written(FileName, Contents), {}};
    std::error_code error;
    const fs::file_status status = fs::status(item.Target, error);
    item.Existed = fs::exists(status);
    if (item.Existed) fs::permissions(item.New.GetName(), status.permissions(), error);
    if (item.Existed && error) Raise(FileName, error.message());
    FItems.push_back(std::move(item));
}

void TFileGroup::MoveIntoPlace() {
    if (FItems.size() > 1)
        for (TItem& item : FItems) item.KeepOld();
    std::size_t placed = 0;
    try {
        for (; placed < FItems.size(); ++placed) FItems[placed].Place();
    } catch (...) {
        while (placed > 0) FItems[--placed].PutBack();
        throw;
    }
    for (const TItem& item : FItems) FlushDirectoryOf(item.Target);
    FItems.clear();
}

void TFileGroup::WriteDevices() {
    for (const TSpecial& special : FSpecials) {
        TFile file = Opened(special.Name, "wb", special.Name);
        WriteAll(file.get(), special.Contents, special.Name);
        Close(std::move(file), special.Name);
    }
    FSpecials.clear();
}

void ReplaceFile(const std::string& FileName, std::string_view Contents) {
    TFileGroup group;
    group.Add(FileName, Contents);
    group.MoveIntoPlace();
    group.WriteDevices();
}

} // namespace kx
