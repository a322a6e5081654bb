// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <vector>

#include "keldriver/Paper.h"

namespace kelplot {

/// The number of papers that a file states, as the library reads it.
int paperCount(const QString& path);

/// The papers of a file that is there, as the library reads them. They are read from a copy, because another program
/// may add one to the file itself between the count and the papers. Throws `SettingsError`.
std::vector<PaperSize> paperRecords(const QString& path);

/// The name of a paper's section in a text file, by its place from 0.
QString paperSection(int index);

bool samePaper(const PaperSize& a, const PaperSize& b);

/// Whether every paper has a name, a size and margins that leave room on it.
bool areSound(const std::vector<PaperSize>& records);

/// The papers of a text file. Throws `SettingsError`, which names the section at fault, when the file states no count,
/// when a section is missing (the library would fill it with defaults), or when a paper is not sound.
std::vector<PaperSize> soundPaperRecords(const QString& path);

} // namespace kelplot
