// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "reader/DrawingReader.h"

namespace kelplot {

/// Reads DXF drawings, in text or in binary form.
class DxfReader : public DrawingReader {
public:
    Drawing read(const std::string& path, const Progress& progress) override;
};

} // namespace kelplot
