#include "qtwidgets/windows.h"
#include "support/graphfixture.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/platform/widgets/button.h>
#include <kxgraph/platform/widgets/edit.h>
#include <kxgraph/platform/widgets/listbox.h>
#include <kxgraph/qtwidgets/Kxformview.h>
#include <kxgraph/qtwidgets/Kxqtaccessiblechanges.h>

#include <QAccessible>

namespace kx::test::qtaccessible {

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
    auto g = std::make_unique<TGraphForm>();
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
    WaitFor(150); // longer than what was told before is remembered
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
    WaitFor(150);
    EXPECT_FALSE(note->isValid() || graph->isValid());
    EXPECT_EQ(window->childCount(), 0);
}

/// What Qt is told of the parts of windows, an event a word.
std::string Told;

void Hear(QAccessibleEvent& Event) {
    QAccessibleInterface* part = Event.accessibleInterface();
    const auto text = [](const QString& Text) { return Text.toStdString(); };
    std::string what;
    if (Event.type() == QAccessible::Focus) what = "focus";
    if (Event.type() == QAccessible::NameChanged) what = "renamed";
    if (Event.type() == QAccessible::ObjectCreated) what = "new";
    if (Event.type() == QAccessible::ObjectDestroyed) what = "gone";
    EXPECT_TRUE(part->isValid()) << "a reader that is told asks";
    if (const auto* e = dynamic_cast<QAccessibleTextInsertEvent*>(&Event))
        what = "insert(" + text(e->textInserted()) + ")";
    else if (const auto* e = dynamic_cast<QAccessibleTextRemoveEvent*>(&Event))
        what = "remove(" + text(e->textRemoved()) + ")";
    else if (const auto* e = dynamic_cast<QAccessibleTextUpdateEvent*>(&Event))
        what = "update(" + text(e->textRemoved()) + "," + text(e->textInserted()) + ")";
    else if (const auto* e = dynamic_cast<QAccessibleTextSelectionEvent*>(&Event))
        what =
            "select(" + std::to_string(e->selectionStart()) + "," + std::to_string(e->selectionEnd()) + ")";
    else if (const auto* e = dynamic_cast<QAccessibleTextCursorEvent*>(&Event))
        what = "caret(" + std::to_string(e->cursorPosition()) + ")";
    else if (const auto* e = dynamic_cast<QAccessibleValueChangeEvent*>(&Event))
        what = "value(" + text(e->value().toString()) + ")";
    else if (const auto* e = dynamic_cast<QAccessibleStateChangeEvent*>(&Event))
        what = e->changedStates().checked    ? "checked"
               : e->changedStates().selected ? "selected"
               : e->changedStates().disabled ? "disabled"
                                             : "state";
    Told += text(part->text(QAccessible::Name)) + ":" + what + " ";
}

TEST(Accessible, TellsOfWhatChanges) {
    TForm form(nullptr);
    TEdit edit(&form);
    TCheckBox box(&form);
    TListBox list(&form);
    TWinControl* const controls[] = {&edit, &box, &list};
    for (int i = 0; i < 3; ++i) {
        controls[i]->SetParent(&form);
        controls[i]->SetBounds(10, 10 + 40 * i, 120, 26 + 30 * (i / 2));
    }
    edit.SetName("Edit"), list.SetName("List"), box.SetCaption("&Box");
    edit.SetText("\U0001D11Eab"), edit.SetAutoSelect(false);
    list.SetItems({"one", "two"});
    qt::FormView view(form);
    qt::ListenToAccessible(Hear);
    view.resize(300, 300);
    view.show();
    view.activateWindow();
    view.setFocus();
    WaitFor(150);
    const std::pair<std::function<void()>, const char*> steps[] = {
        {[&] { edit.SetFocus(); }, "Edit:focus "},
        {[&] { edit.ReplaceSelection("c"); }, "Edit:insert(c) Edit:caret(5) "},
        {[&] { edit.Select(0, 2); }, "Edit:caret(3) Edit:select(0,3) "},
        {[&] { edit.ReplaceSelection("x"); }, "Edit:update(\U0001D11Ea,x) Edit:caret(1) Edit:select(1,1) "},
        {[&] { edit.SetText(""); }, "Edit:remove(xbc) Edit:caret(0) "},
        {[&] { box.SetChecked(true); }, "Box:checked "},
        {[&] { box.SetEnabled(false); }, "Box:disabled "},
        {[&] { list.SetItemIndex(1); }, "List:value(two) two:selected "},
        {[&] { list.SetFocus(); }, "two:focus "},
        {[&] { list.SetItems({"one"}); }, "two:gone List:value() List:focus "},
    };
    for (const auto& [act, wanted] : steps) {
        Told.clear();
        act();
        Wait([&, wanted = wanted] { return Told == wanted; });
        WaitFor(20); // for what should not come
        EXPECT_EQ(Told, wanted);
    }
    QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&view);
    QAccessibleInterface* field = window->child(0);
    EXPECT_EQ(window->focusChild(), window->child(2));
    EXPECT_TRUE(window->child(1)->state().checked && window->child(1)->state().disabled);
    EXPECT_FALSE(window->child(1)->textInterface());
    edit.SetText("\U0001D11Eab"), edit.SetReadOnly(true), edit.Select(1, 3);
    WaitFor(40);
    EXPECT_TRUE(field->state().readOnly && !field->state().editable);
    QAccessibleTextInterface* text = field->textInterface();
    int start = 0, end = 0;
    text->selection(0, &start, &end);
    EXPECT_EQ(text->text(start, end), "ab");
    EXPECT_EQ(text->cursorPosition(), text->characterCount());
    qt::ListenToAccessible(nullptr);
}

TEST(Accessible, TellsOfPartsThatComeAndGo) {
    TGraphForm g;
    g.Fill({{1, 3}, {2, 5}});
    qt::FormView view(*g.Form);
    std::unique_ptr<TKxSeries> first, second;
    const auto add = [&](std::unique_ptr<TKxSeries>& Series, const char* Caption) {
        Series.reset(g.AddSeries<TKxDataSeries>());
        Series->SetCaption(Caption);
    };
    add(first, "first"), add(second, "second");
    qt::ListenToAccessible(Hear);
    view.resize(420, 320);
    view.show();
    WaitFor(150);
    QAccessibleInterface* graph = QAccessible::queryAccessibleInterface(&view)->child(0);
    const int count = graph->childCount();
    QAccessibleInterface* kept = graph->child(count - 1);
    const std::pair<std::function<void()>, const char*> steps[] = {
        {[&] { first.reset(); }, "first:gone "},
        {[&] { add(first, "third"); }, "third:new "},
        {[&] { second->SetCaption("other"), g.Graph->Invalidate(); }, "other:renamed "},
    };
    for (const auto& [act, wanted] : steps) {
        Told.clear();
        act();
        Wait([&, wanted = wanted] { return Told == wanted; });
        WaitFor(20); // for what should not come
        ASSERT_EQ(Told, wanted);
        EXPECT_EQ(graph->indexOfChild(kept), count - 2);
        EXPECT_EQ(kept->text(QAccessible::Name).toStdString(), second->GetCaption());
    }
    qt::ListenToAccessible(nullptr);
}

} // namespace kx::test::qtaccessible
