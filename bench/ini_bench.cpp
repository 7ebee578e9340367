// The INI store: keyed access must not scan the file.

#include <kxgraph/persist/Kxlargeini.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace kx;

using TNames = std::vector<std::pair<std::string, std::string>>; // section, key

constexpr int CKeysPerSection = 50;

TNames SectionAfterSection(int Keys) {
    TNames names;
    for (int i = 0; i < Keys; ++i)
        names.emplace_back("Section" + std::to_string(i / CKeysPerSection),
                           "Key" + std::to_string(i % CKeysPerSection));
    return names;
}

TNames InTurn(int Keys) {
    const int sections = Keys / CKeysPerSection;
    TNames names;
    for (int i = 0; i < Keys; ++i)
        names.emplace_back("Section" + std::to_string(i % sections), "Key" + std::to_string(i / sections));
    return names;
}

TNames Shuffled(int Keys) {
    TNames names = SectionAfterSection(Keys);
    std::shuffle(names.begin(), names.end(), std::mt19937(1));
    return names;
}

void Write(TKxIniList& Ini, const TNames& Names) {
    int value = 0;
    for (const auto& [section, key] : Names) Ini.WriteInteger(section, key, ++value);
}

template <TNames Make(int)>
void IniWrite(benchmark::State& State) {
    const TNames names = Make(static_cast<int>(State.range(0)));
    for (auto _ : State) {
        TKxIniList ini;
        Write(ini, names);
        benchmark::DoNotOptimize(ini.GetCount());
    }
    State.SetComplexityN(State.range(0));
    State.SetItemsProcessed(State.iterations() * State.range(0));
}

void IniReadShuffled(benchmark::State& State) {
    const int keys = static_cast<int>(State.range(0));
    TKxIniList ini;
    Write(ini, SectionAfterSection(keys));
    const TNames names = Shuffled(keys);
    for (auto _ : State)
        for (const auto& [section, key] : names) benchmark::DoNotOptimize(ini.ReadInteger(section, key, 0));
    State.SetComplexityN(State.range(0));
    State.SetItemsProcessed(State.iterations() * State.range(0));
}

void IniLoadText(benchmark::State& State) {
    TKxIniList source, ini;
    Write(source, SectionAfterSection(static_cast<int>(State.range(0))));
    const std::string text = source.GetText();
    for (auto _ : State) ini.SetText(text);
    State.SetComplexityN(State.range(0));
    State.SetItemsProcessed(State.iterations() * State.range(0));
}

void IniRealVector(benchmark::State& State) {
    TKxRealVector vector(nullptr);
    for (int i = 0; i < State.range(0); ++i) vector.Add(i * 0.1);
    TKxIniList ini;
    for (auto _ : State) {
        ini.WriteRealVector("S", "v", vector);
        ini.ReadRealVector("S", "v", vector);
    }
    State.SetComplexityN(State.range(0));
    State.SetItemsProcessed(State.iterations() * State.range(0));
}

#define KX_INI_SIZES RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMillisecond)->Complexity()
BENCHMARK(IniWrite<SectionAfterSection>)->KX_INI_SIZES;
BENCHMARK(IniWrite<InTurn>)->KX_INI_SIZES;
BENCHMARK(IniWrite<Shuffled>)->KX_INI_SIZES;
BENCHMARK(IniReadShuffled)->KX_INI_SIZES;
BENCHMARK(IniLoadText)->KX_INI_SIZES;
BENCHMARK(IniRealVector)->KX_INI_SIZES;

} // namespace
