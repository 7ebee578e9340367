#include "kxdesign/propertydelegate.h"

#include "kxdesign/captionfield.h"
#include "kxdesign/fontfield.h"
#include "kxdesign/guarded.h"
#include "kxdesign/pictures.h"

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/design/Kxsampleeditors.h>
#include <kxgraph/platform/text/colors.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace kxdesign {

using namespace kx;

namespace {

constexpr int CPath = Qt::UserRole;
constexpr int CTextMargin = 3; // of texts in cells
constexpr TSize CSample{40, 16};

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

QPixmap SampleOf(const TKxSampleEditor& Editor, int Index, double Scale) {
    return QPixmap::fromImage(Drawn(CSample, Scale, [&](TCanvas& Canvas) {
        const TRect all{0, 0, CSample.Width, CSample.Height};
        Canvas.Brush.SetColor(clWhite); // of graphs
        Canvas.FillRect(all);
        Editor.DrawChoice(Canvas, all, Index);
    }));
}

void AddSamples(QComboBox& Box, const TKxSampleEditor& Editor) {
    Box.setIconSize({CSample.Width, CSample.Height});
    for (int i = 0; i < Box.count(); ++i) Box.setItemIcon(i, SampleOf(Editor, i, Box.devicePixelRatioF()));
    Box.setMaxVisibleItems(Box.count()); // all at a glance
}

QComboBox* NewChoice(QWidget* Parent, const TKxInspectorRow& Row) {
    auto* box = new QComboBox(Parent);
    if (Row.Editor->GetKind() == TKxEditorKind::FontFamily) return AddFamilies(*box, *Row.Editor), box;
    box->setEditable(Row.Editor->GetKind() == TKxEditorKind::Suggestions);
    for (const TKxPropertyChoice& choice : Row.Editor->GetChoices()) {
        const QString text = Shown(choice.Text), note = Shown(choice.Note);
        const QString noted = text.isEmpty() ? "(" + note + ")" : text + "   " + note;
        box->addItem(note.isEmpty() ? text : noted, text);
    }
    if (const auto* samples = dynamic_cast<const TKxSampleEditor*>(Row.Editor.get()))
        AddSamples(*box, *samples);
    constexpr int CMostWidth = 420, CScrollBar = 24;
    box->view()->setMinimumWidth(std::min(box->view()->sizeHintForColumn(0) + CScrollBar, CMostWidth));
    if (Row.Editor->GetKind() == TKxEditorKind::Flag && box->count() == 0)
        for (const char* text : {"True", "False"}) box->addItem(text, text);
    return box;
}

QString TextOf(QWidget* Editor) {
    if (auto* caption = dynamic_cast<TCaptionField*>(Editor)) return Shown(caption->GetCaption());
    if (auto* font = dynamic_cast<TFontField*>(Editor)) return Shown(font->GetText());
    if (auto* box = dynamic_cast<QComboBox*>(Editor)) {
        const int index = box->findText(box->currentText());
        return index >= 0 ? box->itemData(index).toString() : box->currentText();
    }
    if (auto* color = dynamic_cast<TColorEdit*>(Editor)) return color->Text().text();
    return static_cast<QLineEdit*>(Editor)->text();
}

/// Windows of their own, such as lists that drop down, are within what has opened them.
bool IsWithin(const QWidget& Outer, const QWidget* Widget) {
    while (Widget && Widget != &Outer) Widget = Widget->parentWidget();
    return Widget;
}

} // namespace

TPropertyDelegate::TPropertyDelegate(TKxInspector& Inspector, TTake Take, QObject* Parent)
    : QStyledItemDelegate(Parent), FInspector(Inspector), FTake(std::move(Take)) {}

namespace {

QImage PictureOf(const std::string& Caption, const QColor& Color, int Height, double Scale) {
    const TKxParsedCaption caption = ParseCaption(Caption);
    TCanvas measuring;
    const int width = MeasureCaption(caption, measuring) + 2; // slanted letters lean out
    return Drawn({width, Height}, Scale, [&](TCanvas& Canvas) {
        Canvas.Brush.SetStyle(bsClear);
        Canvas.Font.SetColor(RGB(Color.red(), Color.green(), Color.blue()));
        PaintCaption(caption, Canvas, 0, (Height - Canvas.TextHeight("X")) / 2, 0);
    });
}

} // namespace

void TPropertyDelegate::paint(QPainter* Painter, const QStyleOptionViewItem& Option,
                              const QModelIndex& Index) const {
    const TKxInspectorRow* row = RowAt(Index);
    const bool hasLooks =
        row && row->Editor->GetKind() == TKxEditorKind::Caption && row->Text.find('\\') != std::string::npos;
    if (!hasLooks) return QStyledItemDelegate::paint(Painter, Option, Index);
    QStyleOptionViewItem option(Option);
    initStyleOption(&option, Index);
    option.text.clear();
    const QStyle& style = option.widget ? *option.widget->style() : *QApplication::style();
    style.drawControl(QStyle::CE_ItemViewItem, &option, Painter, option.widget);
    const auto role = option.state & QStyle::State_Selected ? QPalette::HighlightedText : QPalette::Text;
    Painter->save();
    Painter->setClipRect(option.rect);
    Painter->drawImage(option.rect.topLeft() + QPoint(CTextMargin, 0),
                       PictureOf(row->Text, option.palette.color(role), option.rect.height(),
                                 Painter->device()->devicePixelRatioF()));
    Painter->restore();
}

/// A style that was chosen by its looks shows them in its line, too.
void TPropertyDelegate::initStyleOption(QStyleOptionViewItem* Option, const QModelIndex& Index) const {
    QStyledItemDelegate::initStyleOption(Option, Index);
    const TKxInspectorRow* row = RowAt(Index);
    const auto* samples = row ? dynamic_cast<const TKxSampleEditor*>(row->Editor.get()) : nullptr;
    if (!samples || row->IsMixed) return;
    const auto choices = samples->GetChoices();
    const auto chosen = std::ranges::find(choices, row->Text, &TKxPropertyChoice::Text);
    if (chosen == choices.end()) return;
    const double scale = Option->widget ? Option->widget->devicePixelRatioF() : 1;
    Option->features |= QStyleOptionViewItem::HasDecoration;
    Option->icon = QIcon(SampleOf(*samples, int(chosen - choices.begin()), scale));
    Option->decorationSize = {CSample.Width, CSample.Height};
}

QSize TPropertyDelegate::sizeHint(const QStyleOptionViewItem& Option, const QModelIndex& Index) const {
    return QStyledItemDelegate::sizeHint(Option, Index).expandedTo({0, Option.fontMetrics.height() + 8});
}

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
    case TKxEditorKind::Sample:
    case TKxEditorKind::Suggestions:
    case TKxEditorKind::FontFamily:
    case TKxEditorKind::Flag: return NewBox(Parent, *row);
    case TKxEditorKind::Color: {
        auto* color = new TColorEdit(Parent);
        FinishWhenLeft(*color);
        return color;
    }
    case TKxEditorKind::Font: {
        auto* font = new TFontField(Parent);
        font->SetFont(static_cast<const TKxFontEditor&>(*row->Editor).GetFont());
        FinishWhenLeft(*font);
        return font;
    }
    case TKxEditorKind::Caption: {
        auto* caption = new TCaptionField(Parent);
        caption->SetCaption(row->Text);
        return caption;
    }
    default: return new QLineEdit(Parent);
    }
}

QComboBox* TPropertyDelegate::NewBox(QWidget* Parent, const TKxInspectorRow& Row) const {
    QComboBox* box = NewChoice(Parent, Row);
    auto* self = const_cast<TPropertyDelegate*>(this);
    connect(box, &QComboBox::activated, self, [self, box] {
        Q_EMIT self->commitData(box);
        Q_EMIT self->closeEditor(box);
    });
    return box;
}

/// The view notices only of the editor itself that it loses the focus, not of what is in it.
void TPropertyDelegate::FinishWhenLeft(QWidget& Editor) const {
    auto* self = const_cast<TPropertyDelegate*>(this);
    connect(qApp, &QApplication::focusChanged, &Editor, [self, &Editor](QWidget* Before, QWidget* Now) {
        if (!Now || !IsWithin(Editor, Before) || IsWithin(Editor, Now)) return;
        Q_EMIT self->commitData(&Editor);
        Q_EMIT self->closeEditor(&Editor);
    });
}

/// Some have more than one line, and hide a part of the next rows.
void TPropertyDelegate::updateEditorGeometry(QWidget* Editor, const QStyleOptionViewItem& Option,
                                             const QModelIndex& Index) const {
    const QRect room = Editor->parentWidget()->rect();
    if (auto* caption = dynamic_cast<TCaptionField*>(Editor)) {
        const int more = caption->WantedSize().Height - Option.rect.height();
        caption->PlaceOver(Option.rect.adjusted(0, -more / 2, 0, more - more / 2), room);
    } else if (auto* font = dynamic_cast<TFontField*>(Editor)) {
        font->PlaceOver(Option.rect, room);
    } else if (dynamic_cast<QComboBox*>(Editor)) {
        Editor->setGeometry(Option.rect); // a sample shows in it, not beside it
    } else {
        QStyledItemDelegate::updateEditorGeometry(Editor, Option, Index);
    }
}

// What an editor of a caption or a font has, it was given when it was made.
void TPropertyDelegate::setEditorData(QWidget* Editor, const QModelIndex& Index) const {
    const TKxInspectorRow* row = RowAt(Index);
    const QString text = row ? Shown(row->Text) : QString();
    if (auto* box = dynamic_cast<QComboBox*>(Editor)) {
        box->setCurrentIndex(box->findData(text));
        if (box->isEditable()) box->setCurrentText(text);
    } else if (auto* color = dynamic_cast<TColorEdit*>(Editor)) {
        color->Text().setText(text);
    } else if (auto* line = dynamic_cast<QLineEdit*>(Editor)) {
        line->setText(text);
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
    if (color.isValid()) { // white is seen on white
        QPainter painter(&square);
        painter.setPen(Qt::gray);
        painter.drawRect(0, 0, 11, 11);
    }
    Item.setIcon(1, QIcon(square));
}

} // namespace kxdesign
