#include <kxgraph/design/Kxdesignrows.h>

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/table/Kxfilevector.h>

#include <algorithm>
#include <list>
#include <string>
#include <utility>

namespace kx {

namespace {

/// Rows are referred to by address.
struct TDesignRow {
    bool (*Is)(const TComponent&);
    TProperty Row;
};

/// What nobody sees unless it says so: a plain vector calls no listeners.
void SetValues(TKxRealVector& Vector, const std::vector<double>& Values) {
    if (const auto* file = dynamic_cast<const TKxFileVector*>(&Vector);
        file && !file->GetFileName().empty() && !file->GetColumn().empty())
        throw EPropertyError(Vector.GetName() + ".Values are those of the file " + file->GetFileName());
    Vector.Clear();
    Vector.AddValues(Values);
    Vector.SetPersistentValues(true); // or the form would forget them
    Vector.Listeners().Call(-1, true);
}

void SetStart(TKxFittedLine& Line, const std::vector<double>& Start) {
    Line.SetOrder(int(Start.size()));
    for (std::size_t i = 0; i < Start.size(); ++i) Line.SetCoefficient(int(i), Start[i]);
}

TProperty Reals(std::string_view Name, std::string_view Type, std::string_view Help) {
    TProperty row;
    row.Name = Name;
    row.Kind = TPropertyKind::Reals;
    row.TypeName = Type;
    row.Help = Help;
    row.Default = std::vector<double>();
    return row;
}

bool IsVector(const TComponent& C) { return dynamic_cast<const TKxCustomRealVector*>(&C) != nullptr; }
bool IsFilled(const TComponent& C) { return dynamic_cast<const TKxRealVector*>(&C) != nullptr; }
bool IsFit(const TComponent& C) { return dynamic_cast<const TKxFittedLine*>(&C) != nullptr; }

bool IsSeries(const TComponent& C) { return dynamic_cast<const TKxSeries*>(&C) != nullptr; }

/// What form files hold of series without its being published, and what a person wants to decide.
TProperty OfSeries(std::string_view Name, std::string_view Help, std::string_view Type = {}) {
    TProperty row = TKxSeries::Properties().Promoted(Name);
    row.Help = Help;
    row.TypeName = Type;
    return row;
}

std::list<TDesignRow> OwnRows() {
    TProperty shown = Reals("Values", CValuesType, "the values, which come from elsewhere");
    shown.Get = [](const TPersistent& O) {
        const auto values = static_cast<const TKxCustomRealVector&>(O).Values();
        return std::vector<double>(values.begin(), values.end());
    };
    TProperty values = shown;
    values.Help = "the values; those that are set here are stored with the form";
    values.Set = [](TPersistent& O, const TPropertyValue& Value) {
        SetValues(static_cast<TKxRealVector&>(O), std::get<std::vector<double>>(Value));
    };
    TProperty start = Reals("Coefficients", CCoefficientsType, "where the fit starts from");
    start.Get = [](const TPersistent& O) {
        return static_cast<const TKxFittedLine&>(O).GetStartCoefficients();
    };
    start.Set = [](TPersistent& O, const TPropertyValue& Value) {
        SetStart(static_cast<TKxFittedLine&>(O), std::get<std::vector<double>>(Value));
    };
    return {
        {IsFilled, std::move(values)},
        {IsVector, std::move(shown)},
        {IsFit, std::move(start)},
        {IsSeries, OfSeries("YAxis", "vertical axis; of an analysis that of its series, until it is set")},
        {IsSeries, OfSeries("DoUserCaption", "UserCaption goes before the automatic caption")},
        {IsSeries, OfSeries("UserCaption", "caption shown with DoUserCaption", CTypeName<TKxCaption>)}};
}

std::list<TDesignRow>& Rows() {
    static std::list<TDesignRow> rows = OwnRows();
    return rows;
}

bool HasRow(const std::vector<const TProperty*>& Rows, std::string_view Name) {
    return std::ranges::any_of(Rows, [&](const TProperty* Row) { return SameText(Row->Name, Name); });
}

} // namespace

void RegisterDesignRow(bool (*Is)(const TComponent&), TProperty Row) {
    Rows().push_back({Is, std::move(Row)});
}

std::vector<const TProperty*> DesignRowsOf(const TPersistent& Object) {
    std::vector<const TProperty*> all = Object.PublishedProperties().All();
    const auto* component = dynamic_cast<const TComponent*>(&Object);
    if (!component) return all;
    for (const TDesignRow& row : Rows())
        if (row.Is(*component) && !HasRow(all, row.Row.Name)) all.push_back(&row.Row);
    return all;
}

} // namespace kx
