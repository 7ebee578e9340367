#include "kxdesign/propertydelegate.h"

#include "kxdesign/guarded.h"

#include <kxgraph/platform/text/colors.h>

#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPixmap>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <utility>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CPath = Qt::UserRole;

QColor ColorOf(const std::string& Text) {
    const auto color = ColorFromText(Text);
    if (!color) return {};
    const TColor rgb = ColorToRGB(*color);
    return QColor(RedOf(rgb), GreenOf(rgb), BlueOf(rgb));
}

/// A text with a button that opens the colours.
class TColorEdit : public QWidget {
public:
    explicit TColorEdit(QWidget* Parent) : QWidget(Parent), FText(new QLineEdit) {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        auto* button = new QToolButton;
        button->setText("…");
        layout->addWidget(FText);
        layout->addWidget(button);
        setFocusProxy(FText);
        setAutoFillBackground(true);
        connect(button, &QToolButton::clicked, this, [this] {
            const QColor color = QColorDialog::getColor(ColorOf(Told(FText->text())), this);
            if (color.isValid()) FText->setText(color.name());
        });
    }
    QLineEdit& Text() { return *FText; }

private:
    QLineEdit* FText;
};

QComboBox* NewChoice(QWidget* Parent, const TKxInspectorRow& Row) {
    auto* box = new QComboBox(Parent);
    box->setEditable(Row.Editor->GetKind() == TKxEditorKind::Suggestions);
    for (const TKxPropertyChoice& choice : Row.Editor->GetChoices()) {
        const QString text = Shown(choice.Text);
        box->addItem(choice.Note.empty() ? text : text + "   " + Shown(choice.Note), text);
    }
    if (Row.Editor->GetKind() == TKxEditorKind::Flag && box->count() == 0)
        for (const char* text : {"True", "False"}) box->addItem(text, text);
    return box;
}

QString TextOf(QWidget* Editor) {
    if (auto* box = dynamic_cast<QComboBox*>(Editor)) {
        const int index = box->findText(box->currentText());
        return index >= 0 ? box->itemData(index).toString() : box->currentText();
    }
    if (auto* color = dynamic_cast<TColorEdit*>(Editor)) return color->Text().text();
    return static_cast<QLineEdit*>(Editor)->text();
}

} // namespace

TPropertyDelegate::TPropertyDelegate(TKxInspector& Inspector, TTake Take, QObject* Parent)
    : QStyledItemDelegate(Parent), FInspector(Inspector), FTake(std::move(Take)) {}

const TKxInspectorRow* TPropertyDelegate::RowAt(const QModelIndex& Index) const {
    const QString path = Index.sibling(Index.row(), 0).data(CPath).toString();
    return path.isEmpty() ? nullptr : FInspector.Find(Told(path));
}

QWidget* TPropertyDelegate::createEditor(QWidget* Parent, const QStyleOptionViewItem&,
                                         const QModelIndex& Index) const {
    const TKxInspectorRow* row = RowAt(Index);
    if (!row) return nullptr;
    switch (row->Editor->GetKind()) {
    case TKxEditorKind::Choice:
    case TKxEditorKind::Suggestions:
    case TKxEditorKind::Flag: {
        QComboBox* box = NewChoice(Parent, *row);
        auto* self = const_cast<TPropertyDelegate*>(this);
        connect(box, &QComboBox::activated, self, [self, box] {
            Q_EMIT self->commitData(box);
            Q_EMIT self->closeEditor(box);
        });
        return box;
    }
    case TKxEditorKind::Color: return new TColorEdit(Parent);
    default: return new QLineEdit(Parent);
    }
}

void TPropertyDelegate::setEditorData(QWidget* Editor, const QModelIndex& Index) const {
    const TKxInspectorRow* row = RowAt(Index);
    const QString text = row ? Shown(row->Text) : QString();
    if (auto* box = dynamic_cast<QComboBox*>(Editor)) {
        box->setCurrentIndex(box->findData(text));
        if (box->isEditable()) box->setCurrentText(text);
    } else if (auto* color = dynamic_cast<TColorEdit*>(Editor)) {
        color->Text().setText(text);
    } else {
        static_cast<QLineEdit*>(Editor)->setText(text);
    }
}

// The rows, and this editor with them, may go by what is set: that waits until the view is done with it.
void TPropertyDelegate::setModelData(QWidget* Editor, QAbstractItemModel*, const QModelIndex& Index) const {
    const TKxInspectorRow* row = RowAt(Index);
    const std::string text = Told(TextOf(Editor));
    if (!row || text == row->Text) return;
    auto* self = const_cast<TPropertyDelegate*>(this);
    QTimer::singleShot(0, self, [self, path = row->Path, text] { self->FTake(path, text); });
}

void ShowColor(QTreeWidgetItem& Item, const TKxInspectorRow& Row) {
    const QColor color = ColorOf(Row.Text);
    QPixmap square(12, 12);
    square.fill(color.isValid() ? color : QColor(Qt::transparent));
    Item.setIcon(1, QIcon(square));
}

} // namespace kxdesign
