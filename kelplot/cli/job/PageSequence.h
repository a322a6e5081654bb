// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <memory>

#include "cli/job/PlotPlan.h"
#include "device/OutputDevice.h"
#include "page/PageSetup.h"

namespace kelplot {

/// The pages of one output, one after the other. There is no file before the last one is finished.
class PageSequence {
public:
    /// @param plan  borrowed for this object's life
    PageSequence(const PlannedFile& file, const PlotPlan& plan);

    /// Begins a page and returns the device to draw it on. Throws `OutputError`.
    OutputDevice& begin(const PageLayout& layout, const QString& name);

    /// What the format could not take as it was drawn since this was asked last, with counts.
    std::map<QString, size_t> takeShortcomings();

    /// Puts the file in its place. Throws `OutputError`.
    void finish();

private:
    const PlannedFile& m_file;
    const PlotPlan& m_plan;
    std::unique_ptr<OutputDevice> m_device; ///< null before the first page
    std::map<QString, size_t> m_taken;      ///< shortcomings
};

} // namespace kelplot
