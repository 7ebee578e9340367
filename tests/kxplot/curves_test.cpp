// Curves, derivatives and integrals: what they find, and the axes that they stand on.

#include "kxplot/analysisprogram.h"

#include <set>

namespace {

using namespace kxplot::test;

class KxplotCurves : public KxplotAnalyses {
protected:
    /// hill is symmetric about t = 4, step as far as matters about 3.5, ramp is t - 4, w are weights.
    void SetUp() override {
        Write("d.csv", "t,hill,step,ramp,w\n0,0,0,-4,1\n1,1,0.2,-3,1\n2,3,0.8,-2,1\n3,6,2.8,-1,0\n"
                       "4,7,7.8,0,1\n5,6,9.8,1,1\n6,3,10.4,2,1\n7,1,10.6,3,1\n8,0,10.7,4,1\n");
    }

    /// All texts of the picture.
    static std::multiset<std::string> Texts(const std::string& Svg) {
        std::multiset<std::string> texts;
        const std::regex element(">([^<]+)</text>");
        for (std::sregex_iterator at(Svg.begin(), Svg.end(), element), end; at != end; ++at)
            texts.insert((*at)[1]);
        return texts;
    }
};

TEST_F(KxplotCurves, FindExtremaAndIntegrals) {
    const std::tuple<const char*, const char*, const char*, double> cases[] = {
        {"-y hill --curve akima", "Interpolation", "X-Maxima(1)", 4},
        {"-y hill --curve akima", "Interpolation", "Y-Maxima(1)", 7},
        {"-y hill --curve spline:weight=1e9", "ApproximativeSpline", "Y-Maxima(1)", 7},
        {"-y step --derivative", "Differentiation", "X-Maxima(1)", 3.5},
        {"-y step --curve spline:weight=1e9 --derivative", "ApproximativeSplineDifferentiation",
         "X-Maxima(1)", 3.5},
        // From the first point on, not from the end of the axis.
        {"-y ramp --integral --set XAxis.Start=-3", "Integration", "Y-Minima(1)", -8},
        {"-y ramp --integral --from 1", "Integration", "Y-Minima(1)", -4.5},
        {"-y ramp --curve spline --integral", "ApproximativeSplineIntegral", "X-Minima(1)", 4},
        {"-y ramp --curve spline --integral --to 6", "ApproximativeSplineIntegral", "DisplayStop", 6},
    };
    for (const auto& [arguments, section, key, expected] : cases)
        EXPECT_NEAR(Result(arguments, section, key), expected, 1e-4) << arguments;
    // Smoothing and weights change the curve, and what is derived of it.
    const auto top = [&](const char* Arguments) {
        return Result(std::string("-y hill ") + Arguments, "Interpolation", "Y-Maxima(1)");
    };
    EXPECT_NEAR(top("--curve akima:smooth=2"), 6.5, 0.1);
    EXPECT_NEAR(top("--curve akima --weight w"), 7.24, 0.1) << "without the fourth point";
    const auto steepest = [&](const std::string& Curve) {
        return Result("-y step --derivative --curve " + Curve, "Differentiation", "Y-Maxima(1)");
    };
    EXPECT_LT(steepest("akima:smooth=2 --curve akima"), 0.8 * steepest("akima --curve akima:smooth=2"));
}

TEST_F(KxplotCurves, AreNamedAndDerivedOnesStandOnCaptionedAxes) {
    struct TCase {
        const char* Arguments;
        TNames Shown, Hidden;
    };
    const TCase cases[] = {
        {"-y step --curve akima --curve akima:smooth=0.3 --curve spline --curve spline:weight=2",
         {"Akima interpolation", "smoothed (0.3)", "smoothing spline", "smoothing spline (weight 2)"},
         {"d(step) / d(t)"}},
        {"-y step --derivative",
         {"derivative", "d(step) / d(t)"},
         {"Akima interpolation", "integral of step"}},
        {"-y step --integral", {"integral", "integral of step"}, {"d(step) / d(t)"}},
        {"-y step -y hill --derivative --integral",
         {"step: derivative", "hill: integral", "d(step, hill) / d(t)", "integral of step, hill"},
         {}},
        {"-y step --derivative --x-caption T --y-caption U", {"d(U) / d(T)"}, {"d(step) / d(t)"}},
        {"-y step --derivative --integral --y-caption \\iU --set SecondaryAxis1.Caption=slope "
         "--set SecondaryAxis2.Caption=area",
         {"slope", "area"},
         {"d(step) / d(t)", "integral of "}},
        {"-y step --derivative --y-caption \\iU", {"d(", "U", ") / d(t)"}, {}},
        {"-y hill --fit line --curve akima --derivative --label 2.X-Maxima(1):4 --label 3.CalcStop",
         {"X-Maxima(1) = 4", "CalcStop = 8"},
         {}},
        {"-y hill -y step --fit line --derivative --label 4.X-Maxima(1)", {"X-Maxima(1) = 3.5"}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Arguments);
        const auto texts = Texts(Svg(Words(c.Arguments)));
        for (const auto& text : c.Shown) EXPECT_TRUE(texts.contains(text)) << text;
        for (const auto& text : c.Hidden) EXPECT_FALSE(texts.contains(text)) << text;
    }
}

TEST_F(KxplotCurves, AnAxisOfOneCurvesOwnHasItsColourAndComponentsHaveTheirNames) {
    const std::string svg =
        Svg(Words("-y step --fit line --curve akima --derivative --integral --no-legend "
                  "--set Curve1.LineStyle.Color=#111111 --set Integral1.LineStyle.Color=#222222"));
    for (const char* coloured :
         {"fill=\"#111111\">Akima", "fill=\"#222222\">integral<", "fill=\"#cc79a7\">derivative",
          "fill=\"#cc79a7\">d\\(step\\)", "fill=\"#56b4e9\">integral of"})
        EXPECT_TRUE(std::regex_search(svg, std::regex(coloured))) << coloured;
    EXPECT_EQ(Svg(Words("-y step --curve akima")), Svg(Words("-y step --curve akima --style points")));
    EXPECT_EQ(Svg(Words("-y step --derivative")), Svg(Words("-y step --derivative --style both")));
}

TEST_F(KxplotCurves, AnOutfitNeitherMovesThemToOtherAxesNorChangesWhatTheyAre) {
    const std::string derivative = "-y hill --derivative";
    Run(Words("d.csv --save-outfit o.ini --curve akima:smooth=2 " + derivative));
    Run(Words("d.csv --save-outfit p.ini --set Derivative1.LineStyle.Color=#123456 " + derivative));
    for (const char* outfit : {" --outfit o.ini", " --outfit p.ini"})
        for (const char* more : {"", " --fit line", " --curve akima", " --curve spline"})
            EXPECT_EQ(Texts(Svg(Words(derivative + more + outfit))), Texts(Svg(Words(derivative + more))))
                << more << outfit;
    EXPECT_NE(Svg(Words(derivative + " --outfit p.ini")).find("stroke=\"#123456\""), std::string::npos);
    const std::string akima = "-y hill --curve akima";
    EXPECT_EQ(Results(akima + " --outfit o.ini"), Results(akima));
}

TEST_F(KxplotCurves, TooFewPointsAreTold) {
    ExpectError(1, "d.csv -y hill --curve akima --to 1 -o p.svg",
                "hill: Akima interpolation: Not enough data!");
    EXPECT_TRUE(Has("p.svg"));
}

} // namespace
