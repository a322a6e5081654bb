// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QWidget>
#include <functional>

#include "cli/options/Request.h"

namespace kelplot {

/// The options of a plot that are changed while it is looked at.
class OptionPanel final : public QWidget {
public:
    /// @param request  what the settings and the command line ask for
    /// @param papers   names
    OptionPanel(const Request& request, const QStringList& papers);

    std::function<void()> onChange; ///< the user has changed something

    /// The request with the options as they are set now. Throws `UsageError`.
    Request request() const;

    /// Shows what is wrong with the options; empty: nothing.
    void showFault(const QString& fault);

private:
    void fill(const Request& request, const QStringList& papers);
    void changed();

    Request m_base;     ///< without the options that are shown here
    QComboBox* m_paper; ///< the widgets belong to this one
    QComboBox* m_orientation;
    QComboBox* m_scale;
    QCheckBox* m_centred;
    QCheckBox* m_monochrome;
    QDoubleSpinBox* m_lineWeights;
    QComboBox* m_texts;
    QLabel* m_fault;
    QString m_last; ///< the texts that can be edited, when a change was told last
};

} // namespace kelplot
