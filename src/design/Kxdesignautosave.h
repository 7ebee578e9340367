#pragma once
// What was done since the last save, kept beside the user's files in case the program ends before the next
// one: every few seconds the form is written, whole, into a directory for this; what a program has left there
// that is no more can be taken up again.

#include <kxgraph/design/Kxdesigndocument.h>
#include <kxgraph/platform/host/host.h>
#include <kxgraph/platform/text/filelock.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace kx {

/// Writes the form of a document as long as that is modified. The first line of such a file says, as a
/// comment, which file the form is of.
class TKxDesignAutosave {
public:
    /// Seldom enough not to be noticed, often enough to lose little.
    static constexpr int CInterval = 4000;
    /// Writes into Directory, which is made where there is none; every Interval milliseconds by the
    /// application's host, or, 0, when Write is called. The document must outlive this. Raises EFileError.
    TKxDesignAutosave(TKxDesignDocument& Document, const std::string& Directory, int Interval = CInterval);
    TKxDesignAutosave(const TKxDesignAutosave&) = delete;
    TKxDesignAutosave& operator=(const TKxDesignAutosave&) = delete;
    /// The document was closed by its user: nothing is left.
    ~TKxDesignAutosave();

    /// Writes the form if it has changed since, or removes the file where it is saved. Raises EFileError.
    void Write();
    /// The file; empty when there is none.
    const std::string& GetFileName() const { return FFileName; }
    /// What has gone wrong at the last time that the clock wrote; empty when nothing has.
    const std::string& GetFault() const { return FFault; }

private:
    void Tick();
    void Remove();

    TKxDesignDocument& FDocument;
    std::string FDirectory;
    std::unique_ptr<TFileLock> FLock;
    std::string FFileName, FFault;
    std::uint64_t FWritten = 0; // version of the document
    std::unique_ptr<THostTimer> FTimer;
};

/// What a program has left that has ended without closing its form.
struct TKxDesignRecovery {
    std::string FileName; ///< where it is kept
    std::string Original; ///< the file that the form is of; empty: it had none
};

/// Where a user's programs keep such things: of XDG_STATE_HOME or HOME; empty when there is neither.
std::string DesignStateDirectory();
/// All of Directory; none of a program that still runs. The newest first.
std::vector<TKxDesignRecovery> FindRecoveries(const std::string& Directory);
/// Opens it as what has to be saved yet. Raises as TKxDesignDocument::Open; the file stays.
void Recover(TKxDesignDocument& Document, const TKxDesignRecovery& Recovery);
/// Removes it.
void Forget(const TKxDesignRecovery& Recovery);

} // namespace kx
