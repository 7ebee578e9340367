#include "support/cases.h"
#include "support/errors.h"

#include <kxgraph/graph/Kxaxis.h>
#include <kxgraph/platform/text/numbertext.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <random>

namespace kx {
namespace {

double Moment(const std::string& Text) {
    int y = 0, hour = 0, minute = 0;
    unsigned m = 0, d = 0;
    double second = 0;
    EXPECT_EQ(std::sscanf(Text.c_str(), "%d-%u-%uT%d:%d:%lf", &y, &m, &d, &hour, &minute, &second), 6)
        << Text;
    const std::chrono::sys_days day = std::chrono::year(y) / int(m) / int(d);
    return double(day.time_since_epoch().count()) * 86400 + hour * 3600 + minute * 60 + second;
}

double SummerTime(double At) {
    return At >= Moment("2003-03-30T01:00:00") && At < Moment("2003-10-26T01:00:00") ? 7200 : 3600;
}

/// An axis alone, that long, with ends that follow the data.
void Show(TKxAxis& Axis, double Start, double Stop, int Pixels, TKxLabelKind Kind = lkDates) {
    Axis.SetLabelKind(Kind);
    Axis.SetTransparent(true);
    Axis.SetBounds(0, 0, Axis.IsHorizontal() ? Pixels : 240, Axis.IsHorizontal() ? 240 : Pixels);
    Axis.SetStart(Start);
    Axis.SetStop(Stop);
    Axis.Settle();
}

/// The texts of all labels, the lines of each joined.
std::string TextsOf(const TKxAxis& Axis) {
    std::string texts;
    const auto& recs = Axis.GetLabelRecs();
    std::size_t rec = 0;
    for (const auto& label : Axis.GetTickLabels()) {
        texts += texts.empty() ? "" : ", ";
        for (std::size_t k = 0; k <= label.More.size(); ++k)
            texts += (k > 0 ? "/" : "") + recs.at(rec++).Text;
    }
    return texts;
}

TEST(DateTicks, LabelsCarryTheLargerUnitOnce) {
    using TText = std::string;
    for (const auto& [from, to, side, pixels, zone, labels] :
         test::Cases<TText, TText, TText, int, TText, TText>("dates", "labels")) {
        TKxAxis axis(nullptr);
        axis.SetPosition(side == "bottom" ? AxBottomPos
                         : side == "top"  ? AxTopPos
                         : side == "left" ? AxLeftPos
                                          : AxRightPos);
        if (zone == "summer") axis.SetOnZoneOffset(SummerTime);
        Show(axis, Moment(from), Moment(to), pixels);
        EXPECT_EQ(TextsOf(axis), labels) << from << " to " << to << " in " << pixels << " " << side;
    }
}

TEST(DateTicks, PositionsAreToldAsDates) {
    using TText = std::string;
    for (const auto& [at, resolution, zone, text] :
         test::Cases<TText, double, TText, TText>("dates", "texts")) {
        const TKxCalendar calendar(zone == "summer" ? TKxZoneOffset(SummerTime) : TKxZoneOffset());
        EXPECT_EQ(calendar.TextOf(Moment(at), resolution), text);
    }
}

/// The text that the C library has for what a label looks like.
std::string Reference(double Moment, const std::string& Text) {
    const auto seconds = std::time_t(std::floor(Moment + 5e-7));
    char text[64] = "";
    if (Text.front() == '.') {
        std::snprintf(text, sizeof text, "%.*f", int(Text.size()) - 1, Moment - double(seconds));
        return text + 1;
    }
    std::tm tm{};
    gmtime_r(&seconds, &tm);
    const auto colons = std::count(Text.begin(), Text.end(), ':');
    const bool isYear = Text.size() > 2 && Text.find_first_not_of("-0123456789") == Text.npos;
    std::strftime(text, sizeof text,
                  colons == 2                   ? "%H:%M:%S"
                  : colons == 1                 ? "%H:%M"
                  : Text.find(' ') != Text.npos ? "%e %b"
                  : isYear                      ? "%Y"
                  : Text.size() > 2             ? "%b"
                                                : "%e",
                  &tm);
    return *text == ' ' ? text + 1 : text;
}

TEST(DateTicks, StandOnTheCalendarAndTheirLabelsNeverTouch) {
    std::mt19937 random(1);
    const auto any = [&](double Low, double High) {
        return std::uniform_real_distribution(Low, High)(random);
    };
    for (int round = 0; round < 600; ++round) {
        TKxAxis axis(nullptr);
        axis.SetPosition(TKxAxisPos(round % 4));
        axis.SetTwisted(round % 3 == 0);
        const double span = std::pow(10, any(-3, 11)), start = any(-0.5, 0.5) * 5e10;
        Show(axis, start, start + span, 60 + round % 840);
        ASSERT_TRUE(axis.GetStart() <= start && axis.GetStop() >= start + span) << start << " + " << span;
        ASSERT_LT(axis.GetStop() - axis.GetStart(), span * 1.5);
        const auto& labels = axis.GetTickLabels();
        ASSERT_TRUE(labels.size() >= (round % 840 > 200 ? 2 : 1) && labels.size() <= 13)
            << start << " + " << span;
        std::vector<TRect> rects;
        std::size_t rec = 0;
        for (const auto& label : labels) {
            ASSERT_EQ(label.Text, Reference(label.Value, label.Text)) << TextsOf(axis);
            for (std::size_t k = 0; k <= label.More.size(); ++k, ++rec) {
                const auto& line = axis.GetLabelRecs()[rec];
                const TRect rect =
                    TRect::Bounds(line.X, line.Y, line.Width, axis.GetCanvas().TextHeight("1"));
                for (const TRect& other : rects)
                    ASSERT_TRUE(rect.Intersected(other).IsEmpty()) << TextsOf(axis);
                rects.push_back(rect);
            }
        }
    }
}

TEST(LabelKinds, AreKeptAndRefusedByLogarithmicAxes) {
    TKxAxis axis(nullptr), other(nullptr);
    axis.SetLabelKind(lkCategories);
    axis.SetCategories({"a; b", "", " c", "\"d\"", "e f"});
    EXPECT_EQ(axis.GetCategoriesText(), "\"a; b\"; ; \" c\"; \"\"\"d\"\"\"; e f");
    TKxIniList ini, none;
    axis.SaveOutfit("Axis", ini);
    other.SetScaling(AxLog);
    other.LoadOutfit("Axis", ini);
    EXPECT_EQ(other.GetCategories(), axis.GetCategories());
    EXPECT_TRUE(other.GetLabelKind() == lkCategories && other.GetScaling() == AxNormal);
    other.LoadOutfit("Axis", none);
    EXPECT_EQ(other.GetLabelKind(), lkCategories);
    EXPECT_EQ(test::MessageOf([&] { axis.SetScaling(AxLogEE); }),
              "A logarithmic axis cannot show categories: Scaling must be AxNormal or LabelKind lkNumbers");
    EXPECT_EQ(axis.GetScaling(), AxNormal);
    TKxAxis log(nullptr);
    log.SetScaling(AxLog);
    EXPECT_NE(test::MessageOf([&] { log.SetLabelKind(lkDates); }), "");
    EXPECT_EQ(log.GetLabelKind(), lkNumbers);
}

TEST(LabelKinds, CategoriesStandInTheMiddleOfUnitsAndBreakOrTurnBeforeTheyTouch) {
    const struct {
        double From, To;
        int Pixels;
        const char *Second, *Ends, *Texts;
        int Angle;
    } cases[] = {
        {1, 3, 300, "copper", "0.5 3.5", "iron, copper, tin", 0},
        {0.5, 3.5, 300, "copper", "0.5 3.5", "iron, copper, tin", 0}, // the edges of bars
        {1.2, 2.1, 300, "copper", "0.5 2.5", "iron, copper", 0},
        {2, 2, 300, "copper", "1.5 2.5", "copper", 0},
        {-3, 9, 900, "copper", "-3.5 9.5", "iron, copper, tin", 0},
        {1, 3, 90, "copper", "0.5 3.5", "iron, copper, tin", 900},
        {1, 3, 50, "copper", "0.5 3.5", "iron, tin", 900},
        {1, 3, 190, "copper in solution", "0.5 3.5", "iron, copper in/solution, tin", 0},
        {1, 3, 165, "copper in solution", "0.5 3.5", "iron, copper/in/solution, tin", 0},
        {1, 3, 90, "copper in solution", "0.5 3.5", "iron, copper in\u2026, tin", 900},
        {1, 3, 190, "\\b copper in solution", "0.5 3.5", "iron, copper in\u2026, tin", 900},
    };
    for (const auto& c : cases) {
        TKxAxis axis(nullptr);
        axis.SetPosition(AxBottomPos);
        axis.SetCategories({"iron", c.Second, "tin"});
        Show(axis, c.From, c.To, c.Pixels, lkCategories);
        EXPECT_EQ(TextsOf(axis), c.Texts) << c.Pixels;
        EXPECT_EQ(FloatToStr(axis.GetStart()) + " " + FloatToStr(axis.GetStop()), c.Ends);
        EXPECT_EQ(axis.GetLabelRecs()[0].Angle, c.Angle) << c.Pixels;
        for (int i = 0; i < axis.GetTickCount(); ++i) EXPECT_TRUE(axis.GetTickIsMajor()[i]);
        EXPECT_EQ(axis.GetValueText(1.6), GetStrippedString(c.Second));
    }
}

} // namespace
} // namespace kx
