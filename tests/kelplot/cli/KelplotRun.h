// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <QStringList>
#include <sys/resource.h>

#include "support/TemporaryDirectory.h"

struct Outcome {
    int status; ///< -1: the program did not end by itself
    QString output;
    QString messages;
};

/// How much the program may use, in bytes.
struct Limits {
    rlim_t fileSize = RLIM_INFINITY;
    rlim_t memory = RLIM_INFINITY;
};

/// Runs the program in `directory`, without a display or a locale. The user's settings are in its folder "config".
Outcome run(const TemporaryDirectory& directory, const QStringList& arguments,
            const QString& program = QStringLiteral(KELPLOT_PROGRAM), const Limits& limits = {});

/// Plots as the program does, in this process, and returns the messages.
std::string plotHere(const TemporaryDirectory& directory, const QStringList& arguments);

QStringList filesIn(const TemporaryDirectory& directory);
