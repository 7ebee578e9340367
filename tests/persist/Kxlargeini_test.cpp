#include <kxgraph/persist/Kxlargeini.h>

#include "support/testing.h"

#include <kxgraph/platform/controls/form.h>

namespace kx::test::largeini {

std::string Joined(const TStrings& Lines) {
    std::string text = Lines.GetText();
    std::replace(text.begin(), text.end(), '\n', '|');
    return text;
}

std::vector<double> Of(const TKxRealVector& Vector) {
    return {Vector.Values().begin(), Vector.Values().end()};
}

TEST(IniList, ListsAndErasesSections) {
    TKxIniList ini;
    TStringList lines;
    ini.WriteString("B", "k", std::string("cut\0off", 7));
    EXPECT_EQ(Joined(ini), "|[B]|k=cut|");
    ini.Modified = false;
    ini.SetText("top=1\r\n[One]\r\na=1\r\n\r\nb\r\n[Two]x]\r\n[open\r\n[one]\r\nz=9\r\n");
    ini.ReadSections(lines);
    EXPECT_EQ(Joined(lines), "One|Two||one|");
    ini.ReadSection("ONE", lines);
    EXPECT_EQ(Joined(lines), "a||");
    ini.ReadSectionValues("one", lines);
    EXPECT_EQ(Joined(lines), "a=1|b|");
    ini.EraseSection("none");
    EXPECT_FALSE(ini.Modified);
    ini.EraseSection("one");
    EXPECT_TRUE(ini.Modified);
}

TEST(IniList, ReadsWhatAPersonMayHaveTyped) {
    const std::tuple<const char*, int, double, bool> cases[] = {
        {"12abc", 12, 12, false}, {"", 5, 5, true},     {"1", 1, 1, true},
        {"-", 5, 5, false},       {"1,5", 1, 1, false}, {"x-2.5E1m", -2, -25, false}};
    for (const auto& [text, integer, real, flag] : cases) {
        TKxIniList ini;
        ini.WriteString("S", "k", text);
        EXPECT_EQ(ini.ReadInteger("S", "k", 5), integer) << text;
        EXPECT_EQ(ini.ReadReal("S", "k", 5), real) << text;
        EXPECT_EQ(ini.ReadBool("S", "k", true), flag) << text;
    }
}

TEST(IniList, NumbersKeepThePointUnderACommaLocale) {
    SetDecimalSeparator(',');
    TKxIniList ini;
    ini.WriteRealDigits("S", "d", 123456.789, 5);
    ini.WriteRealPos("S", "p", {0.25, -1e20});
    ini.WriteIntArray("S", "i", {10, -20});
    EXPECT_EQ(Joined(ini), "|[S]|d=1.2E5|p=0.25;-1E20|i=10;-20|");
    TKxRealPos pos;
    ini.ReadRealPos("S", "p", pos);
    EXPECT_EQ(pos, (TKxRealPos{0.25, -1e20}));
    SetDecimalSeparator('.');
}

TEST(IniList, TooFewNumbersRaiseButInAVector) {
    TKxIniList ini;
    ini.SetText("[S]\nn=10;20\nopen=10;20;\nv=1;2-3 4,5x;-;6");
    double values[3] = {};
    try {
        ini.ReadRealArray("S", "n", values, 2);
        ADD_FAILURE() << "nothing was raised";
    } catch (const EIniError& error) {
        EXPECT_EQ(error.GetSection() + error.GetIdent() + error.what(), "SnError during integer extraction");
    }
    EXPECT_NO_THROW(ini.ReadRealArray("S", "missing", values, 2));
    EXPECT_EQ(values[1], 20);
    const TKxIntegerArray ints(4);
    ini.ReadIntArray("S", "n", ints);
    EXPECT_EQ(ints[3], 20); // the last one is read again
    EXPECT_THROW(ini.ReadIntArray("S", "open", ints), Exception);
    TKxRealVector vector(nullptr), longer(nullptr);
    ini.ReadRealVector("S", "v", vector); // the character behind a number goes with it
    EXPECT_EQ(Of(vector), (std::vector<double>{1, 2, 3, 4, 5}));
    for (int i = 0; i < 50000; ++i)
        longer.Add(i * 0.125 - 7); // copying the rest per number would take minutes
    ini.WriteRealVector("S", "v", longer);
    ini.ReadRealVector("S", "v", vector);
    EXPECT_EQ(Of(vector), Of(longer));

    const double infinity = std::numeric_limits<double>::infinity();
    const double notFinite[] = {infinity, 1, -infinity, std::nan(""), 2};
    ini.WriteRealArray("S", "f", notFinite, 4);
    ini.ReadRealVector("S", "f", vector);
    EXPECT_TRUE(std::isnan(vector.GetValue(3)));
    vector.SetValue(3, 0);
    EXPECT_EQ(Of(vector), (std::vector<double>{infinity, 1, -infinity, 0, 2}));
    ini.SetText("[S]\nwords=INFO 3 NANA;4 XINF\n");
    ini.ReadRealVector("S", "words", vector);
    EXPECT_EQ(Of(vector), (std::vector<double>{3, 4}));
    EXPECT_EQ(ini.ReadReal("S", "words", 7), 3);

    ini.SetText("1.5;2.25\n\n3 -4\n[P]\n5;6\n[Bad]\n7\n");
    ini.ReadXYVector("p", longer, vector);
    EXPECT_EQ(Of(vector), std::vector<double>{6});
    ini.ReadXYVector("none", longer, vector); // from the first line on
    EXPECT_EQ(Of(vector), (std::vector<double>{2.25, -4}));
    EXPECT_THROW(ini.ReadXYVector("Bad", longer, vector), Exception);
}

TEST(IniList, AFontKeepsAHeightThatIsNoWholeNumberOfPoints) {
    TKxIniList ini;
    TFont font, read;
    font.SetHeight(-14);
    read.SetHeight(-14);
    ini.WriteFont("S", "F", font);
    EXPECT_EQ(ini.ReadInteger("S", "F.Size", 0), font.GetSize());
    ini.ReadFont("S", "F", read);
    EXPECT_EQ(read.GetHeight(), -14);
}

TEST(IniList, FormsComeBackWhereTheyWereOrOntoTheScreen) {
    TKxIniList ini;
    TForm form(nullptr);
    form.SetBounds(30, 20, 300, 200);
    form.Show();
    form.SetWindowState(wsMaximized);
    for (const auto& [key, place] : {std::pair("F.Top", 20),
                                     {"F.Top", 5000},
                                     {"F.Left", 2147483647},
                                     {"F.Top", -201},
                                     {"F.Left", -301}}) {
        TForm read(nullptr);
        ini.WriteFormPrms("S", "F", form);
        EXPECT_EQ(Joined(ini), "|[S]|F.State=2|F.Top=20|F.Left=30|F.Height=200|F.Width=300|");
        ini.WriteInteger("S", key, place);
        ini.ReadFormPrms("S", "F", read);
        EXPECT_EQ(read.GetWindowState(), wsMaximized);
        EXPECT_EQ(read.GetPosition(), place == 20 ? poDesigned : poScreenCenter) << key << place;
        const TPoint at = place == 20 ? TPoint{30, 20}
                                      : TPoint{(Screen.GetWidth() - 300) / 2, (Screen.GetHeight() - 200) / 2};
        EXPECT_EQ(read.GetNormalBounds(), TRect::Bounds(at.X, at.Y, 300, 200)) << key << place;
    }
}

TEST(IniList, ReferencesAreFoundByTheirPath) {
    TKxIniList ini;
    TForm form(&TApplication::Instance());
    form.SetName("MainForm");
    TKxRealVector vector(&form), nameless(&form);
    vector.SetName("Vector1");
    ini.WriteComponentRef("S", "nameless", &nameless);
    ini.WriteComponentRef("S", "v", &vector);
    EXPECT_EQ(Joined(ini), "|[S]|nameless=|v=MainForm.Vector1|");
    TKxRealVector* found = nullptr;
    ini.ReadComponentRef("S", "v", found);
    for (const char* path : {"", "MainForm", ".MainForm.Vector1", "MainForm.Vector2", "MainForm.Vector1."}) {
        ini.WriteString("S", "v", path);
        ini.ReadComponentRef("S", "v", found);
        EXPECT_EQ(found, &vector) << path;
    }
}

TEST(LargeIniFile, IsWrittenOnlyWhenChangedAndBeginsWithAHeader) {
    const TTemporaryDirectory directory;
    const std::string name = directory / "x.ini";
    ReplaceFile(name, "\r\n[A]\r\nk=1\r\n");
    EXPECT_EQ(TKxLargeIniFile(name).ReadInteger("A", "k", 0), 1);
    EXPECT_EQ(ReadFile(name), "\r\n[A]\r\nk=1\r\n");
    TKxLargeIniFile(name).WriteString("A", "k", "\xE4");
    EXPECT_EQ(ReadFile(name), "[A]\nk=\xE4\n");
    TKxLargeIniFile(directory / "none.ini").ReadString("A", "k", "");
    EXPECT_FALSE(FileExists(directory / "none.ini"));
    ReplaceFile(name, "\xEF\xBB\xBF[A]\nk=1\n");
    {
        TKxLargeIniFile file(name);
        EXPECT_EQ(file.ReadInteger("A", "k", 0), 1) << "behind a byte-order mark";
        file.WriteInteger("A", "l", 2);
    }
    EXPECT_EQ(ReadFile(name), "\xEF\xBB\xBF[A]\nk=1\nl=2\n");
}

TEST(LargeIniFile, WhatCouldNotBeReadIsNeverOverwritten) {
    const TTemporaryDirectory directory;
    const std::string name = directory / "unread.ini", contents[] = {"[A]\nk=1\n", {"\xFF\xFE[\0A\0]\0", 8}};
    for (const std::string& before : contents) {
        const bool closed = &before == contents; // for the moment: a link that leads to itself
        if (closed)
            std::filesystem::create_symlink(name, name);
        else
            ReplaceFile(name, before);
        TFaults faults;
        {
            TKxLargeIniFile file(name);
            std::filesystem::remove(name);
            ReplaceFile(name, before);
            EXPECT_TRUE(Holds(file.GetLoadError(), "unread.ini"));
            file.WriteString("B", "k", "2");
            EXPECT_THROW(file.Save(), EFileError);
        }
        EXPECT_EQ(faults.Count, 1) << "the destructor tells, too";
        EXPECT_EQ(ReadFile(name), before);
    }
}

TEST(LargeIniFile, AFailingSaveIsReportedAndDoesNotEndTheProgram) {
    const TFaults faults;
    {
        TKxLargeIniFile file(::testing::TempDir() + "no such folder/x.ini");
        file.WriteString("A", "k", "1");
        EXPECT_THROW(file.Save(), EFileError);
        EXPECT_EQ(faults.Text, "");
    }
    EXPECT_TRUE(Holds(faults.Text, "x.ini"));
}

} // namespace kx::test::largeini
