#include "platform/files.h"

#include "platform/exceptions.h"
#include "support/recording.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <set>
#include <tuple>

namespace kx {
namespace {

namespace fs = std::filesystem;

TEST(Files, PathsAreTakenApart) {
    const std::tuple<const char*, const char*, const char*, const char*, const char*> cases[] = {
        {"/a.b/c.tar.gz", "/a.b/", "c.tar.gz", ".gz", "/a.b/c.tar.ini"},
        {"a.b/c", "a.b/", "c", "", "a.b/c.ini"},
        {".profile", "", ".profile", "", ".profile.ini"},
        {"x/..", "x/", "..", "", "x/...ini"},
        {"a.", "", "a.", ".", "a.ini"},
        {"", "", "", "", ".ini"},
        {"dir/", "dir/", "", "", "dir/.ini"}};
    for (const auto& [name, path, file, ext, changed] : cases) {
        EXPECT_EQ(ExtractFilePath(name), path);
        EXPECT_EQ(ExtractFileName(name), file);
        EXPECT_EQ(ExtractFileExt(name), ext);
        EXPECT_EQ(ChangeFileExt(name, ".ini"), changed);
    }
    EXPECT_EQ(ChangeFileExt("a.txt", ""), "a");
}

class FilesTest : public testing::Test {
protected:
    /// What the directory holds, to show that nothing stays behind.
    std::set<std::string> Entries() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Directory / ""))
            names.insert(entry.path().filename());
        return names;
    }
    static std::string MessageOf(const std::function<void()>& Action) {
        try {
            Action();
        } catch (const EFileError& error) {
            return error.what();
        }
        return "";
    }
    test::TTemporaryDirectory Directory;
    const std::string File = Directory / "x.ini";
};

TEST_F(FilesTest, ReplacingKeepsModeAndFollowsLinks) {
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
    EXPECT_TRUE(fs::is_symlink(Directory / "far"));
    EXPECT_EQ(ReadFile(Directory / "new.ini"), "n");
    EXPECT_EQ(Entries(), (std::set<std::string>{"dangling", "far", "near", "new.ini", "x.ini"}));
}

TEST_F(FilesTest, AFailureNamesTheFileAndLeavesNothingBehind) {
    fs::create_directory(Directory / "dir");
    fs::create_symlink("loop", Directory / "loop");
    const std::string missing = Directory / "none/x.ini", loop = Directory / "loop", dir = Directory / "dir";
    const auto replace = [](const std::string& Name) { return [=] { ReplaceFile(Name, "x"); }; };
    EXPECT_EQ(MessageOf(replace(missing)), missing + ": No such file or directory");
    EXPECT_EQ(MessageOf(replace(dir)), dir + ": is a directory");
    EXPECT_EQ(MessageOf(replace(loop)), loop + ": Too many levels of symbolic links");
    EXPECT_EQ(MessageOf([&] { ReadFile(missing); }), missing + ": No such file or directory");
    EXPECT_EQ(MessageOf([&] { ReadFile(dir); }), dir + ": is a directory");
    const std::string temporary = TemporaryNameFor(dir);
    ReplaceFile(temporary, "x");
    EXPECT_EQ(MessageOf([&] { MoveIntoPlace(temporary, dir); }), dir + ": is a directory");
    EXPECT_EQ(Entries(), (std::set<std::string>{"dir", "loop"}));
}

TEST_F(FilesTest, DevicesAreWrittenToAndNotReplaced) {
    ReplaceFile("/dev/null", "x");
    const std::string temporary = Directory / "t";
    ReplaceFile(temporary, "x");
    MoveIntoPlace(temporary, "/dev/null");
    EXPECT_EQ(fs::status("/dev/null").type(), fs::file_type::character);
    EXPECT_TRUE(Entries().empty());
    EXPECT_EQ(MessageOf([] { ReplaceFile("/dev/full", "x"); }), "/dev/full: No space left on device");
}

TEST_F(FilesTest, CopyingAndCreatingTellWhetherTheyDid) {
    const std::string copy = Directory / "copy";
    EXPECT_FALSE(CopyFile(File, copy, false));
    ReplaceFile(File, "1");
    EXPECT_TRUE(CopyFile(File, copy, true));
    ReplaceFile(File, "2");
    EXPECT_FALSE(CopyFile(File, copy, true));
    EXPECT_EQ(ReadFile(copy), "1");
    EXPECT_TRUE(CopyFile(File, copy, false));
    EXPECT_EQ(ReadFile(copy), "2");
    EXPECT_TRUE(CreateDir(Directory / "d"));
    EXPECT_FALSE(CreateDir(Directory / "d"));
    EXPECT_FALSE(CreateDir(Directory / "e/f"));
    EXPECT_TRUE(DirectoryExists(Directory / "d") && !FileExists(Directory / "d"));
    EXPECT_TRUE(FileExists(copy) && !DirectoryExists(copy));
    EXPECT_TRUE(FileExists(ExecutableName()));
}

} // namespace
} // namespace kx
