// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>

namespace kelplot {

/// The script that completes the options of the program and their values in a shell, "bash" or "zsh".
QString completionFor(const QString& shell);

} // namespace kelplot
