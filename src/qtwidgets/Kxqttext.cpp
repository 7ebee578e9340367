#include <kxgraph/qtwidgets/Kxqttext.h>

#include <QRect>
#include <QString>

#include <algorithm>

namespace kx::qt {

namespace {

int CharactersOf(const QString& Text) { return int(Text.toUcs4().size()); }

int CaretOf(const QInputMethodEvent& Event) {
    for (const auto& attribute : Event.attributes())
        if (attribute.type == QInputMethodEvent::Cursor)
            return CharactersOf(Event.preeditString().left(attribute.start));
    return CharactersOf(Event.preeditString());
}

} // namespace

int UnitsOf(const QString& Text, int Characters) {
    return int(
        QString::fromUcs4(Text.toStdU32String().data(), std::min(Characters, CharactersOf(Text))).size());
}

TComposition CompositionOf(const QInputMethodEvent& Event, const THostTextInput& Input) {
    const QString text = QString::fromStdString(Input.Text);
    const int from = std::max(UnitsOf(text, Input.Caret) + Event.replacementStart(), 0);
    return {.Text = Event.preeditString().toStdString(),
            .Caret = CaretOf(Event),
            .Commit = Event.commitString().toStdString(),
            .ReplaceFrom = CharactersOf(text.left(from)) - Input.Caret,
            .ReplaceLength = CharactersOf(text.mid(from, Event.replacementLength()))};
}

QVariant AnswerOf(const THostTextInput& Input, Qt::InputMethodQuery Query) {
    const QString text = QString::fromStdString(Input.Text);
    const auto unitsOf = [&](int Characters) { return UnitsOf(text, Characters); };
    switch (Query) {
    case Qt::ImEnabled: return Input.Takes;
    case Qt::ImCursorRectangle: return QRect(Input.Left, Input.Top, Input.Width, Input.Height);
    case Qt::ImCursorPosition: return unitsOf(Input.Caret);
    case Qt::ImAnchorPosition: return unitsOf(Input.Anchor);
    case Qt::ImSurroundingText: return text;
    case Qt::ImCurrentSelection: {
        const auto [from, to] = std::minmax({unitsOf(Input.Caret), unitsOf(Input.Anchor)});
        return text.mid(from, to - from);
    }
    default: return {};
    }
}

} // namespace kx::qt
