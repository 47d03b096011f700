// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "theme-images.h"

#include "findings.h"
#include "sheet-check.h"

#include "look/keys_p.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QJsonArray>

#include <algorithm>

namespace {

constexpr int DrawnScale = 4; // images are drawn at this multiple of their size on the screen
constexpr int LongestSide = 8192;
constexpr char Signature[] = "\x89PNG\r\n\x1a\n";

const QString CatalogueName = QStringLiteral("images.json");
const QString ImagesKey = QStringLiteral("images");
const QString ScaledImagesKey = QStringLiteral("tmp_images");

const QStringList &stateEndings()
{
    static const QStringList endings = {QStringLiteral("_hover"), QStringLiteral("_click"), QStringLiteral("_disable")};
    return endings;
}

bool isKey(const QString &key)
{
    return key == ImagesKey || key == ScaledImagesKey;
}

const Vela::ImageEntry *entryOf(const QString &name)
{
    const auto entry = std::find_if(std::begin(Vela::ImageEntries), std::end(Vela::ImageEntries),
                                    [&name](const Vela::ImageEntry &e) { return name == QLatin1String(e.name); });
    return entry == std::end(Vela::ImageEntries) ? nullptr : entry;
}

QString withEnding(const QString &name)
{
    return name + QLatin1String(".png");
}

QString inText(const QSize &size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

} // namespace

ThemeImages::ThemeImages(const QString &folder, Findings *findings) :
    m_folder(folder), m_findings(findings), m_catalogue(folder, CatalogueName, "catalogue-json", findings)
{
    const QStringList files = QDir(folder + QStringLiteral("/images")).entryList(QDir::Files | QDir::Hidden);
    m_files = QSet<QString>(files.cbegin(), files.cend());
    readCatalogue();
}

void ThemeImages::readCatalogue()
{
    const auto read = [this](const QString &key) {
        QStringList names;
        const QString meant = nearest(key, m_catalogue.object().keys());
        const bool isThere = m_catalogue.object().contains(key) || isKey(meant);
        const QJsonArray array = m_catalogue.object().value(isThere ? key : meant).toArray();
        for (const QJsonValue &value : array) {
            if (value.isString()) {
                names.append(value.toString());
            }
        }
        return names;
    };
    m_names = read(ImagesKey);
    m_scaledNames = read(ScaledImagesKey);
    for (QString &name : m_scaledNames) {
        name.remove(QLatin1Char(' '));
    }
}

QString ThemeImages::inOtherCase(const QString &file) const
{
    for (const QString &candidate : m_files) {
        if (candidate.compare(file, Qt::CaseInsensitive) == 0 && candidate != file) {
            return candidate;
        }
    }
    return QString();
}

QSize ThemeImages::sizeOf(const QString &name) const
{
    const QString file = withEnding(name);
    if (!m_files.contains(file)) {
        return QSize();
    }
    if (!m_sizes.contains(file)) {
        m_sizes.insert(file, QImageReader(m_folder + QStringLiteral("/images/") + file).size());
    }
    return m_sizes.value(file);
}

bool ThemeImages::isSpoilt(const QString &name) const
{
    return m_spoilt.contains(name)
        || std::any_of(stateEndings().cbegin(), stateEndings().cend(), [this, &name](const QString &ending) {
               return name.endsWith(ending) && m_spoilt.contains(name.chopped(ending.size()));
           });
}

void ThemeImages::check(const UsedImages &used)
{
    if (!QDir(m_folder + QStringLiteral("/images")).exists()) {
        m_findings->remove([](const Finding &finding) { return qstrcmp(finding.rule->name, "image-missing") == 0; });
        m_findings->add("image-missing", QStringLiteral("images"), 0, QStringLiteral("there is no such folder"));
        return;
    }
    if (!m_catalogue.exists()) {
        m_findings->add("catalogue-json", CatalogueName, 0, QStringLiteral("there is no such file"));
    }
    for (const QString &file : qAsConst(m_files)) {
        if (file.endsWith(QLatin1String(".png")) && !m_findings->isFull()) {
            checkContent(file);
        }
    }
    if (m_catalogue.isValid()) {
        checkNames();
        checkListedFiles();
        checkStateSizes();
        if (m_catalogue.object().value(ImagesKey).isArray()) {
            checkContract();
            checkSmallness();
            if (!m_hasNameless && !m_findings->hasRule("key-missing")) { // whose images would be taken for unused
                checkUse(used);
            }
        }
    }
}

void ThemeImages::checkNames()
{
    const QStringList known = {ImagesKey, ScaledImagesKey};
    const QStringList keys = m_catalogue.object().keys();
    if (!keys.contains(ImagesKey) && nearest(ImagesKey, keys).isEmpty()) {
        m_findings->add("catalogue-entry", CatalogueName, 1, QStringLiteral("there is no \"images\""));
    }
    for (auto it = m_catalogue.object().begin(); it != m_catalogue.object().end(); ++it) {
        if (!known.contains(it.key())) {
            m_findings->add("catalogue-key", CatalogueName, m_catalogue.lineOf(it.key()),
                            QStringLiteral("\"%1\" is ignored").arg(it.key()) + suggestion(it.key(), known));
        } else if (!it.value().isArray()) {
            m_findings->add("catalogue-entry", CatalogueName, m_catalogue.lineOf(it.key()),
                            QStringLiteral("\"%1\" is no array").arg(it.key()));
        }
    }
    for (const QString &key : known) {
        const QJsonArray array = m_catalogue.object().value(key).toArray();
        QSet<QString> seen;
        for (const QJsonValue &value : array) {
            const QString name = value.toString();
            if (name.isEmpty()) {
                m_hasNameless = true;
                m_findings->add("catalogue-entry", CatalogueName, m_catalogue.lineOf(key),
                                QStringLiteral("\"%1\" holds something that is no name").arg(key));
            } else if (name.contains(QLatin1Char(' '))) {
                m_findings->add("image-name-blank", CatalogueName, m_catalogue.lineInArray(key, name),
                                QStringLiteral("a blank in \"%1\"").arg(name));
                m_spoilt.insert(name);
                m_spoilt.insert(QString(name).remove(QLatin1Char(' ')));
            } else if (name.endsWith(QLatin1String(".png"))) {
                m_findings->add("catalogue-entry", CatalogueName, m_catalogue.lineInArray(key, name),
                                QStringLiteral("\"%1\" is listed without \".png\"").arg(name));
                m_spoilt.insert(name);
                m_spoilt.insert(name.chopped(4));
            } else if (seen.contains(name)) {
                m_findings->add("image-listed-twice", CatalogueName, m_catalogue.lineInArray(key, name),
                                QStringLiteral("\"%1\" is listed twice").arg(name));
            }
            seen.insert(name);
        }
    }
}

void ThemeImages::checkListedFiles()
{
    for (const QString &key : {ImagesKey, ScaledImagesKey}) {
        QStringList names = key == ImagesKey ? m_names : m_scaledNames;
        names.removeDuplicates();
        for (const QString &name : qAsConst(names)) {
            if (m_findings->isFull()) {
                return;
            }
            if (name.isEmpty() || isSpoilt(name)) {
                continue;
            }
            if (m_files.contains(withEnding(name))) {
                if (key == ImagesKey) {
                    checkStates(name);
                }
                continue;
            }
            m_spoilt.insert(name);
            m_spoilt.insert(name.section(QLatin1Char('/'), -1));
            const QString other = inOtherCase(withEnding(name));
            if (other.isEmpty()) {
                QStringList files;
                for (const QString &file : qAsConst(m_files)) {
                    files.append(file.endsWith(QLatin1String(".png")) ? file.chopped(4) : file);
                }
                m_findings->add("image-missing", CatalogueName, m_catalogue.lineInArray(key, name),
                                QStringLiteral("there is no images/%1.png").arg(name) + suggestion(name, files));
                m_spoilt.insert(nearest(name, files));
            } else {
                m_findings->add("image-case", CatalogueName, m_catalogue.lineInArray(key, name),
                                QStringLiteral("the file's name is images/%1, and not images/%2.png").arg(other, name));
                m_spoilt.insert(other.left(other.size() - 4));
                m_spoilt.insert(other);
            }
        }
    }
}

void ThemeImages::checkStates(const QString &name)
{
    const Vela::ImageEntry *entry = entryOf(name);
    QStringList there;
    QStringList missing;
    for (const QString &ending : stateEndings()) {
        (m_files.contains(withEnding(name + ending)) ? there : missing).append(ending);
    }
    // Of an image of the application's own that has some states it is a button that shows them.
    const bool needsAll = entry ? entry->states == Vela::ImageStates::All : !there.isEmpty();
    if (isStateOfListed(name)) {
        return;
    }
    for (const QString &ending : qAsConst(missing)) {
        if (!needsAll) {
            break;
        }
        const QString other = inOtherCase(withEnding(name + ending));
        if (other.isEmpty()) {
            m_findings->add("image-state-missing", CatalogueName, m_catalogue.lineInArray(ImagesKey, name),
                            QStringLiteral("there is no images/%1%2.png").arg(name, ending));
        } else {
            m_findings->add(
                "image-case", CatalogueName, m_catalogue.lineInArray(ImagesKey, name),
                QStringLiteral("the file's name is images/%1, and not images/%2%3.png").arg(other, name, ending));
            m_spoilt.insert(other.left(other.size() - 4));
            m_spoilt.insert(other);
        }
    }
}

// Of images that style sheets show, too.
void ThemeImages::checkStateSizes()
{
    const QStringList endings = stateEndings() + QStringList {QStringLiteral("_focus")};
    for (const QString &file : qAsConst(m_files)) {
        if (!file.endsWith(QLatin1String(".png"))) {
            continue;
        }
        const QString name = file.chopped(4);
        for (const QString &ending : endings) {
            const QString normal = name.endsWith(ending) ? name.chopped(ending.size()) : QString();
            if (normal.isEmpty() || isSpoilt(name) || isSpoilt(normal)) {
                continue;
            }
            const QSize size = sizeOf(name);
            if (size.isValid() && sizeOf(normal).isValid() && size != sizeOf(normal)) {
                m_findings->add("image-state-size", QStringLiteral("images/") + file, 0,
                                QStringLiteral("%1 pixels, where the normal state has %2")
                                    .arg(inText(size), inText(sizeOf(normal))));
                m_spoilt.insert(name);
            }
        }
    }
}

bool ThemeImages::isStateOfListed(const QString &name) const
{
    return std::any_of(stateEndings().cbegin(), stateEndings().cend(), [this, &name](const QString &ending) {
        return name.endsWith(ending) && m_names.contains(name.chopped(ending.size()));
    });
}

void ThemeImages::checkContract()
{
    QStringList unknown;
    for (const QString &name : qAsConst(m_names)) {
        if (!entryOf(name) && !m_files.contains(withEnding(name))) {
            unknown.append(name);
        }
    }
    for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
        const QString name = QString::fromLatin1(entry.name);
        if (!m_names.contains(name) && !isSpoilt(name) && nearest(name, unknown).isEmpty()) {
            m_findings->add(
                "image-unlisted", CatalogueName, m_catalogue.lineOf(ImagesKey),
                QStringLiteral("\"%1\" is not listed, which %2 asks for").arg(name, QString::fromLatin1(entry.usedBy)));
            m_spoilt.insert(name);
        }
    }
}

void ThemeImages::checkContent(const QString &file)
{
    const QString name = file.chopped(4);
    const QString place = QStringLiteral("images/") + file;
    QFile content(m_folder + u'/' + place);
    const bool isPng =
        content.open(QIODevice::ReadOnly) && content.peek(sizeof(Signature) - 1) == QByteArray(Signature);
    if (!isPng) {
        m_findings->add("image-not-png", place, 0, QStringLiteral("not PNG by its content"));
        m_spoilt.insert(name);
        return;
    }
    QImageReader reader(&content, "png");
    const QSize size = reader.size();
    if (size.width() > LongestSide || size.height() > LongestSide) {
        m_findings->add("image-large", place, 0, QStringLiteral("%1 pixels").arg(inText(size)));
        m_spoilt.insert(name);
        return;
    }
    if (reader.read().isNull()) {
        m_findings->add("image-not-png", place, 0, QStringLiteral("broken: %1").arg(reader.errorString()));
        m_spoilt.insert(name);
        return;
    }
    if (size.width() % DrawnScale != 0 || size.height() % DrawnScale != 0) {
        m_findings->add("image-sides", place, 0, QStringLiteral("%1 pixels cannot be divided by 4").arg(inText(size)));
        m_spoilt.insert(name);
    }
}

void ThemeImages::checkSmallness()
{
    for (const Vela::ImageEntry &entry : Vela::ImageEntries) {
        const QString name = QString::fromLatin1(entry.name);
        const QSize size = sizeOf(name);
        const QSize needed = QSize(entry.width, entry.height) * DrawnScale;
        if (size.isValid() && !isSpoilt(name) && (size.width() < needed.width() || size.height() < needed.height())) {
            m_findings->add(
                "image-small", QStringLiteral("images/%1.png").arg(name), 0,
                QStringLiteral("%1 pixels, and four times its place are %2").arg(inText(size), inText(needed)));
        }
    }
}

void ThemeImages::checkUse(const UsedImages &used)
{
    for (const QString &file : qAsConst(m_files)) {
        const bool isPng = file.endsWith(QLatin1String(".png"));
        const QString name = isPng ? file.chopped(4) : file;
        const bool isListed = m_names.contains(name) || m_scaledNames.contains(name) || isStateOfListed(name);
        if (!(isPng && isListed) && !used.drawn.contains(name) && !used.scaled.contains(name) && !isSpoilt(name)
            && !m_findings->isFull()) {
            m_findings->add("image-unused", QStringLiteral("images/") + file, 0,
                            isPng ? QStringLiteral("neither listed nor named by a style sheet")
                                  : QStringLiteral("neither a \".png\" file nor named by a style sheet"));
        }
    }
    for (const QString &name : qAsConst(m_scaledNames)) {
        if (!used.scaled.contains(name) && !used.drawn.contains(name) && !isSpoilt(name)) {
            m_findings->add("image-unused", CatalogueName, m_catalogue.lineInArray(ScaledImagesKey, name),
                            QStringLiteral("no style sheet uses TMPIMG_LOC/tmp_%1.png").arg(name));
        }
    }
}

qint64 ThemeImages::bytes(double scale, double ratio, bool ofAll) const
{
    constexpr int BytesOfAPixel = 4;
    qint64 sum = 0;
    QStringList names = m_names;
    names.removeDuplicates();
    const QStringList endings = QStringList {QString()} + stateEndings();
    for (const QString &name : qAsConst(names)) {
        if (!ofAll && !entryOf(name)) {
            continue;
        }
        for (const QString &ending : endings) {
            const QSize file = sizeOf(name + ending);
            if (file.isValid()) {
                // As the library scales them.
                const QSize fitted = file.scaled(file / double(DrawnScale) * scale * ratio, Qt::KeepAspectRatio);
                sum += qint64(fitted.width()) * fitted.height() * BytesOfAPixel;
            }
        }
    }
    return sum;
}
