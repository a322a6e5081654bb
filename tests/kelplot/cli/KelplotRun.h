// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include "support/TemporaryDirectory.h"

struct Outcome {
    int status; ///< -1: the program did not end by itself
    QString output;
    QString messages;
};

/// Runs the program, or the one given, in `directory`, without a display or a locale. The user's settings are in its
/// folder "config".
Outcome run(const TemporaryDirectory& directory, const QStringList& arguments,
            const QString& program = QStringLiteral(KELPLOT_PROGRAM));
