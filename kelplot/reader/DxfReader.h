// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/DrawingReader.h"

namespace kelplot {

/// Reads drawings in the text form of DXF.
class DxfReader : public DrawingReader {
public:
    Drawing read(const std::string& path, const Progress& progress) override;
};

} // namespace kelplot
