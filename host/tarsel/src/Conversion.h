// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <vector>

#include <clipper.hpp>

#include "ExactValues.h"
#include "Grid.h"
#include "gpc.h"

namespace tarsel {

/// The contours of an operand that enclose something.
using Outlines = std::vector<const gpc_vertex_list*>;

/// Maps coordinates onto the grid, and back to exactly the values that they had.
class Conversion {
public:
    Conversion(const Box& box, size_t vertices) : m_grid(box), m_columns(vertices), m_rows(vertices) {}

    ClipperLib::Paths toGrid(const Outlines& outlines);
    gpc_vertex fromGrid(const ClipperLib::IntPoint& point);

private:
    ClipperLib::IntPoint toGrid(const gpc_vertex& vertex);

    Grid m_grid;
    ExactValues m_columns;
    ExactValues m_rows;
};

} // namespace tarsel
