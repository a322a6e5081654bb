// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QTemporaryDir>
#include <optional>

namespace kelplot {

/// Stands in for the folder of a user's session while Qt is being set up. Where there is no session, Qt would leave a
/// folder of its own in the one for temporary files.
class SessionFolder {
public:
    SessionFolder();
    SessionFolder(const SessionFolder&) = delete;
    SessionFolder& operator=(const SessionFolder&) = delete;
    /// Removes the folder again.
    ~SessionFolder();

private:
    std::optional<QTemporaryDir> m_folder; ///< none in a session
};

} // namespace kelplot
