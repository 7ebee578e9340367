#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <kxgraph/numeric/Kxstrings.h>
#include <kxgraph/platform/base/matherror.h>
#include <kxgraph/platform/objects/guarded.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <typeinfo>
#include <utility>

namespace kx {

TKxCalculatedSeries::TKxCalculatedSeries(TComponent* Owner)
    : TKxSeries(Owner), FDisplayX(std::make_unique<TKxLiveVector>(nullptr)),
      FDisplayY(std::make_unique<TKxLiveVector>(nullptr)) {}

/// A calculation as long as it may go on.
class TKxCalculatedSeries::TRun {
public:
    explicit TRun(TKxCalculatedSeries& Series) : FSeries(&Series), FNumber(Series.FCalculation) {}
    bool GoesOn() const { return FSeries && FSeries->FCalculation == FNumber; }
    void Check() const {
        if (!GoesOn()) throw TEnded();
    }

private:
    TComponentRef<TKxCalculatedSeries> FSeries;
    unsigned FNumber;
};

TKxCalculatedSeries::~TKxCalculatedSeries() {
    Guarded([this] { Leave(); });
    // While the series can still be told of it: its references to the two are cleared.
    FDisplayX.reset();
    FDisplayY.reset();
}

void TKxCalculatedSeries::Notification(TComponent* Component, TOperation Operation) {
    TKxSeries::Notification(Component, Operation);
    if (Operation != opRemove || Component != FParentSeries) return;
    FParentSeries = nullptr;
    FParentSection.Forget();
    LoseResults();
    TellResultLabels();
}

void TKxCalculatedSeries::SetParentSeries(TKxNotCalculatedSeries* Parent) {
    if (Parent == FParentSeries) return;
    Leave();
    Join(Parent);
    if (!Parent) return TellResultLabels();
    const TComponentRef<TKxNotCalculatedSeries> parent(Parent);
    Parent->RefreshExtents();
    SetLimits();
    if (Parent->GetPointsCount() > 0) Calculate();
    if (parent) parent->DsgnUpdate();
}

// Wholly or not at all.
void TKxCalculatedSeries::Join(TKxNotCalculatedSeries* Parent) {
    if (!Parent) return;
    try {
        Refer(FParentSeries, Parent);
        SetXAxis(Parent->GetXAxis());
        TakeYAxis(*Parent);
        SetXData(FDisplayX.get());
        SetYData(FDisplayY.get());
        Parent->AddChild(this);
    } catch (...) {
        FParentSeries = nullptr;
        Parent->RemoveChild(this);
        throw;
    }
}

void TKxCalculatedSeries::Leave() {
    if (auto* parent = std::exchange(FParentSeries, nullptr)) {
        parent->RemoveChild(this);
        FParentSection.Erase(parent->GetResults());
        parent->ChildModified(); // the numbers in its siblings' sections may change
    }
    LoseResults();
}

void TKxCalculatedSeries::LoseResults() {
    EndCalculation();
    FError.clear();
    SetCurve({}, {});
    FY.GetRange().SetStartStop(CMaxReal, -CMaxReal); // so that its axis may shrink
    FFound.Clear();
    FOwnSection.Erase(GetResults());
    Modified();
}

void TKxCalculatedSeries::LoseData() {
    FParentSection.Erase(FParentSeries->GetResults());
    LoseResults();
    TellResultLabels();
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

TKxNotCalculatedSeries& TKxCalculatedSeries::GetDataSource() const {
    if (!FParentSeries->GetXData() || !FParentSeries->GetYData()) RaiseNotEnoughData();
    return *FParentSeries;
}

TKxFitPoints TKxCalculatedSeries::GetFitPoints() const {
    const auto& source = GetDataSource();
    return TKxFitPoints::Of(*source.GetXData(), *source.GetYData(), GetWeight())
        .Within(FCalculationStart, FCalculationStop);
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
    if (!FParentSeries->GetXData() || !FParentSeries->GetYData()) return LoseData();
    EndCalculation(); // of a handler's caller
    const TRun run(*this);
    const TComponentRef<TKxCalculatedSeries> self(this);
    FParentSeries->RefreshExtents();
    SetLimits();
    UpdateAutoCaption();
    SetCurve({}, {});
    try {
        RunCalculation(run);
        CurveChanged();
        StoreResults();
        TellResultLabels();
        run.Check();
        OnCalculated(this);
    } catch (const std::bad_alloc&) {
        // Rather none than half of them new, until the next frame.
        if (run.GoesOn()) Guarded([this] { ParentModified(), LoseData(); });
        throw;
    } catch (const TEnded&) {
        if (self && !FParentSeries) SetCurve({}, {}); // filled after the parent was lost
    }
}

void TKxCalculatedSeries::RunCalculation(const TRun& Run) {
    FError.clear();
    try {
        CalculateFunction();
    } catch (Exception& error) {
        if (!Run.GoesOn() || !TakesError(error)) throw; // an error may be that of a handler that has ended it
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) { // of a program's own function
        Exception named(error.what());
        if (!Run.GoesOn() || !TakesError(named)) throw named;
    }
    Run.Check();
}

// Whether OnError has taken it and the rest goes on. Otherwise Calculate ends with the error: what is stored
// and shown must not stay what it was.
bool TKxCalculatedSeries::TakesError(Exception& Error) {
    if (!GetCaption().empty()) Error.SetMessage(GetCaption() + ": " + Error.Message());
    FError = Error.Message();
    if (OnError) {
        OnError(this, Error);
        return true;
    }
    CurveChanged();
    StoreResults();
    TellResultLabels();
    return false;
}

void TKxCalculatedSeries::CallHandler(const TKxAnyEvent& Handler) {
    if (!Handler) return;
    const TRun run(*this);
    Handler(this);
    run.Check();
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

namespace {

/// Positions along an axis of dates read as dates, within a millionth of the span.
void ShowDates(TKxResults& Results, const TKxAxis& Axis, double Span) {
    constexpr double exact = 1e-6;
    if (Axis.GetLabelKind() != lkDates) return;
    Results.ShowPositionsAs([labelling = Axis.GetLabelling(), resolution = std::abs(Span) * exact](double X) {
        return labelling.TextOf(X, resolution);
    });
}

} // namespace

void TKxCalculatedSeries::CollectResults(TKxResults& Results) const {
    Results.Set("Calculation", GetCalculationID());
    Results.Set("Caption", GetCaption());
    Results.Set("Formula", GetFormula());
    if (GetXAxis()) ShowDates(Results, *GetXAxis(), FCalculationStop - FCalculationStart);
    Results.SetPosition("CalcStart", FCalculationStart);
    Results.SetPosition("CalcStop", FCalculationStop);
    Results.SetPosition("DisplayStart", FDisplayStart);
    Results.SetPosition("DisplayStop", FDisplayStop);
}

void TKxCalculatedSeries::WriteResults(TKxIniList& List, const AnsiString& Section) const {
    TKxResults results;
    CollectResults(results);
    kx::WriteResults(results, List, Section);
}

/// Results that show positions as the axis does follow it to dates and back.
void TKxCalculatedSeries::RenewTexts() {
    if (!GetXAxis() || GetXAxis()->GetLabelling().Reading() == FShownReading || !FFound.Find("Calculation"))
        return;
    StoreResults();
    TellResultLabels();
}

void TKxCalculatedSeries::StoreResults() {
    TKxResults found;
    if (FError.empty()) {
        CollectResults(found);
    } else {
        TKxCalculatedSeries::CollectResults(found);
        found.Set("Error", FError);
    }
    if (GetXAxis()) FShownReading = GetXAxis()->GetLabelling().Reading();
    const bool hasSameKeys = found.HasKeysOf(FFound);
    FFound = std::move(found);
    FParentSection.Store(FParentSeries->GetResults(), StripBlanks(GetCalculationID() + GetOwnIndex()),
                         hasSameKeys);
    FOwnSection.Store(GetResults(), GetName(), hasSameKeys);
}

void TKxCalculatedSeries::AddResultLabel(TKxResultListener* Label) {
    if (std::find(FResultLabels.begin(), FResultLabels.end(), Label) == FResultLabels.end())
        FResultLabels.push_back(Label);
}

void TKxCalculatedSeries::RemoveResultLabel(TKxResultListener* Label) { std::erase(FResultLabels, Label); }

void TKxCalculatedSeries::TellResultLabels() {
    const TComponentRef<TKxCalculatedSeries> self(this);
    const auto labels = FResultLabels;
    for (auto* label : labels) {
        if (!self) return;
        if (std::find(FResultLabels.begin(), FResultLabels.end(), label) != FResultLabels.end())
            label->SetResult();
    }
}

} // namespace kx
