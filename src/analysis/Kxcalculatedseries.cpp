#include "analysis/Kxcalculatedseries.h"

#include "numeric/Kxstrings.h"
#include "platform/matherror.h"

#include <algorithm>
#include <typeinfo>

namespace kx {

TKxCalculatedSeries::TKxCalculatedSeries(TComponent* Owner)
    : TKxSeries(Owner), FDisplayX(std::make_unique<TKxLiveVector>(nullptr)),
      FDisplayY(std::make_unique<TKxLiveVector>(nullptr)) {}

TKxCalculatedSeries::~TKxCalculatedSeries() {
    Leave();
    // While the series can still be told of it: its references to the two are cleared.
    FDisplayX.reset();
    FDisplayY.reset();
}

void TKxCalculatedSeries::Notification(TComponent* Component, TOperation Operation) {
    TKxSeries::Notification(Component, Operation);
    if (Operation == opRemove && Component == FParentSeries) FParentSeries = nullptr;
}

void TKxCalculatedSeries::SetParentSeries(TKxNotCalculatedSeries* Parent) {
    if (Parent == FParentSeries) return;
    Leave();
    Join(Parent);
    if (!Parent) return TellResultLabels();
    Parent->RefreshExtents();
    SetLimits();
    if (Parent->GetPointsCount() > 0) Calculate();
    Parent->DsgnUpdate();
}

void TKxCalculatedSeries::Join(TKxNotCalculatedSeries* Parent) {
    Refer(FParentSeries, Parent);
    if (!Parent) return;
    SetXAxis(Parent->GetXAxis());
    TakeYAxis(*Parent);
    SetXData(FDisplayX.get());
    SetYData(FDisplayY.get());
    Parent->AddChild(this);
}

void TKxCalculatedSeries::Leave() {
    SetCurve({}, {});
    FYRange.SetStartStop(CMaxReal, -CMaxReal); // so that its axis may shrink
    GetResults().EraseSection(FOwnSection);
    if (!FParentSeries) return;
    FParentSeries->RemoveChild(this);
    FParentSeries->GetResults().EraseSection(FParentSection);
    FParentSeries->ChildModified(); // the numbers in its siblings' sections may change
    FParentSeries = nullptr;
}

void TKxCalculatedSeries::ParentModified() {
    if (FParentSeries) FParentSeries->ChildModified();
}

void TKxCalculatedSeries::SettingChanged() {
    ParentModified();
    if (FParentSeries && IsIn(csDesigning)) SetLimits();
}

void TKxCalculatedSeries::ChangeAutomatic(bool& Field, bool Auto) {
    if (Field == Auto) return;
    Field = Auto;
    if (Auto) SettingChanged();
}

void TKxCalculatedSeries::SetCalculationStart(double X) {
    if (X == FCalculationStart) return;
    FAutoStart = false;
    ChangeSetting(FCalculationStart, X);
}

void TKxCalculatedSeries::SetCalculationStop(double X) {
    if (X == FCalculationStop) return;
    FAutoStop = false;
    ChangeSetting(FCalculationStop, X);
}

void TKxCalculatedSeries::SetDisplayStart(double X) {
    if (X == FDisplayStart) return;
    FCoupleCalculationAndDisplay = FDisplayAutoStart = false;
    ChangeSetting(FDisplayStart, X);
}

void TKxCalculatedSeries::SetDisplayStop(double X) {
    if (X == FDisplayStop) return;
    FCoupleCalculationAndDisplay = FDisplayAutoStop = false;
    ChangeSetting(FDisplayStop, X);
}

void TKxCalculatedSeries::SetParentWeight(bool ParentWeight) {
    if (FParentWeight == ParentWeight) return;
    FParentWeight = ParentWeight;
    if (FParentSeries && FParentSeries->GetWeight() != TKxSeries::GetWeight()) ParentModified();
}

TKxCustomRealVector* TKxCalculatedSeries::GetWeight() const {
    if (!FParentWeight) return TKxSeries::GetWeight();
    return FParentSeries ? FParentSeries->GetWeight() : nullptr;
}

void TKxCalculatedSeries::SetWeight(TKxCustomRealVector* Vector) {
    FParentWeight = false;
    TKxSeries::SetWeight(Vector);
    ParentModified();
}

void TKxCalculatedSeries::FOnWeightChanged(int, bool) { ParentModified(); }

AnsiString TKxCalculatedSeries::GetFormula() const { return "no Function defined"; }
double TKxCalculatedSeries::GetY(double X) const { return X; }

void TKxCalculatedSeries::CalculateFunction() {
    throw EMathError("TCalculatedSeries: CalculateFunction must be overridden in derived class!");
}

void TKxCalculatedSeries::Calculate() {
    if (!FParentSeries) return;
    FParentSeries->RefreshExtents();
    SetLimits();
    UpdateAutoCaption();
    SetCurve({}, {});
    RunCalculation();
    CurveChanged();
    StoreResults();
    TellResultLabels();
    OnCalculated(this);
}

void TKxCalculatedSeries::RunCalculation() {
    FError.clear();
    try {
        CalculateFunction();
    } catch (Exception& error) {
        CalculationFailed(error);
        if (!OnError) throw;
        OnError(this, error);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) { // of a program's own function
        Exception named(error.what());
        CalculationFailed(named);
        if (!OnError) throw named;
        OnError(this, named);
    }
}

// Where nobody handles the error Calculate ends here: what is stored and shown must not stay what it was.
void TKxCalculatedSeries::CalculationFailed(Exception& Error) {
    if (!GetCaption().empty()) Error.SetMessage(GetCaption() + ": " + Error.Message());
    FError = Error.Message();
    if (OnError) return;
    CurveChanged();
    StoreResults();
    TellResultLabels();
}

// As long as nobody has given the series another caption.
void TKxCalculatedSeries::UpdateAutoCaption() {
    if (GetCaption() != GetAutoCaption()) return;
    const AnsiString formula = GetFormula();
    if (GetAutoCaption() != formula) SetAutoCaption(formula);
}

AnsiString TKxCalculatedSeries::GetOwnIndex() const {
    if (!FParentSeries) return "";
    const auto& children = FParentSeries->GetChildren();
    const auto own = std::find(children.begin(), children.end(), this);
    const auto before = std::count_if(
        children.begin(), own, [this](const TKxSeries* Child) { return typeid(*Child) == typeid(*this); });
    return before == 0 ? "" : " (" + std::to_string(before + 1) + ")";
}

void TKxCalculatedSeries::WriteResults(TKxIniList& List, const AnsiString& Section) const {
    List.WriteString(Section, "Calculation", GetCalculationID());
    List.WriteString(Section, "Caption", GetCaption());
    List.WriteString(Section, "Formula", GetFormula());
    List.WriteReal(Section, "CalcStart", FCalculationStart);
    List.WriteReal(Section, "CalcStop", FCalculationStop);
    List.WriteReal(Section, "DisplayStart", FDisplayStart);
    List.WriteReal(Section, "DisplayStop", FDisplayStop);
}

void TKxCalculatedSeries::StoreResults() {
    StoreResultsIn(FParentSeries->GetResults(), FParentSection,
                   StripBlanks(GetCalculationID() + GetOwnIndex()));
    StoreResultsIn(GetResults(), FOwnSection, GetName());
}

// Where the keys are those of the time before, the values are replaced in their place. Otherwise the section
// is written anew: a key that has gone, such as the coefficient of a higher order, must not stay.
void TKxCalculatedSeries::StoreResultsIn(TKxIniList& List, AnsiString& Last,
                                         const AnsiString& Section) const {
    TKxIniList fresh;
    if (FError.empty()) {
        WriteResults(fresh, Section);
    } else {
        TKxCalculatedSeries::WriteResults(fresh, Section);
        fresh.WriteString(Section, "Error", FError);
    }
    TStringList keys, before;
    fresh.ReadSection(Section, keys);
    List.ReadSection(Section, before);
    if (Last != Section) List.EraseSection(Last);
    if (keys.GetText() != before.GetText()) {
        List.EraseSection(Section);
        while (List.GetCount() > 0 && List.GetLine(List.GetCount() - 1).empty())
            List.Delete(List.GetCount() - 1);
    }
    for (int i = 0; i < keys.GetCount(); ++i)
        List.WriteString(Section, keys.GetLine(i), fresh.ReadString(Section, keys.GetLine(i), ""));
    Last = Section;
}

void TKxCalculatedSeries::AddResultLabel(TKxResultListener* Label) {
    if (std::find(FResultLabels.begin(), FResultLabels.end(), Label) == FResultLabels.end())
        FResultLabels.push_back(Label);
}

void TKxCalculatedSeries::RemoveResultLabel(TKxResultListener* Label) { std::erase(FResultLabels, Label); }

void TKxCalculatedSeries::TellResultLabels() {
    const auto labels = FResultLabels;
    for (auto* label : labels)
        if (std::find(FResultLabels.begin(), FResultLabels.end(), label) != FResultLabels.end())
            label->SetResult();
}

} // namespace kx
