// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "support/log-capture.h"
#include "utils/component-strings.h"
#include "utils/debug-message.h"
#include "utils/ui-path-manager.h"

#include <QtTest>

namespace {

// As gcc writes it; clang sets a blank before the "&".
QString nameOf(QString function)
{
    return function.replace(QStringLiteral(" &"), QStringLiteral("&"));
}

} // namespace

class DebugMessageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theCategoryIsNamedDebugMessage();
    void aWarningCarriesFileLineAndFunctionOfItsPlace();
    void partsAreSeparatedByBlanksAndStringsQuoted();
    void nothingIsEmittedWhenWarningsOfTheCategoryAreOff();
};

void DebugMessageTest::cleanup()
{
    QLoggingCategory::setFilterRules(QString());
}

void DebugMessageTest::theCategoryIsNamedDebugMessage()
{
    QCOMPARE(debug_message().categoryName(), "debug.message");
    QVERIFY(debug_message().isWarningEnabled());
}

void DebugMessageTest::aWarningCarriesFileLineAndFunctionOfItsPlace()
{
    LogCapture log;
    UIPathManager::getInstance()->getPath(QStringLiteral("unknown"));
    ComponentStrings::getInstance()->getString(QStringLiteral("unknown"));

    const QVector<LogCapture::Message> messages = log.takeMessages();
    QCOMPARE(messages.size(), 2);
    for (const LogCapture::Message &message : messages) {
        QCOMPARE(message.type, QtWarningMsg);
        QCOMPARE(message.category, QStringLiteral("debug.message"));
        QVERIFY(message.line > 0);
    }
    QCOMPARE(messages[0].file, QStringLiteral("src/utils/ui-path-manager.cpp"));
    QCOMPARE(nameOf(messages[0].function), QStringLiteral("QString UIPathManager::getPath(const QString&)"));
    QCOMPARE(messages[1].file, QStringLiteral("src/utils/component-strings.cpp"));
    QCOMPARE(nameOf(messages[1].function), QStringLiteral("QString ComponentStrings::getString(const QString&)"));
}

void DebugMessageTest::partsAreSeparatedByBlanksAndStringsQuoted()
{
    LogCapture log;
    UIPathManager::getInstance()->getPath(QStringLiteral("a \"b\""));
    QCOMPARE(log.takeTexts(), QStringList {QStringLiteral("Cannot find path by key \"a \\\"b\\\"\"")});
}

void DebugMessageTest::nothingIsEmittedWhenWarningsOfTheCategoryAreOff()
{
    QLoggingCategory::setFilterRules(QStringLiteral("debug.message.warning=false"));
    LogCapture log;

    UIPathManager::getInstance()->getPath(QStringLiteral("unknown"));
    UIPathManager::getInstance()->setPath(QStringLiteral("twice"), QString());
    UIPathManager::getInstance()->setPath(QStringLiteral("twice"), QString());
    ComponentStrings::getInstance()->getString(QStringLiteral("unknown"));

    QCOMPARE(log.takeMessages().size(), 0);
}

QTEST_GUILESS_MAIN(DebugMessageTest)
#include "tst_debug_message.moc"
