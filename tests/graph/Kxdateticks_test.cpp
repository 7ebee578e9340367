
#include <kxgraph/graph/Kxaxis.h>

#include "support/testing.h"

#include <chrono>
#include <cstdio>
#include <ctime>

namespace kx::test::dateticks {

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
    for (const auto& [from, to, side, pixels, zone, labels] :
         Cases<TText, TText, TText, int, TText, TText>("dates", "labels")) {
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
    for (const auto& [at, resolution, zone, text] : Cases<TText, double, TText, TText>("dates", "texts")) {
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
    EXPECT_EQ(MessageOf([&] { axis.SetScaling(AxLogEE); }),
              "A logarithmic axis cannot show categories: Scaling must be AxNormal or LabelKind lkNumbers");
    EXPECT_EQ(axis.GetScaling(), AxNormal);
    TKxAxis log(nullptr);
    log.SetScaling(AxLog);
    EXPECT_NE(MessageOf([&] { log.SetLabelKind(lkDates); }), "");
    EXPECT_EQ(log.GetLabelKind(), lkNumbers);
}

TEST(LabelKinds, CategoriesStandInTheMiddleOfUnitsAndBreakOrTurnBeforeTheyTouch) {
    for (const auto& [from, to, pixels, second, ends, texts, angle] :
         Cases<double, double, int, TText, TText, TText, int>("dates", "categories")) {
        SCOPED_TRACE(second + " in " + std::to_string(pixels));
        TKxAxis axis(nullptr);
        axis.SetPosition(AxBottomPos);
        axis.SetCategories({"iron", second, "tin"});
        Show(axis, from, to, pixels, lkCategories);
        EXPECT_EQ(TextsOf(axis), texts);
        EXPECT_EQ(FloatToStr(axis.GetStart()) + " " + FloatToStr(axis.GetStop()), ends);
        EXPECT_EQ(axis.GetLabelRecs()[0].Angle, angle);
        for (int i = 0; i < axis.GetTickCount(); ++i) EXPECT_TRUE(axis.GetTickIsMajor()[i]);
        EXPECT_EQ(axis.GetValueText(1.6), GetStrippedString(second));
    }
}

} // namespace kx::test::dateticks
