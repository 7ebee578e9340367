// Whatever fails while stores change and files are written: each is as it was or new, and none is lost.

#include "memory/allocations.h"

#include <kxgraph/persist/Kxlargeini.h>
#include <kxgraph/platform/text/filegroup.h>

#include <sys/stat.h>

namespace kx::test::files {

const std::string COld =
    "[Window]\nLeft=10\nTop=20\n\n[Graph]\nTitle=a title that is too long for a short string\n";

std::string Contents(const std::string& File) { return FileExists(File) ? ReadFile(File) : "(lost)"; }

/// A directory with a settings file, which is changed.
void SaveSettings(long Step) {
    const TTemporaryDirectory directory;
    const std::string file = directory / "settings.ini";
    ReplaceFile(file, COld);
    std::string saved = COld;
    saved[saved.find("10") + 1] = '1';
    const long failures = ForEveryFailure(
        [&] {
            TKxLargeIniFile ini(file);
            ini.WriteInteger("Window", "Left", 11);
            ini.Save();
        },
        [&] {
            const std::string contents = Contents(file);
            EXPECT_TRUE(contents == COld || contents == saved) << contents;
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory / ""), {}), 1)
                << "a temporary file stayed";
            ReplaceFile(file, COld);
        },
        Step);
    EXPECT_GT(failures, 20);
}

TEST(AllocationFailure, LosesNoSettingsFile) { ExpectNoLeak(SaveSettings); }

/// Replaces a file and adds another one.
void ReplaceBoth(long Step) {
    const TTemporaryDirectory directory;
    const std::string name = directory / "a file of a name that takes memory.txt";
    const std::string other = directory / "another one of the same group of files.txt";
    ReplaceFile(name, "old");
    const long failures = ForEveryFailure(
        [&] {
            TFileGroup group;
            for (const auto& file : {name, other}) group.Add(file, "new");
            group.MoveIntoPlace();
        },
        [&] {
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory / ""), {}),
                      1 + FileExists(other));
            EXPECT_EQ(Contents(name), FileExists(other) ? "new" : "old") << "both or none";
            std::filesystem::remove(other);
            ReplaceFile(name, "old");
        },
        Step);
    EXPECT_GT(failures, 6);
}

TEST(AllocationFailure, ReplacesAGroupOfFilesAsAWholeOrNotAtAll) { ExpectNoLeak(ReplaceBoth); }

TEST(Files, AreFlushedBeforeTheyTakeThePlaceAndTheirDirectoryAfterwards) {
    const TTemporaryDirectory directory;
    const std::string name = directory / "x.ini";
    ReplaceFile(name, "old");
    std::string flushed;
    OnFlush = [&](int File) {
        struct stat status {};
        ::fstat(File, &status);
        flushed += (S_ISDIR(status.st_mode) ? "directory of " : "file beside ") + Contents(name) + "; ";
    };
    ReplaceFile(name, "new");
    OnFlush = nullptr;
    EXPECT_EQ(flushed, "file beside old; directory of new; ");
}

/// The store is as it was or new, and goes on as if nothing had happened. Returns how often that was tried.
long ChangeStore(void (*Deed)(TKxIniList&), long Step) {
    const std::string text = "[A]\nk=1\nl=2\n[A]\nk=3\n\n[a quite long name of a section]\nk=4\n";
    TKxIniList fresh;
    fresh.SetText(text);
    Deed(fresh);
    auto store = std::make_unique<TKxIniList>();
    store->SetText(text);
    const auto check = [&] {
        const std::string now = store->GetText();
        EXPECT_TRUE(now == text || now == fresh.GetText()) << now;
        TKxIniList plain; // what an index made of these lines alone finds
        plain.SetText(now);
        for (TKxIniList* list : {store.get(), &plain}) {
            list->WriteString("A", "k", "7");
            list->WriteString("C", "z", "8");
            list->EraseSection("a quite long name of a section");
        }
        EXPECT_EQ(store->GetText(), plain.GetText());
        store = std::make_unique<TKxIniList>();
        store->SetText(text);
    };
    return ForEveryFailure([&] { Deed(*store); }, check, Step);
}

TEST(AllocationFailure, LeavesAStoreAsItWasOrNew) {
    using TDeed = void (*)(TKxIniList&);
    long tried = 0;
    for (const TDeed deed :
         {TDeed([](TKxIniList& I) { I.WriteString("New section of some length", "k", "value"); }),
          TDeed([](TKxIniList& I) { I.WriteString("A", "l", "a value of more than a few bytes"); }),
          TDeed([](TKxIniList& I) { I.WriteString("A", "new key", "1"); }),
          TDeed([](TKxIniList& I) { I.EraseSection("A"); }), TDeed([](TKxIniList& I) { I.Insert(2, "[B]"); }),
          TDeed([](TKxIniList& I) { I.PutLine(3, "no header any more"); }),
          TDeed([](TKxIniList& I) { I.Delete(3); }),
          TDeed([](TKxIniList& I) { I.SetText("[C]\nthe_new_key_of_some_length=5\n"); })})
        ExpectNoLeak([&](long Step) { tried += ChangeStore(deed, Step); });
    EXPECT_GT(tried, 10);
}

} // namespace kx::test::files
