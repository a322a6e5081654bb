// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QStringList>
#include <functional>

#include "cli/console/ExitStatus.h"

namespace kelplot {

/// Sets up what a program of kelplot's needs before its application object exists: Qt's messages and file names, and
/// what becomes of unfinished files when the program is ended or memory runs out.
void prepareProgram();

/// Numbers and texts in files mean the same everywhere. To be called when the application object exists, which sets the
/// locale itself.
void useNeutralLocale();

QStringList argumentsOf(int argc, char** argv);

/// Runs a program, reports what it throws on standard error, and returns its exit status.
int statusOf(const std::function<ExitStatus()>& program);

} // namespace kelplot
