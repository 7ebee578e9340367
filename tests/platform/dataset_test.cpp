#include <kxgraph/platform/data/datasource.h>

#include "support/testing.h"

#include <kxgraph/platform/data/datetext.h>
#include <kxgraph/platform/data/memorydataset.h>

namespace kx::test::dataset {

/// Three fields and a few records.
struct TReadings : TMemoryDataSet {
    explicit TReadings(int Records = 0) : TMemoryDataSet(nullptr) {
        DefineField("u", ftNumber);
        DefineField("n", ftInteger);
        DefineField("when", ftDateTime);
        Open();
        for (int i = 0; i < Records; ++i) AppendRecord({double(i)});
    }
    TField& U() const { return GetField(0); }
    void Quietly(const auto& Do) { DisableControls(), Do(), EnableControls(); }
    void Put(double Value) { Edit(), U().SetAsFloat(Value); }
};

/// A link to u that writes down what it hears.
struct TBound {
    explicit TBound(TDataSource& Source) {
        Link.SetFieldName("u");
        Link.SetDataSource(&Source);
        Link.OnActiveChange = [this] { Log += Link.GetActive() ? "open " : "closed "; };
        Link.OnDataChange = [this] {
            Log += Link.GetField() ? Link.GetField()->GetDisplayText() + " " : "- ";
        };
        Link.OnRecordsChange = [this] { Log += "records "; };
        Link.OnDelete = [this] { Log += "delete " + std::to_string(Link.GetDataSet()->GetRecNo()) + " "; };
        Link.OnUpdateData = [this] {
            Log += "update ";
            Link.GetField()->SetAsFloat(77);
        };
    }
    std::string Log;
    TFieldDataLink Link;
};

TEST(DataSet, MovesItsCursor) {
    TReadings set(3);
    const auto place = [&] {
        return std::to_string(set.GetRecNo()) + (set.GetBof() ? "b" : "") + (set.GetEof() ? "e" : "");
    };
    struct TStep {
        std::function<void()> Do;
        const char* Place;
    };
    const TStep steps[] = {
        {[&] { set.First(); }, "1b"},   {[&] { set.Prior(); }, "1b"},    {[&] { set.Next(); }, "2"},
        {[&] { set.Next(); }, "3"},     {[&] { set.Next(); }, "3e"},     {[&] { set.Prior(); }, "2"},
        {[&] { set.Last(); }, "3e"},    {[&] { set.SetRecNo(2); }, "2"}, {[&] { set.Append(); }, "-1"},
        {[&] { set.Cancel(); }, "2"},   {[&] { set.Delete(); }, "2"},    {[&] { set.Delete(); }, "1e"},
        {[&] { set.Delete(); }, "0be"}, {[&] { set.Next(); }, "0be"}};
    for (const TStep& step : steps) {
        step.Do();
        EXPECT_EQ(place(), step.Place) << &step - steps;
    }
    EXPECT_EQ(MessageOf([&] { set.Delete(); }), "There is no record to delete");
    EXPECT_EQ(MessageOf([&] { set.SetRecNo(7); }), "There is no record 7");
    EXPECT_EQ(MessageOf([&] { set.U().SetAsFloat(1); }), "The data set is not being edited");
    EXPECT_EQ(MessageOf([&] { set.FieldByName("v"); }), "There is no field v");
    set.Close();
    EXPECT_EQ(MessageOf([&] { set.Next(); }), "The data set is closed");
}

TEST(DataSet, HoldsWhatAListHoldsWhateverIsEdited) {
    std::mt19937 random(13);
    const auto below = [&](int Count) { return int(random() % unsigned(Count)); };
    for (const bool sequenced : {true, false}) {
        TReadings set;
        set.SetSequenced(sequenced);
        std::vector<std::pair<int, double>> expected; // record numbers and values
        int id = 0;
        for (int step = 0; step < 1200; ++step) {
            const int count = int(expected.size()), at = count ? below(count) : 0,
                      act = count ? below(step % 600 < 400 ? 5 : 7) : 0;
            if (count) set.SetRecNo(expected[std::size_t(at)].first);
            if (act < 3) { // at the end, in front, or given up
                act == 1 ? set.Insert() : set.Append();
                set.U().SetAsFloat(step);
                act == 2 ? set.Cancel() : set.Post();
                if (act != 2) expected.insert(expected.begin() + (act == 1 ? at : count), {++id, step});
            } else if (act < 5) {
                set.Put(step);
                act == 3 ? set.Cancel() : set.Next(); // which posts
                if (act == 4) expected[std::size_t(at)].second = step;
            } else {
                set.Delete();
                expected.erase(expected.begin() + at);
            }
            for (int i = 0; sequenced && i < int(expected.size()); ++i)
                expected[std::size_t(i)].first = i + 1;
            std::vector<std::pair<int, double>> found;
            set.DisableControls();
            for (set.First(); !set.GetEof(); set.Next()) {
                EXPECT_EQ(set.IndexOf(set.GetRecNo()), int(found.size()));
                found.emplace_back(set.GetRecNo(), set.U().GetAsFloat());
            }
            set.EnableControls();
            ASSERT_EQ(found, expected) << step;
        }
        EXPECT_EQ(set.IndexOf(-5), set.GetRecordCount());
    }
}

TEST(DataSet, TellsThoseThatAreBound) {
    const struct {
        std::function<void(TReadings&, TBound&)> Do;
        std::string Heard;
    } cases[] = {
        {[](auto& s, auto&) { s.Next(); }, "1 "},
        {[](auto& s, auto&) { s.Put(5), s.Post(); }, "5 5 "},
        {[](auto& s, auto&) { s.Put(5), s.Cancel(); }, "5 0 0 "},
        {[](auto& s, auto&) { s.Edit(), s.GetField(1).SetAsFloat(5), s.Post(); }, "0 "},
        {[](auto& s, auto& b) { s.Edit(), b.Link.Modified(), s.Post(); }, "update 77 77 "},
        {[](auto& s, auto&) { s.AppendRecord({9.}); }, " 9 9 "},
        {[](auto& s, auto&) { s.Insert(), s.U().SetAsFloat(9), s.Post(); }, " 9 records "},
        {[](auto& s, auto&) { s.Append(), s.U().SetAsFloat(9), s.Cancel(); }, " 9 records "},
        {[](auto& s, auto&) { s.Next(), s.Delete(); }, "1 delete 2 2 "},
        {[](auto& s, auto&) { s.Refresh(); }, "records "},
        {[](auto& s, auto&) { s.Clear(); }, "records "},
        {[](auto& s, auto&) { s.Close(), s.Open(); }, "closed open "},
        {[](auto& s, auto& b) { b.Link.SetDataSource(nullptr), s.Next(); }, "closed "},
        {[](auto& s, auto&) {
             s.Quietly([&] { s.Quietly([&] { s.Next(); }), s.Next(); }), s.EnableControls();
         },
         "2 "},
        {[](auto& s, auto&) { s.Quietly([&] { s.AppendRecord({9.}); }); }, "records "},
        {[](auto& s, auto&) { s.Quietly([&] { s.Close(), s.Open(); }); }, "closed open records "},
    };
    for (const auto& c : cases) {
        TReadings set(3);
        TDataSource source(nullptr);
        source.SetDataSet(&set);
        set.First();
        TBound bound(source);
        c.Do(set, bound);
        EXPECT_EQ(bound.Log, c.Heard) << &c - cases;
    }
}

TEST(DataSet, LetsHandlersPreventAndRepair) {
    TReadings set(2);
    TDataSource source(nullptr);
    source.SetDataSet(&set);
    TBound first(source), second(source);
    set.BeforeDelete = [](TDataSet*) { throw Exception("it stays"); };
    EXPECT_EQ(MessageOf([&] { set.Delete(); }), "it stays");
    EXPECT_EQ(first.Log, "") << "nobody was told of what does not happen";
    first.Link.OnDataChange = [] { throw Exception("first"); };
    EXPECT_EQ(MessageOf([&] { set.Next(); }), "first");
    EXPECT_EQ(second.Log, "1 ") << "told all the same";
    set.BeforePost = [](TDataSet*) { throw Exception("refused"); };
    first.Link.OnDataChange = nullptr;
    set.Put(8);
    EXPECT_EQ(MessageOf([&] { set.First(); }), "refused");
    EXPECT_EQ(set.GetState(), dsEdit);
    set.BeforePost = [&](TDataSet*) { set.U().SetAsFloat(9); };
    set.First();
    set.Next();
    EXPECT_EQ(set.U().GetAsFloat(), 9);
    const bool edits = second.Link.Edit();
    EXPECT_TRUE(edits);
    EXPECT_EQ(set.GetState(), dsEdit);
    second.Link.SetDataSourceFixed(true);
    EXPECT_EQ(MessageOf([&] { second.Link.SetDataSource(nullptr); }), "The data source is fixed");
}

TEST(DataSet, FieldsConvertWhatTheyAreGiven) {
    const TText types[] = {"text", "integer", "number", "date", "moment"};
    for (const auto& [type, text, expected, number] :
         Cases<TText, TText, TText, double>("datasets", "fields")) {
        SCOPED_TRACE(type + " " + text);
        TMemoryDataSet set(nullptr);
        set.DefineField("f", TFieldType(std::ranges::find(types, type) - types));
        set.Open();
        set.Append();
        TField& field = set.GetField(0);
        TText shown = MessageOf([&, &given = text] { field.SetAsString(given); });
        if (shown.empty()) shown = field.GetDisplayText();
        EXPECT_EQ(shown, expected);
        EXPECT_EQ(std::tuple(field.GetAsFloat(), field.IsBlank()), std::tuple(number, number == 0));
        EXPECT_EQ(field.GetIsNull(), number == 0 && !(type == "text" && text.empty()));
    }
    TReadings set(1);
    set.Put(1 / 3.);
    EXPECT_EQ(set.U().GetDisplayText(), "0.333333333333333");
    EXPECT_EQ(std::stod(set.U().GetAsString()), 1 / 3.);
    set.U().SetReadOnly(true);
    EXPECT_EQ(MessageOf([&] { set.U().Clear(); }), "The field u cannot be changed");
    EXPECT_EQ(MessageOf([&] { set.GetField(1).SetAsFloat(1e19); }),
              "'1e+19' is not a whole number (field n)");
    EXPECT_EQ(MessageOf([&] { set.DefineField("U", ftText); }), "The data set is open");
    set.Close();
    EXPECT_EQ(MessageOf([&] { set.DefineField("U", ftText); }),
              "'U' cannot be the name of a field, or is one already");
}

// What is bound reads its field in every notice.
TEST(DataSet, MayGoBeforeOrAfterAllThatIsBound) {
    for (int order = 0; order < 24; ++order)
        for (const bool midway : {false, true}) {
            bool done = false;
            auto set = std::make_unique<TReadings>(3);
            auto source = std::make_unique<TDataSource>(nullptr),
                 other = std::make_unique<TDataSource>(nullptr);
            source->SetDataSet(set.get());
            other->SetDataSet(set.get());
            auto bound = std::make_unique<TBound>(*source), last = std::make_unique<TBound>(*other);
            std::vector<std::function<void()>> ends{[&] { set.reset(); }, [&] { source.reset(); },
                                                    [&] { bound.reset(); }, [&] { last.reset(); }};
            for (int i = 3, rest = order; i > 0; rest /= i + 1, --i)
                std::swap(ends[std::size_t(i)], ends[std::size_t(rest % (i + 1))]);
            if (midway) {
                // The first notice ends two of them.
                source->OnDataChange = [&](TDataSource*, TField*) {
                    if (std::exchange(done, true)) return;
                    ends[0](), ends[1]();
                };
                set->Put(5);
            }
            for (const auto& end : ends) end();
            EXPECT_FALSE(set || source || bound || last);
        }
}

} // namespace kx::test::dataset
