#include <kxgraph/numeric/Kxdbvector.h>

#include "support/cases.h"
#include "support/errors.h"

#include <kxgraph/platform/data/memorydataset.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace kx {
namespace {

using TCalls = std::vector<std::pair<int, bool>>;
using test::TReals;

/// Readings of x and y behind a source.
struct TReadings {
    explicit TReadings(const std::vector<TFieldValue>& X = {}) {
        Set->DefineField("x", ftNumber);
        Set->DefineField("y", ftNumber);
        Set->DefineField("name", ftText);
        Set->Open();
        for (const TFieldValue& x : X) Set->AppendRecord({x, 1.0, "no number"});
        Set->First();
        Source->SetDataSet(Set.get());
    }
    TField& X() { return Set->FieldByName("x"); }
    std::unique_ptr<TMemoryDataSet> Set = std::make_unique<TMemoryDataSet>(nullptr);
    std::unique_ptr<TDataSource> Source = std::make_unique<TDataSource>(nullptr);
};

struct TBoundVector : TKxDBVector {
    explicit TBoundVector(TReadings& Readings, const char* Field = "x", bool AsNaN = false)
        : TKxDBVector(nullptr) {
        SetEmptyAsNaN(AsNaN);
        SetDataSource(Readings.Source.get());
        SetDataField(Field);
        Listeners().Add(TKxValueIChangedEvent::Of<&TBoundVector::Changed>(this));
    }
    void Changed(int Index, bool WasDeleted) { Heard.emplace_back(Index, WasDeleted); }
    /// A value that is no number as -99.
    TReals All() const {
        TReals all(begin(), end());
        for (double& value : all) value = std::isnan(value) ? -99 : value;
        return all;
    }
    TCalls Heard;
};

TEST(DBVector, FollowsItsField) {
    const std::vector<TFieldValue> whole{1., 2., 3.}, gap{1., {}, 3.};
    const TCalls again{{-1, true}};
    struct TCase {
        std::vector<TFieldValue> X;
        std::function<void(TReadings&)> Do;
        TReals Values, WithGaps;
        TCalls Heard;
    };
    const TCase cases[] = {
        {gap, [](auto&) {}, {1}, {1, -99, 3}, {}},
        {whole,
         [](auto& r) { r.Set->Next(), r.Set->Edit(), r.X().SetAsFloat(7); },
         {1, 7, 3},
         {1, 7, 3},
         {{1, false}}},
        {whole,
         [](auto& r) { r.Set->Edit(), r.X().SetAsFloat(7), r.Set->Cancel(); },
         {1, 2, 3},
         {1, 2, 3},
         {{0, false}, {0, false}}},
        {whole,
         [](auto& r) { r.Set->Edit(), r.Set->FieldByName("y").SetAsFloat(7), r.Set->Post(); },
         {1, 2, 3},
         {1, 2, 3},
         {}},
        {whole,
         [](auto& r) { r.Set->Edit(), r.X().Clear(), r.Set->Post(); },
         {0, 2, 3},
         {-99, 2, 3},
         {{0, false}}},
        {whole, [](auto& r) { r.Set->AppendRecord({9.}); }, {1, 2, 3, 9}, {1, 2, 3, 9}, {{3, false}}},
        {whole,
         [](auto& r) { r.Set->Append(), r.X().SetAsFloat(9), r.Set->Cancel(); },
         {1, 2, 3},
         {1, 2, 3},
         {{3, false}, {-1, true}}},
        {whole,
         [](auto& r) { r.Set->Insert(), r.X().SetAsFloat(9), r.Set->Post(); },
         {9, 1, 2, 3},
         {9, 1, 2, 3},
         {{3, false}, {-1, true}}},
        {whole, [](auto& r) { r.Set->Next(), r.Set->Delete(); }, {1, 3}, {1, 3}, {{1, true}}},
        {gap, [](auto& r) { r.Set->Next(), r.Set->Delete(); }, {}, {1, 3}, {{1, true}}},
        {{},
         [](auto& r) { r.Set->AppendRecord({9.}), r.Set->Edit(), r.X().SetAsFloat(8); },
         {8},
         {8},
         {{0, false}, {0, false}}},
        {whole,
         [](auto& r) {
             r.Set->DisableControls(), r.Set->AppendRecord({9.}), r.Set->Last(), r.Set->EnableControls();
         },
         {1, 2, 3, 9},
         {1, 2, 3, 9},
         again},
        {whole,
         [](auto& r) {
             r.Set->DisableControls(), r.Set->Edit(), r.X().SetAsFloat(7), r.Set->EnableControls(),
                 r.Set->Post();
         },
         {7, 2, 3},
         {7, 2, 3},
         {{0, false}, {-1, true}}},
        {whole, [](auto& r) { r.Set->Close(); }, {1, 2, 3}, {1, 2, 3}, {}},
        {whole, [](auto& r) { r.Set->Close(), r.Set->Open(); }, {1, 2, 3}, {1, 2, 3}, again},
        {whole, [](auto& r) { r.Set->Clear(); }, {}, {}, again},
        {whole, [](auto& r) { r.Source->SetDataSet(nullptr), r.Set->Delete(); }, {1, 2, 3}, {1, 2, 3}, {}},
        {whole, [](auto& r) { r.Set.reset(); }, {1, 2, 3}, {1, 2, 3}, {}},
        {whole, [](auto& r) { r.Source.reset(), r.Set->Delete(); }, {1, 2, 3}, {1, 2, 3}, {}},
    };
    for (const TCase& c : cases)
        for (const bool asNaN : {false, true})
            for (const bool sequenced : {true, false}) {
                TReadings readings(c.X);
                readings.Set->SetSequenced(sequenced);
                TBoundVector vector(readings, "x", asNaN);
                c.Do(readings);
                EXPECT_EQ(vector.All(), asNaN ? c.WithGaps : c.Values) << &c - cases;
                EXPECT_EQ(vector.Heard, c.Heard) << &c - cases << asNaN;
            }
}

TEST(DBVector, HoldsWhatReadingAgainFinds) {
    std::mt19937 random(5);
    const auto below = [&](int Count) { return int(random() % unsigned(Count)); };
    for (const bool sequenced : {true, false}) {
        TReadings readings(std::vector<TFieldValue>(40, 1.5));
        readings.Set->SetSequenced(sequenced);
        TBoundVector vector(readings, "x", true);
        for (int step = 0; step < 600; ++step) {
            TMemoryDataSet& set = *readings.Set;
            set.First();
            for (int i = set.IsEmpty() ? 0 : below(set.GetRecordCount()); i > 0; --i) set.Next();
            const int act = below(5);
            if (act == 0 && !set.IsEmpty()) set.Delete();
            if (act == 1) set.Insert();
            if (act == 2) set.Append();
            if (act > 2) set.Edit();
            if (act > 0) below(4) ? readings.X().SetAsFloat(step) : readings.X().Clear();
            if (act > 0) below(5) ? set.Post() : set.Cancel();
            ASSERT_EQ(vector.All(), TBoundVector(readings, "x", true).All()) << step << " act " << act;
        }
    }
}

TEST(DBVector, SharesOnePassAndLeavesTheCursor) {
    TReadings readings({1., 2., 3.});
    readings.Set->Close();
    TBoundVector x(readings), y(readings, "y");
    auto name = std::make_unique<TBoundVector>(readings, "name");
    readings.Set->SetSequenced(false);
    TReals seen;
    x.Listeners().Add([&](int, bool) { seen = y.All(); });
    x.SetValue(0, 99);
    y.SetValue(0, 99);
    y.Heard.clear();
    EXPECT_EQ(test::MessageOf<EConvertError>([&] { readings.Set->Open(); }),
              "'no number' is not a number (field name)");
    EXPECT_EQ(x.All(), (TReals{1, 2, 3}));
    EXPECT_EQ(seen, (TReals{1, 1, 1})) << "read before the first listener is called";
    EXPECT_EQ(y.Heard.size(), 1u);
    EXPECT_FALSE(readings.Set->ControlsDisabled());
    name.reset();
    readings.Set->SetRecNo(2);
    readings.Set->Edit();
    readings.X().SetAsFloat(7);
    x.UpdateVector();
    EXPECT_EQ(readings.Set->GetRecNo(), 2);
    EXPECT_EQ(readings.Set->GetState(), dsBrowse) << "posted";
    EXPECT_EQ(x.All(), (TReals{1, 7, 3}));
}

TEST(DBVector, LeavesTheDataSetsOwnHandlersInAnyOrderOfDestruction) {
    for (int order = 0; order < 6; ++order) {
        TReadings readings({1., 2., 3.});
        std::string heard;
        readings.Set->BeforeDelete = [&](TDataSet*) { heard += "own "; };
        std::vector<std::unique_ptr<TBoundVector>> vectors;
        for (int i = 0; i < 3; ++i) {
            vectors.push_back(std::make_unique<TBoundVector>(readings));
            vectors.back()->Listeners().Add([&](int, bool) { heard += "vector "; });
        }
        std::string expected = "own vector vector vector ";
        for (int left = 3; left > 0; --left) {
            readings.Set->Delete();
            EXPECT_EQ(heard, expected.substr(0, 4 + 7 * std::size_t(left))) << order;
            heard.clear();
            vectors.erase(vectors.begin() + order % left);
        }
        readings.Set->AppendRecord({1.});
        readings.Set->Delete();
        EXPECT_EQ(heard, "own ");
    }
}

TEST(DBVector, KeepsASourceThatIsFixedWhileItIsLoaded) {
    TReadings readings({1.}), other({2.});
    TBoundVector vector(readings);
    vector.CMGetDataLink().SetDataSourceFixed(true);
    vector.BeginLoading();
    vector.SetDataSource(other.Source.get());
    vector.EndLoading();
    EXPECT_EQ(vector.All(), (TReals{1}));
    EXPECT_THROW(vector.SetDataSource(other.Source.get()), EDataSetError);
}

} // namespace
} // namespace kx
