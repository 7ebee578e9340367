// The life of components: made, bound, filled, moved, zoomed, drawn, saved, loaded and destroyed in any
// order, while handlers raise, detach and destroy.

#include "fuzz/frames.h"

#include <kxgraph/analysis/Kxapproxsplineline.h>
#include <kxgraph/analysis/Kxasplinedifferential.h>
#include <kxgraph/analysis/Kxasplineintegral.h>
#include <kxgraph/analysis/Kxdifferential.h>
#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/analysis/Kxintegral.h>
#include <kxgraph/analysis/Kxinterpolatedline.h>
#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/analysis/Kxpolinomial.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx::fuzz::lifetarget {

/// Plays one life. Knows which components there are by their notices.
class TLife : public TComponent {
public:
    explicit TLife(TData& Data) : TComponent(nullptr), FData(Data) {
        for (int i = 0; i < 2; ++i) Keep(new TForm(nullptr))->SetBounds(0, 0, 300, 200);
        Make<TKx2DGraph>()->SetParent(Any<TForm>());
    }
    ~TLife() override {
        while (!FAlive.empty()) delete FAlive[Index(FAlive.size())];
    }
    void Step() {
        try {
            Act();
        } catch (const Exception&) { // refused, or raised by a handler
        }
    }

protected:
    void Notification(TComponent* Component, TOperation Operation) override {
        TComponent::Notification(Component, Operation);
        if (Operation == opRemove) std::erase(FAlive, Component);
    }

private:
    std::size_t Index(std::size_t Count) { return std::size_t(FData.Between(0, int(Count) - 1)); }

    template <class T>
    T* Keep(T* Component) {
        FAlive.push_back(Component);
        Component->FreeNotification(this);
        return Component;
    }
    /// Any component of the kind; null when there is none.
    template <class T>
    T* Any() {
        std::vector<T*> found;
        for (TComponent* component : FAlive)
            if (auto* one = dynamic_cast<T*>(component)) found.push_back(one);
        return found.empty() ? nullptr : found[Index(found.size())];
    }
    /// As a rule a form.
    TComponent* AnyOwner() {
        TComponent* form = Any<TForm>();
        return form && FData.Between(0, 3) ? form : Any<TComponent>();
    }
    template <class T>
    T* Make() {
        return Keep(new T(AnyOwner()));
    }
    template <class T>
    void MakeCurve() {
        auto* curve = Make<T>();
        curve->OnCalculated = [this](TComponent* Sender) { Handle(Sender); };
        curve->OnError = [this](TComponent* Sender, const Exception&) { Handle(Sender); };
        if constexpr (std::is_same_v<T, TKxFittedLine>) {
            curve->SetIterations(10);
            curve->SetOrder(2);
            curve->SetFittingFunction([](double X, const TKxRealArray& C) { return C[0] + C[1] * X; });
            for (int i = 0; i < 2; ++i) curve->SetCoefficient(i, 1 + i);
            curve->OnIteration = [this](TComponent* Sender) { Handle(Sender); };
        }
        curve->SetParentSeries(Any<TKxNotCalculatedSeries>());
    }

    /// What a handler of a curve may do to it.
    void Handle(TComponent* Sender) {
        auto* curve = dynamic_cast<TKxCalculatedSeries*>(Sender);
        KX_DEMAND(curve && std::ranges::find(FAlive, Sender) != FAlive.end());
        switch (FHandling) {
        case 1: throw EMathError("handler");
        case 2: curve->SetParentSeries(nullptr); break;
        case 3: delete Sender; break;
        case 4:
            if (const auto* parent = curve->GetParentSeries())
                if (auto* data = dynamic_cast<TKxRealVector*>(parent->GetYData())) data->Clear();
            break;
        case 5: delete curve->GetParentSeries(); break;
        default: break;
        }
    }

    void Act() {
        static constexpr void (TLife::*deeds[])() = {
            &TLife::Create, &TLife::Create,         &TLife::Create,     &TLife::Bind,
            &TLife::Bind,   &TLife::Fill,           &TLife::Fill,       &TLife::Place,
            &TLife::Zoom,   &TLife::ChangeProperty, &TLife::SaveAndLoad};
        const int deed = FData.Between(0, 15);
        if (deed < int(std::size(deeds))) return (this->*deeds[deed])();
        switch (deed) {
        case 11: FHandling = FData.Between(0, 5); break;
        case 12: delete Any<TComponent>(); break;
        case 13: Move(); break;
        default:
            if (auto* form = Any<TForm>()) DemandFrame(*form, FQuiet);
        }
    }

    void Create() {
        switch (FData.Between(0, 19)) {
        case 0: Keep(new TForm(nullptr)); break;
        case 1: Make<TKx2DGraph>()->SetParent(Any<TForm>()); break;
        case 2:
        case 3:
        case 4: MakeAxis(); break;
        case 5:
        case 6: Make<TKxLiveVector>()->AddValues(std::vector<double>{1, 3, 2, 5, 4, 7, 6}); break;
        case 7: Make<TKxRealVector>()->AddValues(std::vector<double>{1, 2, 3}); break;
        case 8:
        case 9: Make<TKxDataWithErrorSeries>(); break;
        case 10: FData.Flag() ? void(Make<TKxBarSeries>()) : void(Make<TKxArrowSeries>()); break;
        case 11: MakeCurve<TKxLinearRegressionLine>(); break;
        case 12: MakeCurve<TKxPolynomLine>(); break;
        case 13: MakeCurve<TKxFittedLine>(); break;
        case 14: FData.Flag() ? MakeCurve<TKxInterpolatedLine>() : MakeCurve<TKxApproxSplineLine>(); break;
        case 15: FData.Flag() ? MakeCurve<TKxDifferential>() : MakeCurve<TKxASplineDifferential>(); break;
        case 16: FData.Flag() ? MakeCurve<TKxIntegral>() : MakeCurve<TKxASplineIntegral>(); break;
        case 17: Make<TKxResultLabel>()->SetIdentifier(FData.OneOf({"Slope", "Points", "Extrema"})); break;
        case 18: Make<TKxLegend>(); break;
        case 19: Make<TKxLabel>()->SetCaption("A\\-1"); break;
        }
    }
    void MakeAxis() {
        auto* axis = Make<TKxAxis>();
        auto* graph = Any<TKx2DGraph>();
        axis->SetParent(graph);
        if (!graph) return;
        FData.Flag() ? graph->SetPrimaryXAxis(axis) : graph->SetPrimaryYAxis(axis);
    }

    void Bind() {
        if (auto* label = Any<TKxResultLabel>()) label->SetSeries(Any<TKxCalculatedSeries>());
        if (auto* legend = Any<TKxLegend>()) legend->SetGraph(Any<TKx2DGraph>());
        if (auto* axis = Any<TKxAxis>(); axis && FData.Between(0, 7) == 0)
            axis->SetMasterAxis(Any<TKxAxis>());
        auto* series = Any<TKxSeries>();
        if (!series) return;
        auto* vector = FData.Between(0, 15) ? Any<TKxCustomRealVector>() : nullptr;
        auto* errors = dynamic_cast<TKxDataWithErrorSeries*>(series);
        auto* curve = dynamic_cast<TKxCalculatedSeries*>(series);
        switch (FData.Between(0, 7)) {
        case 0: return series->SetXAxis(Any<TKxAxis>());
        case 1: return series->SetYAxis(Any<TKxAxis>());
        case 2:
            return curve ? curve->SetParentSeries(Any<TKxNotCalculatedSeries>()) : series->SetXData(vector);
        case 3: return curve ? void() : series->SetYData(vector);
        case 4: return series->SetWeight(vector);
        case 5: return errors ? errors->SetdYPlus(vector) : void();
        case 6: return errors ? errors->SetdXMinus(vector) : void();
        default:
            return curve ? void() : (series->SetXData(vector), series->SetYData(Any<TKxCustomRealVector>()));
        }
    }

    void Fill() {
        auto* vector = Any<TKxRealVector>();
        if (!vector) return;
        const int at = FData.Between(0, vector->GetCount());
        switch (FData.Between(0, 7)) {
        case 0: vector->Clear(); break;
        case 1: vector->Delete(at); break;
        case 2: vector->Insert(at, FData.Real()); break;
        case 3: vector->SetValue(at, FData.Real()); break;
        default: vector->Add(FData.Real()); break;
        }
    }

    void Place() {
        auto* control = Any<TControl>();
        if (!control) return;
        auto* parent = FData.Between(0, 7) ? Any<TWinControl>() : nullptr;
        const auto* tree = dynamic_cast<TWinControl*>(control);
        switch (FData.Between(0, 3)) {
        case 0:
            if (!dynamic_cast<TForm*>(control) && !(tree && parent && tree->ContainsControl(parent)))
                control->SetParent(parent);
            break;
        case 1: control->SetAlign(FData.OneOf({alNone, alTop, alBottom, alLeft, alRight, alClient})); break;
        default:
            control->SetBounds(FData.Between(-50, 50), FData.Between(-50, 50), FData.Between(0, 400),
                               FData.Between(0, 400));
        }
    }

    void Zoom() {
        auto* graph = Any<TKx2DGraph>();
        auto* axis = Any<TKxAxis>();
        const int left = FData.Between(-10, 200), top = FData.Between(-10, 200);
        switch (FData.Between(0, 5)) {
        case 0: return axis ? axis->ZoomIn(FData.Real(), FData.Real()) : void();
        case 1: return axis ? axis->ZoomBack() : void();
        case 2: return axis ? axis->RedoRanges() : void();
        case 3:
            return graph ? graph->ZoomTo({left, top, left + FData.Between(0, 90), top + FData.Between(0, 90)})
                         : void();
        case 4: return graph ? graph->BeginUpdate() : void();
        case 5: return graph ? graph->EndUpdate() : void();
        }
    }

    void ChangeProperty() {
        auto* component = Any<TComponent>();
        if (!component) return;
        const auto properties = component->PublishedProperties().All();
        const TProperty& property = *properties[Index(properties.size())];
        std::string value = FData.OneOf({"0", "1", "-1", "2", "20", "0.5", "-900", "", "A"});
        if (!property.ValueNames.empty()) value = property.ValueNames[Index(property.ValueNames.size())];
        SetPropertyText(*component, property.Name, value,
                        [this](std::string_view) { return Any<TComponent>(); });
    }

    void SaveAndLoad() {
        auto* from = Any<TKx2DGraph>();
        auto* to = Any<TKx2DGraph>();
        if (!from) return;
        TKxIniList ini;
        from->SaveOutfit("G", ini);
        to->LoadOutfit("G", ini);
    }

    /// To another owner, or to another place.
    void Move() {
        auto* component = Any<TComponent>();
        auto* owner = AnyOwner();
        if (!component) return;
        for (const TComponent* c = owner; c; c = c->GetOwner())
            if (c == component) return; // no component owns its owner
        if (FData.Flag())
            component->SetComponentIndex(FData.Between(0, 3));
        else if (owner && !dynamic_cast<TForm*>(component))
            owner->InsertComponent(component);
    }

    TData& FData;
    test::TFaults FQuiet;
    std::vector<TComponent*> FAlive;
    int FHandling = 0;
};

KX_FUZZ(life) {
    TLife life(Data);
    for (int steps = 0; steps < 200 && !Data.IsEmpty(); ++steps) life.Step();
}

} // namespace kx::fuzz::lifetarget
