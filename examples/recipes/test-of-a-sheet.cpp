// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A unit test of code that asks for a name and waits: the answer is under way before the question.

#include <VelaInputSheet>
#include <VelaMask>
#include <VelaTheme>

#include <QLineEdit>
#include <QtTest>

namespace {

// What is tested.
QString askForName(QWidget *window)
{
    VelaInputSheet sheet(QStringLiteral("Name"), window);
    VelaMask::createMask(&sheet, window, QColor(0, 0, 0, 20));
    return sheet.exec() == QMessageBox::Ok ? sheet.getContent() : QString();
}

} // namespace

class NameTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { VelaTheme::getInstance()->load(QStringLiteral(THEME), QStringLiteral("enu")); }

    void whatIsTypedIsTheName() { QCOMPARE(answered(Qt::Key_Return), QStringLiteral("Ada")); }
    void escapeGivesNoName() { QCOMPARE(answered(Qt::Key_Escape), QString()); }

private:
    static QString answered(Qt::Key key)
    {
        QWidget window;
        window.resize(600, 400);
        window.show();
        // Runs in the sheet's own event loop.
        QTimer::singleShot(0, &window, [&window, key] {
            auto *sheet = window.findChild<VelaInputSheet *>();
            QTest::keyClicks(sheet->getLineEdit(), QStringLiteral("Ada"));
            QTest::keyClick(sheet->getLineEdit(), key);
        });
        return askForName(&window);
    }
};

QTEST_MAIN(NameTest)
#include "test-of-a-sheet.moc"
