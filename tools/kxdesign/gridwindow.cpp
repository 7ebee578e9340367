#include "kxdesign/gridwindow.h"

#include "kxdesign/guarded.h"

#include <kxgraph/design/Kxcoefficientgrid.h>
#include <kxgraph/design/Kxvaluesgrid.h>
#include <kxgraph/platform/base/scopedvalue.h>

#include <QApplication>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CMostShown = 100000; // rows of a table widget; more belong into a file

/// A table of texts over a grid; buttons beside it act on the grid, and the table shows it anew.
class TGridWindow : public QDialog {
public:
    TGridWindow(QWidget* Parent, const QString& Title) : QDialog(Parent), FTable(new QTableWidget) {
        setAttribute(Qt::WA_DeleteOnClose);
        setWindowTitle(Title);
        auto* close = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(close, &QDialogButtonBox::accepted, this, [this] {
            if (Try(this, Apply)) accept();
        });
        connect(close, &QDialogButtonBox::rejected, this, &QDialog::reject);
        connect(FTable, &QTableWidget::cellChanged, this, [this](int Row, int Column) {
            if (!FShowing) Act([&] { SetText(Row, Column, Told(FTable->item(Row, Column)->text())); });
        });
        auto* sides = new QHBoxLayout;
        FButtons = new QVBoxLayout;
        FButtons->addStretch();
        sides->addWidget(FTable);
        sides->addLayout(FButtons);
        auto* layout = new QVBoxLayout(this);
        layout->addLayout(sides);
        layout->addWidget(close);
        resize(520, 480);
    }

    void AddButton(const QString& Text, std::function<void()> Action) {
        auto* button = new QPushButton(Text);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, Action = std::move(Action)] { Act(Action); });
        FButtons->insertWidget(FButtons->count() - 1, button);
    }
    /// What is refused is shown, and the table shows what is there.
    void Act(const std::function<void()>& Action) {
        Try(this, Action);
        ShowAll();
    }
    void ShowAll() {
        const TScopedValue showing(FShowing, true);
        FTable->setRowCount(std::min(Rows() + Spare, CMostShown));
        FTable->setColumnCount(int(Headers.size()));
        FTable->setHorizontalHeaderLabels(Headers);
        constexpr int CFew = 6; // have room side by side
        const bool areFew = FTable->columnCount() <= CFew;
        FTable->horizontalHeader()->setSectionResizeMode(areFew ? QHeaderView::Stretch
                                                                : QHeaderView::Interactive);
        for (int row = 0; row < FTable->rowCount(); ++row)
            for (int column = 0; column < FTable->columnCount(); ++column)
                FTable->setItem(row, column,
                                new QTableWidgetItem(row < Rows() ? Shown(Text(row, column)) : QString()));
    }
    int Row() const { return std::max(FTable->currentRow(), 0); }
    int Column() const { return std::max(FTable->currentColumn(), 0); }
    int Last() const {
        const auto ranges = FTable->selectedRanges();
        return ranges.isEmpty() ? Row() : ranges[0].bottomRow();
    }
    int First() const {
        const auto ranges = FTable->selectedRanges();
        return ranges.isEmpty() ? Row() : ranges[0].topRow();
    }

    QStringList Headers;
    int Spare = 0; ///< empty rows behind the last one
    std::function<int()> Rows;
    std::function<std::string(int, int)> Text;
    std::function<void(int, int, const std::string&)> SetText;
    std::function<void()> Apply;

private:
    QTableWidget* FTable;
    QVBoxLayout* FButtons;
    bool FShowing = false;
};

void LoadFrom(TGridWindow& Window, TKxValuesGrid& Grid) {
    const QString name = QFileDialog::getOpenFileName(&Window, "Load from Table");
    if (name.isEmpty()) return;
    QStringList columns;
    for (const std::string& column : TKxValuesGrid::ColumnsOfTable(Told(name))) columns += Shown(column);
    bool ok = false;
    const QString from = QInputDialog::getItem(&Window, "Load from Table", "Column", columns, 0, false, &ok);
    if (ok) Grid.LoadColumn(Window.Column(), Told(name), Told(from));
}

void FillBy(TGridWindow& Window, TKxValuesGrid& Grid) {
    const int first = Window.First(), last = first == Window.Last() ? Grid.GetRowCount() - 1 : Window.Last();
    const QString formula = QInputDialog::getText(&Window, "Fill by Formula",
                                                  "Of x (the value), i (the row), n, and names of vectors:");
    if (!formula.isEmpty()) Grid.Fill(Window.Column(), first, std::max(first, last), Told(formula));
}

} // namespace

void EditValues(QWidget* Parent, const TKxPropertyPlace& Place) {
    Try(Parent, [&] {
        auto grid = std::make_shared<TKxValuesGrid>(Place);
        auto* window = new TGridWindow(Parent, "Values");
        for (int column = 0; column < grid->GetColumnCount(); ++column)
            window->Headers += Shown(grid->GetHeader(column));
        window->Spare = 1;
        window->Rows = [grid] { return grid->GetRowCount(); };
        window->Text = [grid](int Row, int Column) { return grid->GetText(Row, Column); };
        window->SetText = [grid](int Row, int Column, const std::string& Text) {
            grid->SetText(Row, Column, Text);
        };
        window->Apply = [grid] { grid->Apply(); };
        window->AddButton("Insert Row", [grid, window] { grid->Insert(window->Row()); });
        window->AddButton("Delete Rows", [grid, window] {
            grid->Delete(window->First(), window->Last() - window->First() + 1);
        });
        window->AddButton("Paste", [grid, window] {
            grid->Paste(window->Row(), window->Column(), Told(QApplication::clipboard()->text()));
        });
        window->AddButton("Copy", [grid, window] {
            QApplication::clipboard()->setText(Shown(grid->Copy(window->First(), window->Last())));
        });
        window->AddButton("Fill…", [grid, window] { FillBy(*window, *grid); });
        window->AddButton("Load…", [grid, window] { LoadFrom(*window, *grid); });
        window->ShowAll();
        window->open();
    });
}

void EditCoefficients(QWidget* Parent, const TKxPropertyPlace& Place) {
    Try(Parent, [&] {
        using G = TKxCoefficientGrid;
        auto grid = std::make_shared<G>(Place);
        auto* window = new TGridWindow(Parent, "Coefficients");
        for (int column = 0; column < G::ccCount; ++column)
            window->Headers += Shown(G::GetHeader(G::TColumn(column)));
        window->Rows = [grid] { return grid->GetRowCount(); };
        window->Text = [grid](int Row, int Column) { return grid->GetText(Row, G::TColumn(Column)); };
        window->SetText = [grid](int Row, int Column, const std::string& Text) {
            grid->SetText(Row, G::TColumn(Column), Text);
        };
        window->Apply = [grid] { grid->Apply(); };
        window->AddButton("Add", [grid] { grid->SetRowCount(grid->GetRowCount() + 1); });
        window->AddButton("Remove Last", [grid] { grid->SetRowCount(std::max(grid->GetRowCount() - 1, 0)); });
        window->ShowAll();
        window->open();
        if (!grid->GetProblem().empty()) ShowFault(window, grid->GetProblem());
    });
}

} // namespace kxdesign
