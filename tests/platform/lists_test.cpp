#include "platform/lists.h"

#include "platform/exceptions.h"
#include "support/recording.h"

#include <gtest/gtest.h>

namespace kx {
namespace {

TEST(Strings, AnyLineEndSplitsAndTheLastOneMayLack) {
    TStringList lines;
    lines.SetText("a\r\n\rb\n\nc");
    EXPECT_EQ(lines.GetText(), "a\n\nb\n\nc\n");
    lines.SetText("");
    EXPECT_EQ(lines.GetCount(), 0);
    lines.SetText("\n");
    EXPECT_EQ(lines.GetCount(), 1);
}

TEST(Strings, LinesAreEditedAndCheckedByIndex) {
    TStringList lines, copy;
    EXPECT_EQ(lines.Add("b"), 0);
    lines.Insert(0, "a");
    lines.Insert(2, "c");
    lines.PutLine(1, "B");
    lines.Delete(0);
    copy.Assign(lines);
    copy.Assign(copy);
    EXPECT_EQ(copy.GetText(), "B\nc\n");
    for (const int index : {-1, 2}) {
        EXPECT_THROW(lines.GetLine(index), ERangeError);
        EXPECT_THROW(lines.PutLine(index, ""), ERangeError);
        EXPECT_THROW(lines.Delete(index), ERangeError);
    }
    EXPECT_THROW(lines.Insert(3, ""), ERangeError);
}

TEST(Strings, FilesRoundTripAndAFailedReadKeepsTheLines) {
    const test::TTemporaryDirectory directory;
    TStringList lines, read;
    lines.SetText(std::string("x\0y\n\xE4\n", 6));
    lines.SaveToFile(directory / "lines.txt");
    read.LoadFromFile(directory / "lines.txt");
    EXPECT_EQ(read.GetText(), lines.GetText());
    EXPECT_THROW(read.LoadFromFile(directory / "none.txt"), EFileError);
    EXPECT_EQ(read.GetCount(), 2);
}

TEST(List, RemovesTheFirstOccurrence) {
    int a = 0, b = 0;
    TList<int> list;
    for (int* item : {&a, &b, &a}) list.Add(item);
    EXPECT_EQ(list.Remove(&a), 0);
    EXPECT_EQ(list.IndexOf(&a), 1);
    EXPECT_EQ(list.Remove(&a), 1);
    EXPECT_EQ(list.Remove(&a), -1);
    EXPECT_THROW(list.GetItem(-1), std::out_of_range);
}

} // namespace
} // namespace kx
