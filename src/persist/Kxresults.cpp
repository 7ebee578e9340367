#include <kxgraph/persist/Kxresults.h>

#include <kxgraph/numeric/Kxstrings.h>

#include <algorithm>
#include <charconv>
#include <utility>

namespace kx {

AnsiString TKxResult::GetText() const {
    if (!Shown.empty()) return Shown;
    const double* number = std::get_if<double>(&Value);
    return number ? RealToAmericanStr(*number) : std::get<AnsiString>(Value);
}

TKxResult TKxResults::TPoints::ResultAt(int Index) const {
    const bool isX = Index % 2 == 0;
    const TKxRealPos& point = Points[Index / 2];
    TKxResult result{(isX ? "X-" : "Y-") + Kind + "(" + std::to_string(Index / 2 + 1) + ")",
                     isX ? point.X : point.Y};
    if (isX && PositionText) result.Shown = PositionText(point.X);
    return result;
}

int TKxResults::TPoints::IndexOf(std::string_view Key) const {
    const std::string kind = "-" + UpperCase(Kind) + "(";
    if (Key.size() < kind.size() + 3 || (Key[0] != 'X' && Key[0] != 'Y') || !Key.substr(1).starts_with(kind))
        return -1;
    int number = 0;
    const char* const first = Key.data() + 1 + kind.size();
    const auto [end, error] = std::from_chars(first, Key.data() + Key.size(), number);
    if (error != std::errc() || *first == '0' || number < 1 || number > Points.Length()) return -1;
    if (std::string_view(end, std::size_t(Key.data() + Key.size() - end)) != ")") return -1;
    return 2 * (number - 1) + (Key[0] == 'Y');
}

bool TKxResults::AreAmongPoints(const std::string& Key) const {
    return std::ranges::any_of(FPoints, [&](const TPoints& Points) { return Points.IndexOf(Key) >= 0; });
}

void TKxResults::Put(TKxResult Result) {
    std::string key = UpperCase(Result.Key);
    if (AreAmongPoints(key)) Spread();
    FAll.clear();
    const auto [place, isNew] = FPlaces.emplace(std::move(key), FItems.size());
    if (isNew) return FItems.push_back(std::move(Result));
    FItems[place->second].Value = std::move(Result.Value);
    FItems[place->second].Shown = std::move(Result.Shown);
}

void TKxResults::SetPoints(const AnsiString& Kind, const TKxRealPosArray& Points) {
    if (Points.IsEmpty()) return;
    FAll.clear();
    FShown.clear();
    FPoints.push_back({FItems.size(), Kind, Points, FPositionText});
    const TPoints& added = FPoints.back();
    const auto isTaken = [&](const auto& Place) { return added.IndexOf(Place.first) >= 0; };
    const bool isNew = std::none_of(FPoints.begin(), FPoints.end() - 1,
                                    [&](const TPoints& Other) { return SameText(Other.Kind, Kind); });
    if (isNew && std::ranges::none_of(FPlaces, isTaken)) return;
    const TPoints points = added; // replaces what is there
    FPoints.pop_back();
    Spread();
    for (int i = 0; i < 2 * Points.Length(); ++i) Put(points.ResultAt(i));
}

/// Makes items of all points.
void TKxResults::Spread() {
    std::vector<TKxResult> items;
    ForEach([&](const TKxResult& Result) { items.push_back(Result); });
    Clear();
    for (TKxResult& item : items) Put(std::move(item));
}

const TKxResult* TKxResults::Find(std::string_view Key) const {
    const std::string key = UpperCase(Key);
    const auto found = FPlaces.find(key);
    if (found != FPlaces.end()) return &FItems[found->second];
    for (const TPoints& points : FPoints)
        if (const int index = points.IndexOf(key); index >= 0)
            return &FShown.try_emplace(key, points.ResultAt(index)).first->second;
    return nullptr;
}

std::span<const TKxResult> TKxResults::GetItems() const {
    if (FPoints.empty()) return FItems;
    if (FAll.empty()) ForEach([this](const TKxResult& Result) { FAll.push_back(Result); });
    return FAll;
}

bool TKxResults::HasKeysOf(const TKxResults& Other) const {
    const auto sameKey = [](const TKxResult& A, const TKxResult& B) { return A.Key == B.Key; };
    const auto samePoints = [](const TPoints& A, const TPoints& B) {
        return A.Place == B.Place && A.Kind == B.Kind && A.Points.Length() == B.Points.Length();
    };
    return std::ranges::equal(FItems, Other.FItems, sameKey) &&
           std::ranges::equal(FPoints, Other.FPoints, samePoints);
}

void TKxResults::Clear() {
    FItems.clear();
    FPlaces.clear();
    FPoints.clear();
    FAll.clear();
    FShown.clear();
}

void WriteResults(const TKxResults& Results, TKxIniList& Ini, std::string_view Section) {
    Results.ForEach([&](const TKxResult& Result) { Ini.WriteString(Section, Result.Key, Result.GetText()); });
}

} // namespace kx
