// SPDX-FileCopyrightText: 2026 The Vela Components authors
// SPDX-License-Identifier: MIT

// A table to choose from in a dialog with a footbar.

#include <VelaButton>
#include <VelaFootbar>
#include <VelaTableWidget>
#include <VelaTheme>

#include <QApplication>
#include <QDialog>
#include <QVBoxLayout>

namespace {

const char *const Names[] = {"Ada", "Edsger", "Grace"};

class ChoiceDialog : public QDialog
{
public:
    ChoiceDialog()
    {
        VelaTableColumnsInfo columns;
        columns.addColumn(QStringLiteral("Name"), 120, true, 1.0);
        m_table = new VelaTableWidget(columns);
        m_ok = new VelaButton(QStringLiteral("Choose"), VelaButton::ApplyButton);
        auto *cancel = new VelaButton(QStringLiteral("Cancel"), VelaButton::CancelButton);
        auto *bar = new VelaFootbar;
        bar->pushRightWidget(m_ok);
        bar->pushRightWidget(cancel);
        bar->init(); // lays out what was pushed
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(m_table);
        layout->addWidget(bar);
        for (const char *name : Names) {
            rows()->insertRow(rows()->rowCount());
            rows()->setItem(rows()->rowCount() - 1, 0, new QTableWidgetItem(QString::fromLatin1(name)));
        }
        m_ok->setEnabled(false);
        connect(rows(), &QTableWidget::itemSelectionChanged, this,
                [this] { m_ok->setEnabled(!rows()->selectedItems().isEmpty()); });
        connect(rows(), &QTableWidget::cellDoubleClicked, this, &QDialog::accept);
        connect(m_ok, &VelaButton::clicked, this, &QDialog::accept);
        connect(cancel, &VelaButton::clicked, this, &QDialog::reject);
    }

    QString choice() const { return rows()->item(rows()->currentRow(), 0)->text(); }

private:
    QTableWidget *rows() const { return m_table->getTable(); }

    VelaTableWidget *m_table;
    VelaButton *m_ok;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    VelaTheme::getInstance()->load(application.arguments().value(1, QStringLiteral(THEME)), QStringLiteral("enu"));
    ChoiceDialog dialog;
    if (dialog.exec() == QDialog::Accepted) {
        qInfo("%s", qPrintable(dialog.choice()));
    }
    return 0;
}
