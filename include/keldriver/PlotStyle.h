// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include "keldriver/Export.h"

/// The plot style values that a driver sets on a renderer. Drivers pass them as integers, so the numbers
/// are fixed and a setter must expect numbers outside an enumeration.
namespace HT_PlotStyle {

enum LineEndStyle : int32_t {
    LineEndFlat = 0,   ///< line ends exactly at its end point
    LineEndSquare = 1, ///< end extended by half the weight, square
    LineEndRound = 2,  ///< round end; any other value means this too
};

enum LineJoinStyle : int32_t {
    LineJoinMiter = 0, ///< mitred corner
    LineJoinBevel = 1, ///< bevelled corner
    LineJoinRound = 2, ///< round corner; any other value means this too
};

enum LineType : int32_t {
    LineTypeSolid = 0,
    LineTypeDash = 1,
    LineTypeDot = 2,
    LineTypeDashDot = 3,
    LineTypeCustom = 4, ///< dash pattern given by the caller
};

enum FillStyle : int32_t {
    FillSolid = 0,
    FillSquares = 1, ///< small hollow squares
    FillCross = 2,
    FillDiagCross = 3,
    FillHorizontal = 4,
    FillForwardDiagonal = 5,  ///< falling to the right
    FillBackwardDiagonal = 6, ///< rising to the right
    FillDots = 7,             ///< small dots
    FillVertical = 8,
};

enum FillMode : int32_t {
    FillModeAlternate = 0, ///< even-odd rule
    FillModeWinding = 1,   ///< non-zero winding rule
};

enum MergeControlType : int32_t {
    MergeControlCopy = 0,  ///< new ink covers what lies below
    MergeControlMerge = 1, ///< new ink multiplies with what lies below
};

/// The fill patterns as 8 by 8 bitmaps, one row set a `FillStyle`, rows from top to bottom. Only the low
/// 8 bits of a word count, bit 7 being the leftmost pixel: a clear bit is ink, a set bit background.
KELDRIVER_API extern const uint16_t FillStyleBitmapBuffer[9][8];

} // namespace HT_PlotStyle
