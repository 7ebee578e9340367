#include <kxgraph/qtdesigner/Kxdesignerplugin.h>

#include <kxgraph/annotation/Kxclasses.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/qt/Kxqtzoneevents.h>
#include <kxgraph/qtdesigner/Kxdesignedview.h>
#include <kxgraph/qtwidgets/Kxwidgetshost.h>

#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace kx::qt {

namespace {

/// What views need. A program that shares the library with the plugin has its own host.
void Prepare() {
    if (!dynamic_cast<TQtWidgetsHost*>(&TApplication::Instance().GetHost())) InstallWidgets();
    ResolveZones();
    RegisterClasses();
}

/// Two axes, a curve and its points, in units of a 22nd.
QPixmap DrawIcon(int Size) {
    constexpr double CUnits = 22;
    QPixmap icon(Size, Size);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(Size / CUnits, Size / CUnits);
    painter.fillRect(QRectF(1, 1, 20, 20), Qt::white);
    painter.setPen(QPen(QColor(0x44, 0x44, 0x44), 1.5));
    painter.drawPolyline(QPolygonF({{4, 2}, {4, 18}, {20, 18}}));
    QPainterPath curve({4, 16});
    curve.cubicTo(10, 15, 11, 5, 20, 4);
    painter.strokePath(curve, QPen(QColor(0xC0, 0x30, 0x28), 1.5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x1F, 0x5F, 0xA8));
    for (const QPointF at : {QPointF(7, 15), QPointF(10.5, 12.5), QPointF(13, 7.5), QPointF(17, 5.5)})
        painter.drawEllipse(at, 1.6, 1.6);
    return icon;
}

} // namespace

QString TFormViewPlugin::name() const { return QStringLiteral("kx::qt::FormView"); }
QString TFormViewPlugin::group() const { return QStringLiteral("kxgraph"); }
QString TFormViewPlugin::toolTip() const { return QStringLiteral("A kxgraph form: graphs of a form file"); }
QString TFormViewPlugin::whatsThis() const {
    return QStringLiteral(
        "Shows the form that stands in formFile, a .kxf file of kxdesign, kxplot or a program.");
}
QString TFormViewPlugin::includeFile() const { return QStringLiteral("<kxgraph/qtwidgets/Kxformview.h>"); }

QIcon TFormViewPlugin::icon() const {
    QIcon icon;
    for (const int size : {22, 44}) icon.addPixmap(DrawIcon(size));
    return icon;
}

QString TFormViewPlugin::domXml() const {
    return QStringLiteral(R"(<ui language="c++" displayname="kxgraph form">
  <widget class="kx::qt::FormView" name="formView">
    <property name="geometry"><rect><x>0</x><y>0</y><width>400</width><height>300</height></rect></property>
  </widget>
  <customwidgets>
    <customwidget>
      <class>kx::qt::FormView</class>
      <extends>QWidget</extends>
      <propertyspecifications>
        <stringpropertyspecification name="formFile" notr="true" type="singleline"/>
        <tooltip name="formFile">A form file (.kxf); relative names begin beside this window's file</tooltip>
      </propertyspecifications>
    </customwidget>
  </customwidgets>
</ui>)");
}

QWidget* TFormViewPlugin::createWidget(QWidget* Parent) {
    Prepare();
    return new TDesignedView(Parent, FWithDesigner);
}

} // namespace kx::qt
