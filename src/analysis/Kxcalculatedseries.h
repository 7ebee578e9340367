#pragma once
// The base of all analysis series: curves that are computed from the data of another series, follow it, and
// write what they found into INI stores, where labels show it.

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/analysis/Kxresultsection.h>
#include <kxgraph/persist/Kxresults.h>
#include <kxgraph/series/Kxdataseries.h>

#include <memory>
#include <utility>
#include <vector>

namespace kx {

/// Something that shows a result of a series, such as a label, and is told when there are new ones.
class TKxResultListener {
public:
    virtual void SetResult() = 0;

protected:
    ~TKxResultListener() = default;
};

/// A curve computed from ParentSeries, whose axes it takes. A component of the form; it stands in its
/// parent's list of children, is drawn after its parent and saved with it. It owns the two vectors of the
/// curve, which become its XData and YData. Without a parent it does nothing.
///
/// Every change of the parent's data, of its weights, of a setting or of an axis's scaling leads to Calculate
/// by the next frame. A derived class overrides CalculateFunction, GetCalculationID and, where it has them,
/// GetFormula, GetY and CollectResults, and hides CalculationID.
///
/// Handlers (OnCalculated, OnError and those that a derived class calls by CallHandler) may take the series
/// from its parent, destroy it or its parent, and change or empty the data. A function that is fitted may do
/// all of this but destroy the series.
class TKxCalculatedSeries : public TKxSeries, public TKxCalculatedItem, public TKxStartStop {
public:
    explicit TKxCalculatedSeries(TComponent* Owner);
    ~TKxCalculatedSeries() override;

    TKxNotCalculatedSeries* GetParentSeries() const { return FParentSeries; }
    /// Takes over the parent's axes and calculates if the parent holds points. Raises what Calculate raises.
    /// Where memory does not suffice to join, the series is left without parent.
    virtual void SetParentSeries(TKxNotCalculatedSeries* Parent);

    /// The weights that the calculation heeds: the own vector, or with ParentWeight the parent's. May be
    /// null.
    TKxCustomRealVector* GetWeight() const override;
    /// Switches ParentWeight off.
    void SetWeight(TKxCustomRealVector* Vector) override;
    bool GetParentWeight() const { return FParentWeight; }
    void SetParentWeight(bool ParentWeight);

    // The data that take part: CalculationStart <= x <= CalculationStop. An automatic end follows the
    // parent's data; setting an end switches that off.
    bool GetAutoStart() const override { return FAutoStart; }
    void SetAutoStart(bool Auto) override { ChangeAutomatic(FAutoStart, Auto); }
    bool GetAutoStop() const override { return FAutoStop; }
    void SetAutoStop(bool Auto) override { ChangeAutomatic(FAutoStop, Auto); }
    double GetCalculationStart() const override { return FCalculationStart; }
    void SetCalculationStart(double X) override;
    double GetCalculationStop() const override { return FCalculationStop; }
    void SetCalculationStop(double X) override;

    TKxStartStop* GetStartStop() override { return this; }

    // Where the curve is shown. An automatic end follows the X axis (the start of an integral: that of its
    // calculation) and goes before the coupling, by which the display range is that of the calculation;
    // setting an end switches both off.
    bool GetDisplayAutoStart() const { return FDisplayAutoStart; }
    void SetDisplayAutoStart(bool Auto) { ChangeSetting(FDisplayAutoStart, Auto); }
    bool GetDisplayAutoStop() const { return FDisplayAutoStop; }
    void SetDisplayAutoStop(bool Auto) { ChangeSetting(FDisplayAutoStop, Auto); }
    bool GetCoupleCalculationAndDisplay() const { return FCoupleCalculationAndDisplay; }
    void SetCoupleCalcAndDisplay(bool Couple) { ChangeSetting(FCoupleCalculationAndDisplay, Couple); }
    double GetDisplayStart() const { return FDisplayStart; }
    void SetDisplayStart(double X);
    double GetDisplayStop() const { return FDisplayStop; }
    void SetDisplayStop(double X);

    /// The formula of the result as a caption.
    virtual AnsiString GetFormula() const;
    /// The value of the curve at X, in data units.
    virtual double GetY(double X) const;

    /// Computes results and curve now: limits, CalculateFunction, results into the parent's store (section
    /// CalculationID + GetOwnIndex without blanks) and into the own one (section Name), labels, OnCalculated.
    /// An error carries the caption in front. OnError, where it is set, gets it and the rest goes on;
    /// otherwise it is raised. Either way the curve and the results of the calculation before are gone, and
    /// the sections hold "Error" instead. When a handler destroys the series, takes it from its parent or has
    /// it calculated, the calculation that called it ends there, without error. A parent without an X or a Y
    /// vector gives nothing to calculate: curve and results are gone then.
    void Calculate() override;
    /// Samples the curve anew where the axis has changed its range or length.
    void CalculateLine() override;
    /// Message of the last calculation's failure; empty when it succeeded.
    const AnsiString& GetError() const { return FError; }
    /// Sets the ends that are automatic or coupled.
    void SetLimits();

    /// Names the kind of calculation in stores. Each class has its own; GetCalculationID gives an object's.
    static AnsiString CalculationID() { return "No Calculation-ID defined"; }
    virtual AnsiString GetCalculationID() const { return CalculationID(); }
    /// " (2)" for the second child of the parent that is of exactly this class, and so on; empty for the
    /// first.
    AnsiString GetOwnIndex() const;
    /// What a calculation has found. Derived classes call the inherited one first and add their keys.
    virtual void CollectResults(TKxResults& Results) const;
    /// CollectResults as the keys of Section.
    void WriteResults(TKxIniList& List, const AnsiString& Section) const;
    /// What the last calculation has found, with the settings of that time; after a failure what this class
    /// collects, and "Error". Empty without a calculation.
    const TKxResults& GetFound() const { return FFound; }

    /// Listeners enter and leave by themselves; they may leave while they are told.
    void AddResultLabel(TKxResultListener* Label);
    void RemoveResultLabel(TKxResultListener* Label);

    void ReadFromIni(TKxIniList& Ini, const AnsiString& Section) override;
    bool IsCalculated() const override { return true; }

    TKxAnyEvent OnCalculated; ///< after each Calculate that came to its end
    TKxErrorEvent OnError;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// The parent, which has an X and a Y vector. Raises EMathError "Not enough data!" where it has not.
    TKxNotCalculatedSeries& GetDataSource() const;
    /// The parent's points and the weights, within the limits of the calculation. Raises as GetDataSource.
    TKxFitPoints GetFitPoints() const;
    /// The calculation itself: results from the parent's data, then the curve. Raises EMathError.
    virtual void CalculateFunction();

    /// X positions of the curve, one a pixel, from DisplayStart to DisplayStop, both included; evenly spaced
    /// on the axis, so in decades on a logarithmic one. At most two more than pixels. Of a display range far
    /// wider than the axis the visible part.
    void GetXSpacings();
    /// GetXSpacings and GetY at each; while the axis waits for its layout not before that. (The spelling is
    /// part of the interface.)
    void GetContinousLine();
    /// Fills Y with the curve at each X: GetY, where it is not overridden for more at once.
    virtual void EvaluateAt(const std::vector<double>& X, std::vector<double>& Y);
    /// Where an automatic display start lies: at that of the X axis.
    virtual double AutomaticDisplayStart() const { return GetXAxis()->GetStart(); }
    /// Takes the Y axis to draw against when the series gets a parent: the parent's.
    virtual void TakeYAxis(TKxNotCalculatedSeries& Parent) { SetYAxis(Parent.GetYAxis()); }
    /// The curve as given, instead.
    void SetCurve(std::span<const double> X, std::span<const double> Y);
    /// To be called when the curve has changed outside of Calculate: screen points and extents follow.
    void CurveChanged();
    /// Moves the automatic display ends to those of the axis, inward only where it is not zoomed; whether any
    /// moved.
    bool FollowAxis();
    /// Asks the parent to have everything calculated by the next frame.
    void ParentModified();
    /// Calls a handler of the program from within CalculateFunction. Does not come back (by an exception that
    /// Calculate takes) where the handler has ended this calculation; what follows may rely on the series.
    void CallHandler(const TKxAnyEvent& Handler);
    /// Ends a calculation that is under way when the handler that it has called comes back.
    void EndCalculation() { ++FCalculation; }
    /// Stores a setting that a calculation depends on.
    template <class T>
    void ChangeSetting(T& Field, const T& Value) {
        if (Field == Value) return;
        Field = Value;
        SettingChanged();
    }

    void Notification(TComponent* Component, TOperation Operation) override;
    void Loaded() override;
    void FOnWeightChanged(int Index, bool WasDeleted) override;
    bool FollowsVectors() const override { return false; }
    bool BreaksAtGaps() const override { return true; }
    /// On a logarithmic axis that shows the parent's data a curve that dives towards 0 (or rises) takes the
    /// axis no more than a decade beyond them.
    void GetNewYStartStop() override;

    /// The curve. Owned; made by the constructor.
    TKxLiveVector& DisplayX() { return *FDisplayX; }
    TKxLiveVector& DisplayY() { return *FDisplayY; }

private:
    enum class TSampling { None, Due, Done }; ///< of a curve by GetContinousLine

    void ChangeAutomatic(bool& Field, bool Auto);
    void SettingChanged();
    void Join(TKxNotCalculatedSeries* Parent);
    void LoadParent(TKxNotCalculatedSeries* Parent);
    void LoadWeight(TKxCustomRealVector* Vector) { TKxSeries::SetWeight(Vector); }
    void Leave();
    void LoseResults();
    void LoseData();
    /// Thrown where a handler has ended the calculation; no std::exception, for only Calculate is to take it.
    struct TEnded {};
    class TRun;
    void RunCalculation(const TRun& Run);
    bool TakesError(Exception& Error);
    void SetDisplayLimits();
    void StoreResults();
    void RenewTexts();
    void UpdateAutoCaption();
    void TellResultLabels();
    bool AwaitsLayout() const;
    bool HasCurve() const { return FSampling != TSampling::None || FDisplayX->GetCount() > 0; }
    bool CurveIsOutgrown();
    void SampleVisible();
    void EvaluateCurve(const std::vector<double>& X);
    static void Fill(TKxLiveVector& Vector, std::span<const double> Values);
    void RememberAxis();
    double VisibleStart() const;
    double VisibleStop() const;
    std::size_t PixelsBetween(double Start, double Stop) const;
    std::size_t MostPixels() const;
    bool IsLogarithmicX() const { return GetXAxis() && GetXAxis()->GetScaling() != AxNormal; }

    bool FAutoStart = true, FAutoStop = true, FDisplayAutoStart = true, FDisplayAutoStop = true;
    bool FCoupleCalculationAndDisplay = true, FParentWeight = true;
    double FCalculationStart = 0, FCalculationStop = 0, FDisplayStart = 0, FDisplayStop = 0;
    double FLastAxisStart = 0, FLastAxisStop = 0;
    int FLastAxisLength = -1;
    std::pair<TKxLabelKind, int> FShownReading{}; // of positions in the results
    TSampling FSampling = TSampling::None;
    std::vector<TKxResultListener*> FResultLabels;
    std::unique_ptr<TKxLiveVector> FDisplayX, FDisplayY;
    TKxNotCalculatedSeries* FParentSeries = nullptr;
    AnsiString FError;
    TKxResults FFound;
    TKxResultSection FParentSection{FFound}, FOwnSection{FFound};
    unsigned FCalculation = 0; ///< changes when a calculation begins, or must not go on
};

} // namespace kx
