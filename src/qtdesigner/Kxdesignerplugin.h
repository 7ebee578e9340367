#pragma once
// FormView in the widget box of Qt Designer, and for programs that load its files.

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace kx::qt {

class TFormViewPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    QString domXml() const override;
    bool isContainer() const override { return false; }
    bool isInitialized() const override { return FWithDesigner; }
    void initialize(QDesignerFormEditorInterface* Designer) override { FWithDesigner = Designer != nullptr; }
    QWidget* createWidget(QWidget* Parent) override;

private:
    bool FWithDesigner = false;
};

} // namespace kx::qt
