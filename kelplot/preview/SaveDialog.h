// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include "device/OutputDevice.h"

class QWidget;

namespace kelplot {

/// Asks where to save a drawing's pages, and whether a file that is there may be replaced; empty: nowhere.
///
/// @param format      that is offered first
/// @param pagesInOne  only formats that have several pages in a file
QString chooseFile(QWidget* parent, const QString& drawing, OutputFormat format, bool pagesInOne);

} // namespace kelplot
