#include "qtwidgets/windows.h"
#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/qtwidgets/Kxformview.h>

#include <QAccessible>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace kx {
namespace {

/// All that a reader reads: role number, name and description, a part a line, indented.
std::string Read(QAccessibleInterface& Part, const std::string& Indent = "") {
    const auto text = [&](QAccessible::Text Kind) { return Part.text(Kind).toStdString(); };
    std::string told = Indent + text(QAccessible::Name) + ": " + text(QAccessible::Description) + "\n";
    for (int i = 0; i < Part.childCount(); ++i) {
        EXPECT_EQ(Part.indexOfChild(Part.child(i)), i);
        EXPECT_EQ(Part.child(i)->parent(), &Part);
        told += Read(*Part.child(i), Indent + " ");
    }
    return told;
}

TEST(Accessible, TellsWhatAGraphShows) {
    auto g = std::make_unique<test::TGraphForm>();
    g->Form->SetCaption("measurement");
    g->Graph->SetCaption("\\b Decay\\b ");
    g->X->SetCaption("t / s");
    g->Fill({{1, 3}, {2, 5}, {3, 7}});
    auto* series = g->AddSeries<TKxDataSeries>();
    series->SetCaption("voltage");
    TKxLinearRegressionLine line(g->Form);
    line.SetCaption("linear fit");
    line.SetParentSeries(series);
    TKxLabel label(g->Form);
    label.SetCaption("a note");
    label.SetParent(g->Graph);
    label.SetBounds(30, 40, 50, 20);
    qt::FormView view(*g->Form);
    view.resize(420, 320);
    view.show();
    test::WaitFor(150); // longer than what was told before is remembered
    QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&view);
    const std::string told = Read(*window);
    for (const char* piece :
         {"measurement: \n Decay: \n", "\n  t / s: 1.000 to 3.000\n", "\n  YAxis1: 3.00 to 7.00\n",
          "\n  voltage: \n   linear fit: Formula Y=a+b(X); ", "; Slope 2;", "\n  a note: "})
        EXPECT_NE(told.find(piece), std::string::npos) << piece << "\nin\n" << told;
    QAccessibleInterface* graph = window->child(0);
    EXPECT_EQ(graph->role(), QAccessible::Chart);
    EXPECT_EQ(graph->rect().size(), QSize(400, 300));
    QAccessibleInterface* note = graph->child(graph->childCount() - 1);
    EXPECT_EQ(note->rect(), QRect(view.mapToGlobal(QPoint(40, 50)), QSize(50, 20)));
    EXPECT_EQ(graph->childAt(note->rect().center().x(), note->rect().center().y()), note);
    view.setForm(nullptr);
    test::WaitFor(150);
    EXPECT_FALSE(note->isValid() || graph->isValid());
    EXPECT_EQ(window->childCount(), 0);
}

} // namespace
} // namespace kx
