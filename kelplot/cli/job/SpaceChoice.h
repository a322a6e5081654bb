// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <vector>

#include "drawing/Drawing.h"

namespace kelplot {

/// The name by which model space is asked for, and that for all layouts; in any case.
const QLatin1String modelSpaceName("model");
const QLatin1String allLayouts("all");

/// What is plotted of a drawing: model space, or the sheet of a layout.
struct Space {
    const std::vector<Entity>& entities;
    const Layout* layout; ///< null: model space, or a sheet that the drawing says nothing of
};

/// The name of a layout, or that of model space.
QString nameOf(const Space& space);

/// The spaces of a drawing that are asked for, in their order. Without a name that is what the drawing was saved in,
/// if it holds anything, else model space, or else the sheet. Refers to the drawing. Throws `UsageError` where there is
/// no such layout.
std::vector<Space> chosenSpaces(const Drawing& drawing, const QString& wanted);

} // namespace kelplot
