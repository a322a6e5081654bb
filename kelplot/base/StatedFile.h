// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <string>

namespace kelplot {

/// The file that a drawing in `folder` means by `stated`, a path of this machine or another: what the path leads to
/// from the folder, or else the file of its name that lies beside the drawing, in any case of letters. Empty where
/// there is none.
QString statedFile(const std::string& stated, const QString& folder);

} // namespace kelplot
