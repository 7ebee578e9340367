#include "following.h"

#include <kxgraph/series/Kxarrowseries.h>

namespace kx::test::dataseries {

/// Counts full scans.
struct TCounting : TKxDataSeries {
    using TKxDataSeries::TKxDataSeries;
    void GetNewXStartStop() override {
        ++Scans;
        TKxDataSeries::GetNewXStartStop();
    }
    int Scans = 0;
};

struct TFixedForm : TGraphForm {
    TFixedForm() { Fix(0, 100, 0, 100); }
};

TEST(DataSeries, ScansOnlyWhenAnExtremeMovesInward) {
    TGraphForm f;
    auto* series = f.AddSeries<TCounting>();
    f.Draw();
    const int before = series->Scans;
    for (int i = 0; i < 100; ++i) f.Fill({{double(i), double(-i)}});
    f.Draw();
    EXPECT_LE(series->Scans, before + 1) << "the first points of an empty series at most";
    EXPECT_EQ(std::tuple(series->GetXMaxIndex(), series->GetYMinIndex()), std::tuple(99, 99));
    EXPECT_EQ(f.X->GetStop(), 100);

    const struct {
        int Index;
        double Value;
        bool Scans;
        int MaxIndex;
    } steps[] = {
        {99, 150, false, 99},                                            // outward
        {99, 150, false, 99}, {50, 150, false, 99},                      // a second one like it
        {50, 30, false, 99},  {10, 200, false, 10}, {10, 150, true, 10}, // two of 150: the first counts
        {99, 99, false, 10},  {10, 10, true, 99},   {0, CNaN, true, 99}};
    for (const auto& s : steps) {
        const int scans = series->Scans;
        f.XV->SetValue(s.Index, s.Value);
        EXPECT_EQ(series->Scans, scans + s.Scans) << s.Index << " := " << s.Value;
        EXPECT_EQ(series->GetXMaxIndex(), s.MaxIndex) << s.Index << " := " << s.Value;
    }
    EXPECT_EQ(series->GetXMinIndex(), 1);
    f.Draw();
    EXPECT_EQ(series->GetPoints().GetValue(7).X, f.X->RealToIntPosition(7));
}

TEST(DataSeries, ShrinksAnAutomaticAxisAsPointsGo) {
    TGraphForm f;
    auto* series = f.AddSeries();
    f.Fill({{1, 1}, {500, 2}, {9, 3}});
    f.Draw();
    EXPECT_EQ(f.X->GetStop(), 500);
    f.XV->Delete(1);
    f.YV->Delete(1);
    f.XV->Add(20); // without a partner
    f.Draw();
    EXPECT_EQ(series->GetPointsCount(), 2);
    EXPECT_EQ(f.X->GetStop(), 9);
    f.XV->Clear();
    f.Draw();
    EXPECT_EQ(std::tuple(series->FindPoint(0, 0, 1000), series->GetXMinIndex()), std::tuple(-1, -1));
    f.Fill({{7, 7}});
    f.Draw();
    EXPECT_EQ(std::tuple(series->GetPointsCount(), series->GetXRange().GetStop()), std::tuple(1, 7));
}

TEST(DataSeries, HoldsWhatAFullScanFindsAfterFollowingValueByValue) {
    std::mt19937 random(1);
    for (int round = 0; round < 12; ++round) {
        SCOPED_TRACE(round);
        TGraphForm f;
        auto* arrows = round % 4 == 3 ? f.AddSeries<TKxArrowSeries>() : nullptr;
        auto* plain = arrows ? nullptr : f.AddSeries();
        if (arrows) arrows->SetDX(f.DX), arrows->SetDY(f.DY);
        if (plain && round % 2 == 1) plain->SetdXPlus(f.DX);
        if (plain) plain->SetdYPlus(f.DY);
        TKxSeries* series = arrows ? static_cast<TKxSeries*>(arrows) : plain;
        f.Fill({{1, 1}, {2, 2}});
        for (TKxLiveVector* vector : {f.XV, f.YV})
            if (round % 3 == 2) vector->SetMaxCount(9);
        ExpectFollowed(f, {f.XV, f.YV, f.DX, f.DY}, {series}, random, true);
        const int count = std::min(f.XV->GetCount(), f.YV->GetCount());
        ASSERT_EQ(series->GetPointsCount(), count);
        for (int k = 0; k < count; ++k)
            ASSERT_EQ(series->GetPoints().GetValue(k), f.At(f.XV->GetValue(k), f.YV->GetValue(k))) << k;
    }
}

TEST(DataSeries, CountsNothingThatIsDestroyedByTheNextFrame) {
    using S = TKxDataWithErrorSeries;
    const struct {
        void (*Destroy)(TGraphForm&, S*);
        double XStop, YStop;
    } cases[] = {{[](TGraphForm&, S*) {}, 900, 90},
                 {[](TGraphForm& F, S*) { delete F.XV; }, 10, 10},
                 {[](TGraphForm& F, S*) { delete F.YV; }, 10, 10},
                 {[](TGraphForm&, S* Series) { delete Series; }, 10, 10},
                 {[](TGraphForm& F, S*) { delete F.DX; }, 500, 90},
                 {[](TGraphForm&, S* Series) { Series->SetYData(nullptr); }, 10, 10}};
    for (const auto& c : cases) {
        TGraphForm f;
        TKxLiveVector x(f.Form), y(f.Form);
        auto* small = f.AddSeries<TKxDataSeries>();
        small->SetXData(&x);
        small->SetYData(&y);
        for (const double value : {0, 10}) x.Add(value), y.Add(value);
        auto* series = f.AddSeries();
        series->SetdXPlus(f.DX);
        f.Fill({{0, 0}, {500, 90}});
        for (const double error : {0, 400}) f.DX->Add(error);
        f.Draw();
        EXPECT_EQ(f.X->GetStop(), 900);
        c.Destroy(f, series);
        EXPECT_TRUE(SettleTree(*f.Form));
        EXPECT_EQ(f.X->GetStop(), c.XStop) << &c - cases;
        EXPECT_EQ(f.Y->GetStop(), c.YStop) << &c - cases;
    }
}

TEST(DataSeries, MayOwnAndMoveVectorsAndAxes) {
    TGraphForm f;
    auto* inAxis = new TKxLiveVector(f.X);
    auto* series = f.AddSeries();
    series->SetXData(inAxis);
    inAxis->Add(3);
    delete f.X;
    EXPECT_EQ(std::tuple(series->GetXAxis(), series->GetXData()), std::tuple(nullptr, nullptr));
    EXPECT_EQ(series->GetDrawingWorld(), nullptr) << "as when the axis is set to null";
    EXPECT_EQ(f.Graph->GetSeriesList().GetCount(), 0);

    TComponent elsewhere(nullptr);
    elsewhere.InsertComponent(f.YV);
    EXPECT_EQ(series->GetYData(), f.YV);
    delete series;
    EXPECT_EQ(f.YV->Listeners().GetCount(), 0) << "no listener stays behind";
}

TEST(DataSeries, LeavesOutValuesThatAreNoNumbers) {
    TGraphForm f;
    auto* series = f.AddSeries();
    f.Fill({{CNaN, CNaN}, {CNaN, 1}, {CInf, CNaN}, {-CInf, CInf}, {CNaN, -CInf}});
    EXPECT_TRUE(SettleTree(*f.Form));
    EXPECT_EQ(series->GetXMinIndex(), -1);
    f.Fill({{3, 4}, {CInf, 5}, {8, 1e308}});
    EXPECT_TRUE(SettleTree(*f.Form));
    EXPECT_EQ(std::tuple(series->GetXRange().GetStart(), series->GetXRange().GetStop()), std::tuple(3, 8));
    EXPECT_EQ(series->GetYMinIndex(), 1);
}

TEST(DataSeries, DrawsLongLinesInRunsOfTwoThousand) {
    for (const int count : {1, 2000, 2001, 4500}) {
        TFixedForm f;
        auto* series = f.AddSeries<TKxLineSeries>();
        for (int i = 0; i < count; ++i) f.Fill({{i * 37 % count / 50.0, i % 7 * 10.0}}); // not sorted
        const auto lines = LinesOf(f.Draw(), clRed);
        ASSERT_EQ(int(lines.size()), (count + 1997) / 1999) << count;
        int start = 0;
        for (const auto& line : lines) {
            EXPECT_EQ(int(line.Points.size()), std::min(2000, count - start));
            EXPECT_EQ(line.Points[0], f.World() + series->GetPoints().GetValue(start));
            start += 1999;
        }
    }
}

TEST(DataSeries, IsInterruptedByGapsWhereThatIsWanted) {
    using TRuns = std::vector<std::size_t>;
    for (const bool broken : {false, true}) {
        TFixedForm f;
        auto* series = f.AddSeries<TKxLineSeries>();
        series->SetBreakAtGaps(broken);
        series->GetAreaStyle().SetVisible(true);
        f.Fill({{1, 10}, {2, 20}, {3, CNaN}, {4, 40}, {CNaN, 1}, {5, 50}, {6, 60}, {7, 70}});
        const auto runs = [&f] {
            TRuns counts;
            for (const auto& line : LinesOf(f.Draw(), clRed)) counts.push_back(line.Points.size());
            return counts;
        };
        EXPECT_EQ(runs(), broken ? (TRuns{2, 2, 3}) : TRuns{6}) << "a lone point is a dot";
        const auto areas = CallsOf<TRecording::TPolygon>(f.Draw());
        ASSERT_EQ(areas.size(), broken ? 2u : 1u);
        const auto& last = areas.back().Points;
        EXPECT_EQ(last[last.size() - 2], f.OnForm(7, 0)) << "closed along zero";
        EXPECT_EQ(last.back(), f.OnForm(broken ? 5 : 1, 0));
        f.Y->SetScaling(AxLog);
        f.YV->SetValue(6, -5);
        EXPECT_EQ(runs(), broken ? (TRuns{2, 2, 2, 2}) : TRuns{6}) << "no logarithm, no point";
        EXPECT_EQ(series->GetYRange().GetStart(), broken ? 1 : -5);
    }
}

TEST(DataSeries, ShowsWholeSymbolsOnTheBorderUnlessBothAxesAreZoomed) {
    TFixedForm f;
    f.AddSeries<TKxDataSeries>()->GetLineStyle().SetVisible(false);
    f.Fill({{0, 0}, {50, 50}, {100, 100}, {101, 50}, {50, -1}});
    const auto clipOfSymbols = [&] {
        TRect clip, at;
        int symbols = 0;
        for (const auto& call : f.Draw().Calls) {
            if (const auto* c = std::get_if<TRecording::TClip>(&call)) clip = c->Clip.value_or(TRect{});
            if (!std::holds_alternative<TRecording::TEllipse>(call)) continue;
            at = clip;
            ++symbols;
        }
        return std::pair(symbols, at);
    };
    const TRect graph = f.Graph->GetBoundsRect();
    EXPECT_EQ(clipOfSymbols(), std::pair(3, graph));
    f.X->ZoomIn(0, 100);
    EXPECT_EQ(clipOfSymbols(), std::pair(3, graph));
    f.Y->ZoomIn(0, 100);
    EXPECT_EQ(clipOfSymbols(), std::pair(5, f.LaidOut().MovedBy(graph.TopLeft())));
}

TEST(DataSeries, EndsErrorBarsAtValueAndErrorInEveryDirectionAndScaling) {
    for (const auto scaling : {AxNormal, AxLog})
        for (const bool twisted : {false, true}) {
            TFixedForm f;
            for (TKxAxis* axis : {f.X, f.Y}) {
                axis->SetScaling(scaling);
                axis->SetTwisted(twisted);
                axis->SetStart(1);
            }
            auto* series = f.AddSeries();
            series->SetName("S");
            f.Set("ErrorIndicatorsColor=clFuchsia; dXPlus=DX1; dXMinus=DY1; dYPlus=DX1; dYMinus=DY1", "S.");
            f.Fill({{20, 30}, {60, 60}});
            f.DX->Add(-10); // the magnitude counts
            f.DY->Add(scaling == AxLog ? 200 : 15);
            const auto lines = LinesOf(f.Draw(), clFuchsia);
            ASSERT_EQ(lines.size(), 8u) << "vectors of one error each";
            const bool cut = scaling == AxLog;
            const TPoint ends[] = {f.OnForm(30, 30), f.OnForm(cut ? f.X->GetStart() : 5, 30),
                                   f.OnForm(20, 40), f.OnForm(20, cut ? f.Y->GetStart() : 15)};
            const int s = series->GetPointStyle().GetSize();
            for (std::size_t i = 0; i < 4; ++i) {
                const TPoint cap = i < 2 ? TPoint{0, s} : TPoint{s, 0}, end = lines[2 * i].Points[1];
                EXPECT_EQ(lines[2 * i].Points[0], f.OnForm(20, 30));
                EXPECT_LE(std::abs(end.X - ends[i].X) + std::abs(end.Y - ends[i].Y), 1) << i;
                EXPECT_EQ(lines[2 * i + 1].Points, (std::vector{end - cap, end + cap}));
            }
        }
}

TEST(DataSeries, IsWidenedByErrorsWhileTheSymbolsShow) {
    TGraphForm f;
    auto* series = f.AddSeries();
    series->SetdXPlus(f.DX);
    series->SetdXMinus(f.DX);
    f.Fill({{10, 1}, {20, 2}, {30, 3}});
    const auto extent = [&] {
        f.Draw();
        return std::array{series->GetXRange().GetStart(), series->GetXRange().GetStop()};
    };
    for (const double e : {1.0, 15.0, CNaN, 99.0}) f.DX->Add(e);
    EXPECT_EQ(extent(), (std::array{5.0, 35.0}));
    EXPECT_EQ(series->GetXMinIndex(), 1);
    f.XV->SetValue(1, 50);
    EXPECT_EQ(extent(), (std::array{9.0, 65.0}));
    series->GetPointStyle().SetVisible(false);
    EXPECT_EQ(extent(), (std::array{10.0, 50.0}));
    series->GetPointStyle().SetVisible(true);
    f.X->SetScaling(AxLog);
    f.DX->SetValue(0, 10);
    EXPECT_EQ(extent()[0], 10) << "a bar down to zero moves no end";
}

TEST(DataSeries, FindsTheLastPointWithinASquare) {
    TFixedForm f;
    auto* series = f.AddSeries();
    f.Fill({{50, 50}, {50, 50}, {90, 90}, {CNaN, 50}});
    f.Draw();
    const TPoint p = f.At(50, 50);
    const struct {
        int DX, DY, Tolerance, Found;
    } cases[] = {{0, 0, 0, 1}, {3, -3, 3, 1}, {4, 0, 3, -1}, {0, -4, 3, -1}, {0, 0, 5000, 2}};
    for (const auto& c : cases) EXPECT_EQ(series->FindPoint(p.X + c.DX, p.Y + c.DY, c.Tolerance), c.Found);
}

TEST(DataSeries, CrossesCaptionsBetweenUserAndAutomatic) {
    TGraphForm f;
    auto* series = f.AddSeries();
    series->SetCaption("a");
    series->SetDoUserCaption(true);
    series->SetCaption("b");
    EXPECT_EQ(series->GetAutoCaption() + series->GetUserCaption() + series->GetCaption(), "bab");
    series->SetAutoCaption("c");
    EXPECT_EQ(series->GetCaption(), "b");
    series->SetUserCaption("d");
    EXPECT_EQ(series->GetResults().ReadString("Datapoints", "Caption", ""), "d");
    series->SetDoUserCaption(false);
    EXPECT_EQ(series->GetCaption(), "d");
    series->SetAutoCaption("e");
    EXPECT_EQ(series->GetCaption(), "e");
}

TEST(DataSeries, ServesSavedChildrenAgainFromTheFirst) {
    TGraphForm f;
    TKxIniList ini;
    auto *saved = f.AddSeries(), *read = f.AddSeries();
    for (const char* name : {"one", "two"}) {
        saved->AddChild(new TKxLineSeries(f.Form));
        saved->GetChildren().back()->SetUserCaption(name);
    }
    saved->WriteToIni(ini, "S");
    for (int i = 0; i < 3; ++i) read->AddChild(new TKxLineSeries(f.Form));
    read->ReadFromIni(ini, "S");
    std::string names;
    for (const auto* child : read->GetChildren()) names += child->GetUserCaption();
    EXPECT_EQ(names, "onetwoone");
}

TEST(DataSeries, LeavesTheListenerThatReplacedItAndTheWorldItStoodOn) {
    TGraphForm f;
    auto* first = f.AddSeries();
    auto* second = f.AddSeries(); // the vectors' one listener now
    EXPECT_EQ(f.XV->Listeners().GetCount(), 1);
    delete first;
    f.Fill({{1, 2}});
    EXPECT_EQ(second->GetPointsCount(), 1);
    EXPECT_EQ(f.Graph->GetSeriesList().GetCount(), 1);
    EXPECT_EQ(f.X->GetValuesRangeList().GetCount(), 1);
    TKxRealVector still(f.Form);
    still.Add(70);
    second->SetXData(&still);
    f.Draw();
    EXPECT_EQ(std::pair(f.X->GetStart(), f.X->GetStop()), std::pair(60.0, 80.0)) << "filled, then bound";
    still.SetValue(0, 5000);
    f.Draw();
    EXPECT_EQ(f.X->GetStop(), 80) << "a plain vector tells nobody";
    second->RangesModified();
    f.Draw();
    EXPECT_EQ(std::tuple(f.X->GetStop(), f.XV->Listeners().GetCount()), std::tuple(6000, 0));
    auto* third = f.AddSeries();
    third->SetComponentIndex(0);
    f.Draw();
    EXPECT_EQ(f.Graph->GetSeriesList().GetItem(0), third) << "painted in component order";
    second->SetXAxis(nullptr);
    EXPECT_EQ(second->GetDrawingWorld(), nullptr);
    EXPECT_EQ(f.Graph->GetSeriesList().GetCount(), 1);
    TKx2DGraph bare(f.Form);
    EXPECT_EQ(TKxLineSeries(f.Form).GetGraph(), &bare) << "the last graph wins, axes or not";
}

} // namespace kx::test::dataseries
