#include <kxgraph/platform/objects/lists.h>

#include "support/testing.h"

namespace kx::test::lists {

TEST(StringList, SplitAtAnyLineEnd) {
    TStringList lines;
    const std::pair<const char*, const char*> cases[] = {
        {"a\r\n\rb\n\nc", "a\n\nb\n\nc\n"}, {"", ""}, {"\n", "\n"}};
    for (const auto& [text, readBack] : cases) {
        lines.SetText(text);
        EXPECT_EQ(lines.GetText(), readBack);
    }
    for (const int index : {-1, 1}) EXPECT_THROW(lines.Delete(index), ERangeError);
    EXPECT_THROW(lines.Insert(2, ""), ERangeError);
    TList<int> pointers;
    for (const int index : {-1, 0}) {
        EXPECT_THROW(pointers.GetItem(index), ERangeError);
        EXPECT_THROW(pointers.Delete(index), ERangeError);
    }
    const int beyond = lines.GetCount(); // 1; a known one has g++ 12 warn of a store that is never reached
    EXPECT_THROW(pointers.Insert(beyond, nullptr), ERangeError);
}

TEST(StringList, ComeBackFromFilesAndStayWhenReadingFails) {
    const TTemporaryDirectory directory;
    TStringList lines, read;
    lines.SetText(std::string("x\0y\n\xE4\n", 6));
    lines.SaveToFile(directory / "lines.txt");
    read.LoadFromFile(directory / "lines.txt");
    EXPECT_THROW(read.LoadFromFile(directory / "none.txt"), EFileError);
    EXPECT_EQ(read.GetText(), lines.GetText());
    ReplaceFile(directory / "marked.txt", "\xEF\xBB\xBF[A]\n");
    read.LoadFromFile(directory / "marked.txt");
    EXPECT_EQ(read.GetText(), "[A]\n") << "a byte-order mark belongs to no line";
}

} // namespace kx::test::lists
