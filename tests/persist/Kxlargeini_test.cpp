#include "persist/Kxlargeini.h"

#include "platform/application.h"
#include "platform/files.h"
#include "platform/form.h"
#include "platform/numbertext.h"
#include "series/Kxdraw.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kx {
namespace {

std::string Joined(const TStrings& Lines) {
    std::string text = Lines.GetText();
    std::replace(text.begin(), text.end(), '\n', '|');
    return text;
}

std::vector<double> Of(const TKxRealVector& Vector) {
    return {Vector.Values().begin(), Vector.Values().end()};
}

TEST(IniList, WritesListsAndErasesSections) {
    TKxIniList ini;
    TStringList lines;
    ini.WriteString("A", "k", "1");
    ini.WriteString("A", "K", "2=3");
    ini.WriteString("B", "k", std::string("cut\0off", 7));
    EXPECT_EQ(Joined(ini), "|[A]|K=2=3||[B]|k=cut|");
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
    struct TCase {
        const char* Text;
        int Integer;
        double Real;
        bool Flag;
    };
    for (const TCase& c : {TCase{"12abc", 12, 12, false},
                           {"", 5, 5, true},
                           {"abc", 5, 5, false},
                           {"1", 1, 1, true},
                           {"-", 5, 5, false},
                           {"1,5", 1, 1, false},
                           {"true", 5, 5, true},
                           {"x-2.5E1m", -2, -25, false}}) {
        TKxIniList ini;
        ini.WriteString("S", "k", c.Text);
        EXPECT_EQ(ini.ReadInteger("S", "k", 5), c.Integer) << c.Text;
        EXPECT_EQ(ini.ReadReal("S", "k", 5), c.Real) << c.Text;
        EXPECT_EQ(ini.ReadBool("S", "k", true), c.Flag) << c.Text;
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
    EXPECT_THROW(ini.ReadRealArray("S", "n", values, 2), Exception);
    EXPECT_NO_THROW(ini.ReadRealArray("S", "missing", values, 2));
    EXPECT_EQ(values[1], 20);
    const TKxIntegerArray ints(4);
    ini.ReadIntArray("S", "n", ints);
    EXPECT_EQ(ints[3], 20); // the last one is read again
    EXPECT_THROW(ini.ReadIntArray("S", "open", ints), Exception);
    EXPECT_THROW(ini.WriteIntArray("S", "n", {}), ERangeError);
    TKxRealVector vector(nullptr), longer(nullptr);
    ini.ReadRealVector("S", "v", vector); // the character behind a number goes with it
    EXPECT_EQ(Of(vector), (std::vector<double>{1, 2, 3, 4, 5}));
    for (int i = 0; i < 50000; ++i)
        longer.Add(i * 0.125 - 7); // copying the rest per number would take minutes
    ini.WriteRealVector("S", "v", longer);
    ini.ReadRealVector("S", "v", vector);
    EXPECT_EQ(Of(vector), Of(longer));

    ini.SetText("1.5;2.25\n\n3 -4\n[P]\n5;6\n[Bad]\n7\n");
    ini.ReadXYVector("p", longer, vector);
    EXPECT_EQ(Of(vector), std::vector<double>{6});
    ini.ReadXYVector("none", longer, vector); // from the first line on
    EXPECT_EQ(Of(vector), (std::vector<double>{2.25, -4}));
    EXPECT_THROW(ini.ReadXYVector("Bad", longer, vector), Exception);
}

TEST(IniList, StylesReadBackAndKeepWhatIsMissingOrWrong) {
    TKxIniList ini;
    TFont font, fontRead;
    font.SetSize(14);
    font.SetStyle(fsBold | fsUnderline);
    ini.WriteFont("S", "F", font);
    fontRead.SetStyle(fsItalic | fsBold);
    ini.ReadFont("S", "F", fontRead);
    EXPECT_TRUE(fontRead.Equals(font));
    fontRead.SetHeight(-14); // no whole number of points
    ini.ReadFont("S", "Other", fontRead);
    EXPECT_EQ(fontRead.GetHeight(), -14);

    TKxLineStyle line(nullptr);
    line.SetStyle(psDot);
    ini.WriteLine("S", "L", line);
    TKxAreaStyle area(nullptr);
    area.SetDrawXOred(false);
    ini.WriteArea("S", "A", area);
    EXPECT_EQ(Joined(ini), "|[S]|F.Name=Arial|F.Charset=1|F.Color=-2147483640|F.Size=14|F.Bold=1|F.Italic=0|"
                           "F.Underline=1|F.StrikeOut=0|L.Visible=1|L.Color=255|L.Style=2|L.Width=1|"
                           "A.Visible=1|A.Color=8421504|A.Style=0|A.DrawXORed=0|");
    ini.SetText("[S]\nL.Style=7\nL.Width=3\nA.Style=-1\nA.DrawXORed=1");
    ini.ReadLine("S", "L", line);
    ini.ReadArea("S", "A", area);
    EXPECT_EQ(line.GetStyle(), psDot);
    EXPECT_EQ(line.GetWidth(), 3);
    EXPECT_EQ(area.GetStyle(), bsSolid);
    EXPECT_TRUE(area.GetDrawXOred());
}

TEST(IniList, FormsComeBackWhereTheyWereOrOntoTheScreen) {
    TKxIniList ini;
    TForm form(nullptr), read(nullptr);
    form.SetBounds(30, 20, 300, 200);
    form.Show();
    form.SetWindowState(wsMaximized);
    ini.WriteFormPrms("S", "F", form);
    EXPECT_EQ(Joined(ini), "|[S]|F.State=2|F.Top=20|F.Left=30|F.Height=200|F.Width=300|");
    ini.ReadFormPrms("S", "F", read);
    EXPECT_EQ(read.GetWindowState(), wsMaximized);
    EXPECT_EQ(read.GetNormalBounds(), TRect::Bounds(30, 20, 300, 200));
    EXPECT_EQ(read.GetPosition(), poDesigned);
    for (const auto& [key, place] :
         {std::pair("F.Top", 5000), {"F.Left", 2147483647}, {"F.Top", -201}, {"F.Left", -301}}) {
        TForm lost(nullptr);
        ini.WriteFormPrms("S", "F", form);
        ini.WriteInteger("S", key, place);
        ini.ReadFormPrms("S", "F", lost);
        EXPECT_EQ(lost.GetNormalBounds().Left, (Screen.GetWidth() - 300) / 2) << key << place;
        EXPECT_EQ(lost.GetPosition(), poScreenCenter);
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
    for (const char* path :
         {"", ".", "MainForm", ".MainForm.Vector1", "MainForm.Vector2", "MainForm.Vector1."}) {
        ini.WriteString("S", "v", path);
        ini.ReadComponentRef("S", "v", found);
        EXPECT_EQ(found, &vector) << path;
    }
}

TEST(LargeIniFile, IsWrittenOnlyWhenChangedAndBeginsWithAHeader) {
    const std::string name = ::testing::TempDir() + "kxlargeini_test.ini";
    ReplaceFile(name, "\r\n[A]\r\nk=1\r\n");
    EXPECT_EQ(TKxLargeIniFile(name).ReadInteger("A", "k", 0), 1);
    EXPECT_EQ(ReadFile(name), "\r\n[A]\r\nk=1\r\n");
    TKxLargeIniFile(name).WriteString("A", "k", "\xE4");
    EXPECT_EQ(ReadFile(name), "[A]\nk=\xE4\n");
    std::filesystem::remove(name);
    TKxLargeIniFile(name).ReadString("A", "k", "");
    EXPECT_FALSE(FileExists(name));
}

TEST(LargeIniFile, AFailingSaveIsReportedAndDoesNotEndTheProgram) {
    std::string message;
    TApplication::Instance().OnException = [&](const std::exception& Error) { message = Error.what(); };
    {
        TKxLargeIniFile file(::testing::TempDir() + "no such folder/x.ini");
        file.WriteString("A", "k", "1");
        EXPECT_THROW(file.Save(), EFileError);
        EXPECT_EQ(message, "");
    }
    TApplication::Instance().OnException = nullptr;
    EXPECT_NE(message.find("x.ini"), std::string::npos) << message;
}

} // namespace
} // namespace kx
