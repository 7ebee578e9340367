#include <kxgraph/numeric/Kxdbvector.h>

#include "support/testing.h"

#include <kxgraph/platform/data/memorydataset.h>

namespace kx::test::dbvector {

using TCalls = std::vector<std::pair<int, bool>>;

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
    void Quietly(const auto& Do) { Set->DisableControls(), Do(), Set->EnableControls(); }
    /// Leaves the record in editing.
    void Put(double Value, const char* Field = "x") {
        if (Set->GetState() == dsBrowse) Set->Edit();
        Set->FieldByName(Field).SetAsFloat(Value);
    }
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
    const TCalls again{{-1, true}}, first{{0, false}}, twice{{0, false}, {0, false}},
        undone{{3, false}, {-1, true}}, redone{{0, false}, {-1, true}};
    const TReals same{1, 2, 3}, more{1, 2, 3, 9}, before{9, 1, 2, 3}, changed{7, 2, 3};
    const struct {
        std::vector<TFieldValue> X;
        TReals Values, WithGaps; ///< without and with values that are no numbers
        TCalls Heard;
        std::function<void(TReadings&)> Do;
    } cases[] = {
        {gap, {1}, {1, -99, 3}, {}, [](auto&) {}},
        {whole, {1, 7, 3}, {1, 7, 3}, {{1, false}}, [](auto& r) { r.Set->Next(), r.Put(7); }},
        {whole, same, same, twice, [](auto& r) { r.Put(7), r.Set->Cancel(); }},
        {whole, same, same, {}, [](auto& r) { r.Put(7, "y"), r.Set->Post(); }},
        {whole, {0, 2, 3}, {-99, 2, 3}, first, [](auto& r) { r.Set->Edit(), r.X().Clear(), r.Set->Post(); }},
        {whole, more, more, {{3, false}}, [](auto& r) { r.Set->AppendRecord({9.}); }},
        {whole, same, same, undone, [](auto& r) { r.Set->Append(), r.Put(9), r.Set->Cancel(); }},
        {whole, before, before, undone, [](auto& r) { r.Set->Insert(), r.Put(9), r.Set->Post(); }},
        {whole, {1, 3}, {1, 3}, {{1, true}}, [](auto& r) { r.Set->Next(), r.Set->Delete(); }},
        {gap, {}, {1, 3}, {{1, true}}, [](auto& r) { r.Set->Next(), r.Set->Delete(); }},
        {{}, {8}, {8}, twice, [](auto& r) { r.Set->AppendRecord({9.}), r.Put(8); }},
        {whole, more, more, again,
         [](auto& r) { r.Quietly([&] { r.Set->AppendRecord({9.}), r.Set->Last(); }); }},
        {whole, changed, changed, redone, [](auto& r) { r.Quietly([&] { r.Put(7); }), r.Set->Post(); }},
        {whole, same, same, {}, [](auto& r) { r.Set->Close(); }},
        {whole, same, same, again, [](auto& r) { r.Set->Close(), r.Set->Open(); }},
        {whole, {}, {}, again, [](auto& r) { r.Set->Clear(); }},
        {whole, same, same, {}, [](auto& r) { r.Source->SetDataSet(nullptr), r.Set->Delete(); }},
        {whole, same, same, {}, [](auto& r) { r.Set.reset(); }},
        {whole, same, same, {}, [](auto& r) { r.Source.reset(), r.Set->Delete(); }},
    };
    for (const auto& c : cases)
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
    EXPECT_EQ(MessageOf<EConvertError>([&] { readings.Set->Open(); }),
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

} // namespace kx::test::dbvector
