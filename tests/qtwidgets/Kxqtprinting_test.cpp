#include <kxgraph/qtwidgets/Kxqtprinting.h>

#include "qtwidgets/windows.h"
#include "support/graphfixture.h"

#include <QImage>
#include <QPointer>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>

namespace kx::test::qtprinting {

TEST(Printing, PutsAPictureIntoTheMiddleOfThePageInItsSizeOrSmaller) {
    const struct {
        QSize Page;
        double PixelsPerInch;
        QRect Expected;
    } cases[] = {{{400, 300}, 96, {150, 125, 100, 50}},
                 {{400, 300}, 192, {100, 100, 200, 100}},
                 {{50, 300}, 96, {0, 138, 50, 25}},
                 {{400, 20}, 600, {180, 0, 40, 20}}};
    for (const auto& c : cases) {
        QImage page(c.Page, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        qt::PaintOnPage(painter, page.rect(), c.PixelsPerInch, {100, 50}, [](TCanvasDevice& Device) {
            Device.FillRect(TRealRect(TRect{0, 0, 100, 50}), {.Color = clBlack});
        });
        QRegion black;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x)
                if (page.pixelColor(x, y).lightness() < 128) black += QRect(x, y, 1, 1);
        EXPECT_EQ(black, QRegion(c.Expected)) << black.boundingRect().x() << "," << black.boundingRect().y();
    }
}

TEST(Printing, WritesAPdfOfAGraphAndOfAForm) {
    const TTemporaryDirectory directory;
    TGraphForm g;
    g.Fill({{1, 2}, {3, 4}});
    const std::string file = directory / "page.pdf";
    for (const bool form : {false, true}) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(file));
        if (form)
            qt::PrintForm(*g.Form, printer);
        else
            qt::PrintGraph(*g.Graph, printer);
        const std::string pdf = ReadFile(file);
        EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
        EXPECT_TRUE(Holds(pdf, "/Count 1")) << "one page";
        EXPECT_TRUE(Holds(pdf, "/Font")) << "text is text";
        std::filesystem::remove(file);
    }
}

TEST(Printing, PreviewKeepsItsPictureWhenTheGraphHasGone) {
    QWidget window;
    window.show();
    QPrintPreviewDialog* dialog = nullptr;
    {
        TGraphForm g;
        g.Fill({{1, 2}, {3, 4}});
        g.Graph->PaintToMetafile();
        dialog = qt::PreviewPrint(&window, g.Graph->GetMetafile(), "a title");
    }
    auto* preview = dialog->findChild<QPrintPreviewWidget*>();
    ASSERT_NE(preview, nullptr);
    EXPECT_TRUE(Wait([&] { return preview->pageCount() == 1; }));
    EXPECT_EQ(preview->orientation(), QPageLayout::Landscape);
    preview->updatePreview();
    QPointer<QPrintPreviewDialog> gone(dialog);
    dialog->close();
    EXPECT_TRUE(Wait([&] { return gone.isNull(); }));
}

} // namespace kx::test::qtprinting
