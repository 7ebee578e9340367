#include <kxgraph/design/Kxdesignautosave.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/streaming/formvalues.h>
#include <kxgraph/platform/text/files.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace kx {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view CHead = "// form of ", CLock = ".lock";

std::string DirectoryFor(const std::string& Directory) {
    std::error_code error;
    fs::create_directories(Directory, error);
    if (error) throw EFileError(Directory + ": " + error.message());
    return Directory.ends_with('/') ? Directory : Directory + '/';
}

/// "<process>-<number>", which nobody else has.
std::unique_ptr<TFileLock> NewLock(const std::string& Directory) {
    static int number = 0;
    const std::string name = std::to_string(getpid()).append("-").append(std::to_string(++number));
    return std::make_unique<TFileLock>(Directory + name + std::string(CLock));
}

/// figure.kxf of process 12 as "figure-12-1.kxf", its lock as "12-1.lock".
std::string FileOf(const TKxDesignDocument& Document, const std::string& Lock) {
    const std::string session = ChangeFileExt(ExtractFileName(Lock), {});
    const std::string form = ChangeFileExt(Document.GetTitle(), {});
    return ExtractFilePath(Lock) + form + "-" + session + std::string(CFormExtension);
}

std::string LockOf(const std::string& FileName) {
    const std::string stem = ChangeFileExt(FileName, {});
    const std::size_t process = stem.find_last_of('-', stem.find_last_of('-') - 1);
    return ExtractFilePath(FileName) + stem.substr(process + 1) + std::string(CLock);
}

} // namespace

TKxDesignAutosave::TKxDesignAutosave(TKxDesignDocument& Document, const std::string& Directory, int Interval)
    : FDocument(Document), FDirectory(DirectoryFor(Directory)), FLock(NewLock(FDirectory)) {
    if (Interval > 0)
        FTimer = TApplication::Instance().GetHost().StartTimer(Interval,
                                                               TEvent<>::Of<&TKxDesignAutosave::Tick>(this));
}

TKxDesignAutosave::~TKxDesignAutosave() { Remove(); }

void TKxDesignAutosave::Remove() {
    std::error_code error;
    if (!FFileName.empty()) fs::remove(FFileName, error);
    FFileName.clear();
}

void TKxDesignAutosave::Write() {
    if (!FDocument.IsModified()) return Remove();
    const std::string name = FileOf(FDocument, FLock->GetName());
    if (FWritten == FDocument.GetVersion() && name == FFileName) return;
    const std::string& original = FDocument.GetFileName();
    const std::string full = original.empty() ? original : fs::absolute(original).string();
    ReplaceFile(name, std::string(CHead).append(QuotedForm(full)) + "\n" + FDocument.GetText());
    if (name != FFileName) Remove();
    FFileName = name;
    FWritten = FDocument.GetVersion();
}

// A disk that is full is told once in a while by whoever looks; work goes on.
void TKxDesignAutosave::Tick() {
    FFault.clear();
    try {
        Write();
    } catch (const std::exception& error) {
        FFault = error.what();
    }
}

std::string DesignStateDirectory() {
    const char *state = std::getenv("XDG_STATE_HOME"), *home = std::getenv("HOME");
    if (state && *state) return std::string(state) + "/kxgraph/design";
    return home && *home ? std::string(home) + "/.local/state/kxgraph/design" : std::string();
}

namespace {

/// What the first line says.
std::string OriginalIn(const std::string& Text) {
    const std::size_t end = std::min(Text.find('\n'), Text.size());
    if (!Text.starts_with(CHead)) return {};
    const std::string quoted = Text.substr(CHead.size(), end - CHead.size());
    const TFormText line(quoted, {});
    return line.Unescaped(0);
}

/// What a program has begun to write and was not left the time to rename.
void RemoveIfOld(const fs::directory_entry& Entry) {
    std::error_code error;
    if (fs::file_time_type::clock::now() - Entry.last_write_time(error) > std::chrono::minutes(1))
        fs::remove(Entry.path(), error);
}

} // namespace

std::vector<TKxDesignRecovery> FindRecoveries(const std::string& Directory) {
    std::vector<std::pair<fs::file_time_type, TKxDesignRecovery>> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(Directory, error)) {
        const std::string name = entry.path().string();
        if (entry.path().filename().string().starts_with('.')) {
            RemoveIfOld(entry);
            continue;
        }
        if (entry.path().extension() != CFormExtension || TFileLock::IsHeld(LockOf(name))) continue;
        try {
            found.push_back({entry.last_write_time(), {name, OriginalIn(ReadFile(name))}});
        } catch (const std::exception&) {
            // of somebody else, or gone meanwhile
        }
    }
    std::ranges::sort(found, [](const auto& A, const auto& B) { return A.first > B.first; });
    std::vector<TKxDesignRecovery> recoveries;
    recoveries.reserve(found.size());
    for (auto& [time, recovery] : found) recoveries.push_back(std::move(recovery));
    return recoveries;
}

void Recover(TKxDesignDocument& Document, const TKxDesignRecovery& Recovery) {
    Document.Read(ReadFile(Recovery.FileName), Recovery.Original, true);
}

void Forget(const TKxDesignRecovery& Recovery) {
    std::error_code error;
    fs::remove(Recovery.FileName, error);
    fs::remove(LockOf(Recovery.FileName), error);
}

} // namespace kx
