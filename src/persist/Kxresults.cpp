#include <kxgraph/persist/Kxresults.h>

#include <kxgraph/numeric/Kxstrings.h>

#include <utility>

namespace kx {

AnsiString TKxResult::GetText() const {
    const double* number = std::get_if<double>(&Value);
    return number ? RealToAmericanStr(*number) : std::get<AnsiString>(Value);
}

void TKxResults::Put(TKxResult Result) {
    const auto [place, isNew] = FPlaces.emplace(UpperCase(Result.Key), FItems.size());
    if (isNew)
        FItems.push_back(std::move(Result));
    else
        FItems[place->second].Value = std::move(Result.Value);
}

const TKxResult* TKxResults::Find(std::string_view Key) const {
    const auto found = FPlaces.find(UpperCase(Key));
    return found == FPlaces.end() ? nullptr : &FItems[found->second];
}

void TKxResults::Clear() {
    FItems.clear();
    FPlaces.clear();
}

void WriteResults(const TKxResults& Results, TKxIniList& Ini, std::string_view Section) {
    for (const TKxResult& result : Results.GetItems()) Ini.WriteString(Section, result.Key, result.GetText());
}

} // namespace kx
