#include <kxgraph/qtwidgets/Kxqtaccessiblechanges.h>

#include <kxgraph/qtwidgets/Kxqttext.h>

#include <algorithm>
#include <utility>

namespace kx::qt {

namespace {

TAccessibleListener Listener = nullptr;

/// Ends of what is selected, and the caret, in units of UTF-16.
struct TSelected {
    explicit TSelected(const TAccessiblePart& Part) : Text(QString::fromStdString(Part.Value)) {
        Caret = UnitsOf(Text, std::max(Part.Caret, 0));
        const int anchor = UnitsOf(Text, std::max(Part.Anchor, 0));
        Start = std::min(Caret, anchor);
        End = std::max(Caret, anchor);
    }
    QString Text;
    int Caret, Start, End;
};

bool HasText(const TAccessiblePart& Part) { return Part.Caret >= 0; }

/// What stands between the first and the last difference.
void TellText(QAccessibleInterface& Of, const TSelected& Before, const TSelected& Now) {
    const QString &old = Before.Text, &now = Now.Text;
    const auto most = std::min(old.size(), now.size());
    qsizetype at = 0, tail = 0;
    while (at < most && old[at] == now[at]) ++at;
    while (tail < most - at && old[old.size() - 1 - tail] == now[now.size() - 1 - tail]) ++tail;
    const QString removed = old.mid(at, old.size() - tail - at),
                  inserted = now.mid(at, now.size() - tail - at);
    QAccessibleTextUpdateEvent update(&Of, int(at), removed, inserted);
    QAccessibleTextInsertEvent insert(&Of, int(at), inserted);
    QAccessibleTextRemoveEvent remove(&Of, int(at), removed);
    QAccessibleTextCursorEvent* event = &update;
    if (removed.isEmpty()) event = &insert;
    if (inserted.isEmpty()) event = &remove;
    event->setCursorPosition(Now.Caret);
    Send(*event);
}

void TellField(QAccessibleInterface& Of, const TAccessiblePart& Before, const TAccessiblePart& Now) {
    const TSelected before(Before), now(Now);
    if (before.Text != now.Text) TellText(Of, before, now);
    if (before.Caret != now.Caret) {
        QAccessibleTextCursorEvent event(&Of, now.Caret);
        Send(event);
    }
    const bool wasSelected = before.Start != before.End, isSelected = now.Start != now.End;
    if ((wasSelected || isSelected) && (before.Start != now.Start || before.End != now.End)) {
        QAccessibleTextSelectionEvent event(&Of, now.Start, now.End);
        event.setCursorPosition(now.Caret);
        Send(event);
    }
}

void TellState(QAccessibleInterface& Of, const TAccessiblePart& Before, const TAccessiblePart& Now) {
    QAccessible::State changed;
    const bool isItem = Now.Role == TAccessibleRole::ListItem, isMarked = Before.Checked != Now.Checked;
    changed.disabled = Before.Enabled != Now.Enabled;
    changed.readOnly = Before.Editable != Now.Editable;
    changed.checked = isMarked && !isItem;
    changed.selected = isMarked && isItem;
    if (!changed.disabled && !changed.readOnly && !isMarked) return;
    QAccessibleStateChangeEvent event(&Of, changed);
    Send(event);
}

using TParts = std::vector<TAccessiblePart>;

bool IsSameKind(const TAccessiblePart& A, const TAccessiblePart& B) { return A.Role == B.Role; }
bool IsSamePart(const TAccessiblePart& A, const TAccessiblePart& B) {
    return A.Role == B.Role && A.Name == B.Name;
}

TAccessiblePath Within(TAccessiblePath Path, std::size_t Index) {
    Path.push_back(int(Index));
    return Path;
}

/// How many at the beginning and at the end are who they were.
struct TKept {
    TKept(const TParts& Before, const TParts& Now) {
        const std::size_t most = std::min(Before.size(), Now.size());
        if (Before.size() == Now.size() && std::ranges::equal(Before, Now, IsSameKind)) First = most;
        while (First < most && IsSamePart(Before[First], Now[First])) ++First;
        while (Last < most - First &&
               IsSamePart(Before[Before.size() - 1 - Last], Now[Now.size() - 1 - Last]))
            ++Last;
    }
    std::size_t First = 0, Last = 0;
};

void AddMatches(std::vector<TAccessibleMatch>& All, TAccessibleMatch Match) {
    const TParts &before = Match.Before->Parts, &now = Match.Now->Parts;
    const TKept kept(before, now);
    const auto keep = [&](std::size_t Was, std::size_t Is) {
        AddMatches(All, {&before[Was], &now[Is], Within(Match.WasAt, Was), Within(Match.IsAt, Is)});
    };
    All.push_back(Match);
    for (std::size_t i = 0; i < kept.First; ++i) keep(i, i);
    for (std::size_t i = kept.First; i < before.size() - kept.Last; ++i)
        All.push_back({&before[i], nullptr, Within(Match.WasAt, i), {}});
    for (std::size_t i = kept.First; i < now.size() - kept.Last; ++i)
        All.push_back({nullptr, &now[i], {}, Within(Match.IsAt, i)});
    for (std::size_t i = kept.Last; i > 0; --i) keep(before.size() - i, now.size() - i);
}

} // namespace

std::vector<TAccessibleMatch> MatchParts(const TAccessiblePart& Before, const TAccessiblePart& Now) {
    std::vector<TAccessibleMatch> all;
    AddMatches(all, {&Before, &Now, {}, {}});
    return all;
}

void Tell(QAccessibleInterface& Of, QAccessible::Event What) {
    QAccessibleEvent event(&Of, What);
    Send(event);
}

void TellChange(QAccessibleInterface& Of, const TAccessiblePart& Before, const TAccessiblePart& Now) {
    if (Before.Name != Now.Name) Tell(Of, QAccessible::NameChanged);
    if (HasText(Before) && HasText(Now)) {
        TellField(Of, Before, Now);
    } else if (Before.Value != Now.Value) {
        QAccessibleValueChangeEvent event(&Of, QString::fromStdString(Now.Value));
        Send(event);
    }
    if (Before.Description != Now.Description) Tell(Of, QAccessible::DescriptionChanged);
    TellState(Of, Before, Now);
}

bool IsSameAlone(const TAccessiblePart& A, const TAccessiblePart& B) {
    return A.Name == B.Name && A.Value == B.Value && A.Description == B.Description &&
           A.Enabled == B.Enabled && A.Checked == B.Checked && A.Editable == B.Editable &&
           A.Caret == B.Caret && A.Anchor == B.Anchor;
}

bool HasReaders() { return Listener || QAccessible::isActive(); }

void ListenToAccessible(TAccessibleListener Other) { Listener = Other; }

void Send(QAccessibleEvent& Event) {
    if (Listener)
        Listener(Event);
    else
        QAccessible::updateAccessibility(&Event);
}

void TellAccessibleChanges(QWidget& Widget) {
    if (auto* teller = dynamic_cast<TAccessibleTeller*>(QAccessible::queryAccessibleInterface(&Widget)))
        teller->TellChanges();
}

TAccessiblePath FocusIn(const TAccessiblePart& Window) {
    for (std::size_t i = 0; i < Window.Parts.size(); ++i) {
        const TAccessiblePart& part = Window.Parts[i];
        TAccessiblePath inner = FocusIn(part);
        if (inner.empty() && !part.Focused) continue;
        inner.insert(inner.begin(), int(i));
        return inner;
    }
    return {};
}

QAccessible::State StateOf(const TAccessiblePart& Part, bool HasKeys) {
    const bool isItem = Part.Role == TAccessibleRole::ListItem;
    QAccessible::State state;
    state.focused = Part.Focused && HasKeys;
    state.disabled = !Part.Enabled;
    state.readOnly = !Part.Editable;
    state.editable = Part.Editable && HasText(Part);
    state.checkable = Part.Role == TAccessibleRole::CheckBox;
    state.checked = Part.Checked && !isItem;
    state.selectable = isItem;
    state.selected = Part.Checked && isItem;
    return state;
}

void TTextAccess::selection(int Index, int* Start, int* End) const {
    *Start = *End = 0;
    if (Index != 0 || selectionCount() == 0) return;
    const TSelected selected(*Field());
    *Start = selected.Start;
    *End = selected.End;
}

int TTextAccess::selectionCount() const {
    const TAccessiblePart* field = Field();
    return field && field->Caret != field->Anchor ? 1 : 0;
}

int TTextAccess::cursorPosition() const {
    const TAccessiblePart* field = Field();
    return field ? TSelected(*field).Caret : 0;
}

QString TTextAccess::text(int Start, int End) const {
    const TAccessiblePart* field = Field();
    return field ? QString::fromStdString(field->Value).mid(Start, End - Start) : QString();
}

int TTextAccess::characterCount() const {
    const TAccessiblePart* field = Field();
    return field ? int(QString::fromStdString(field->Value).size()) : 0;
}

/// All of it looks alike, as far as readers are told.
QString TTextAccess::attributes(int, int* Start, int* End) const {
    *Start = 0;
    *End = characterCount();
    return {};
}

} // namespace kx::qt
