// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "device/pdf/PdfFile.h"
#include "device/vector/VectorSink.h"

namespace kelplot {

/// What the contents of all pages of a document refer to by names: a letter for the kind and the number of the object.
class PdfResources {
public:
    /// The number of the graphics state that lays things over the page in this way; 0: as a page begins.
    int blend(double opacity, QPainter::CompositionMode mode);

    /// Adds a resource to a category of the dictionary, such as "XObject", and returns its name without the slash.
    std::string add(const char* category, char letter, int object);

    /// Writes the dictionary, as the object of this number.
    ///
    /// @param fonts  the entries of the category of fonts
    void write(PdfFile& file, int number, const std::string& fonts) const;

private:
    std::vector<std::pair<int, QPainter::CompositionMode>> m_blends; ///< with opacities in thousandths
    std::map<std::string, std::map<std::string, int>> m_entries;     ///< of each category, by their names
};

} // namespace kelplot
