#pragma once
// The bytes of a file that somebody is writing.

#include <cstddef>
#include <string>

namespace kxplot {

/// Standard input ("-"), or a file that may be not there yet, be truncated and begun anew, or be renamed and
/// made again under its name, as logs are. Reads what there is and never waits.
class TGrowingFile {
public:
    /// Raises kx::EFileError for a directory.
    explicit TGrowingFile(std::string Name);
    ~TGrowingFile();
    TGrowingFile(const TGrowingFile&) = delete;
    TGrowingFile& operator=(const TGrowingFile&) = delete;

    struct TNews {
        std::string Bytes;
        bool IsAnew = false; ///< the bytes are the first of a file; what was read before is of another one
    };
    /// What has come since the last call. Raises kx::EFileError when reading fails.
    TNews Read();
    /// Whether nothing can come any more: standard input was closed.
    bool HasEnded() const { return FEnded; }

private:
    bool Open();
    void Close();
    bool WasReplaced() const;
    bool WasWrittenOver() const;
    void ReadTo(std::string& Bytes);
    void Remember(const std::string& Bytes);

    std::string FName;
    int FFile = -1;
    long long FRead = 0; ///< bytes of the open file
    std::string FLast;   ///< the last of them
    bool FIsInput, FEnded = false, FHasRead = false;
};

} // namespace kxplot
