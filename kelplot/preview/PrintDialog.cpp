// SPDX-License-Identifier: GPL-2.0-or-later
#include "preview/PrintDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <algorithm>

namespace kelplot {
namespace {

QString textOf(const Printer& printer) {
    QString text = printer.name;
    if (!printer.description.isEmpty() && printer.description != printer.name) {
        text += QStringLiteral(" \u2013 ") + printer.description;
    }
    return text + QStringLiteral(" (%1%2)").arg(printer.state,
                                                printer.accepts ? QString() : QStringLiteral(", takes no jobs"));
}

} // namespace

PrintDialog::PrintDialog(QWidget* parent, const std::vector<Printer>& printers, const Request& request, bool hasLayouts)
    : QDialog(parent), m_printer(new QComboBox), m_copies(new QSpinBox), m_sides(new QComboBox),
      m_allLayouts(new QCheckBox(QStringLiteral("All layouts"))) {
    setWindowTitle(QStringLiteral("Print"));
    for (const Printer& printer : printers) {
        m_printer->addItem(textOf(printer), printer.name);
        const bool isAsked = request.printer.isEmpty() ? printer.isDefault : printer.name == request.printer;
        if (isAsked) {
            m_printer->setCurrentIndex(m_printer->count() - 1);
        }
    }
    m_copies->setRange(1, 9999);
    m_copies->setValue(request.copies);
    m_sides->addItems({QStringLiteral("As the printer is set up"), QStringLiteral("One side"),
                       QStringLiteral("Both, turned over the long edge"),
                       QStringLiteral("Both, turned over the short edge")});
    m_sides->setCurrentIndex(static_cast<int>(request.sides));
    m_allLayouts->setEnabled(hasLayouts);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Print"));
    buttons->button(QDialogButtonBox::Ok)->setEnabled(!printers.empty());
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const form = new QFormLayout(this);
    form->addRow(QStringLiteral("Printer"), m_printer);
    form->addRow(QStringLiteral("Copies"), m_copies);
    form->addRow(QStringLiteral("Sides"), m_sides);
    form->addRow(QStringLiteral("Pages"), m_allLayouts);
    form->addRow(buttons);
}

void PrintDialog::apply(Request& request) const {
    request.printer = m_printer->currentData().toString();
    request.copies = m_copies->value();
    request.sides = static_cast<Sides>(m_sides->currentIndex());
    request.format = OutputFormat::pdf;
}

} // namespace kelplot
