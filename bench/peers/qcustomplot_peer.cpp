// QCustomPlot, over Qt 6: as its documentation advises for speed, with lines of width 0, fast polylines,
// adaptive sampling, cached labels and sorted data handed over as such.

#include "drawing.h"

#include <QApplication>
#include <qcustomplot.h>

namespace {

using peers::TValues;

class TPlot {
public:
    static constexpr bool CGaps = true;

    TPlot() {
        FPlot.setNotAntialiasedElements(QCP::aeAll);
        FPlot.setPlottingHints(QCP::phFastPolylines | QCP::phCacheLabels);
        FPlot.resize(800, 600);
        FPlot.setViewport(QRect(0, 0, 800, 600));
    }
    void AddLine(const TValues& X, const TValues& Y) {
        if (std::is_sorted(X.begin(), X.end())) {
            Add(X, Y);
            return;
        }
        auto* curve = new QCPCurve(FPlot.xAxis, FPlot.yAxis);
        curve->setPen(CThin);
        QVector<QCPCurveData> data(int(X.size()));
        for (int i = 0; i < data.size(); ++i) data[i] = {double(i), X[std::size_t(i)], Y[std::size_t(i)]};
        curve->data()->set(data, true);
    }
    void AddCircles(const TValues& X, const TValues& Y) {
        QCPGraph* graph = Add(X, Y);
        graph->setLineStyle(QCPGraph::lsNone);
        graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssCircle, CThin, QBrush(Qt::blue), 7));
    }
    void AddErrorBars(const TValues& X, const TValues& Y, const TValues& Errors) {
        AddCircles(X, Y);
        auto* bars = new QCPErrorBars(FPlot.xAxis, FPlot.yAxis);
        bars->setPen(CThin);
        bars->setDataPlottable(FPlot.graph());
        QSharedPointer<QCPErrorBarsDataContainer> data(new QCPErrorBarsDataContainer);
        for (const double error : Errors) data->append({error, error});
        bars->setData(data);
    }
    void AddBars(const TValues& X, const TValues& Y) {
        auto* bars = new QCPBars(FPlot.xAxis, FPlot.yAxis);
        bars->setPen(CThin);
        bars->setBrush(QBrush(Qt::darkBlue));
        bars->setWidth(X[1] - X[0]);
        bars->setData(Vector(X), Vector(Y), true);
    }
    void SetView(double X0, double X1, double Y0, double Y1) {
        FPlot.xAxis->setRange(X0, X1);
        FPlot.yAxis->setRange(Y0, Y1);
        FFollows = false;
    }
    void FollowData() { FFollows = true; }
    void SetLogarithmic() {
        FPlot.yAxis->setScaleType(QCPAxis::stLogarithmic);
        FPlot.yAxis->setTicker(QSharedPointer<QCPAxisTicker>(new QCPAxisTickerLog));
    }
    void Append(double X, double Y) { FPlot.graph(0)->addData(X, Y); }
    void Paint() {
        if (FFollows) FPlot.rescaleAxes();
        FPlot.replot();
    }
    static void AppendAlone(std::size_t Count) {
        QCPGraphDataContainer data;
        for (std::size_t i = 0; i < Count; ++i) data.add({double(i), double(i % 1000)});
        peers::Keep(data.at(0)->value);
    }
    void Save(const std::string& FileName) { FPlot.savePng(QString::fromStdString(FileName), 800, 600); }

private:
    static inline const QPen CThin{Qt::blue, 0};

    static QVector<double> Vector(const TValues& Values) { return {Values.begin(), Values.end()}; }
    // Straight into the container: the vectors of setData would be copied once more.
    QCPGraph* Add(const TValues& X, const TValues& Y) {
        QCPGraph* graph = FPlot.addGraph();
        graph->setPen(CThin);
        QVector<QCPGraphData> data(int(X.size()));
        for (int i = 0; i < data.size(); ++i) data[i] = {X[std::size_t(i)], Y[std::size_t(i)]};
        graph->data()->set(data, true);
        return graph;
    }

    QCustomPlot FPlot;
    bool FFollows = false;
};

} // namespace

int main(int Count, char** Arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(Count, Arguments);
    const peers::TRows rows(Count, Arguments);
    peers::TDrawing<TPlot>(rows).All();
}
