// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Entity.h"
#include "reader/DrawingBuilder.h"
#include "reader/groups/GroupSource.h"

namespace kelplot {

/// The line weight that a number in the file means, held within the weights that drawings know.
LineWeight lineWeightOf(int number);

/// The opacity that a number in the file means.
Opacity opacityOf(int number);

/// The groups that mean the same in every record, whatever its type.
struct RecordHeader {
    static constexpr int colourByBlock = 0;
    static constexpr int colourByLayer = 256;
    static constexpr int noTrueColour = -1;

    Attributes attributes; ///< all but the colour
    Vec3 extrusion{0.0, 0.0, 1.0};
    int colourNumber = colourByLayer; ///< as the file has it; negative for a layer that is off
    int trueColour = noTrueColour;
    bool inPaperSpace = false;
    uint64_t handle = 0; ///< 0: none
    uint64_t extensionDictionary = 0;

    /// Takes `group` in if it is one of the common ones.
    void take(const Group& group, DrawingBuilder& builder);

    /// Takes `group` in if it is one of those that objects have too.
    void takeOfObject(const Group& group);

    Colour colour() const;

private:
    bool m_inExtension = false; ///< the groups being read name the extension dictionary
};

/// A header with another colour: a number with its kind in the highest byte. By block means that of the header.
RecordHeader withColour(const RecordHeader& header, int colour);

} // namespace kelplot
