#pragma once
// A graph form with a curve that is calculated from its series.

#include "support/graphfixture.h"

namespace kx::test {

template <class T>
struct TCurveForm : TGraphForm {
    TCurveForm() {
        Series->SetName("Series1");
        Curve->GetLineStyle().SetColor(clGreen);
    }
    /// Gives the curve its parent.
    void Join() { Curve->SetParentSeries(Series); }
    double Result(const char* Key) const { return Curve->GetResults().ReadReal("Curve1", Key, NAN); }
    std::string ResultText(const char* Key) const {
        return Curve->GetResults().ReadString("Curve1", Key, "none");
    }
    /// The keys of the results behind the first Skip, a blank behind each.
    std::string Keys(int Skip = 0) const {
        TStringList keys;
        Curve->GetResults().ReadSection("Curve1", keys);
        std::string joined;
        for (int i = Skip; i < keys.GetCount(); ++i) joined += keys.GetLine(i) + " ";
        return joined;
    }
    TKxDataWithErrorSeries* Series = AddSeries();
    T* Curve = Make<T>("Curve1");
};

} // namespace kx::test
