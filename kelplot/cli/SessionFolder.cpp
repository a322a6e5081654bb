// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/SessionFolder.h"

#include <QFile>

namespace kelplot {

namespace {

constexpr char variable[] = "XDG_RUNTIME_DIR";

} // namespace

SessionFolder::SessionFolder() {
    if (qEnvironmentVariableIsEmpty(variable)) {
        m_folder.emplace();
        qputenv(variable, QFile::encodeName(m_folder->path()));
    }
}

SessionFolder::~SessionFolder() {
    if (m_folder) {
        qunsetenv(variable);
    }
}

} // namespace kelplot
