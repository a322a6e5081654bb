// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

#include "base/Progress.h"
#include "cli/Console.h"
#include "drawing/Drawing.h"

namespace kelplot {

/// Shows the progress of a drawing for as long as this lives.
class WorkOn {
public:
    WorkOn(const QString& input, Console& console);
    ~WorkOn() { m_console.endWork(); }
    WorkOn(const WorkOn&) = delete;
    WorkOn& operator=(const WorkOn&) = delete;

private:
    Console& m_console;
};

/// Tells whether a name stands for standard input, or for standard output where one is to be written.
bool isStandardStream(const QString& name);

/// What a drawing is called: its file without folder and ending.
QString titleOf(const QString& input);

/// Reads a drawing, "-" from standard input. Throws `ReadError`.
Drawing readDrawing(const QString& input, const Progress& progress);

} // namespace kelplot
