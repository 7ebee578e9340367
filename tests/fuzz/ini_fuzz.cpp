// The INI store: any file, and any sequence of changes to it.

#include "fuzz/fuzz.h"

#include <kxgraph/persist/Kxlargeini.h>

namespace kx::fuzz::initarget {

std::string ValueOf(TData& Data, int Most = 20) {
    std::string value = Data.Text(Most);
    std::erase_if(value, [](char c) { return c == '\r' || c == '\n'; });
    return value;
}

std::string NameOf(TData& Data) {
    static constexpr const char* names[] = {"a", "A", "section", "key", "x.y", "",
                                            "[", "=", "]",       "Ü",   " ",   "a=b"};
    const int kind = Data.Between(0, 15);
    return kind < 12 ? names[kind] : ValueOf(Data, 6);
}

/// The index that came with the changes answers as one that is built anew from the text.
void DemandSameAnswers(const TKxIniList& Store,
                       const std::vector<std::pair<std::string, std::string>>& Keys) {
    TKxIniList fresh;
    fresh.SetText(Store.GetText());
    KX_DEMAND(fresh.GetCount() == Store.GetCount());
    for (int i = 0; i < Store.GetCount(); ++i) KX_DEMAND(fresh.GetLine(i) == Store.GetLine(i));
    for (const auto& [section, key] : Keys) {
        KX_DEMAND(fresh.SectionExists(section) == Store.SectionExists(section), +section);
        KX_DEMAND(fresh.ReadString(section, key, "-") == Store.ReadString(section, key, "-"), +section + key);
        TStringList a, b;
        fresh.ReadSectionValues(section, a);
        Store.ReadSectionValues(section, b);
        KX_DEMAND(a.GetText() == b.GetText(), +section);
    }
}

/// Values come back from a store that was written by the program alone, under names without markup.
void DemandRoundTrips(TData& Data) {
    TKxIniList written, read;
    const std::string text = ValueOf(Data);
    const double real = Data.Real();
    const std::int32_t integer = Data.Integer();
    std::vector<double> many = Data.Reals(6);
    std::erase_if(many, [](double v) { return !std::isfinite(v); });
    written.WriteString("Other", "text", "not this one");
    written.WriteString("S", "text", text);
    written.WriteReal("S", "real", real);
    written.WriteInteger("S", "int", integer);
    written.WriteRealArray("S", "many", many.data(), int(many.size()) - 1);
    written.WriteString("Other", "last", "1");
    read.SetText(written.GetText());
    KX_DEMAND(read.ReadString("s", "TEXT", "-") == text.substr(0, text.find('\0')), +text);
    KX_DEMAND(read.ReadInteger("S", "int", 0) == integer);
    const auto close = [](double A, double B) { return std::fabs(A - B) <= std::fabs(A) * 1e-13 + 5e-324; };
    // The largest doubles round up to what reads as an infinity.
    const auto reads = [&](double A, double B) { return close(A, B) || std::isinf(B); };
    if (std::isfinite(real)) KX_DEMAND(reads(real, read.ReadReal("S", "real", 0)), +written.GetText());
    std::vector<double> back(many.size());
    if (!many.empty()) read.ReadRealArray("S", "many", back.data(), int(back.size()) - 1);
    for (std::size_t i = 0; i < many.size(); ++i) KX_DEMAND(reads(many[i], back[i]), +written.GetText());
}

void Change(TKxIniList& Store, TData& Data, const std::string& Section, const std::string& Key) {
    const auto line = [&] { return Data.Between(0, std::max(Store.GetCount() - 1, 0)); };
    switch (Data.Between(0, 9)) {
    case 0:
    case 1:
    case 2: Store.WriteString(Section, Key, ValueOf(Data)); break;
    case 3: Store.EraseSection(Section); break;
    case 4: Store.Insert(Data.Between(0, Store.GetCount()), ValueOf(Data)); break;
    case 5: Store.Delete(line()); break;
    case 6: Store.PutLine(line(), Data.Flag() ? "[" + ValueOf(Data) + "]" : ValueOf(Data)); break;
    case 7: Store.WriteReal(Section, Key, Data.Real()); break;
    case 8: {
        TKxRealVector x(nullptr), y(nullptr);
        Store.ReadXYVector(Section, x, y);
        Store.ReadRealVector(Section, Key, x);
        KX_DEMAND(y.GetCount() >= 0);
        break;
    }
    case 9:
        Store.ReadInteger(Section, Key, 0);
        KX_DEMAND(!std::isnan(Store.ReadReal(Section, Key, 0)));
        break;
    }
}

KX_FUZZ(ini) {
    DemandRoundTrips(Data);
    TKxIniList store;
    const int changes = Data.Between(0, 24);
    std::vector<std::pair<std::string, std::string>> keys;
    store.SetText(Data.Text(400));
    for (int i = 0; i < changes; ++i) {
        keys.emplace_back(NameOf(Data), NameOf(Data));
        try {
            Change(store, Data, keys.back().first, keys.back().second);
        } catch (const Exception&) { // a line that there is not, a value without a number
        }
    }
    DemandSameAnswers(store, keys);
}

} // namespace kx::fuzz::initarget
