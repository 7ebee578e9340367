#include "kxdesign/fontfield.h"

#include "kxdesign/guarded.h"

#include <kxgraph/platform/host/fontfamilies.h>

#include <QFontDatabase>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace kxdesign {

using namespace kx;

namespace {

struct TLook {
    const char *Letter, *Hint;
    TFontStyle Style;
};
constexpr auto CLooks = std::to_array<TLook>({{"B", "Bold", fsBold},
                                              {"I", "Italic", fsItalic},
                                              {"U", "Underline", fsUnderline},
                                              {"S", "Strike out", fsStrikeOut}});

/// Families without Latin letters, or with empty ones, are named in those of the window.
bool CanNameItself(const QString& Family) {
    QFont face;
    face.setFamilies({Family});
    return QFontDatabase::writingSystems(Family).contains(QFontDatabase::Latin) &&
           !QFontMetrics(face).tightBoundingRect(Family).isEmpty();
}

void AddFamily(QComboBox& Box, const QString& Family) {
    Box.addItem(Family, Family);
    if (!CanNameItself(Family)) return;
    QFont face = Box.font();
    face.setFamilies({Family});
    Box.setItemData(Box.count() - 1, face, Qt::FontRole);
}

void MakeEditable(QComboBox& Box) {
    Box.setEditable(true);
    Box.setInsertPolicy(QComboBox::NoInsert);
    Box.setMaxVisibleItems(14);
    Box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

QToolButton* NewLook(const TLook& Look) {
    auto* button = new QToolButton;
    QFont font = button->font();
    font.setBold(Look.Style == fsBold);
    font.setItalic(Look.Style == fsItalic);
    font.setUnderline(Look.Style == fsUnderline);
    font.setStrikeOut(Look.Style == fsStrikeOut);
    button->setFont(font);
    button->setText(Look.Letter);
    button->setToolTip(Look.Hint);
    button->setAccessibleName(Look.Hint);
    button->setCheckable(true);
    return button;
}

} // namespace

void AddFamilies(QComboBox& Box, const TKxPropertyEditor& Editor) {
    MakeEditable(Box);
    for (const TKxPropertyChoice& choice : Editor.GetChoices()) AddFamily(Box, Shown(choice.Text));
}

TFontField::TFontField(QWidget* Parent) : QWidget(Parent), FFamily(new QComboBox), FSize(new QSpinBox) {
    MakeEditable(*FFamily);
    for (const std::string& family : FontFamilies()) AddFamily(*FFamily, Shown(family));
    FSize->setRange(1, 400);
    FSize->setSuffix(" pt");
    auto* second = new QHBoxLayout;
    second->setSpacing(0);
    second->addWidget(FSize, 1);
    for (std::size_t i = 0; i < CLooks.size(); ++i) second->addWidget(FLooks[i] = NewLook(CLooks[i]));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(FFamily);
    layout->addLayout(second);
    setFocusProxy(FFamily);
    setAutoFillBackground(true);
}

void TFontField::SetFont(const TFont& Font) {
    FFamily->setCurrentIndex(FFamily->findText(Shown(Font.GetName()), Qt::MatchFixedString));
    FFamily->setCurrentText(Shown(Font.GetName()));
    FSize->setValue(Font.GetSize());
    for (std::size_t i = 0; i < CLooks.size(); ++i) FLooks[i]->setChecked(Font.HasStyle(CLooks[i].Style));
}

std::string TFontField::GetText() const {
    TKxFontText font{Told(FFamily->currentText()), FSize->value(), 0, {}};
    for (std::size_t i = 0; i < CLooks.size(); ++i)
        if (FLooks[i]->isChecked()) font.Style |= CLooks[i].Style;
    return font.Write();
}

void TFontField::PlaceOver(const QRect& Place, const QRect& Room) {
    const QSize wanted(std::max(Place.width(), sizeHint().width()), sizeHint().height());
    setGeometry(std::max(std::min(Place.left(), Room.right() + 1 - wanted.width()), Room.left()),
                std::max(std::min(Place.top(), Room.bottom() + 1 - wanted.height()), Room.top()),
                wanted.width(), wanted.height());
}

} // namespace kxdesign
