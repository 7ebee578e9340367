#include "persist/Kxlargeini.h"

#include "platform/application.h"
#include "platform/files.h"
#include "platform/form.h"
#include "platform/graphics.h"
#include "platform/numbertext.h"
#include "series/Kxdraw.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

namespace kx {
namespace {

std::string Saved(const TStrings& Lines) {
    std::string text;
    for (int i = 0; i < Lines.GetCount(); ++i) text += Lines.GetLine(i) + "|";
    return text;
}

TEST(IniList, WritesKeysWhereReadersOfOtherVersionsExpectThem) {
    TKxIniList ini;
    EXPECT_FALSE(ini.Modified);
    ini.WriteString("A", "k", "1");
    EXPECT_TRUE(ini.Modified);
    ini.WriteString("A", "K", "2=3");
    ini.WriteString("B", "k", std::string("cut\0off", 7));
    ini.WriteString("a", "m", "");
    EXPECT_EQ(Saved(ini), "|[A]|K=2=3|m=||[B]|k=cut|");
    EXPECT_EQ(ini.ReadString("a", "k", "no"), "2=3");
    EXPECT_EQ(ini.ReadString("A", "m", "no"), "");
    EXPECT_EQ(ini.ReadString("A", "n", "no"), "no");

    ini.SetText("[A]\nk=1\n[B]\nk=2\nm=3"); // made by hand: no empty lines
    EXPECT_EQ(ini.ReadString("A", "m", "no"), "no");
    ini.WriteString("A", "m", "4");
    ini.WriteString("A", "n", "5");
    EXPECT_EQ(Saved(ini), "[A]|k=1|[B]|k=2|m=4|n=5|");
    ini.SetText("[A]\n[B]");
    EXPECT_EQ(ini.ReadString("B", "k", "no"), "no"); // a header in the last line
}

TEST(IniList, ListsAndErasesSections) {
    TKxIniList ini;
    ini.SetText("top=1\r\n[One]\r\na=1\r\n\r\nb\r\n[Two]x]\r\n[open\r\n[one]\r\nz=9\r\n");
    TStringList lines;
    ini.ReadSections(lines);
    EXPECT_EQ(Saved(lines), "One|Two||one|");
    ini.ReadSection("ONE", lines);
    EXPECT_EQ(Saved(lines), "a||");
    ini.ReadSectionValues("one", lines);
    EXPECT_EQ(Saved(lines), "a=1|b|");
    ini.EraseSection("none");
    EXPECT_FALSE(ini.Modified);
    ini.EraseSection("one");
    EXPECT_TRUE(ini.Modified);
    EXPECT_EQ(Saved(ini), "top=1|[Two]x]|[open|[one]|z=9|");
    ini.ReadSection("none", lines);
    EXPECT_EQ(lines.GetCount(), 0);
}

TEST(IniList, ReadsWhatAPersonMayHaveTyped) {
    TKxIniList ini;
    const auto value = [&](const char* Text) -> TKxIniList& {
        ini.WriteString("S", "k", Text);
        return ini;
    };
    for (const auto& [text, number] : {std::pair("12abc", 12), {"x-7", -7}, {"", 5}, {"abc", 5}, {"+", 5}})
        EXPECT_EQ(value(text).ReadInteger("S", "k", 5), number) << text;
    for (const auto& [text, number] :
         {std::pair("1.5", 1.5), {"1,5", 1.0}, {"", 5.0}, {"-", 5.0}, {"2E3m", 2e3}})
        EXPECT_EQ(value(text).ReadReal("S", "k", 5), number) << text;
    for (const auto& [text, flag] : {std::pair("1", true),
                                     {"true", true},
                                     {"TRUE", true},
                                     {"2", false},
                                     {"yes", false},
                                     {"0", false},
                                     {"", true}})
        EXPECT_EQ(value(text).ReadBool("S", "k", true), flag) << text;
    for (const double number : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        ini.WriteReal("S", "k", number);
        EXPECT_EQ(ini.ReadReal("S", "k", 5), 5);
    }
}

TEST(IniList, NumbersKeepThePointUnderACommaLocale) {
    SetDecimalSeparator(',');
    TKxIniList ini;
    const double values[] = {1, 2.5, -3};
    ini.WriteReal("S", "r", 0.1);
    ini.WriteRealDigits("S", "d", 123456.789, 5);
    ini.WriteRealArray("S", "a", values, 2);
    ini.WriteRealPos("S", "p", {0.25, -1e20});
    ini.WriteBool("S", "b", true);
    ini.WriteInteger("S", "i", std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(Saved(ini), "|[S]|r=0.1|d=1.2E5|a=1;2.5;-3|p=0.25;-1E20|b=1|i=-2147483648|");
    TKxRealPos pos;
    ini.ReadRealPos("S", "p", pos);
    EXPECT_EQ(pos, (TKxRealPos{0.25, -1e20}));
    EXPECT_EQ(ini.ReadReal("S", "r", 9), 0.1);
    EXPECT_EQ(ini.ReadInteger("S", "i", 0), std::numeric_limits<std::int32_t>::min());
    SetDecimalSeparator('.');
}

TEST(IniList, ArraysAndVectorsReadBack) {
    TKxIniList ini;
    TKxRealVector written(nullptr), read(nullptr);
    for (int i = 0; i < 50000; ++i) written.Add(i * 0.125 - 7); // a rest copied per number would take minutes
    ini.WriteRealVector("S", "v", written);
    ini.ReadRealVector("S", "v", read);
    EXPECT_TRUE(std::ranges::equal(read.Values(), written.Values()));
    ini.WriteString("S", "v", "1;2-3 4,5x;-;6");
    ini.ReadRealVector("S", "v", read); // the character behind a number goes with it; ends at the lone minus
    EXPECT_TRUE(std::ranges::equal(read.Values(), std::vector<double>{1, 2, 3, 4, 5}));
    written.Clear();
    ini.WriteRealVector("S", "v", written);
    ini.ReadRealVector("S", "v", read);
    EXPECT_EQ(read.GetCount(), 0);

    double values[] = {7, 8, 9};
    ini.ReadRealArray("S", "missing", values, 2);
    EXPECT_EQ(values[0], 7);
    ini.WriteString("S", "a", "1;2");
    EXPECT_THROW(ini.ReadRealArray("S", "a", values, 2), Exception);

    TKxIntegerArray ints{10, -20, 30};
    ini.WriteIntArray("S", "n", ints);
    EXPECT_EQ(ini.ReadString("S", "n", ""), "10;-20;30");
    TKxIntegerArray more(5);
    ini.ReadIntArray("S", "n", more);
    EXPECT_EQ(std::vector<int>(more.begin(), more.end()), (std::vector<int>{10, -20, 30, 30, 30}));
    ini.WriteString("S", "n", "10;20;");
    EXPECT_THROW(ini.ReadIntArray("S", "n", more), Exception);
    EXPECT_THROW(ini.WriteIntArray("S", "n", TKxIntegerArray()), ERangeError);
}

TEST(IniList, ReadsSectionsOfPoints) {
    TKxIniList ini;
    TKxRealVector x(nullptr), y(nullptr);
    ini.SetText("1.5;2.25\n\n3 -4\n[P]\n5;6\n[Bad]\n1;2\n7\n");
    ini.ReadXYVector("none", x, y);
    EXPECT_TRUE(std::ranges::equal(x.Values(), std::vector<double>{1.5, 3}));
    EXPECT_TRUE(std::ranges::equal(y.Values(), std::vector<double>{2.25, -4}));
    ini.ReadXYVector("p", x, y);
    EXPECT_EQ(x.GetCount(), 1);
    EXPECT_EQ(y.GetValue(0), 6);
    EXPECT_THROW(ini.ReadXYVector("Bad", x, y), Exception);
    EXPECT_EQ(x.GetCount(), y.GetCount());
}

TEST(IniList, StylesReadBackAndKeepWhatIsMissingOrWrong) {
    TKxIniList ini;
    TFont font, fontRead;
    font.SetName("Courier");
    font.SetSize(14);
    font.SetStyle(fsBold | fsUnderline);
    ini.WriteFont("S", "F", font);
    fontRead.SetStyle(fsItalic | fsBold);
    ini.ReadFont("S", "F", fontRead);
    EXPECT_TRUE(fontRead.Equals(font));
    fontRead.SetHeight(-14); // no whole number of points
    ini.ReadFont("S", "Other", fontRead);
    EXPECT_EQ(fontRead.GetHeight(), -14);

    TKxLineStyle line(nullptr), lineRead(nullptr);
    line.SetStyle(psDot);
    line.SetWidth(3);
    ini.WriteLine("S", "L", line);
    ini.ReadLine("S", "L", lineRead);
    EXPECT_EQ(lineRead.GetStyle(), psDot);
    EXPECT_EQ(lineRead.GetWidth(), 3);
    for (const int ordinal : {-1, 7}) {
        ini.WriteInteger("S", "L.Style", ordinal);
        ini.ReadLine("S", "L", lineRead);
        EXPECT_EQ(lineRead.GetStyle(), psDot) << ordinal;
    }
    TKxAreaStyle area(nullptr), areaRead(nullptr);
    area.SetDrawXOred(false);
    area.SetColor(clNavy);
    ini.WriteArea("S", "A", area);
    ini.ReadArea("S", "A", areaRead);
    EXPECT_FALSE(areaRead.GetDrawXOred());
    EXPECT_EQ(Saved(ini), "|[S]|F.Name=Courier|F.Charset=1|F.Color=-2147483640|F.Size=14|F.Bold=1|F.Italic=0|"
                          "F.Underline=1|F.StrikeOut=0|L.Visible=1|L.Color=255|L.Style=7|L.Width=3|"
                          "A.Visible=1|A.Color=8388608|A.Style=0|A.DrawXORed=0|");
}

TEST(IniList, FormsComeBackWhereTheyWereOrOntoTheScreen) {
    TKxIniList ini;
    TForm form(nullptr), read(nullptr);
    form.SetBounds(30, 20, 300, 200);
    form.Show();
    form.SetWindowState(wsMaximized);
    ini.WriteFormPrms("S", "F", form);
    EXPECT_EQ(Saved(ini), "|[S]|F.State=2|F.Top=20|F.Left=30|F.Height=200|F.Width=300|");
    EXPECT_EQ(form.GetWindowState(), wsMaximized);
    ini.ReadFormPrms("S", "F", read);
    EXPECT_EQ(read.GetWindowState(), wsMaximized);
    EXPECT_EQ(read.GetNormalBounds(), TRect::Bounds(30, 20, 300, 200));
    EXPECT_EQ(read.GetPosition(), poDesigned);

    const TRect centre =
        TRect::Bounds((Screen.GetWidth() - 300) / 2, (Screen.GetHeight() - 200) / 2, 300, 200);
    for (const auto& [key, place] : {std::pair("F.Top", 5000),
                                     {"F.Left", 2147483647},
                                     {"F.Top", -201},
                                     {"F.Left", -301},
                                     {"F.Left", -2147483647}}) {
        TForm lost(nullptr);
        lost.SetBounds(30, 20, 300, 200);
        TKxIniList store;
        store.WriteInteger("S", key, place);
        store.ReadFormPos("S", "F", lost);
        EXPECT_EQ(lost.GetPosition(), poScreenCenter) << key << place;
        EXPECT_EQ(lost.GetNormalBounds(), centre);
    }
}

TEST(IniList, ReferencesAreFoundByTheirPath) {
    TKxIniList ini;
    TForm form(&TApplication::Instance());
    form.SetName("MainForm");
    TKxRealVector vector(&form), nameless(&form);
    vector.SetName("Vector1");
    ini.WriteComponentRef("S", "v", &vector);
    ini.WriteComponentRef("S", "none", nullptr);
    ini.WriteComponentRef("S", "nameless", &nameless);
    EXPECT_EQ(Saved(ini), "|[S]|v=MainForm.Vector1|none=|nameless=|");
    TKxRealVector* found = nullptr;
    ini.ReadComponentRef("S", "v", found);
    EXPECT_EQ(found, &vector);
    for (const char* path : {"", ".", "MainForm", "MainForm.", ".MainForm.Vector1", "MainForm.Vector2"}) {
        ini.WriteString("S", "v", path);
        ini.ReadComponentRef("S", "v", found);
        EXPECT_EQ(found, &vector) << path;
    }
}

TEST(LargeIniFile, IsWrittenOnlyWhenChangedAndBeginsWithAHeader) {
    const std::string name = ::testing::TempDir() + "kxlargeini_test.ini";
    std::filesystem::remove(name);
    { TKxLargeIniFile(name).ReadString("A", "k", ""); }
    EXPECT_FALSE(FileExists(name));
    { TKxLargeIniFile(name).WriteString("A", "k", "\xE4"); }
    EXPECT_EQ(ReadFile(name), "[A]\nk=\xE4\n");
    ReplaceFile(name, "\r\n\r\n[A]\r\nk=1\r\n");
    { EXPECT_EQ(TKxLargeIniFile(name).ReadInteger("A", "k", 0), 1); }
    EXPECT_EQ(ReadFile(name), "\r\n\r\n[A]\r\nk=1\r\n");
    TKxLargeIniFile(name).EraseSection("A");
    EXPECT_EQ(ReadFile(name), "");
    std::filesystem::remove(name);
}

TEST(LargeIniFile, AFailingSaveIsReportedAndDoesNotEndTheProgram) {
    const std::string name = ::testing::TempDir() + "no such folder/x.ini";
    std::string message;
    TApplication::Instance().OnException = [&](const std::exception& Error) { message = Error.what(); };
    {
        TKxLargeIniFile file(name);
        file.WriteString("A", "k", "1");
        EXPECT_THROW(file.Save(), EFileError);
        EXPECT_TRUE(file.Modified);
        EXPECT_EQ(message, "");
    }
    TApplication::Instance().OnException = nullptr;
    EXPECT_NE(message.find("x.ini"), std::string::npos) << message;
}

} // namespace
} // namespace kx
