// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include "keldriver/Paper.h"

namespace kelplot {

/// Adds a paper to a text file of papers, which is created if it is missing, and returns the new number that the paper
/// gets. The previous file stays beside it with "~" after its name. All comments are kept except those above the keys
/// of papers.
///
/// The file is rewritten as a copy, which takes its place only when it holds everything that the file held; writers of
/// the file take turns with this, the library's functions among them. Throws `SettingsError`, and then the file is as
/// it was; beside it there is at worst a copy of it.
int addToPaperFile(const QString& path, const PaperSize& paper);

} // namespace kelplot
