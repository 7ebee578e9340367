// A table of records beside their graph: both are bound to one data set, so that a cell that is edited moves
// its point and a record that is deleted takes it along. TQtSqlDataSet (library kxgraph_sql) in the place of
// TMemoryDataSet has the records in a database.
//
//     data_table [--seconds N] [--save FILE.png]

#include "windowoptions.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/numeric/Kxdbvector.h>
#include <kxgraph/platform/data/memorydataset.h>
#include <kxgraph/qtwidgets/Kxformview.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>
#include <kxgraph/series/Kxdataseries.h>

#include <QAbstractTableModel>
#include <QAction>
#include <QHeaderView>
#include <QMainWindow>
#include <QMessageBox>
#include <QSplitter>
#include <QTableView>
#include <QToolBar>

#include <exception>
#include <iostream>
#include <string>
#include <vector>

using namespace kx;

namespace {

/// Readings of a balance, their graph and a line through them.
struct TReadings {
    TForm Form{nullptr};
    TMemoryDataSet Records{&Form};
    TDataSource Source{&Form};
    TKx2DGraph Graph{&Form};
    TKxAxis Load{&Form}, Reading{&Form};
    TKxDBVector X{&Form}, Y{&Form};
    TKxDataSeries Points{&Form};
    TKxLinearRegressionLine Line{&Form};

    TReadings() {
        Records.DefineField("load", ftNumber);
        Records.DefineField("reading", ftNumber);
        Records.Open();
        for (int i = 0; i < 12; ++i) Records.AppendRecord({5.0 * i, 5.02 * i + 0.3 * ((i * 7) % 5 - 2)});
        Source.SetDataSet(&Records);
        Form.SetBounds(0, 0, 480, 400);
        Graph.SetParent(&Form);
        Graph.SetAlign(alClient);
        Graph.SetColor(clWhite);
        Graph.SetDataColor(clWhite);
        Graph.SetMargin(10);
        Graph.SetWheelZoom(true);
        Graph.SetReadout(true);
        for (const auto& [axis, caption] :
             {std::pair{&Load, "load / g"}, std::pair{&Reading, "reading / g"}}) {
            axis->SetParent(&Graph);
            axis->SetCaption(caption);
            axis->SetShowCaption(true);
        }
        Graph.SetPrimaryXAxis(&Load);
        Graph.SetPrimaryYAxis(&Reading);
        for (const auto& [vector, field] : {std::pair{&X, "load"}, std::pair{&Y, "reading"}}) {
            vector->SetEmptyAsNaN(true); // a cell without a value is a gap, not the end
            vector->SetDataSource(&Source);
            vector->SetDataField(field);
        }
        Points.SetXAxis(&Load);
        Points.SetYAxis(&Reading);
        Points.SetXData(&X);
        Points.SetYData(&Y);
        Points.GetLineStyle().SetVisible(false);
        Points.GetPointStyle().SetSize(4);
        Line.SetParentSeries(&Points);
        Line.GetLineStyle().SetColor(clRed);
    }
};

/// The records as Qt's views take them. Keeps the texts: a record is read where the cursor stands alone.
class TModel : public QAbstractTableModel {
public:
    TModel(TReadings& Readings, QObject* Parent)
        : QAbstractTableModel(Parent), FSource(Readings.Source), FSet(Readings.Records) {
        FSource.OnDataChange = [this](TDataSource*, TField*) { Read(); };
        Read();
    }
    ~TModel() override { FSource.OnDataChange = nullptr; }
    int rowCount(const QModelIndex& Parent = {}) const override {
        return Parent.isValid() ? 0 : int(FTexts.size());
    }
    int columnCount(const QModelIndex& Parent = {}) const override {
        return Parent.isValid() ? 0 : FSet.GetFieldCount();
    }
    QVariant data(const QModelIndex& Index, int Role) const override {
        if (Role != Qt::DisplayRole && Role != Qt::EditRole) return {};
        return QString::fromStdString(FTexts[std::size_t(Index.row())][std::size_t(Index.column())]);
    }
    QVariant headerData(int Section, Qt::Orientation Orientation, int Role) const override {
        if (Role != Qt::DisplayRole) return {};
        if (Orientation == Qt::Vertical) return Section + 1;
        return QString::fromStdString(FSet.GetField(Section).GetFieldName());
    }
    Qt::ItemFlags flags(const QModelIndex& Index) const override {
        return QAbstractTableModel::flags(Index) | Qt::ItemIsEditable;
    }
    bool setData(const QModelIndex& Index, const QVariant& Value, int Role) override {
        if (Role != Qt::EditRole) return false;
        try {
            FSet.SetRecNo(Index.row() + 1);
            FSet.Edit();
            FSet.GetField(Index.column()).SetAsString(Value.toString().toStdString());
            FSet.Post();
            return true;
        } catch (const Exception& error) { // a text that is no number, say: the record stays as it was
            FSet.Cancel();
            QMessageBox::warning(nullptr, "Records", QString::fromStdString(error.what()));
            return false;
        }
    }

private:
    void Read() {
        if (FReading || FSet.GetState() != dsBrowse) return;
        FReading = true;
        beginResetModel();
        FTexts.clear();
        const int at = FSet.GetRecNo();
        FSet.DisableControls();
        for (FSet.First(); !FSet.GetEof(); FSet.Next()) {
            auto& row = FTexts.emplace_back();
            for (int i = 0; i < FSet.GetFieldCount(); ++i) row.push_back(FSet.GetField(i).GetDisplayText());
        }
        if (at > 0) FSet.SetRecNo(at);
        FSet.EnableControls();
        endResetModel();
        FReading = false;
    }

    TDataSource& FSource;
    TMemoryDataSet& FSet;
    std::vector<std::vector<std::string>> FTexts;
    bool FReading = false;
};

class TWindow : public QMainWindow {
public:
    explicit TWindow(TReadings& Readings) {
        setWindowTitle("Calibration of a balance");
        auto* splitter = new QSplitter(this);
        auto* table = new QTableView(splitter);
        table->setModel(new TModel(Readings, this));
        splitter->addWidget(table);
        splitter->addWidget(new qt::FormView(Readings.Form, splitter));
        splitter->setStretchFactor(1, 1);
        setCentralWidget(splitter);
        QToolBar& bar = *addToolBar("Records");
        connect(bar.addAction("Add"), &QAction::triggered, this, [&Readings] {
            Readings.Records.AppendRecord({60.0, 60.0});
        });
        connect(bar.addAction("Delete"), &QAction::triggered, this, [&Readings, table] {
            if (!table->currentIndex().isValid()) return;
            Readings.Records.SetRecNo(table->currentIndex().row() + 1);
            Readings.Records.Delete();
        });
        resize(800, 440);
    }
};

} // namespace

int main(int Count, char** Arguments) {
    try {
        QApplication application(Count, Arguments);
        const TWindowOptions options(Count, Arguments);
        qt::InstallWidgets();
        TReadings readings; // outlives the window that shows it
        TWindow window(readings);
        return options.Run(window);
    } catch (const std::exception& error) {
        std::cerr << "data_table: " << error.what() << '\n';
        return 1;
    }
}
