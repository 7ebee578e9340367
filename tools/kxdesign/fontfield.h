#pragma once
// A font as it is chosen: its family, each shown in its own face, its size, and its looks.

#include <kxgraph/design/Kxfonteditors.h>

#include <QComboBox>
#include <QWidget>

#include <array>

class QSpinBox;
class QToolButton;

namespace kxdesign {

/// Puts families into a combo, which takes other names, too.
void AddFamilies(QComboBox& Box, const kx::TKxPropertyEditor& Editor);

/// Two lines: the family; size and looks. Families: of which there are to choose.
class TFontField : public QWidget {
public:
    explicit TFontField(QWidget* Parent);
    void SetFont(const kx::TFont& Font);
    /// As TKxFontText has it; of the colour it says nothing.
    std::string GetText() const;
    /// Over Place, two of its lines high, inside Room.
    void PlaceOver(const QRect& Place, const QRect& Room);

private:
    QComboBox* FFamily;
    QSpinBox* FSize;
    std::array<QToolButton*, 4> FLooks;
};

} // namespace kxdesign
