// What the command line means, or why it is refused.

#include "kxplot/arguments.h"
#include "kxplot/methods/methods.h"
#include "kxplot/options/usageerror.h"

namespace kxplot::test::options {

std::string Text(double Value) { return kx::FloatToStr(Value); }
std::string Text(const std::string& Value) { return Value; }
std::string Text(TStyle Style) {
    return std::vector{"line", "points", "both", "bars", "bars3d", "arrows"}[std::size_t(Style)];
}
std::string Text(kx::TKxLegendPlacement Place) {
    return std::string(kx::CEnumNames<kx::TKxLegendPlacement>[std::size_t(Place)]);
}
/// Kind and name; of what is derived of a curve, that of the curve.
std::string Text(TAnalysisRequest Request) {
    std::string text = KindOf(Request), start;
    Request.Quantity = TQuantity::Value;
    for (const auto& [name, value] : Request.Start) start += " " + name + "=" + Text(value);
    return text + " " + NameOf(Request) + start;
}
std::string Text(const TLabelRequest& Label) {
    return (Label.Number ? std::to_string(*Label.Number) + " of " : "") + Label.Key + " " +
           std::to_string(Label.Digits) + (Label.WithError ? " error" : "");
}
std::string Text(const TAssignment& Assignment) { return Assignment.Path + " to " + Assignment.Value; }

/// What differs from the defaults, option by option.
class TMeaning {
public:
    void Add(bool Given, const std::string& What) {
        if (Given) FText += (FText.empty() ? "" : "; ") + What;
    }
    template <class T>
    void Add(const char* What, const std::optional<T>& Value) {
        if (Value) Add(true, std::string(What).append(1, ' ').append(Text(*Value)));
    }
    template <class T>
    void Add(const char* What, const std::vector<T>& Values) {
        for (const auto& value : Values) Add(true, std::string(What).append(1, ' ').append(Text(value)));
    }
    const std::string& Get() const { return FText; }

private:
    std::string FText;
};

std::string MeaningOf(const TOptions& Options) {
    TMeaning meaning;
    const auto& [data, follow, batch, properties, columns, axes, functions, drawing, legend, analyses,
                 fitting, bands, marks, labels, look, outputs, window] = Options;
    meaning.Add(data.File != "d.csv", data.File);
    meaning.Add(data.Header != kx::TKxHeaderRow::Guess,
                data.Header == kx::TKxHeaderRow::Present ? "header" : "no header");
    meaning.Add("and", data.More);
    meaning.Add("batch", batch);
    meaning.Add("function", functions.Functions);
    if (functions.Range)
        meaning.Add(true, "from " + Text(functions.Range->first) + " to " + Text(functions.Range->second));
    if (functions.Difference)
        meaning.Add(true, functions.Difference->first + " less " + functions.Difference->second);
    meaning.Add("list", properties);
    const kx::TKxTableFormat& format = data.Table.Format;
    meaning.Add("skip", format.Skip);
    meaning.Add("block", format.Block);
    if (format.DateOrder) meaning.Add("order", std::optional<int>(int(*format.DateOrder)));
    if (format.DecimalSign) meaning.Add(true, std::string("decimal ") + *format.DecimalSign);
    meaning.Add("missing", format.Missing);
    meaning.Add(data.Table.Time.has_value(), "seconds");
    meaning.Add(data.Table.Explain, "explain");
    meaning.Add("x", columns.X);
    meaning.Add("y", columns.Y);
    meaning.Add("y2", axes.Y2);
    meaning.Add(axes.Box, "box");
    meaning.Add("zone", axes.Zone);
    meaning.Add("dx", columns.DX);
    meaning.Add("dy", columns.DY);
    meaning.Add("dx-", columns.DXMinus);
    meaning.Add("dy-", columns.DYMinus);
    meaning.Add("vx", columns.VX);
    meaning.Add("vy", columns.VY);
    meaning.Add("weight", columns.Weight);
    meaning.Add(columns.WeightByErrors, "weight by errors");
    meaning.Add("style", drawing.Style);
    meaning.Add("bins", drawing.Bins);
    meaning.Add(drawing.Stack, "stack");
    meaning.Add(drawing.Shift, "shift");
    meaning.Add(drawing.Horizontal, "lie");
    meaning.Add(follow.Wanted, "follow");
    meaning.Add("window", follow.Window);
    meaning.Add("legend", legend.Place);
    meaning.Add(legend.None, "no legend");
    meaning.Add("do", analyses);
    meaning.Add(fitting.Iterations != 1000, "iterations " + std::to_string(fitting.Iterations));
    meaning.Add(fitting.Repeat != 1, "repeat " + (fitting.Repeat ? std::to_string(*fitting.Repeat) : "auto"));
    meaning.Add(fitting.Covariance, "covariance");
    meaning.Add(fitting.How.Method != kx::fmDampedFirst,
                "method " + std::string(kx::CEnumNames<kx::TKxFittingMethod>[fitting.How.Method]));
    for (const auto& name : fitting.How.Fixed) meaning.Add(true, "fix " + name);
    for (const auto& bounds : fitting.How.Bounds) meaning.Add(true, "bound " + bounds);
    for (const auto kind : bands.Kinds)
        meaning.Add(true, kind == kx::bkConfidence ? "band confidence" : "band prediction");
    for (const double x : marks.Vertical) meaning.Add(true, "vertical " + Text(x));
    for (const double y : marks.Horizontal) meaning.Add(true, "horizontal " + Text(y));
    for (const auto& t : marks.Texts) meaning.Add(true, t.Caption + " at " + Text(t.X) + " " + Text(t.Y));
    for (const auto& a : marks.Arrows)
        meaning.Add(true, "arrow " + Text(a.X1) + " " + Text(a.Y1) + " " + Text(a.X2) + " " + Text(a.Y2));
    meaning.Add(bands.Level != 0.95, "level " + Text(bands.Level));
    meaning.Add(fitting.Residuals, "residuals");
    meaning.Add("from", fitting.From);
    meaning.Add("to", fitting.To);
    meaning.Add("label", labels);
    meaning.Add(look.LogX, "log x");
    meaning.Add(look.LogY, "log y");
    meaning.Add("title", look.Title);
    meaning.Add("x is", look.XCaption);
    meaning.Add("y is", look.YCaption);
    meaning.Add(!look.Theme.empty(), "theme " + look.Theme);
    if (look.Ground) meaning.Add(true, "ground " + (*look.Ground ? kx::ColorToHtml(**look.Ground) : "none"));
    meaning.Add("set", look.Assignments);
    meaning.Add(!look.Outfit.empty(), "outfit " + look.Outfit);
    if (outputs.Pictures != test::TNames{"d.png"}) meaning.Add("write", outputs.Pictures);
    meaning.Add(!outputs.SaveOutfit.empty(), "save " + outputs.SaveOutfit);
    meaning.Add(window.Show, "show");
    meaning.Add(Options.Outputs.Form.Edit, "edit");
    if (window.Seconds) meaning.Add(true, "for " + Text(*window.Seconds));
    meaning.Add(!outputs.Results.empty(), "results " + outputs.Results);
    meaning.Add(outputs.Size != TPictureSize(), "size " + Text(std::round(outputs.Size.Width * 100) / 100) +
                                                    " " + Text(std::round(outputs.Size.Height * 100) / 100));
    meaning.Add(outputs.Scale != 1, "scale " + Text(outputs.Scale));
    meaning.Add(!outputs.Antialias, "stepped");
    return meaning.Get();
}

// The file says what each of its command lines means.
TEST(Options, MeanWhatTheFileSays) {
    std::istringstream file(kx::ReadFile(KX_SOURCE "/tests/kxplot/commandlines.txt"));
    int count = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        const auto arrow = line.find(" => ");
        ASSERT_NE(arrow, std::string::npos) << line;
        std::string meaning;
        try {
            meaning = MeaningOf(Parsed("d.csv " + line.substr(0, arrow)));
        } catch (const TUsageError& error) {
            meaning = std::string("! ") + error.what();
        }
        EXPECT_EQ(meaning, line.substr(arrow + 4)) << line;
        ++count;
    }
    EXPECT_GT(count, 100);
    EXPECT_EQ(MeaningOf(Parsed("-")), "-; write kxplot.png");
}

} // namespace kxplot::test::options
