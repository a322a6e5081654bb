// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "keldriver/IniFile.h"

namespace inifile {

/// The first item with that key; the end of the items when there is none.
inline std::vector<IniItem>::iterator firstItem(IniSection& section, const std::string& key) {
    return std::find_if(section.items.begin(), section.items.end(),
                        [&](const IniItem& item) { return item.key == key; });
}

} // namespace inifile
