// The plugin as Qt Designer and programs load it: nothing of the library is linked here.

#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPluginLoader>
#include <QUiLoader>
#include <QWidget>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

namespace {

const QString CFigure = KX_SOURCE "/examples/formaldehyde_calibration.kxf";

/// How many colours there are to see.
std::size_t ColoursOf(QWidget& Widget) {
    const QImage image = Widget.grab().toImage();
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) colours.insert(image.pixel(x, y));
    return colours.size();
}

QDesignerCustomWidgetInterface& Plugin() {
    static QPluginLoader loader(KXGRAPH_DESIGNER);
    auto* plugin = qobject_cast<QDesignerCustomWidgetInterface*>(loader.instance());
    if (!plugin) throw std::runtime_error(loader.errorString().toStdString());
    return *plugin;
}

/// One that is seen and has handled what came.
struct TShown {
    explicit TShown(QWidget* Shown) : Widget(Shown) {
        Widget->resize(500, 400);
        Widget->show();
    }
    std::size_t Colours(const QString& File) const {
        EXPECT_TRUE(Widget->setProperty("formFile", File));
        QApplication::processEvents();
        return ColoursOf(*Widget);
    }
    QString Error() const { return Widget->property("formError").toString(); }
    std::unique_ptr<QWidget> Widget;
};

TEST(DesignerPlugin, TellsWhatDesignerAsks) {
    const auto& plugin = Plugin();
    EXPECT_EQ(plugin.name(), "kx::qt::FormView");
    EXPECT_EQ(plugin.group(), "kxgraph");
    EXPECT_EQ(plugin.includeFile(), "<kxgraph/qtwidgets/Kxformview.h>");
    EXPECT_FALSE(plugin.toolTip().isEmpty() || plugin.isContainer());
    EXPECT_FALSE(plugin.icon().pixmap(22, 22).toImage().allGray());
    EXPECT_TRUE(plugin.domXml().contains("name=\"formView\""));
}

TEST(DesignerPlugin, ShowsTheFormOfAFileOrWhatIsWrongWithIt) {
    const TShown view(Plugin().createWidget(nullptr));
    EXPECT_STREQ(view.Widget->metaObject()->className(), "kx::qt::FormView");
    EXPECT_EQ(view.Colours(""), 1u);
    const std::size_t figure = view.Colours(CFigure);
    EXPECT_GT(figure, 50u);
    EXPECT_EQ(view.Error(), "");
    EXPECT_GT(view.Colours("nowhere.kxf"), 1u) << "the message";
    EXPECT_TRUE(view.Error().startsWith("nowhere.kxf: ")) << view.Error().toStdString();
    view.Colours(KX_SOURCE "/README.md");
    EXPECT_TRUE(view.Error().contains("README.md:")) << view.Error().toStdString();
    const QString before = QDir::currentPath();
    QDir::setCurrent(QFileInfo(CFigure).path());
    EXPECT_EQ(view.Colours(QFileInfo(CFigure).fileName()), figure);
    QDir::setCurrent(before);
    EXPECT_EQ(view.Colours(""), 1u);
}

TEST(DesignerPlugin, IsFoundByProgramsThatLoadWindows) {
    QByteArray ui = R"(<ui version="4.0"><class>W</class><widget class="QWidget" name="W">
        <widget class="kx::qt::FormView" name="formView">
        <property name="geometry"><rect><x>0</x><y>0</y><width>480</width><height>380</height></rect></property>
        <property name="formFile"><string notr="true">)" +
                    CFigure.toUtf8() + R"(</string></property></widget></widget></ui>)";
    QBuffer file(&ui);
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QFileInfo(KXGRAPH_DESIGNER).path());
    const TShown window(loader.load(&file));
    auto* view = window.Widget->findChild<QWidget*>("formView");
    ASSERT_TRUE(view && view->inherits("kx::qt::FormView"));
    QApplication::processEvents();
    EXPECT_GT(ColoursOf(*view), 50u) << view->property("formError").toString().toStdString();
}

} // namespace

int main(int Count, char** Arguments) {
    testing::InitGoogleTest(&Count, Arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(Count, Arguments);
    return RUN_ALL_TESTS();
}
