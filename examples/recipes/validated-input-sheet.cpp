// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// An input sheet that says what is wrong with the name and takes only a good one.

#include <VelaButton>
#include <VelaInputSheet>
#include <VelaMask>
#include <VelaTheme>

#include <QApplication>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

namespace {

const char Prompt[] = "Name of the folder";

QString faultOf(const QString &name)
{
    if (name.isEmpty()) {
        return QStringLiteral("A name is needed.");
    }
    return name.contains(QLatin1Char('/')) ? QStringLiteral("A name holds no \u201c/\u201d.") : QString();
}

void review(VelaInputSheet *sheet)
{
    QLineEdit *field = sheet->getLineEdit();
    const QString fault = faultOf(field->text());
    sheet->button(QMessageBox::Ok)->setEnabled(fault.isEmpty()); // Return does nothing then, either
    sheet->setText(QString::fromLatin1(Prompt) + QStringLiteral("<br><b>") + fault.toHtmlEscaped()
                   + QStringLiteral("</b>"));
    field->setProperty("error", !fault.isEmpty()); // on which the style sheets select
    field->style()->unpolish(field);
    field->style()->polish(field);
}

void ask(QWidget *window)
{
    auto *sheet = new VelaInputSheet(QString::fromLatin1(Prompt), window);
    VelaMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    QObject::connect(sheet->getLineEdit(), &QLineEdit::textChanged, sheet, [sheet] { review(sheet); });
    review(sheet);
    if (sheet->exec() == QMessageBox::Ok) {
        window->setWindowTitle(sheet->getContent());
    }
    sheet->parentWidget()->deleteLater(); // the mask, with the sheet
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    QWidget window;
    window.resize(640, 400);
    auto *button = new VelaButton(QStringLiteral("New folder"), VelaButton::ApplyButton);
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    QObject::connect(button, &VelaButton::clicked, &window, [&window] { ask(&window); });
    window.show();
    return application.exec();
}
