// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "style-manager/style-manager.h"
#include "ui_all-on-a-form.h"

#include <QFile>
#include <QFileInfo>
#include <QPluginLoader>
#include <QProcess>
#include <QUiLoader>
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>

namespace {

constexpr char ThemeVariable[] = "VELA_DESIGNER_THEME";
constexpr char ChildVariable[] = "VELA_TEST_WITHOUT_THEME"; // set for the process that has no theme

QList<QDesignerCustomWidgetInterface *> pluginWidgets()
{
    static QPluginLoader loader(QStringLiteral(VELA_DESIGNER_PLUGIN));
    const auto *plugin = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    return plugin ? plugin->customWidgets() : QList<QDesignerCustomWidgetInterface *>();
}

} // namespace

class DesignerPluginTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyWidgetIsMadeShownAndPainted_data();
    void everyWidgetIsMadeShownAndPainted();
    void theyHaveAGroupAPurposeAndASize();
    void aLoadedFormHasTheClassesAndProperties();
    void aCompiledFormHasTheClassesAndProperties();
    void withoutAThemeTheyAreMadeAllTheSame();
};

void DesignerPluginTest::initTestCase()
{
    const QString theme =
        qEnvironmentVariableIsSet(ChildVariable) ? QStringLiteral("/nonexistent") : QStringLiteral(VELA_THEME_DIR);
    qputenv(ThemeVariable, theme.toUtf8());
    const QPalette palette = QApplication::palette();
    const QList<QDesignerCustomWidgetInterface *> widgets = pluginWidgets();
    QVERIFY(!widgets.isEmpty());
    for (QDesignerCustomWidgetInterface *widget : widgets) {
        widget->initialize(nullptr);
        QVERIFY(widget->isInitialized());
    }
    QCOMPARE(QApplication::palette(), palette);
}

void DesignerPluginTest::everyWidgetIsMadeShownAndPainted_data()
{
    QTest::addColumn<int>("index");
    const QList<QDesignerCustomWidgetInterface *> widgets = pluginWidgets();
    for (int i = 0; i < widgets.size(); ++i) {
        QTest::newRow(qPrintable(widgets[i]->name())) << i;
    }
}

void DesignerPluginTest::everyWidgetIsMadeShownAndPainted()
{
    QFETCH(int, index);
    QDesignerCustomWidgetInterface *factory = pluginWidgets().at(index);
    QWidget form;
    QWidget *widget = factory->createWidget(&form);
    QVERIFY(widget);
    QCOMPARE(widget->parentWidget(), &form);
    QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), factory->name());
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QVERIFY(!widget->grab().isNull());
}

void DesignerPluginTest::theyHaveAGroupAPurposeAndASize()
{
    const QList<QDesignerCustomWidgetInterface *> widgets = pluginWidgets();
    for (QDesignerCustomWidgetInterface *factory : widgets) {
        QCOMPARE(factory->group(), QStringLiteral("Vela Components"));
        QVERIFY(!factory->toolTip().isEmpty());
        QVERIFY(factory->domXml().contains(QStringLiteral("<width>")));
        QCOMPARE(factory->isContainer(), factory->name() == QStringLiteral("VelaFootbar"));
    }
}

namespace {

void verifyForm(const QWidget &form)
{
    const QList<QDesignerCustomWidgetInterface *> widgets = pluginWidgets();
    for (QDesignerCustomWidgetInterface *factory : widgets) {
        QString name = factory->name();
        name[0] = QLatin1Char('v');
        const auto *widget = form.findChild<QWidget *>(name);
        QVERIFY2(widget, qPrintable(name));
        QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), factory->name());
    }
    const auto *button = form.findChild<VelaButton *>(QStringLiteral("velaButton"));
    QCOMPARE(button->text(), QStringLiteral("Apply"));
    QCOMPARE(button->styleSheet(), getStyleSheet("component.default_button", false));
    QVERIFY(!button->styleSheet().isEmpty());
}

} // namespace

void DesignerPluginTest::aLoadedFormHasTheClassesAndProperties()
{
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QFileInfo(QStringLiteral(VELA_DESIGNER_PLUGIN)).path());
    QFile file(QStringLiteral(VELA_FORM));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const std::unique_ptr<QWidget> form(loader.load(&file));
    QVERIFY2(form, qPrintable(loader.errorString()));
    verifyForm(*form);
}

void DesignerPluginTest::aCompiledFormHasTheClassesAndProperties()
{
    QWidget form;
    Ui::AllOnAForm().setupUi(&form);
    verifyForm(form);
}

void DesignerPluginTest::withoutAThemeTheyAreMadeAllTheSame()
{
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QLatin1String(ChildVariable), QStringLiteral("1"));
    child.setProcessEnvironment(environment);
    child.setProcessChannelMode(QProcess::MergedChannels);
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("everyWidgetIsMadeShownAndPainted")});
    QVERIFY(child.waitForFinished());
    const QByteArray output = child.readAll();
    QVERIFY2(child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0, output.constData());
    QVERIFY2(output.contains("Cannot find stylesheet"), output.constData());
}

QTEST_MAIN(DesignerPluginTest)
#include "tst_designer_plugin.moc"
