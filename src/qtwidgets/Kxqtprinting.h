#pragma once
// Printing, with a preview.

#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/qt/Kxqtpicture.h>

#include <QPainter>
#include <QRectF>
#include <QString>
#include <QWidget>

class QPrinter;
class QPrintPreviewDialog;

namespace kx::qt {

/// Paints a picture of Size logical pixels in the middle of Page, which is in pixels of Painter, of which
/// there are PixelsPerInch: in its own size, 96 logical pixels an inch, or as much smaller as Page asks for.
void PaintOnPage(QPainter& Painter, const QRectF& Page, double PixelsPerInch, TSize Size,
                 const TPaintPicture& Paint);

/// Prints one page. Raises Exception "the printer takes no page" when nothing can be painted there.
void PrintPicture(QPrinter& Printer, TSize Size, const TPaintPicture& Paint);
/// Prints a form, or any part of one, as its window shows it.
void PrintForm(TWinControl& Form, QPrinter& Printer);
/// Prints a graph, or whatever else paints itself on a device, on white paper.
template <class T>
void PrintGraph(T& Graph, QPrinter& Printer) {
    PrintPicture(Printer, Graph.GetBoundsRect().Size(),
                 [&Graph](TCanvasDevice& Device) { Graph.PaintTo(Device); });
}

/// Opens a preview over Parent, from which the picture can be printed, and returns. The picture is kept as it
/// is now, whatever happens to what it shows; the dialog goes when it is closed, or with Parent.
QPrintPreviewDialog* PreviewPrint(QWidget* Parent, const TMetafile& Picture, const QString& Title = {});

} // namespace kx::qt
