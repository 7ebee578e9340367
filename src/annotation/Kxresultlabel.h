#pragma once
// Labels that show a result of an analysis series and stay true to it.

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/platform/objects/typenames.h>

namespace kx {

/// The key of a result. A type of its own, so that an editor can offer the keys there are.
struct TKxIDString : AnsiString {
    using AnsiString::AnsiString;
    TKxIDString(const AnsiString& Key) : AnsiString(Key) {}
};
template <>
inline constexpr std::string_view CTypeName<TKxIDString> = "TKxIDString";

/// Shows the result that Series has written under Identifier; "..." as long as there is none. Its text is
/// always computed: Prefix, result, Suffix. The series is not owned and may go first.
class TKxResultLabel : public TKxCustomLabel, public TKxResultListener {
public:
    explicit TKxResultLabel(TComponent* Owner);
    ~TKxResultLabel() override;

    TKxCalculatedSeries* GetSeries() const { return FSeries; }
    void SetSeries(TKxCalculatedSeries* Series);
    const TKxIDString& GetIdentifier() const { return FIdentifier; }
    void SetIdentifier(const AnsiString& Identifier);
    /// How many characters a number may take (see RealToStrDigits), 0 to 18; 0 shows 15 digits.
    int GetDigits() const { return FDigits; }
    void SetDigits(int Digits);
    /// Significant digits of a number, 0 to 18; 0 (the default) leaves it to Digits.
    int GetSignificantDigits() const { return FSignificantDigits; }
    void SetSignificantDigits(int Digits);
    /// The key of the result's standard error, e.g. "DeltaSlope". It is shown behind the result, both rounded
    /// to the same place (see RealWithErrorToStr) by SignificantDigits. Empty at first: none is shown.
    const TKxIDString& GetErrorIdentifier() const { return FErrorIdentifier; }
    void SetErrorIdentifier(const AnsiString& Identifier);
    /// Captions before and after the result, e.g. "Slope = " and " mV". Empty at first.
    const TKxCaption& GetPrefix() const { return FPrefix; }
    void SetPrefix(const TKxCaption& Prefix);
    const TKxCaption& GetSuffix() const { return FSuffix; }
    void SetSuffix(const TKxCaption& Suffix);

    /// Computes the text anew. The series calls it after each calculation.
    void SetResult() override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxResultLabel>(); }
    void Notification(TComponent* Component, TOperation Operation) override;

private:
    AnsiString ResultText() const;
    AnsiString Stored(const AnsiString& Key) const;
    template <class T>
    void Change(T& Field, const T& Value) {
        if (Field == Value) return;
        Field = Value;
        SetResult();
    }

    TKxCalculatedSeries* FSeries = nullptr;
    TKxIDString FIdentifier, FErrorIdentifier;
    int FDigits = 0, FSignificantDigits = 0;
    TKxCaption FPrefix, FSuffix;
};

} // namespace kx
