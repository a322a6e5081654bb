// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/PageSequence.h"

#include <QDir>
#include <QFileInfo>

namespace kelplot {

PageSequence::PageSequence(const PlannedFile& file, const PlotPlan& plan) : m_file(file), m_plan(plan) {
}

OutputDevice& PageSequence::begin(const PageLayout& layout, const QString& name) {
    if (m_device) {
        m_device->nextPage(layout.sheet, name);
        return *m_device;
    }
    if (!m_plan.madeFolder.isEmpty() && !QDir().mkpath(m_plan.madeFolder)) {
        throw outputError(m_plan.madeFolder, QStringLiteral("the folder cannot be made"));
    }
    const OutputSetup setup{m_file.path,       m_file.title,  layout.sheet, m_plan.dotsPerInch,
                            m_plan.pixelWidth, m_plan.pixels, name};
    m_device = createOutputDevice(m_plan.format, setup);
    return *m_device;
}

std::map<QString, size_t> PageSequence::takeShortcomings() {
    const std::map<QString, size_t> all = m_device->shortcomings();
    std::map<QString, size_t> fresh;
    for (const auto& [kind, count] : all) {
        if (count > m_taken[kind]) {
            fresh[kind] = count - m_taken[kind];
        }
    }
    m_taken = all;
    return fresh;
}

void PageSequence::finish() {
    m_device->finish();
}

} // namespace kelplot
