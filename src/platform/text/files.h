#pragma once
// Paths and whole files. A file is replaced atomically: written beside its place, flushed to the disk and
// renamed into it (several together: filegroup.h).

#include <functional>
#include <string>
#include <string_view>

namespace kx {

/// Directory part with the trailing delimiter; empty when there is none.
std::string ExtractFilePath(std::string_view FileName);
/// The part behind the last delimiter.
std::string ExtractFileName(std::string_view FileName);
/// The extension with its point; empty when there is none. A leading point of the name begins no extension.
std::string ExtractFileExt(std::string_view FileName);
/// FileName with its extension replaced by Extension (which brings its point; empty removes it).
std::string ChangeFileExt(std::string_view FileName, std::string_view Extension);

bool FileExists(const std::string& FileName);
/// Whether there is certainly nothing of that name, a directory neither. A file that the system tells nothing
/// about, such as one in a closed directory, is not missing.
bool IsMissing(const std::string& FileName);
bool DirectoryExists(const std::string& Path);
/// Creates one level; false when that fails.
bool CreateDir(const std::string& Path);
/// Copies a file; false when it fails, or when the target exists and FailIfExists.
bool CopyFile(const std::string& Source, const std::string& Target, bool FailIfExists);

/// The whole file as bytes. Raises EFileError with the file's name and the system's reason; a directory is
/// "is a directory". "-" is standard input.
std::string ReadFile(const std::string& FileName);

/// What a file of 8-bit text begins with when an editor has marked it as UTF-8.
inline constexpr std::string_view CByteOrderMark = "\xEF\xBB\xBF";
struct TTextFile {
    std::string Text;
    bool HasMark = false; ///< the mark stands in front of Text
};
/// A file of 8-bit text. Raises as ReadFile does, and EFileError for UTF-16 text.
TTextFile ReadTextFile(const std::string& FileName);

/// A name beside FileName that no file has, for a file that will be renamed into place.
std::string TemporaryNameFor(const std::string& FileName);
/// Replaces FileName by Contents, or leaves it as it was and raises EFileError; see TFileGroup.
void ReplaceFile(const std::string& FileName, std::string_view Contents);

/// Full name of the running program; empty when the system does not tell.
std::string ExecutableName();

} // namespace kx
