#include <kxgraph/qtwidgets/Kxqtaccessible.h>

#include <kxgraph/qtwidgets/Kxclientwidget.h>
#include <kxgraph/qtwidgets/Kxqtaccessiblechanges.h>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QElapsedTimer>
#include <QPointer>

#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace kx::qt {

namespace {

using TPath = TAccessiblePath;

QAccessible::Role RoleOf(TAccessibleRole Role) {
    switch (Role) {
    case TAccessibleRole::Window: return QAccessible::Client;
    case TAccessibleRole::Panel: return QAccessible::Pane;
    case TAccessibleRole::Graph: return QAccessible::Chart;
    case TAccessibleRole::Axis:
    case TAccessibleRole::Series: return QAccessible::Graphic;
    case TAccessibleRole::Text: return QAccessible::StaticText;
    case TAccessibleRole::Edit: return QAccessible::EditableText;
    case TAccessibleRole::Button: return QAccessible::Button;
    case TAccessibleRole::CheckBox: return QAccessible::CheckBox;
    case TAccessibleRole::List: return QAccessible::List;
    case TAccessibleRole::ListItem: return QAccessible::ListItem;
    case TAccessibleRole::ComboBox: return QAccessible::ComboBox;
    case TAccessibleRole::SpinBox: return QAccessible::SpinBox;
    case TAccessibleRole::Table: return QAccessible::Table;
    case TAccessibleRole::Cell: return QAccessible::Cell;
    }
    return QAccessible::Pane;
}

/// Readers that know no values of graphics read descriptions.
std::string DescriptionOf(const TAccessiblePart& Part) {
    if (Part.Value.empty() || Part.Description.empty()) return Part.Value + Part.Description;
    return Part.Value + "; " + Part.Description;
}

QString TextOf(const TAccessiblePart& Part, QAccessible::Text Kind) {
    switch (Kind) {
    case QAccessible::Name: return QString::fromStdString(Part.Name);
    case QAccessible::Value: return QString::fromStdString(Part.Value);
    case QAccessible::Description: return QString::fromStdString(DescriptionOf(Part));
    default: return {};
    }
}

/// The widget: what its client tells, remembered for as long as a reader takes to ask for all of it.
class TWindowAccess : public QAccessibleWidget, public TAccessibleTeller {
public:
    explicit TWindowAccess(TClientWidget* Widget) : QAccessibleWidget(Widget, QAccessible::Client) {}
    ~TWindowAccess() override {
        for (const auto& [path, id] : FInterfaces) QAccessible::deleteAccessibleInterface(id);
    }

    /// Null for a part that there is no more.
    const TAccessiblePart* Find(const TPath& Path);
    QAccessibleInterface* InterfaceOf(const TPath& Path);
    QRect RectOf(const TPath& Path);
    void TellChanges() override;
    bool HasKeys() const {
        return widget()->hasFocus() || (widget()->windowFlags() & Qt::Popup) == Qt::Popup;
    }

    int childCount() const override {
        const TAccessiblePart* window = Self().Find({});
        return window ? int(window->Parts.size()) : 0;
    }
    QAccessibleInterface* child(int Index) const override { return Self().InterfaceOf({Index}); }
    int indexOfChild(const QAccessibleInterface* Child) const override;
    QAccessibleInterface* focusChild() const override {
        const TAccessiblePart* window = HasKeys() ? Self().Find({}) : nullptr;
        const TPath path = window ? FocusIn(*window) : TPath();
        return path.empty() ? QAccessibleWidget::focusChild() : Self().InterfaceOf(path);
    }
    QString text(QAccessible::Text Kind) const override {
        const TAccessiblePart* window = Self().Find({});
        const QString text = window ? TextOf(*window, Kind) : QString();
        return text.isEmpty() ? QAccessibleWidget::text(Kind) : text;
    }

private:
    /// What is made when it is asked for belongs to no state that Qt knows of.
    TWindowAccess& Self() const { return const_cast<TWindowAccess&>(*this); }

    using TMatches = std::vector<TAccessibleMatch>;

    bool Ask();
    void TellGone(const TMatches& Matches);
    void Follow(const TMatches& Matches);
    void TellKeptAndNew(const TMatches& Matches);
    void TellFocus(const TAccessiblePart& Window);

    TAccessiblePart FTold;
    std::optional<TAccessiblePart> FBefore; // what changes are told from
    TPath FFocus;                           // the part that Qt was told of
    QElapsedTimer FSinceTold;
    std::map<TPath, QAccessible::Id> FInterfaces;
};

/// A part of it.
class TPartAccess : public QAccessibleInterface, private TTextAccess {
public:
    TPartAccess(QWidget* Widget, TPath Path) : FWidget(Widget), FPath(std::move(Path)) {}

    /// The part stands somewhere else now.
    void Move(TPath Path) { FPath = std::move(Path); }
    /// The place of Part among those right inside of what is at Outer; -1 where it is none of them.
    static int IndexIn(const TPath& Outer, const QAccessibleInterface* Part) {
        const auto* part = dynamic_cast<const TPartAccess*>(Part);
        const bool isIn = part && part->FPath.size() == Outer.size() + 1 &&
                          std::equal(Outer.begin(), Outer.end(), part->FPath.begin());
        return isIn ? part->FPath.back() : -1;
    }

    bool isValid() const override { return Part() != nullptr; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return FWidget ? FWidget->window()->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override {
        TWindowAccess* access = Access();
        if (!access || FPath.size() == 1) return access;
        return access->InterfaceOf({FPath.begin(), FPath.end() - 1});
    }
    int childCount() const override {
        const TAccessiblePart* part = Part();
        return part ? int(part->Parts.size()) : 0;
    }
    QAccessibleInterface* child(int Index) const override {
        TPath path = FPath;
        path.push_back(Index);
        TWindowAccess* access = Access();
        return access ? access->InterfaceOf(path) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* Child) const override { return IndexIn(FPath, Child); }
    QAccessibleInterface* childAt(int X, int Y) const override {
        // Qt keeps what child makes. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
        for (int i = childCount() - 1; i >= 0; --i)
            if (QAccessibleInterface* found = child(i); found && found->rect().contains(X, Y)) return found;
        return nullptr;
    }
    using TTextAccess::text;
    QString text(QAccessible::Text Kind) const override {
        const TAccessiblePart* part = Part();
        return part ? TextOf(*part, Kind) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        TWindowAccess* access = Access();
        return access ? access->RectOf(FPath) : QRect();
    }
    QAccessible::Role role() const override {
        const TAccessiblePart* part = Part();
        return part ? RoleOf(part->Role) : QAccessible::NoRole;
    }
    QAccessible::State state() const override {
        if (const TAccessiblePart* part = Part()) return StateOf(*part, Access()->HasKeys());
        QAccessible::State state;
        state.invalid = state.readOnly = true;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType Type) override {
        const TAccessiblePart* part = Type == QAccessible::TextInterface ? Part() : nullptr;
        return part && part->Caret >= 0 ? static_cast<QAccessibleTextInterface*>(this) : nullptr;
    }

private:
    TWindowAccess* Access() const {
        return FWidget ? dynamic_cast<TWindowAccess*>(QAccessible::queryAccessibleInterface(FWidget))
                       : nullptr;
    }
    const TAccessiblePart* Part() const {
        TWindowAccess* access = Access();
        return access ? access->Find(FPath) : nullptr;
    }
    const TAccessiblePart* Field() const override { return Part(); }
    QRect FieldRect() const override { return rect(); }

    QPointer<QWidget> FWidget;
    TPath FPath;
};

/// Whether there is anybody.
bool TWindowAccess::Ask() {
    auto* shown = dynamic_cast<TClientWidget*>(widget());
    if (!shown || !shown->GetClient()) return false;
    FTold = shown->GetClient()->HostAccessible();
    FSinceTold.start();
    return true;
}

const TAccessiblePart* TWindowAccess::Find(const TPath& Path) {
    constexpr qint64 CMemory = 100; // milliseconds
    auto* shown = dynamic_cast<TClientWidget*>(widget());
    if (!shown || !shown->GetClient()) return nullptr;
    if (!FSinceTold.isValid() || FSinceTold.elapsed() > CMemory) Ask();
    const TAccessiblePart* part = &FTold;
    for (const int index : Path) {
        if (index < 0 || index >= int(part->Parts.size())) return nullptr;
        part = &part->Parts[std::size_t(index)];
    }
    return part;
}

QAccessibleInterface* TWindowAccess::InterfaceOf(const TPath& Path) {
    if (!Find(Path)) return nullptr;
    if (const auto known = FInterfaces.find(Path); known != FInterfaces.end())
        return QAccessible::accessibleInterface(known->second);
    auto* made = new TPartAccess(widget(), Path); // Qt's from here on
    FInterfaces.emplace(Path, QAccessible::registerAccessibleInterface(made));
    return made;
}

QRect TWindowAccess::RectOf(const TPath& Path) {
    const TAccessiblePart* part = Find(Path);
    if (!part) return {};
    QPoint origin = widget()->mapToGlobal(QPoint());
    for (std::size_t level = 1; level < Path.size(); ++level) {
        const TRect bounds = Find({Path.begin(), Path.begin() + std::ptrdiff_t(level)})->Bounds;
        origin += QPoint(bounds.Left, bounds.Top);
    }
    const TRect bounds = part->Bounds;
    return QRect(bounds.Left, bounds.Top, bounds.Width(), bounds.Height()).translated(origin);
}

int TWindowAccess::indexOfChild(const QAccessibleInterface* Child) const {
    return TPartAccess::IndexIn({}, Child);
}

/// As long as what has gone can be asked who it was.
void TWindowAccess::TellGone(const TMatches& Matches) {
    for (const TAccessibleMatch& match : Matches)
        if (!match.Now)
            if (QAccessibleInterface* gone = InterfaceOf(match.WasAt))
                Tell(*gone, QAccessible::ObjectDestroyed);
}

/// Who keeps an interface of a part keeps it where the part now is.
void TWindowAccess::Follow(const TMatches& Matches) {
    std::map<TPath, QAccessible::Id> kept;
    TPath focus;
    for (const TAccessibleMatch& match : Matches) {
        auto known =
            match.Before && match.Now ? FInterfaces.extract(match.WasAt) : decltype(FInterfaces)::node_type();
        if (known.empty()) continue;
        static_cast<TPartAccess*>(QAccessible::accessibleInterface(known.mapped()))->Move(match.IsAt);
        if (match.WasAt == FFocus) focus = match.IsAt;
        known.key() = match.IsAt;
        kept.insert(std::move(known));
    }
    FFocus = focus;
    std::swap(FInterfaces, kept);
    for (const auto& [path, id] : kept) QAccessible::deleteAccessibleInterface(id);
}

void TWindowAccess::TellKeptAndNew(const TMatches& Matches) {
    for (const TAccessibleMatch& match : Matches) {
        if (!match.Now || (match.Before && IsSameAlone(*match.Before, *match.Now))) continue;
        QAccessibleInterface* of = match.IsAt.empty() ? this : InterfaceOf(match.IsAt);
        if (!of) continue;
        match.Before ? TellChange(*of, *match.Before, *match.Now) : Tell(*of, QAccessible::ObjectCreated);
    }
}

// Whoever is told asks at once, and may have all told anew: what is compared is kept apart.
void TWindowAccess::TellChanges() {
    const auto before = std::exchange(FBefore, Ask() ? FTold : TAccessiblePart());
    const TAccessiblePart now = *FBefore;
    if (before) {
        const TMatches matches = MatchParts(*before, now);
        if (std::ranges::any_of(matches, [](const auto& Match) { return !Match.Before || !Match.Now; })) {
            FTold = *before;
            TellGone(matches);
            FTold = now;
            Follow(matches);
        }
        TellKeptAndNew(matches);
    }
    TellFocus(now);
}

void TWindowAccess::TellFocus(const TAccessiblePart& Window) {
    const TPath focus = HasKeys() ? FocusIn(Window) : TPath();
    if (std::exchange(FFocus, focus) == focus || focus.empty()) return;
    if (QAccessibleInterface* focused = InterfaceOf(focus)) Tell(*focused, QAccessible::Focus);
}

QAccessibleInterface* Make(const QString&, QObject* Object) {
    auto* widget = dynamic_cast<TClientWidget*>(Object);
    return widget ? new TWindowAccess(widget) : nullptr;
}

} // namespace

void InstallAccessibility() {
    [[maybe_unused]] static const bool installed = (QAccessible::installFactory(Make), true);
}

} // namespace kx::qt
