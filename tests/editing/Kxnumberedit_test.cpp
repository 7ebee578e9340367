#include <kxgraph/editing/Kxnumberedit.h>

#include "support/keys.h"
#include "support/testing.h"

#include <kxgraph/platform/text/numbertext.h>

namespace kx::test::numberedit {

template <class T>
struct TNumberForm : TWidgetForm<T> {
    TNumberForm() {
        this->Widget.OnChange = [this](TControl*) { ++Changes; };
    }
    ~TNumberForm() { SetDecimalSeparator('.'); }
    int Changes = 0;
};

TEST(RealEdit, MarksWhatIsWrongAndKeepsTheLastValue) {
    struct TCase {
        const char* Typed;
        double Value;
        const char* Error;
    };
    const TCase cases[] = {{"2.5", 2.5, ""},
                           {"2,5", 2.5, ""},
                           {" +3 ", 3, ""},
                           {"\u22124", -4, ""},
                           {"1e-1", 0.1, ""},
                           {"2.5.1", 2.5, "'2.5.1' is no number"},
                           {"1,000.5", 1, "'1,000.5' is no number"},
                           {"3x", 3, "'3x' is no number"},
                           {"1e999", 1, "'1e999' is no number"},
                           {"{Del}", 0, "A number is missing"},
                           {"11", 1, "11 is more than 9.5"},
                           {"-6", 0, "-6 is less than -5"}};
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Typed);
        TNumberForm<TKxRealEdit> f;
        f.Widget.SetMinValue(-5), f.Widget.SetMaxValue(9.5);
        Type(f.Client(), c.Typed);
        EXPECT_EQ(f.Widget.GetError(), c.Error);
        EXPECT_EQ(f.Widget.GetValid(), *c.Error == 0);
        EXPECT_DOUBLE_EQ(f.Widget.GetValue(), c.Value);
        const std::string text = f.Widget.GetText();
        f.Widget.SetVisible(false); // leaves it
        EXPECT_TRUE(*c.Error == 0 || f.Widget.GetText() == text) << "never thrown away";
    }
}

TEST(RealEdit, ShowsTheSeparatorOfTheProgramAndStepsWithoutBinaryErrors) {
    TNumberForm<TKxRealSpin> f;
    SetDecimalSeparator(',');
    f.Widget.SetIncrement(0.1);
    Type(f.Client(), "{Up}{Up}{Up}");
    EXPECT_EQ(f.Widget.GetText(), "0,3");
    EXPECT_EQ(f.Widget.GetValue(), 0.3);
    Type(f.Client(), "{PgDn}");
    Turn(f.Client(), 1, {30, 20});
    Click(f.Client(), {20 + 120 - 10, 15}); // the upper arrow
    EXPECT_EQ(f.Widget.GetText(), "-0,5");
    EXPECT_EQ(f.Changes, 6);
    EXPECT_TRUE(f.Widget.IsFocused());
    f.Widget.SetMaxValue(0.25);
    f.Widget.SetMinValue(-1);
    Type(f.Client(), "{PgUp}{Up}");
    EXPECT_EQ(f.Widget.GetValue(), 0.25);
    Type(f.Client(), "{C-a}0.125000{Return}");
    EXPECT_EQ(f.Widget.GetText(), "0,125") << "as it is held";
    f.Widget.SetDigits(2);
    f.Widget.SetValue(1.0 / 7);
    EXPECT_EQ(f.Widget.GetText(), "0,14");
    EXPECT_EQ(f.Widget.GetValue(), 1.0 / 7);
    f.Widget.SetReadOnly(true);
    EXPECT_FALSE(Type(f.Client(), "{Up}"));
    f.Client().HostActivated(false);
    EXPECT_FALSE(Turn(f.Client(), 1, {30, 20})) << "others scroll past it";
}

TEST(IntegerEdit, TakesWholeNumbersOfItsRange) {
    TNumberForm<TKxIntegerSpin> f;
    Type(f.Client(), "12");
    EXPECT_EQ(f.Widget.GetValue(), 12);
    EXPECT_EQ(f.Changes, 2);
    Type(f.Client(), ".5");
    EXPECT_EQ(f.Widget.GetError(), "'12.5' is no whole number");
    EXPECT_EQ(f.Changes, 3);
    f.Widget.SetMaxValue(10);
    EXPECT_EQ(f.Widget.GetText(), "12.5") << "a new range leaves it";
    Type(f.Client(), "{Back}{Back}");
    EXPECT_EQ(f.Widget.GetError(), "12 is more than 10");
    Type(f.Client(), "{Down}");
    EXPECT_EQ(f.Widget.GetText(), "10");
    f.Widget.SetMaxValue(0);
    f.Widget.SetIncrement(2'000'000'000);
    Type(f.Client(), "{Up}{Up}");
    EXPECT_EQ(f.Widget.GetValue(), 2'147'483'647);
    f.Widget.SetValue(5);
    f.Widget.SetMaxValue(3);
    EXPECT_EQ(f.Widget.GetValue(), 3);
}

} // namespace kx::test::numberedit
