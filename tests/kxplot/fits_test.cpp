// Lines and polynomials: what they find, and how the picture names them.

#include "kxplot/analysisprogram.h"

#include <iomanip>

namespace {

using namespace kxplot::test;

class KxplotFits : public KxplotAnalyses {
protected:
    /// u = 1 + 2t, v = 10 - 3t, w are weights; p = 10^(t - 1) and q have something for logarithmic axes.
    void SetUp() override {
        Write("d.csv", "t,u,v,w,p,q\n1,3,7,1,1,1\n2,5,4,1,10,-1\n3,7,1,0,100,0\n4,9,-2,1,1000,5\n");
    }

    /// Where a text stands in the picture: "left top" and so on; empty when it is not there.
    static std::string PlaceOf(const std::string& Svg, const std::string& Text) {
        std::smatch found;
        const std::regex element("<text x=\"([0-9]+)[^\"]*\" y=\"([0-9]+)\"[^>]*>" + Text + "</text>");
        if (!std::regex_search(Svg, found, element)) return {};
        return std::string(std::stoi(found[1]) < 450 ? "left " : "right ") +
               (std::stoi(found[2]) < 300 ? "top" : "bottom");
    }
};

TEST_F(KxplotFits, FindWhatTheDataHold) {
    const std::tuple<const char*, const char*, const char*, double> cases[] = {
        {"-y u --fit line", "LinearRegression", "Slope", 2},
        {"-y u --fit line", "LinearRegression", "Offset", 1},
        {"-y u --fit poly:2 --fit line:offset=0", "LinearRegression", "Slope", 70.0 / 30},
        {"-y u --fit line --fit line:offset=1", "LinearRegression(2)", "DoFixedOffset", 1},
        {"-y v --fit poly:2", "PolynomialRegression", "Coeff(2)", -3},
        {"-y q --fit line --from 1 --to 2", "LinearRegression", "Slope", -2},
        {"-y q --fit line --to=2.5 --from=-1", "LinearRegression", "Points", 2},
        {"-y q --fit line --weight w --to 3", "LinearRegression", "Slope", -2},
        {"-y p --fit line --log-y", "LinearRegression", "Slope", 1},
        {"-y q --fit poly:2 --log-y", "PolynomialRegression", "Coeff(3)", 7.0 / 4},
        {"-y u -y v --fit poly:2 --fit line", "Series2.LinearRegression", "Slope", -3},
        {"-y u -y v --fit line", "Series1.LinearRegression", "CalcStop", 4},
        {"--weight w --fit line", "Series3.LinearRegression", "Slope", 14958.0 / 42},
    };
    for (const auto& [arguments, section, key, expected] : cases)
        EXPECT_NEAR(Result(arguments, section, key), expected, 1e-10) << arguments;
}

// m and p are errors of y towards both sides, with the mean s; c is 0.01 / s^2. z = 10^l, and k is the error
// of z that l's error of s makes.
TEST_F(KxplotFits, AreWeighedByColumnsOrErrorsOfAnyUnit) {
    std::ostringstream table;
    table << std::setprecision(15) << "t,y,s,m,p,c,l,z,k\n";
    const double rows[][4] = {{1, 2.1, 0.1, 0.5}, {2, 3.9, 0.2, 1.6}, {3, 6.2, 0.1, 2.4}, {4, 7.7, 0.4, 3.7}};
    for (const auto& [t, y, s, l] : rows) {
        for (const double value : {t, y, s, s / 2, s * 1.5, 0.01 / s / s, l, std::pow(10, l)})
            table << value << ',';
        table << s * std::log(10) * std::pow(10, l) << '\n';
    }
    Write("d.csv", table.str());
    const auto errorOf = [&](const std::string& Arguments, const char* Key = "DeltaSlope") {
        const char* section = Key[5] == 'S' ? "LinearRegression" : "NonlinearRegression";
        return Result(Arguments, section, Key);
    };
    const double expected = errorOf("-y y --weight c --fit a+b*x --start a=1,b=1 --repeat 3", "Delta(b)");
    for (const char* arguments :
         {"--weight c", "--dy s --weight-by-errors", "--dy-minus s --weight-by-errors",
          "--dy m --dy-minus p --weight-by-errors"})
        EXPECT_NEAR(errorOf(std::string("-y y --fit line ") + arguments), expected, 1e-8) << arguments;
    for (const char* section : {"LinearRegression", "PolynomialRegression"})
        EXPECT_NEAR(Result("-y y --dy s --weight-by-errors --fit line --fit poly:2", section, "VarianceX"),
                    Result("-y y --weight c --fit line --fit poly:2", section, "VarianceX"), 1e-12);
    EXPECT_GT(std::abs(errorOf("-y y --fit line --dy s") - expected), 1e-3) << "errors alone weigh nothing";
    const double ofLogarithms = errorOf("-y l --dy s --weight-by-errors --fit line");
    for (const char* arguments : {"", "--save-outfit o.ini", "--outfit o.ini"})
        EXPECT_NEAR(errorOf(std::string("-y z --dy k --weight-by-errors --log-y --fit line ") + arguments),
                    ofLogarithms, 1e-12)
            << arguments;
    EXPECT_NEAR(
        errorOf("-y y --dy s --weight-by-errors --outfit o.ini --set YAxis.Scaling=AxNormal --fit line"),
        expected, 1e-8)
        << "weights of logarithms are no part of an outfit";
    Write("d.csv", "# two lines\nt,u,s\n1,2,0.1\n3,,\n4,5,0\n5,6,\n");
    const std::pair<const char*, const char*> refused[] = {
        {"1-y u --dy s", "d\\.csv:5: the error of u is 0; --weight-by-errors needs one above 0"},
        {"1-y u --dy s --to 3", "d\\.csv:5: .*"},
        {"1-x t -y t --dy-minus s", "d\\.csv:4: the error of t is missing; .*"},
        {"2-y u -y s --dy t", "--weight-by-errors: series 2, s, has no --dy"},
        {"2-y u --dy t --weight s", "--weight-by-errors: does not go with --weight"},
    };
    for (const auto& [arguments, message] : refused)
        ExpectError(arguments[0] - '0', std::string("d.csv --fit line --weight-by-errors ") + (arguments + 1),
                    message);
}

// No degrees of freedom, equal y: what has no value is not in the report, and labels say so.
TEST_F(KxplotFits, SayNothingThatDataLeaveOpen) {
    const std::tuple<const char*, TNames, TNames> cases[] = {
        {"t,u\n1,5\n2,7\n", {"Slope=2", "R2=1"}, {"DeltaSlope", "DeltaSlope%", "DeltaOffset"}},
        {"t,u\n1,5\n2,5\n4,5\n", {"Slope=0", "Offset=5", "DeltaSlope=0"}, {"R", "R2"}},
    };
    for (const auto& [data, held, missing] : cases) {
        Write("d.csv", data);
        const std::string results = Results("--fit line -o p.svg --label 1." + missing[0]);
        for (const auto& line : held) EXPECT_NE(results.find("\n" + line + "\n"), std::string::npos) << line;
        for (const auto& key : missing) EXPECT_EQ(results.find("\n" + key + "="), std::string::npos) << key;
        EXPECT_NE(Read("p.svg").find(">" + missing[0] + " = ...<"), std::string::npos) << data;
    }
}

TEST_F(KxplotFits, WriteResultsToAFileOrToStandardOutputAlone) {
    const std::string one = Results("-y u --fit line"), two = Results("-y u -y v --fit line");
    EXPECT_EQ(one.substr(0, 24), "[Datapoints]\nCaption=u\n\n");
    EXPECT_EQ(two.substr(0, 32), "[Series1.Datapoints]\nCaption=u\n\n");
    EXPECT_EQ(two.find("\n\n\n"), std::string::npos);
    EXPECT_EQ(Value(two, "Series2.LinearRegression", "Caption"), "v: linear fit");
    const TOutcome outcome = Run(Words("d.csv -y u --fit line --results r.ini -o p.png"));
    EXPECT_EQ(outcome.Status, 0);
    EXPECT_EQ(outcome.Output + outcome.Errors, "");
    EXPECT_EQ(Read("r.ini"), one);
    ExpectError(1, "d.csv --fit line --results none/r.ini -o no.png", "none/r\\.ini: .+");
    EXPECT_FALSE(Has("no.png"));
}

TEST_F(KxplotFits, AreNamedInThePictureWithTheResultsAskedFor) {
    struct TCase {
        const char* Arguments;
        TNames Shown, Hidden;
    };
    const TCase cases[] = {
        {"-y u --fit line", {"linear fit"}, {"u: linear fit"}},
        {"-y u --fit line:offset=0.5 --fit poly:2 --fit poly:3 --label 1.offset",
         {"linear fit through 0.5", "quadratic fit", "cubic fit", "Offset = 0.5"},
         {}},
        {"-y u -y v --fit line --label Slope:3",
         {"u: linear fit", "v: linear fit", "Slope = 2"},
         {"Slope = -3"}},
        {"-y u -y v --fit line --label 2.Slope --label 1.R", {"Slope = -3", "R = 1"}, {"Slope = 2"}},
        {"-y u --fit poly:2 --fit line --label DeltaSlope%:4 --label Order",
         {"DeltaSlope% = 0", "Order = 2"},
         {}},
        {"-y q --fit line --fit a*x --start a=1e-7 --label 1.Slope:3 --label slope:3+- --label a:2+- "
         "--label 2.r2:4",
         {"Slope = 1.3", "Slope = 1.30 ± 1.11", "a = 0.63 ± 0.41", "R2 = 0.2787"},
         {}},
        {"-y u --fit poly:3 --label R2 --label Coeff(2):3+-", {"r2 = 1", "Coeff(2) = 2 ± ..."}, {}},
        {"-y u --fit line --label Slope --set Label1.Suffix=/s --set Fit1.Caption=mine",
         {"Slope = 2/s", "mine"},
         {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Arguments);
        const std::string svg = Svg(Words(c.Arguments));
        for (const auto& text : c.Shown)
            EXPECT_NE(svg.find(">" + text + "</text>"), std::string::npos) << text;
        for (const auto& text : c.Hidden)
            EXPECT_EQ(svg.find(">" + text + "</text>"), std::string::npos) << text;
    }
    // Colours tell the fits of one series apart, and those of several series by their series: of names among
    // the data, and of results that belong to one of several in the legend.
    const auto hasColoured = [&](const char* Arguments, const char* Colour, const char* Text) {
        return std::regex_search(Svg(Words(Arguments)),
                                 std::regex(std::string("fill=\"") + Colour + "\">" + Text));
    };
    const std::tuple<const char*, const char*, const char*> coloured[] = {
        {"-y u --fit line --fit poly:2 --no-legend", "#009e73", "quadratic fit"},
        {"-y u -y v --fit line --fit poly:2 --no-legend", "#0072b2", "u: quadratic fit"},
        {"-y u --fit line --no-legend --set Fit1.LineStyle.Color=#123456", "#123456", "linear fit"},
        {"-y u --fit line --fit poly:2 --label Order", "#009e73", "Order"},
        {"-y u -y v --fit line --label 2.Slope", "#d55e00", "Slope"},
        {"-y u -y v --fit line --label 2.Slope --set Label1.Font.Color=#123456", "#123456", "Slope"},
        {"-y u --fit line --label Slope", "#262626", "Slope"},
    };
    for (const auto& [arguments, colour, text] : coloured)
        EXPECT_TRUE(hasColoured(arguments, colour, text)) << arguments;
}

TEST_F(KxplotFits, NamesStandInTheCornerThatHidesTheLeast) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"t,u\n1,1\n2,2\n3,3\n", "points", "left top"},
        {"t,u\n1,3\n2,2\n3,1\n", "points", "right top"},
        {"t,u\n1,9\n2,0\n3,9\n", "points", "left bottom"},
        {"t,u\n1,9\n1,0\n2,0\n3,9\n", "points", "right bottom"},
        // A long line between two points counts, not the points alone.
        {"t,u\n0,100\n1,97\n15,97\n16,0\n100,0\n", "line", "right top"},
    };
    for (const auto& [data, style, place] : cases) {
        Write("d.csv", data);
        EXPECT_EQ(PlaceOf(Svg({"--fit", "line", "--style", style, "--no-legend"}), "linear fit"), place)
            << data;
    }
    // Results avoid the legend even where they then hide data.
    Write("d.csv", "t,u\n1,9\n2,5\n3,1\n");
    for (const auto& [legend, place] : {std::pair{"top-left", "right top"}, {"top-right", "left bottom"}})
        EXPECT_EQ(PlaceOf(Svg({"--fit", "line", "--label", "Slope", "--legend", legend}), "Slope = -4"),
                  place);
    Write("d.csv", "t,u," + std::string(300, 'm') + "\n1,2,3\n2,4,5\n3,4,4\n");
    for (const char* legend : {"--legend=right", "--legend=top-left", "--no-legend"})
        EXPECT_NE(PlaceOf(Svg({"--fit", "line", legend}), "m+…: linear fit"), "")
            << "a name too long is shortened, " << legend;
}

TEST_F(KxplotFits, WhatFailsIsToldOnceAndTheRestIsDrawn) {
    const std::string log = "axis is logarithmic and . holds values that are not positive, first in row ";
    const std::pair<std::string, std::string> cases[] = {
        {"-y u --fit poly:4", "kxplot: u: polynomial fit of degree 4: Not enough data!\n"},
        {"-y u --fit poly:20000", "kxplot: u: polynomial fit of degree 20000: Not enough data!\n"},
        {"-y u -y v --fit line --from 4",
         "kxplot: u: linear fit: Not enough data!\nkxplot: v: linear fit: Not enough data!\n"},
        {"-x w -y u --from 1 --fit line",
         "kxplot: u: linear fit: no curve can be computed from these data\n"},
        {"-y q --fit line --log-y", "kxplot: q: linear fit: the y " + log + "2: -1\n"},
        {"-x q -y u -y v --fit line --set XAxis.Scaling=AxLogEE --label 2.Slope",
         "kxplot: u: linear fit: the x " + log + "2: -1\nkxplot: v: linear fit: the x " + log + "2: -1\n"},
    };
    for (const auto& [arguments, message] : cases) {
        SCOPED_TRACE(arguments);
        const TOutcome outcome =
            Run(Words("d.csv --results r.ini -o p.svg --label CalcStart --label Slope " + arguments));
        EXPECT_EQ(outcome.Status, 1);
        EXPECT_TRUE(std::regex_match(outcome.Errors, std::regex(message))) << outcome.Errors;
        EXPECT_NE(Read("p.svg").find(">Slope = ...</text>"), std::string::npos);
        EXPECT_TRUE(Has("r.ini"));
        fs::remove(Path("p.svg"));
        fs::remove(Path("r.ini"));
    }
}

TEST_F(KxplotFits, AnOutfitDressesThemAndTheCommandLineSaysWhatTheyAre) {
    const TNames dressed = Words("-y u --fit line:offset=0 --to 3 --save-outfit o.ini "
                                 "--set Fit1.LineStyle.Color=#123456");
    const std::string first = Svg(dressed);
    const std::string again =
        Svg(Words("-y u --outfit o.ini --fit line:offset=5 --fit line --to 2 --results r.ini"));
    for (const auto& svg : {first, again}) EXPECT_NE(svg.find("stroke=\"#123456\""), std::string::npos);
    EXPECT_NE(again.find("stroke=\"#009e73\""), std::string::npos) << "one more than the outfit knows";
    EXPECT_EQ(Value(Read("r.ini"), "LinearRegression", "Offset"), "5");
    EXPECT_EQ(Value(Read("r.ini"), "LinearRegression", "CalcStop"), "2");
    EXPECT_EQ(Value(Read("r.ini"), "LinearRegression(2)", "Slope"), "2");
}

TEST_F(KxplotFits, WrongOptionsAreUsageErrorsAndLeaveNoFile) {
    const std::pair<const char*, const char*> cases[] = {
        {"--fit cubic", "--fit: 'cubic' is neither .*"},
        {"-y u --fit line --label Slop",
         "--label: 'Slop': there is no such result; the keys are Calculation, .*Slope, .*"},
        {"-y u --fit line --fit poly:2 --label 2.Slope", "--label: .* the keys are .*Coeff\\(3\\).*"},
        {"-y u -y v --fit line --label 3.Slope",
         "--label: .* no fit or curve 3, only 2; the keys are .*Slope.*"},
        {"-y u --fit line --label 0.Slope", "--label: .* no fit or curve 0, only one; .*"},
        {"-y u --fit line --label r2:3+-", "--label: 'r2:3\\+-': R2 has no standard error"},
    };
    for (const auto& [arguments, message] : cases)
        ExpectError(2, std::string("d.csv -o p.png ") + arguments, message);
    EXPECT_TRUE(Files().empty());
}

} // namespace
