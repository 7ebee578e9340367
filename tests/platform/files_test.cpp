#include <kxgraph/platform/text/files.h>

#include "support/testing.h"

#include <kxgraph/platform/text/filegroup.h>

namespace kx::test::files {

namespace fs = std::filesystem;

TEST(Files, HavePathsThatAreTakenApart) {
    for (const auto& [name, path, file, ext, changed] :
         Cases<TText, TText, TText, TText, TText>("texts", "paths")) {
        EXPECT_EQ(ExtractFilePath(name), path);
        EXPECT_EQ(ExtractFileName(name), file);
        EXPECT_EQ(ExtractFileExt(name), ext);
        EXPECT_EQ(ChangeFileExt(name, ".ini"), changed);
    }
}

class FilesOnDisk : public testing::Test {
protected:
    /// What the directory holds, to show that nothing stays behind.
    std::set<std::string> Entries() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Directory / ""))
            names.insert(entry.path().filename());
        return names;
    }
    static std::string ReplaceFault(const std::string& Name) {
        return MessageOf<EFileError>([&] { ReplaceFile(Name, "x"); });
    }
    TTemporaryDirectory Directory;
    const std::string File = Directory / "x.ini";
};

TEST_F(FilesOnDisk, KeepTheirModeAndAreFoundThroughLinks) {
    const std::string contents("line\r\n\0\xFF", 8);
    ReplaceFile(File, "old");
    const auto mode = fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read;
    fs::permissions(File, mode);
    fs::create_symlink("x.ini", Directory / "near");
    fs::create_symlink(Directory / "near", Directory / "far");
    fs::create_symlink("new.ini", Directory / "dangling");
    ReplaceFile(Directory / "far", contents);
    ReplaceFile(Directory / "dangling", "n");
    EXPECT_EQ(ReadFile(File), contents);
    EXPECT_EQ(fs::status(File).permissions(), mode);
    EXPECT_EQ(ReadFile(Directory / "new.ini"), "n");
    EXPECT_EQ(Entries(), (std::set<std::string>{"dangling", "far", "near", "new.ini", "x.ini"}));
}

TEST_F(FilesOnDisk, AreNamedInAFailureThatLeavesNothingBehind) {
    fs::create_directory(Directory / "dir");
    fs::create_symlink("loop", Directory / "loop");
    const std::string missing = Directory / "none/x.ini", loop = Directory / "loop", dir = Directory / "dir";
    EXPECT_EQ(ReplaceFault(missing), missing + ": No such file or directory");
    EXPECT_EQ(ReplaceFault(dir), dir + ": is a directory");
    EXPECT_EQ(ReplaceFault(loop), loop + ": Too many levels of symbolic links");
    EXPECT_EQ(MessageOf<EFileError>([&] { ReadFile(dir); }), dir + ": is a directory");
    ReplaceFile(File, "x");
    fs::permissions(File, fs::perms::owner_read);
    EXPECT_EQ(ReplaceFault(File), File + ": is write-protected");
    EXPECT_EQ(Entries(), (std::set<std::string>{"dir", "loop", "x.ini"}));
}

TEST_F(FilesOnDisk, AreReplacedAsAGroupOrNotAtAll) {
    const std::string added = Directory / "new.ini", last = Directory / "last.ini";
    const auto write = [&](bool Fails) {
        TFileGroup group;
        for (const auto& name : {File, added, last}) group.Add(name, "new");
        EXPECT_EQ(Entries().size(), 4u) << "three beside their places";
        if (Fails) fs::create_directory(last); // cannot be renamed onto
        group.MoveIntoPlace();
    };
    ReplaceFile(File, "old");
    EXPECT_THROW(write(true), EFileError);
    EXPECT_EQ(ReadFile(File), "old");
    EXPECT_EQ(Entries(), (std::set<std::string>{"last.ini", "x.ini"}));
    fs::remove(last);
    write(false);
    EXPECT_EQ(ReadFile(File) + ReadFile(added) + ReadFile(last), "newnewnew");
    EXPECT_EQ(Entries(), (std::set<std::string>{"last.ini", "new.ini", "x.ini"}));
}

TEST_F(FilesOnDisk, AreKnownUnderAllTheirNames) {
    ReplaceFile(File, "x");
    fs::create_hard_link(File, Directory / "hard");
    fs::create_symlink("x.ini", Directory / "soft");
    fs::create_symlink("new", Directory / "dangling");
    const std::tuple<std::string, std::string, bool> cases[] = {
        {File, Directory / "hard", true},
        {File, Directory / "soft", true},
        {Directory / "new", Directory / "dangling", true},
        {Directory / "new", Directory / "./new", true},
        {Directory / "new", Directory / "other", false},
        {File, Directory / "new", false},
        {"/dev/null", "/dev/null", false},
    };
    for (const auto& [a, b, same] : cases) {
        EXPECT_EQ(IsSameFile(a, b), same) << a << ' ' << b;
        EXPECT_EQ(IsSameFile(b, a), same) << a << ' ' << b;
    }
}

TEST_F(FilesOnDisk, AreNotReplacedWhereTheyAreDevices) {
    ReplaceFile("/dev/null", "x");
    EXPECT_EQ(fs::status("/dev/null").type(), fs::file_type::character);
    EXPECT_TRUE(Entries().empty());
    EXPECT_EQ(ReplaceFault("/dev/full"), "/dev/full: No space left on device");
}

TEST_F(FilesOnDisk, TellWhetherTheyWereCopied) {
    const std::string copy = Directory / "copy";
    EXPECT_FALSE(CopyFile(File, copy, false));
    ReplaceFile(File, "1");
    EXPECT_TRUE(CopyFile(File, copy, true));
    ReplaceFile(File, "2");
    EXPECT_FALSE(CopyFile(File, copy, true));
    EXPECT_TRUE(CopyFile(File, copy, false));
    EXPECT_EQ(ReadFile(copy), "2");
}

} // namespace kx::test::files
