#include <kxgraph/annotation/Kxresultlabel.h>

#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/objects/published.h>

#include <algorithm>

namespace kx {

namespace {

constexpr const char* CNoResult = "...";
constexpr int CMostDigits = 18;

} // namespace

TKxResultLabel::TKxResultLabel(TComponent* Owner) : TKxCustomLabel(Owner) { TKxResultLabel::SetResult(); }

TKxResultLabel::~TKxResultLabel() {
    if (FSeries) FSeries->RemoveResultLabel(this);
}

void TKxResultLabel::Notification(TComponent* Component, TOperation Operation) {
    TKxCustomLabel::Notification(Component, Operation);
    if (Operation != opRemove || Component != FSeries) return;
    FSeries = nullptr;
    SetResult();
}

void TKxResultLabel::SetSeries(TKxCalculatedSeries* Series) {
    if (Series == FSeries) return;
    if (FSeries) FSeries->RemoveResultLabel(this);
    FSeries = Series;
    if (Series) {
        Series->FreeNotification(this);
        Series->AddResultLabel(this);
    }
    SetResult();
}

void TKxResultLabel::SetIdentifier(const AnsiString& Identifier) {
    Change(FIdentifier, TKxIDString(Identifier));
}
void TKxResultLabel::SetDigits(int Digits) { Change(FDigits, std::clamp(Digits, 0, CMostDigits)); }
void TKxResultLabel::SetSignificantDigits(int Digits) {
    Change(FSignificantDigits, std::clamp(Digits, 0, CMostDigits));
}
void TKxResultLabel::SetErrorIdentifier(const AnsiString& Identifier) {
    Change(FErrorIdentifier, TKxIDString(Identifier));
}
void TKxResultLabel::SetPrefix(const TKxCaption& Prefix) { Change(FPrefix, Prefix); }
void TKxResultLabel::SetSuffix(const TKxCaption& Suffix) { Change(FSuffix, Suffix); }

AnsiString TKxResultLabel::ResultText() const {
    if (!FSeries || FIdentifier.empty()) return CNoResult;
    AnsiString text = Stored(FIdentifier);
    if (!IsNumber(text)) return text;
    const double value = ExtractOneReal(text);
    AnsiString error = FErrorIdentifier.empty() ? AnsiString() : Stored(FErrorIdentifier);
    if (IsNumber(error)) return RealWithErrorToStr(value, ExtractOneReal(error), FSignificantDigits);
    return (FSignificantDigits > 0 ? RealToStrSignificant(value, FSignificantDigits)
                                   : RealToStrDigits(value, FDigits)) +
           (error.empty() ? "" : " \u00B1 " + error);
}

AnsiString TKxResultLabel::Stored(const AnsiString& Key) const {
    const TKxResult* result = FSeries->GetFound().Find(Key);
    return result ? result->GetText() : CNoResult;
}

void TKxResultLabel::SetResult() { SetCaption(FPrefix + ResultText() + FSuffix); }

const TPropertyTable& TKxResultLabel::Properties() {
    using T = TKxResultLabel;
    static const TPropertyTable table(
        "TKxResultLabel", &TKxCustomLabel::Properties(),
        {
            Published<&T::GetSeries, &T::SetSeries>("Series", nullptr, "the series whose result is shown"),
            Published<&T::GetIdentifier, &T::SetIdentifier>("Identifier", "", "key of the result"),
            Published<&T::GetDigits, &T::SetDigits>("Digits", 0, "characters of a number; 0: 15 digits"),
            Published<&T::GetSignificantDigits, &T::SetSignificantDigits>(
                "SignificantDigits", 0, "significant digits of a number; 0: as Digits says"),
            Published<&T::GetErrorIdentifier, &T::SetErrorIdentifier>("ErrorIdentifier", "",
                                                                      "key of the standard error"),
            Published<&T::GetPrefix, &T::SetPrefix>("Prefix", "", "caption in front of the result"),
            Published<&T::GetSuffix, &T::SetSuffix>("Suffix", "", "caption behind the result"),
        });
    return table;
}

} // namespace kx
