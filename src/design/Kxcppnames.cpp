#include <kxgraph/design/Kxcppnames.h>

#include <kxgraph/platform/streaming/formvalues.h>
#include <kxgraph/platform/text/colors.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace kx {

namespace {

struct THeader {
    std::string_view Class, Header;
};
constexpr auto CHeaders = std::to_array<THeader>({
    {"TForm", "platform/controls/form.h"},
    {"TMenuItem", "platform/controls/menuitem.h"},
    {"TPopupMenu", "platform/controls/popupmenu.h"},
    {"TCustomControl", "platform/controls/controls.h"},
    {"TEdit", "platform/widgets/edit.h"},
    {"TListBox", "platform/widgets/listbox.h"},
    {"TComboBox", "platform/widgets/combobox.h"},
    {"TButton", "platform/widgets/button.h"},
    {"TCheckBox", "platform/widgets/button.h"},
    {"TSpinButton", "platform/widgets/spinbutton.h"},
    {"TStringGrid", "platform/widgets/stringgrid.h"},
    {"TTimer", "platform/host/timer.h"},
    {"TDataSource", "platform/data/datasource.h"},
    {"TMemoryDataSet", "platform/data/memorydataset.h"},
    {"TQtSqlDataSet", "qtsql/Kxqtsqldataset.h"},
    {"TKxRealVector", "numeric/Kxvector.h"},
    {"TKxLiveVector", "numeric/Kxvector.h"},
    {"TKxDBVector", "numeric/Kxdbvector.h"},
    {"TKxFileVector", "table/Kxfilevector.h"},
    {"TKx2DGraph", "graph/Kxgraph2d.h"},
    {"TKxAxis", "graph/Kxaxis.h"},
    {"TKxLineSeries", "series/Kxdataseries.h"},
    {"TKxDataSeries", "series/Kxdataseries.h"},
    {"TKxDataWithErrorSeries", "series/Kxdataseries.h"},
    {"TKxBarSeries", "series/Kxbarseries.h"},
    {"TKxArrowSeries", "series/Kxarrowseries.h"},
    {"TKxRuleSeries", "series/Kxruleseries.h"},
    {"TKxLinearRegressionLine", "analysis/Kxlinearregressionline.h"},
    {"TKxPolynomLine", "analysis/Kxpolinomial.h"},
    {"TKxInterpolatedLine", "analysis/Kxinterpolatedline.h"},
    {"TKxAkimaFunction", "analysis/Kxinterpolatedline.h"},
    {"TKxDifferential", "analysis/Kxdifferential.h"},
    {"TKxIntegral", "analysis/Kxintegral.h"},
    {"TKxApproxSplineLine", "analysis/Kxapproxsplineline.h"},
    {"TKxApproxSplineFunction", "analysis/Kxapproxsplineline.h"},
    {"TKxASplineDifferential", "analysis/Kxasplinedifferential.h"},
    {"TKxASplineIntegral", "analysis/Kxasplineintegral.h"},
    {"TKxFittedLine", "analysis/Kxfittedline.h"},
    {"TKxFitBand", "analysis/Kxfitband.h"},
    {"TKxCaptionEdit", "editing/Kxcaptionedit.h"},
    {"TKxCaptionBar", "editing/Kxcaptionbar.h"},
    {"TKxColorPicker", "editing/Kxcolorpicker.h"},
    {"TKxRealEdit", "editing/Kxnumberedit.h"},
    {"TKxRealSpin", "editing/Kxnumberedit.h"},
    {"TKxIntegerEdit", "editing/Kxnumberedit.h"},
    {"TKxIntegerSpin", "editing/Kxnumberedit.h"},
    {"TKxBrushStyleList", "editing/Kxpickers.h"},
    {"TKxBrushStyleCombo", "editing/Kxpickers.h"},
    {"TKxLineStyleList", "editing/Kxpickers.h"},
    {"TKxLineStyleCombo", "editing/Kxpickers.h"},
    {"TKxLineWidthList", "editing/Kxpickers.h"},
    {"TKxLineWidthCombo", "editing/Kxpickers.h"},
    {"TKxPointSymbolList", "editing/Kxpickers.h"},
    {"TKxPointSymbolCombo", "editing/Kxpickers.h"},
    {"TKxLabel", "annotation/Kxlabel.h"},
    {"TKxLineSample", "annotation/Kxlinesample.h"},
    {"TKxLegend", "annotation/Kxlegend.h"},
    {"TKxResultLabel", "annotation/Kxresultlabel.h"},
});

/// Where the accessor bears another name than the property.
struct TSetter {
    std::string_view Table, Property, Setter;
};
constexpr auto CSetters = std::to_array<TSetter>({
    {"TListBox", "Items", "SetLines"},
    {"TComboBox", "Items", "SetLines"},
    {"TKxAxis", "AutoSize", "SetAutosize"},
    {"TKxAxis", "Categories", "SetCategoriesText"},
    {"TKxAxis", "IsSlaveAxis", "SetIsSlave"},
    {"TKxAxis", "MaxExpForScaleExp", "SetMaxExpForScale"},
    {"TKxAxis", "MinExpForScaleExp", "SetMinExpForScale"},
    {"TKxArrowSeries", "dXData", "SetDX"},
    {"TKxArrowSeries", "dYData", "SetDY"},
    {"TKxBarSeries", "DepthPercent", "Set3DDepthPercent"},
    {"TKxBarSeries", "Show3DBars", "SetShowAs3D"},
    {"TKxCalculatedSeries", "CoupleCalculationAndDisplay", "SetCoupleCalcAndDisplay"},
    {"TKxDataWithErrorSeries", "ErrorIndicatorsColor", "SetErrorColor"},
    {"TKxLinearRegressionLine", "Offset", "SetFixedOffset"},
});

constexpr auto CKeywords = std::to_array<std::string_view>(
    {"alignas", "alignof", "and",       "asm",       "auto",     "bitand",   "bitor",    "bool",
     "break",   "case",    "catch",     "char",      "class",    "compl",    "const",    "continue",
     "default", "delete",  "do",        "double",    "else",     "enum",     "explicit", "export",
     "extern",  "false",   "float",     "for",       "friend",   "goto",     "if",       "inline",
     "int",     "long",    "mutable",   "namespace", "new",      "not",      "nullptr",  "operator",
     "or",      "private", "protected", "public",    "register", "requires", "return",   "short",
     "signed",  "sizeof",  "static",    "std",       "struct",   "switch",   "template", "this",
     "throw",   "true",    "try",       "typedef",   "typeid",   "typename", "union",    "unsigned",
     "using",   "virtual", "void",      "volatile",  "while",    "xor",      "kx",       "linux",
     "unix",    "main"});

std::string Enumerator(const TProperty& Row, std::int64_t Ordinal) {
    if (Row.ValueNames.empty()) return std::to_string(Ordinal);
    return "kx::" + std::string(Row.ValueNames[std::size_t(Ordinal)]);
}

std::string Set(const TProperty& Row, std::int64_t Mask) {
    std::string text;
    for (std::size_t bit = 0; bit < Row.ValueNames.size(); ++bit)
        if ((Mask >> bit) & 1) text.append(text.empty() ? "kx::" : " | kx::").append(Row.ValueNames[bit]);
    return text.empty() ? "0" : text;
}

std::string Color(std::int64_t Value) {
    const std::string name = ColorToText(static_cast<TColor>(Value));
    if (name.front() != '$') return "kx::" + name;
    if (Value < 0) return "kx::TColor(" + std::to_string(Value) + ")";
    return "0x" + name.substr(1);
}

std::string Reals(const std::vector<double>& Values) {
    std::string text = "{";
    for (const double value : Values) text.append(text.size() > 1 ? ", " : "").append(CppReal(value));
    return text + "}";
}

} // namespace

std::string_view CppHeaderOf(std::string_view ClassName) {
    const auto found =
        std::ranges::find_if(CHeaders, [&](const THeader& Header) { return Header.Class == ClassName; });
    return found == CHeaders.end() ? std::string_view() : found->Header;
}

std::string CppSetterOf(const TPropertyTable& Table, std::string_view Property) {
    for (const TPropertyTable* table = &Table; table; table = table->GetBase())
        for (const TSetter& setter : CSetters)
            if (setter.Table == table->GetClassName() && SameText(setter.Property, Property))
                return std::string(setter.Setter);
    return "Set" + std::string(Property);
}

bool IsCppField(std::string_view Property) { return Property == "Tag"; }

bool IsCppBound(std::string_view Property) {
    constexpr auto bounds = std::to_array<std::string_view>({"Left", "Top", "Width", "Height"});
    return std::ranges::find(bounds, Property) != bounds.end();
}

std::string CppReal(double Value) {
    if (std::isnan(Value)) return "NAN";
    if (std::isinf(Value)) return Value < 0 ? "-HUGE_VAL" : "HUGE_VAL";
    return RealForm(Value);
}

std::string CppText(std::string_view Text) {
    const bool isReadable = ToValidUtf8(Text) == Text;
    std::string literal = "\"";
    for (const char c : Text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\' || c == '?')
            (literal += '\\') += c;
        else if (c == '\n')
            literal += "\\n";
        else if (byte < ' ' || byte == 0x7F || (byte > 0x7F && !isReadable))
            for (const int shift : {6, 3, 0})
                literal.append(shift == 6 ? "\\" : "") += char('0' + ((byte >> shift) & 7));
        else
            literal += c;
    }
    return literal + "\"";
}

std::string CppVariable(const std::string& Name) {
    return std::ranges::find(CKeywords, Name) == CKeywords.end() ? Name : Name + "_";
}

std::string CppValue(const TProperty& Row, const TPropertyValue& Value) {
    switch (Row.Kind) {
    case TPropertyKind::Bool: return std::get<bool>(Value) ? "true" : "false";
    case TPropertyKind::Integer: return std::to_string(std::get<std::int64_t>(Value));
    case TPropertyKind::Real: return CppReal(std::get<double>(Value));
    case TPropertyKind::Text: return CppText(std::get<std::string>(Value));
    case TPropertyKind::Enumeration: return Enumerator(Row, std::get<std::int64_t>(Value));
    case TPropertyKind::Flags: return Set(Row, std::get<std::int64_t>(Value));
    case TPropertyKind::Color: return Color(std::get<std::int64_t>(Value));
    case TPropertyKind::Reals: return Reals(std::get<std::vector<double>>(Value));
    case TPropertyKind::Reference:
    case TPropertyKind::Event:
    case TPropertyKind::SubObject: break;
    }
    return {};
}

} // namespace kx
