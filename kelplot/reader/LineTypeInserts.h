// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <cstdint>
#include <string>
#include <vector>

#include "drawing/Drawing.h"

namespace kelplot {

/// A text or a shape in a line type, as the file states it.
struct LineTypeInsert {
    size_t entry = 0; ///< of the pattern, at the end of which it stands
    bool isShape = false;
    bool level = false; ///< turned as stated, whatever way the line runs
    uint64_t style = 0; ///< handle of a text style, or of a file of shapes
    double scale = 1.0;
    double rotation = 0.0;
    Vec2 offset;
    std::string text; ///< UTF-8
};

/// What stands in line types, of which the text styles may follow them in the file.
class LineTypeInserts {
public:
    void set(uint32_t lineType, std::vector<LineTypeInsert>&& inserts) { m_inserts[lineType] = std::move(inserts); }
    /// Keeps the handle of a file of shapes.
    void nameShapes(uint64_t handle) { m_shapeFiles.insert(handle, true); }

    /// Puts the texts into the line types. Where a shape should stand, the pattern runs through.
    ///
    /// @param textStyles  by their handles
    void resolve(const QHash<uint64_t, uint32_t>& textStyles, Drawing& drawing) const;

private:
    QHash<uint32_t, std::vector<LineTypeInsert>> m_inserts; ///< by line types
    QHash<uint64_t, bool> m_shapeFiles;
};

} // namespace kelplot
