// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/SpaceChoice.h"

#include <algorithm>

#include "cli/options/Request.h"

namespace kelplot {
namespace {

const std::vector<Entity>& entitiesOf(const Layout& layout, const Drawing& drawing) {
    return layout.block == noBlock ? drawing.paperSpace : drawing.blocks[layout.block].entities;
}

Space spaceOf(const Layout& layout, const Drawing& drawing) {
    return {entitiesOf(layout, drawing), &layout};
}

/// The sheet that was looked at last.
Space activeSheet(const Drawing& drawing) {
    const auto found = std::find_if(drawing.layouts.begin(), drawing.layouts.end(),
                                    [](const Layout& layout) { return layout.block == noBlock; });
    return {drawing.paperSpace, found == drawing.layouts.end() ? nullptr : &*found};
}

Space savedSpace(const Drawing& drawing) {
    const bool paper = drawing.paperIsActive || drawing.modelSpace.empty();
    return paper && !drawing.paperSpace.empty() ? activeSheet(drawing) : Space{drawing.modelSpace, nullptr};
}

QString layoutNames(const Drawing& drawing) {
    QStringList names{modelSpaceName};
    for (const Layout& layout : drawing.layouts) {
        names << QString::fromStdString(layout.name);
    }
    return names.join(QStringLiteral(", "));
}

} // namespace

QString nameOf(const Space& space) {
    return space.layout ? QString::fromStdString(space.layout->name) : QString(modelSpaceName);
}

std::vector<Space> chosenSpaces(const Drawing& drawing, const QString& wanted) {
    if (wanted.isEmpty()) {
        return {savedSpace(drawing)};
    }
    if (wanted.compare(modelSpaceName, Qt::CaseInsensitive) == 0) {
        return {{drawing.modelSpace, nullptr}};
    }
    const bool all = wanted.compare(allLayouts, Qt::CaseInsensitive) == 0;
    std::vector<Space> spaces;
    for (const Layout& layout : drawing.layouts) {
        const bool isNamed =
            spaces.empty() && wanted.compare(QString::fromStdString(layout.name), Qt::CaseInsensitive) == 0;
        if (isNamed || (all && !entitiesOf(layout, drawing).empty())) {
            spaces.push_back(spaceOf(layout, drawing));
        }
    }
    if (spaces.empty() && all) {
        return {savedSpace(drawing)};
    }
    if (spaces.empty()) {
        throw UsageError(
            QStringLiteral("--layout: \"%1\" is no layout; the drawing has %2").arg(wanted, layoutNames(drawing)));
    }
    return spaces;
}

} // namespace kelplot
