// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "component/vela-msg-box.h"
#include "image-manager/image-manager.h"
#include "look/keys_p.h"
#include "support/all-widgets.h"
#include "support/controls.h"
#include "support/log-capture.h"
#include "support/resource-folder.h"
#include "utils/ui-path-manager.h"

#include <QDialogButtonBox>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <functional>

namespace {

using Names = QSet<QString>;

// The names that entries have in the field name.
template<typename Entry, std::size_t Size>
Names namesOf(const Entry (&entries)[Size], const char *Entry::*name)
{
    Names names;
    for (const Entry &entry : entries) {
        names.insert(QString::fromLatin1(entry.*name));
    }
    return names;
}

QStringList sorted(const Names &names)
{
    QStringList list = names.values();
    list.sort();
    return list;
}

// What makes itself heard of names that are not installed.
class Requests
{
public:
    Names styles() const { return m_styles; }
    Names images() const { return m_images; }
    Names texts() const { return m_texts; }

    void take(LogCapture &log)
    {
        const QStringList messages = log.takeTexts();
        for (const QString &message : messages) {
            take(message, QStringLiteral("Cannot find stylesheet \"(.*)\""), m_styles);
            take(message, QStringLiteral("Cannot load pixmap \"(.*)\""), m_images);
            take(message, QStringLiteral("Cannot find key in ComponentStrings \"(.*)\""), m_texts);
        }
    }

private:
    static void take(const QString &message, const QString &pattern, Names &names)
    {
        const auto match = QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(message);
        if (match.hasMatch()) {
            names.insert(match.captured(1));
        }
    }

    Names m_styles;
    Names m_images;
    Names m_texts;
};

// Shows each message that has no window to be shown in, calls visit with its box and closes it.
void visitBoxes(const std::function<void(QWidget *)> &visit)
{
    const auto title = QStringLiteral("title");
    const auto text = QStringLiteral("text");
    const std::function<void()> shortcuts[] = {
        [&] { showInfoMsg(title, text, nullptr); },          [&] { showWarningMsg(title, text, nullptr); },
        [&] { showWarningMsg(title, text, text, nullptr); }, [&] { showConfirmMsg(title, text, nullptr); },
        [&] { showUpgradingMsg(title, text, nullptr); },
    };
    for (const auto &shortcut : shortcuts) {
        QTimer::singleShot(0, qApp, [&visit] {
            QWidget *box = QApplication::activeModalWidget();
            visit(box);
            box->close();
        });
        shortcut();
    }
}

// Class names, those of the bases too, and "#" with the object names of root and all below it.
Names reachedFrom(const QWidget *root)
{
    QList<const QWidget *> widgets {root};
    const auto descendants = root->findChildren<QWidget *>();
    for (const QWidget *widget : descendants) {
        widgets.append(widget);
    }
    Names names;
    for (const QWidget *widget : qAsConst(widgets)) {
        for (const QMetaObject *type = widget->metaObject(); type; type = type->superClass()) {
            names.insert(QString::fromLatin1(type->className()));
        }
        names.insert(QLatin1Char('#') + widget->objectName());
    }
    return names;
}

// Stands in the section of entry and nowhere else.
QString markerOf(const Vela::StyleEntry &entry)
{
    return QLatin1String("Marker") + QString::number(static_cast<int>(entry.style)) + QLatin1Char('_');
}

// Names of the properties that were given to widget, those of the toolkit's own use aside.
Names propertiesOf(const QWidget *widget)
{
    Names names;
    const QList<QByteArray> properties = widget->dynamicPropertyNames();
    for (const QByteArray &property : properties) {
        if (!property.startsWith('_')) {
            names.insert(QString::fromLatin1(property));
        }
    }
    return names;
}

// Adds to found, by key, what find finds from each widget on root and below it that has the key's section.
void collect(const QWidget *root, QMap<QString, Names> &found, Names (*find)(const QWidget *))
{
    QList<const QWidget *> widgets {root};
    const auto descendants = root->findChildren<QWidget *>();
    for (const QWidget *widget : descendants) {
        widgets.append(widget);
    }
    for (const QWidget *widget : qAsConst(widgets)) {
        for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
            if (widget->styleSheet().contains(markerOf(entry))) {
                found[QString::fromLatin1(entry.key)] += find(widget);
            }
        }
    }
}

} // namespace

class KeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_folder.writeCatalogue({});
        LogCapture log;
        for (const Vela::FolderEntry &entry : Vela::FolderEntries) {
            UIPathManager::getInstance()->setPath(QString::fromLatin1(entry.key), m_folder.path());
        }
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        QCOMPARE(log.takeTexts(), QStringList()); // any other folder that is asked for would be named there
    }

    // This test comes first, while nothing is installed, so that every request is told of.
    void widgetsAskForAllThatIsListedAndForNothingElse()
    {
        Requests requests;
        {
            LogCapture log;
            const AllWidgets widgets;
            visitBoxes([](QWidget *) {});
            requests.take(log);
        }
        QCOMPARE(sorted(requests.styles()), sorted(namesOf(Vela::StyleEntries, &Vela::StyleEntry::key)));
        QCOMPARE(sorted(requests.images()), sorted(namesOf(Vela::ImageEntries, &Vela::ImageEntry::name)));
        QCOMPARE(sorted(requests.texts()), sorted(namesOf(Vela::TextEntries, &Vela::TextEntry::key)));
    }

    // The images are listed here, but there are no files of theirs.
    void imagesAreAskedForInTheListedStates()
    {
        QStringList names;
        for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
            names.append(QString::fromLatin1(entry.name));
        }
        m_folder.writeCatalogue(names);
        LogCapture log;
        ImageManager::getInstance()->initialize(ImageManager::INIT_LAZY);
        const AllWidgets widgets;
        const QString asked = log.takeTexts().join(QLatin1Char('\n'));
        for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
            for (int state = ImageManager::IMAGE_NORMAL; state <= ImageManager::IMAGE_DISABLE; ++state) {
                const bool isListed = state == ImageManager::IMAGE_NORMAL || entry.states == Vela::ImageStates::All;
                const QString message = QStringLiteral("Cannot load pixmap \"%1\" with type %2")
                                            .arg(QString::fromLatin1(entry.name), QString::number(state));
                QVERIFY2(asked.contains(message) == isListed, qPrintable(message));
            }
        }
    }

    void widgetsSetTheListedProperties()
    {
        LogCapture log;
        installMarkers();
        QMap<QString, Names> set;
        const AllWidgets widgets;
        collect(&widgets, set, propertiesOf);
        for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
            const QString listed = QString::fromLatin1(entry.properties).section(QLatin1Char(':'), 0, 0);
            QCOMPARE(sorted(set.value(QString::fromLatin1(entry.key))).join(QLatin1String(", ")), listed);
        }
    }

    void rulesReachTheListedClassesAndObjects_data()
    {
        QTest::addColumn<Names>("reached");
        QTest::addColumn<QString>("listed");

        LogCapture log;
        installMarkers();
        QMap<QString, Names> reached;
        const AllWidgets widgets;
        collect(&widgets, reached, reachedFrom);
        visitBoxes([&reached](QWidget *box) { collect(box, reached, reachedFrom); });
        for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
            QTest::newRow(entry.key) << reached.value(QString::fromLatin1(entry.key))
                                     << QString::fromLatin1(entry.reaches);
        }
    }

    void rulesReachTheListedClassesAndObjects()
    {
        QFETCH(Names, reached);
        QFETCH(QString, listed);
        const QStringList names = listed.split(QStringLiteral(", "));
        QVERIFY(!names.isEmpty());
        for (const QString &name : names) {
            QVERIFY2(reached.contains(name), qPrintable(name));
        }
    }

private:
    void installMarkers()
    {
        QByteArray sheets;
        for (const Vela::StyleEntry &entry : Vela::StyleEntries) {
            sheets += "== " + QByteArray(entry.key) + " ==\n" + markerOf(entry).toLatin1() + " { }\n";
        }
        installSheets(m_folder, sheets);
    }

    ResourceFolder m_folder;
};

QTEST_MAIN(KeysTest)

#include "tst_keys.moc"
