#include <kxgraph/qtwidgets/Kxqtprinting.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/qt/Kxqtdevice.h>

#include <QPrintPreviewDialog>
#include <QPrinter>

#include <algorithm>
#include <memory>

namespace kx::qt {

void PaintOnPage(QPainter& Painter, const QRectF& Page, double PixelsPerInch, TSize Size,
                 const TPaintPicture& Paint) {
    if (Size.Width < 1 || Size.Height < 1) return;
    const double scale = std::min(
        {PixelsPerInch / TFont::CPixelsPerInch, Page.width() / Size.Width, Page.height() / Size.Height});
    Painter.save();
    Painter.translate(Page.center() - QPointF(Size.Width, Size.Height) * scale / 2);
    TPainterDevice device(Painter, Size, scale, true);
    Paint(device);
    Painter.restore();
}

void PrintPicture(QPrinter& Printer, TSize Size, const TPaintPicture& Paint) {
    QPainter painter;
    if (!painter.begin(&Printer)) throw Exception("the printer takes no page");
    const QRectF page(QPointF(), Printer.pageRect(QPrinter::DevicePixel).size());
    PaintOnPage(painter, page, Printer.resolution(), Size, Paint);
}

void PrintForm(TWinControl& Form, QPrinter& Printer) {
    PrintPicture(Printer, Form.GetBoundsRect().Size(),
                 [&Form](TCanvasDevice& Device) { PaintFrame(Form, Device); });
}

QPrintPreviewDialog* PreviewPrint(QWidget* Parent, const TMetafile& Picture, const QString& Title) {
    const auto picture = std::make_shared<TMetafile>();
    picture->Assign(Picture);
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(Title);
    printer->setPageOrientation(Picture.GetWidth() > Picture.GetHeight() ? QPageLayout::Landscape
                                                                         : QPageLayout::Portrait);
    auto* dialog = new QPrintPreviewDialog(printer.get(), Parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    if (!Title.isEmpty()) dialog->setWindowTitle(Title);
    QObject::connect(dialog, &QPrintPreviewDialog::paintRequested, dialog, [picture](QPrinter* Page) {
        Guarded([&] {
            PrintPicture(*Page, {picture->GetWidth(), picture->GetHeight()},
                         [&](TCanvasDevice& Device) { picture->Draw(Device); });
        });
    });
    // The dialog refers to the printer until it has gone.
    QObject::connect(dialog, &QObject::destroyed, [printer] {});
    dialog->open();
    return dialog;
}

} // namespace kx::qt
