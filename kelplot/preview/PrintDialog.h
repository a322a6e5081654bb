// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QSpinBox>
#include <vector>

#include "cli/options/Request.h"
#include "print/Printers.h"

namespace kelplot {

/// Asks for a printer of the print server, and how to print.
class PrintDialog final : public QDialog {
public:
    /// @param request     what the settings and the command line ask for
    /// @param hasLayouts  whether there are several layouts, which can be printed together
    PrintDialog(QWidget* parent, const std::vector<Printer>& printers, const Request& request, bool hasLayouts);

    /// States in a request what was chosen.
    void apply(Request& request) const;
    bool wantsAllLayouts() const { return m_allLayouts->isChecked(); }

private:
    QComboBox* m_printer; ///< the widgets belong to this one
    QSpinBox* m_copies;
    QComboBox* m_sides;
    QCheckBox* m_allLayouts;
};

} // namespace kelplot
