// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

#include "traps.h"

#include <StyleManager>
#include <VelaTheme>

#include "scale/scaled.h"

#include <QtWidgets>

namespace {

struct Trap
{
    const char *name;
    const char *meant; // style sheet file, in which FOLDER stands for a folder with images
    const char *written;
    QWidget *(*make)(QWidget *parent); // what the section "trap" is for
};

QWidget *button(QWidget *parent)
{
    return new QPushButton(QStringLiteral("Save"), parent);
}

QWidget *label(QWidget *parent)
{
    return new QLabel(QStringLiteral("Pictures"), parent);
}

QWidget *image(QWidget *parent)
{
    return new QLabel(parent);
}

// A panel with something in it.
QWidget *panel(QWidget *parent)
{
    auto *made = new QFrame(parent);
    auto *layout = new QHBoxLayout(made);
    layout->addWidget(new QLabel(QStringLiteral("Name"), made));
    layout->addWidget(new QPushButton(QStringLiteral("Save"), made));
    return made;
}

QWidget *buttonOfFixedHeight(QWidget *parent)
{
    QWidget *made = button(parent);
    made->setFixedHeight(scaled(24));
    return made;
}

QWidget *fieldFromRightToLeft(QWidget *parent)
{
    auto *made = new QLineEdit(QStringLiteral("Pictures"), parent);
    made->setLayoutDirection(Qt::RightToLeft);
    return made;
}

constexpr Trap Traps[] = {
    {"line-comment",
     "== first ==\nQPushButton { padding: 4px; } /* small */\n"
     "== trap ==\nQPushButton { background: #00695C; color: #FFFFFF; padding: 6px 24px; border: none; }\n",
     "== first ==\nQPushButton { padding: 4px; } // small\n"
     "== trap ==\nQPushButton { background: #00695C; color: #FFFFFF; padding: 6px 24px; border: none; }\n",
     button},
    {"address-comment",
     "== trap ==\nQLabel { min-width: 20px; min-height: 20px; border: 1px solid #00695C; image: "
     "url(\"FOLDER/add.png\"); }\n",
     "== trap ==\nQLabel { min-width: 20px; min-height: 20px; border: 1px solid #00695C; image: "
     "url(\"FOLDER//add.png\"); }\n",
     image},
    {"long-length",
     "== trap ==\nQLabel { max-width: 999px; background: #00695C; color: #FFFFFF; padding: 6px 24px; }\n",
     "== trap ==\nQLabel { max-width: 1200px; background: #00695C; color: #FFFFFF; padding: 6px 24px; }\n", label},
    {"image-digits", "== trap ==\nQLabel { min-width: 20px; min-height: 20px; image: url(\"FOLDER/add.png\"); }\n",
     "== trap ==\nQLabel { min-width: 20px; min-height: 20px; image: url(\"FOLDER/add_16px.png\"); }\n", image},
    {"large-image",
     "== trap ==\nQLabel { padding: 10px; min-width: 20px; min-height: 20px; image: url(\"FOLDER/add.png\"); }\n",
     "== trap ==\nQLabel { padding: 10px; min-width: 20px; min-height: 20px; background-image: "
     "url(\"FOLDER/add.png\"); }\n",
     image},
    {"fraction", "== trap ==\nQPushButton { border: 1px solid #00695C; background: #FFFFFF; padding: 6px 24px; }\n",
     "== trap ==\nQPushButton { border: 0.7px solid #00695C; background: #FFFFFF; padding: 6px 24px; }\n", button},
    {"no-class", "== trap ==\nQFrame { background: #E0F2F1; } QFrame QLabel { background: transparent; }\n",
     "== trap ==\n* { background: #E0F2F1; border: 1px solid #00695C; padding: 6px; }\n", panel},
    {"fixed-height",
     "== trap ==\nQPushButton { background: #00695C; color: #FFFFFF; padding: 0px 24px; border: none; }\n",
     "== trap ==\nQPushButton { background: #00695C; color: #FFFFFF; padding: 0px 24px; border: none; min-height: "
     "48px; }\n",
     buttonOfFixedHeight},
    {"right-to-left",
     "== trap ==\nQLineEdit { padding-left: 26px; background: #FFFFFF url(\"FOLDER/tmp.png\") no-repeat left center; "
     "}\n"
     "QLineEdit[layoutDirection=\"1\"], QLineEdit[layoutDirection=\"RightToLeft\"] { background-position: right "
     "center; }\n",
     "== trap ==\nQLineEdit { padding-left: 26px; background: #FFFFFF url(\"FOLDER/tmp.png\") no-repeat left center; "
     "}\n",
     fieldFromRightToLeft},
};

// One drawing under the names that the sheets ask for.
bool writeImages(const QString &folder)
{
    const QImage drawing(VelaTheme::getInstance()->folder() + QStringLiteral("/images/bt_add.png"));
    const int size = scaled(20);
    const QImage small = drawing.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return drawing.save(folder + QStringLiteral("/add.png")) && drawing.save(folder + QStringLiteral("/add_16px.png"))
        && small.save(folder + QStringLiteral("/tmp.png"));
}

QString section(const char *text, const QString &folder)
{
    QFile file(folder + QStringLiteral("/trap.qss"));
    const QByteArray sheet = QByteArray("== trap ==\n") + text; // an earlier one's is replaced
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(sheet).replace("FOLDER", folder.toUtf8())) < 0) {
        return {};
    }
    file.close();
    StyleManager::getInstance()->initialize({file.fileName()});
    return getStyleSheet("trap", false);
}

QImage pictureOf(const Trap &trap, const char *text, const QString &folder)
{
    QWidget page;
    auto *layout = new QVBoxLayout(&page);
    QWidget *widget = trap.make(&page);
    layout->addWidget(widget, 0, Qt::AlignLeft | Qt::AlignTop);
    widget->setStyleSheet(section(text, folder));
    page.resize(scaled(170), scaled(64));
    page.show();
    QCoreApplication::processEvents();
    return page.grab(QRect(QPoint(), QSize(scaled(170), scaled(64)))).toImage();
}

QImage beside(const QImage &meant, const QImage &written)
{
    const int space = scaled(2);
    QImage both(meant.width() + space + written.width(), meant.height(), QImage::Format_RGB32);
    both.fill(Qt::lightGray);
    QPainter painter(&both);
    painter.drawImage(0, 0, meant);
    painter.drawImage(meant.width() + space, 0, written);
    return both;
}

} // namespace

bool makeTraps(const QString &themes, const QString &output)
{
    const QTemporaryDir folder;
    if (VelaTheme::hasErrors(VelaTheme::getInstance()->load(themes + QStringLiteral("/light"), QStringLiteral("enu")))
        || !writeImages(folder.path())) {
        return false;
    }
    for (const Trap &trap : Traps) {
        const QImage meant = pictureOf(trap, trap.meant, folder.path());
        const QImage written = pictureOf(trap, trap.written, folder.path());
        const QString file = QStringLiteral("%1/trap-%2.png").arg(output, QLatin1String(trap.name));
        if (meant == written || !beside(meant, written).save(file)) {
            qCritical().noquote() << "There is no picture" << file;
            return false;
        }
    }
    return true;
}
