// Qwt, over Qt 5: as its documentation advises for speed, with lines of width 0, points filtered and clipped,
// symbols cached, and series that know their bounds and, when sorted, hand over the visible part alone.

#include "drawing.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <qwt_interval_symbol.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_intervalcurve.h>
#include <qwt_plot_renderer.h>
#include <qwt_scale_engine.h>
#include <qwt_series_data.h>
#include <qwt_symbol.h>

namespace {

using peers::TValues;

class TSeriesPoints : public QwtSeriesData<QPointF> {
public:
    void Append(double X, double Y) {
        FSorted = FSorted && (FPoints.isEmpty() || FPoints.last().x() <= X);
        FPoints.append(QPointF(X, Y));
        FLeft = std::min(FLeft, X), FRight = std::max(FRight, X);
        FLow = std::min(FLow, Y), FHigh = std::max(FHigh, Y);
        FEnd = std::size_t(FPoints.size());
    }
    void Reserve(std::size_t Count) { FPoints.reserve(int(Count)); }
    std::size_t size() const override { return FEnd - FBegin; }
    QPointF sample(std::size_t Index) const override { return FPoints[int(FBegin + Index)]; }
    QRectF boundingRect() const override { return {FLeft, FLow, FRight - FLeft, FHigh - FLow}; }
    void setRectOfInterest(const QRectF& Rect) override {
        if (!FSorted) return;
        const auto left = [](const QPointF& Point, double X) { return Point.x() < X; };
        const auto begin = FPoints.constBegin(), end = FPoints.constEnd();
        const auto first = std::lower_bound(begin, end, Rect.left(), left);
        const auto stop = std::lower_bound(first, end, Rect.right(), left);
        FBegin = std::size_t(std::max<std::ptrdiff_t>(first - begin - 1, 0));
        FEnd = std::size_t(std::min<std::ptrdiff_t>(stop - begin + 2, end - begin));
    }

private:
    QVector<QPointF> FPoints;
    double FLeft = 1e300, FRight = -1e300, FLow = 1e300, FHigh = -1e300;
    std::size_t FBegin = 0, FEnd = 0;
    bool FSorted = true;
};

class TPlot {
public:
    static constexpr bool CGaps = false;

    TPlot() {
        FPlot.resize(800, 600);
        FPlot.setAutoDelete(true);
        FRenderer.setLayoutFlag(QwtPlotRenderer::FrameWithScales, false);
    }
    void AddLine(const TValues& X, const TValues& Y) { Add(X, Y); }
    void AddCircles(const TValues& X, const TValues& Y) {
        QwtPlotCurve* curve = Add(X, Y);
        curve->setStyle(QwtPlotCurve::NoCurve);
        auto* symbol = new QwtSymbol(QwtSymbol::Ellipse, QBrush(Qt::blue), QPen(Qt::blue, 0), QSize(7, 7));
        symbol->setCachePolicy(QwtSymbol::Cache);
        curve->setSymbol(symbol);
    }
    void AddErrorBars(const TValues& X, const TValues& Y, const TValues& Errors) {
        AddCircles(X, Y);
        QVector<QwtIntervalSample> samples;
        for (std::size_t i = 0; i < X.size(); ++i)
            samples.append(QwtIntervalSample(X[i], Y[i] - Errors[i], Y[i] + Errors[i]));
        auto* bars = new QwtPlotIntervalCurve;
        bars->setStyle(QwtPlotIntervalCurve::NoCurve);
        auto* symbol = new QwtIntervalSymbol(QwtIntervalSymbol::Bar);
        symbol->setPen(QPen(Qt::blue, 0));
        symbol->setWidth(5);
        bars->setSymbol(symbol);
        bars->setSamples(samples);
        bars->attach(&FPlot);
    }
    void AddBars(const TValues& X, const TValues& Y) {
        QVector<QwtIntervalSample> samples;
        for (std::size_t i = 0; i + 1 < X.size(); ++i)
            samples.append(QwtIntervalSample(Y[i], X[i], X[i + 1]));
        auto* bars = new QwtPlotHistogram;
        bars->setStyle(QwtPlotHistogram::Columns);
        bars->setPen(QPen(Qt::blue, 0));
        bars->setBrush(QBrush(Qt::darkBlue));
        bars->setSamples(samples);
        bars->attach(&FPlot);
    }
    void SetView(double X0, double X1, double Y0, double Y1) {
        FPlot.setAxisScale(QwtPlot::xBottom, X0, X1);
        FPlot.setAxisScale(QwtPlot::yLeft, Y0, Y1);
    }
    void FollowData() {
        FPlot.setAxisAutoScale(QwtPlot::xBottom);
        FPlot.setAxisAutoScale(QwtPlot::yLeft);
    }
    void SetLogarithmic() { FPlot.setAxisScaleEngine(QwtPlot::yLeft, new QwtLogScaleEngine); }
    void Append(double X, double Y) { FFirst->Append(X, Y); }
    void Paint() {
        FPlot.replot();
        FImage.fill(Qt::white);
        QPainter painter(&FImage);
        FRenderer.render(&FPlot, &painter, QRectF(0, 0, 800, 600));
    }
    static void AppendAlone(std::size_t Count) {
        TSeriesPoints points;
        for (std::size_t i = 0; i < Count; ++i) points.Append(double(i), double(i % 1000));
        peers::Keep(points.sample(0).y());
    }
    void Save(const std::string& FileName) const { FImage.save(QString::fromStdString(FileName)); }

private:
    QwtPlotCurve* Add(const TValues& X, const TValues& Y) {
        auto* points = new TSeriesPoints; // the curve owns it
        points->Reserve(X.size());
        for (std::size_t i = 0; i < X.size(); ++i) points->Append(X[i], Y[i]);
        if (!FFirst) FFirst = points;
        auto* curve = new QwtPlotCurve;
        curve->setRenderHint(QwtPlotItem::RenderAntialiased, false);
        curve->setPaintAttribute(QwtPlotCurve::FilterPoints);
        curve->setPaintAttribute(QwtPlotCurve::ClipPolygons);
        curve->setItemInterest(QwtPlotItem::ScaleInterest);
        curve->setPen(Qt::blue, 0);
        curve->setData(points);
        curve->attach(&FPlot);
        return curve;
    }

    QwtPlot FPlot;
    QwtPlotRenderer FRenderer;
    TSeriesPoints* FFirst = nullptr;
    QImage FImage{800, 600, QImage::Format_RGB32};
};

} // namespace

int main(int Count, char** Arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(Count, Arguments);
    const peers::TRows rows(Count, Arguments);
    peers::TDrawing<TPlot>(rows).All();
}
