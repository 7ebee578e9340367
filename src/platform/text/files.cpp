#include <kxgraph/platform/text/files.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace kx {

namespace fs = std::filesystem;

namespace {

std::size_t NameBegin(std::string_view FileName) {
    return FileName.find_last_of('/') + 1; // 0 when there is no delimiter
}

/// Where the extension begins; the length of FileName when there is none.
std::size_t ExtensionBegin(std::string_view FileName) {
    const std::size_t first = FileName.find_first_not_of('.', NameBegin(FileName));
    const std::size_t point = FileName.find_last_of('.');
    return first == std::string_view::npos || point == std::string_view::npos || point < first
               ? FileName.size()
               : point;
}

} // namespace

std::string ExtractFilePath(std::string_view FileName) {
    return std::string(FileName.substr(0, NameBegin(FileName)));
}

std::string ExtractFileName(std::string_view FileName) {
    return std::string(FileName.substr(NameBegin(FileName)));
}

std::string ExtractFileExt(std::string_view FileName) {
    return std::string(FileName.substr(ExtensionBegin(FileName)));
}

std::string ChangeFileExt(std::string_view FileName, std::string_view Extension) {
    return std::string(FileName.substr(0, ExtensionBegin(FileName))).append(Extension);
}

bool FileExists(const std::string& FileName) {
    std::error_code error;
    const fs::file_status status = fs::status(FileName, error);
    return fs::exists(status) && !fs::is_directory(status);
}

bool IsMissing(const std::string& FileName) {
    std::error_code error;
    return fs::status(FileName, error).type() == fs::file_type::not_found;
}

bool DirectoryExists(const std::string& Path) {
    std::error_code error;
    return fs::is_directory(Path, error);
}

bool CreateDir(const std::string& Path) {
    std::error_code error;
    return fs::create_directory(Path, error);
}

bool CopyFile(const std::string& Source, const std::string& Target, bool FailIfExists) {
    std::error_code error;
    return fs::copy_file(Source, Target,
                         FailIfExists ? fs::copy_options::none : fs::copy_options::overwrite_existing, error);
}

namespace {

[[noreturn]] void Raise(const std::string& FileName, const std::string& Reason) {
    throw EFileError(Escaped(FileName) + ": " + Reason);
}

[[noreturn]] void RaiseErrno(const std::string& FileName, int Errno) {
    Raise(FileName, std::generic_category().message(Errno));
}

void RefuseDirectory(const std::string& FileName) {
    if (DirectoryExists(FileName)) Raise(FileName, "is a directory");
}

struct TCloser {
    void operator()(std::FILE* File) const { std::fclose(File); }
};
using TFile = std::unique_ptr<std::FILE, TCloser>;

/// Opens File; a failure is told of Name.
TFile Opened(const std::string& File, const char* Mode, const std::string& Name) {
    TFile file(std::fopen(File.c_str(), Mode));
    if (!file) RaiseErrno(Name, errno);
    return file;
}

std::string ReadAll(std::FILE* File, const std::string& FileName, std::uintmax_t ExpectedSize = 0) {
    std::string contents;
    contents.reserve(static_cast<std::size_t>(ExpectedSize));
    std::array<char, 65536> buffer;
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), File))
        contents.append(buffer.data(), count);
    if (std::ferror(File)) RaiseErrno(FileName, errno);
    return contents;
}

} // namespace

std::string ReadFile(const std::string& FileName) {
    if (FileName == "-") return ReadAll(stdin, "standard input");
    RefuseDirectory(FileName);
    const TFile file = Opened(FileName, "rb", FileName);
    std::error_code unknown;
    const std::uintmax_t size = fs::is_regular_file(FileName, unknown) ? fs::file_size(FileName, unknown) : 0;
    return ReadAll(file.get(), FileName, unknown ? 0 : size);
}

TTextFile ReadTextFile(const std::string& FileName) {
    std::string text = ReadFile(FileName);
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
        Raise(FileName, "is UTF-16 text; UTF-8 or another text of 8 bits was expected");
    const bool marked = text.starts_with(CByteOrderMark);
    if (marked) text.erase(0, CByteOrderMark.size());
    return {std::move(text), marked};
}

std::string ExecutableName() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).string();
}

} // namespace kx
