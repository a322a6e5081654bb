// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>

#include "reader/RecordDecoder.h"

namespace kelplot {

/// The picture that an entity brings along for programs that do not know its kind: a stream of plain shapes.
class ProxyGraphics {
public:
    enum class Outcome { nothing, part, whole };

    void clear();
    /// Takes a group of the entity.
    void take(const Group& group);
    /// Adds the shapes to the drawing, in the look of the entity where they have none of their own. Tells how much of
    /// them there was to add.
    Outcome draw(const RecordHeader& header, DrawingBuilder& builder) const;

private:
    std::string m_bytes;
    bool m_inPicture = false;
    bool m_mayBegin = true; ///< other parts of an entity have bytes of other kinds
};

} // namespace kelplot
