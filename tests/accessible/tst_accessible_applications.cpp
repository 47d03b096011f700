// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "accessible/accessible.h"
#include "component/vela-button.h"
#include "support/resource-folder.h"

#include <QApplication>
#include <QtTest>

class AccessibleApplicationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // One after another, as tests of an application make them.
    void eachApplicationIsSpokenFor_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("first") << QStringLiteral("Settings");
        QTest::newRow("second") << QStringLiteral("Options");
    }

    void eachApplicationIsSpokenFor()
    {
        QFETCH(QString, name);
        char program[] = "test";
        char *arguments[] = {program, nullptr};
        int count = 1;
        const QApplication application(count, arguments);
        installReferenceTheme();
        VelaIconButton button(QStringLiteral("bt_settings"));
        button.setToolTip(name);
        QCOMPARE(nameOf(&button), name);
    }
};

QTEST_APPLESS_MAIN(AccessibleApplicationsTest)
#include "tst_accessible_applications.moc"
