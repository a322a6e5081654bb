// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "drawing/Annotation.h"
#include "reader/annotation/StyleValues.h"
#include "reader/entity/BlockRecords.h"

namespace kelplot {

/// How a dimension of a style looks.
DimensionLook lookOf(const StyleValues& style, const BlockRecords& blocks, DrawingBuilder& builder);

/// A text of a dimension or a tolerance, about its middle.
///
/// @param markup  UTF-8 with the codes of paragraphs inside
MText annotationText(const std::string& markup, const StyleValues& style, DrawingBuilder& builder);

/// The colour of a number in a style.
Colour colourOfNumber(int number);

} // namespace kelplot
