// What is painted anew of a window against the whole of it.

#include "raster.h"

#include "support/graphfixture.h"

namespace kx::test::qtlive {

/// A window that keeps its picture and paints what it is asked for.
struct TLiveForm : TGraphForm {
    TLiveForm(const std::string& Settings, bool Smooth)
        : Smooth(Smooth), Picture(Form->GetWidth(), Form->GetHeight(), QImage::Format_RGB32) {
        Series->SetName("S");
        Graph->GetMajorGridX().SetVisible(true), Graph->GetMinorGridY().SetVisible(true);
        Set("XAxis1.MajorTickLength=-8; YAxis1.TickLength=-5; YAxis1.MajorTickLength=-9; " + Settings);
        Form->Show();
    }
    void Paint(QImage& Image, const TRect& Dirty) {
        QPainter painter(&Image);
        qt::TPainterDevice device(painter, {Image.width(), Image.height()}, 1, Smooth);
        Form->AsHostClient().HostPaint(device, Dirty);
    }
    /// Brings the picture up to date and answers how many pixels of it were asked for.
    int Frame() {
        Form->AsHostClient().HostSettle();
        const TRect dirty = ViewOf(*Form).Invalid;
        Paint(Picture, dirty);
        Host().ProcessMessages();
        return dirty.Width() * dirty.Height();
    }
    QImage Whole() {
        QImage whole(Picture.size(), QImage::Format_RGB32);
        Paint(whole, Form->GetClientRect());
        return whole;
    }
    bool Smooth;
    QImage Picture;
    TKxDataSeries* Series = AddSeries<TKxDataSeries>();
};

/// The greatest difference of a channel.
int Difference(const QImage& A, const QImage& B) {
    int most = 0;
    for (int y = 0; y < A.height(); ++y)
        for (int x = 0; x < A.width(); ++x)
            for (const int shift : {0, 8, 16})
                most = std::max(
                    most, std::abs(int(A.pixel(x, y) >> shift & 255) - int(B.pixel(x, y) >> shift & 255)));
    return most;
}

constexpr const char* CLooks[] = {
    "S.PointStyle.Visible=0",
    "S.PointStyle.Visible=0; S.LineStyle.Width=5; S.AreaStyle.Visible=1",
    "S.PointStyle.Visible=0; S.LineStyle.Style=psDash",
    "S.PointStyle.Size=7; S.PointStyle.Style=SyCircle",
    "XAxis1.Twisted=1; S.PointStyle.Visible=0; YAxis1.Scaling=AxLog",
    "Graph1.Transparent=1; S.PointStyle.Visible=0; S.BreakAtGaps=1",
};

TEST(Live, APointMorePaintsWhereItStandsAndTheRestStays) {
    for (const bool smooth : {false, true})
        for (const char* look : CLooks)
            for (const int count : {3, 9000}) {
                TLiveForm f(look, smooth);
                f.Fix(0, count * 1.1, 1, 100);
                std::mt19937 random(5);
                const auto append = [&](int i) { f.Fill({{double(i), 20.0 + random() % 50 + i * 0.003}}); };
                for (int i = 0; i < count; ++i) append(i);
                f.Frame();
                for (int i = 0; i < 12; ++i) {
                    for (int k = 0; k <= i % 4; ++k) append(f.XV->GetCount());
                    const int asked = f.Frame(), all = f.Picture.width() * f.Picture.height();
                    EXPECT_LT(asked, count > 100 ? all / 10 : all + 1) << look;
                    // Very many symbols are mixed from pictures at sixteenths of a pixel, few are not.
                    EXPECT_LE(Difference(f.Picture, f.Whole()), smooth ? 24 : 0)
                        << look << count << " after " << i;
                }
            }
}

TEST(Live, OverlaysLeaveNothingBehind) {
    for (const bool smooth : {false, true}) {
        TLiveForm f("Graph1.Readout=1; Graph1.CrossHair=1; Graph1.AutoZoom=1", smooth);
        for (int i = 0; i < 3000; ++i) f.Fill({{double(i), 50 + 40 * std::sin(i * 0.37)}});
        f.Frame();
        std::mt19937 random(2);
        for (int i = 0; i < 60; ++i) {
            const TPoint at{int(random() % 330), int(random() % 240)};
            f.Mouse(i % 7 == 2 ? TMouseKind::Down : TMouseKind::Move, at);
            if (i % 11 == 3) f.Form->AsHostClient().HostMouseLeft();
            if (i % 13 == 4) f.Form->AsHostClient().HostKey({.Key = kcReturn, .Text = {}}, true);
            f.Frame();
            ASSERT_LE(Difference(f.Picture, f.Whole()), smooth ? 24 : 0) << i;
        }
    }
}

} // namespace kx::test::qtlive
