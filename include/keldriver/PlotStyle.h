// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdint>

#include "keldriver/Export.h"

/// The plot style values that a driver sets on a renderer. They are 32 bits wide with fixed numbers; what a number
/// outside an enumeration means stands with its setter.
namespace HT_PlotStyle {

/// How a line ends, for `HT_Renderer::SetLineEndStyle`.
enum LineEndStyle : int32_t {
    LineEndFlat = 0,   ///< line ends exactly at its end point
    LineEndSquare = 1, ///< end extended by half the weight, square
    LineEndRound = 2,  ///< end extended by a half circle as wide as the line; any other value means this too
};

/// How the segments of a line meet at a corner, for `HT_Renderer::SetLineJoinStyle`.
enum LineJoinStyle : int32_t {
    LineJoinMiter = 0, ///< mitred corner: the outer edges run on until they meet
    LineJoinBevel = 1, ///< bevelled corner: the outer edges are joined by a straight cut
    LineJoinRound = 2, ///< round corner; any other value means this too
};

/// How a line is dashed, for `HT_Renderer::SetLineType`.
enum LineType : int32_t {
    LineTypeSolid = 0,   ///< continuous; any value not listed here means this too
    LineTypeDash = 1,    ///< dashes
    LineTypeDot = 2,     ///< dots
    LineTypeDashDot = 3, ///< dashes and dots in turn
    LineTypeCustom = 4,  ///< the lengths that are given with the type
};

/// What an area is filled with, for `HT_Renderer::SetFillStyle`. Any value not listed here means no fill.
enum FillStyle : int32_t {
    FillSolid = 0,            ///< the ink alone
    FillSquares = 1,          ///< small hollow squares, a bitmap pattern on white ground
    FillCross = 2,            ///< horizontal and vertical lines
    FillDiagCross = 3,        ///< crossed diagonal lines
    FillHorizontal = 4,       ///< horizontal lines
    FillForwardDiagonal = 5,  ///< diagonal lines that fall to the right
    FillBackwardDiagonal = 6, ///< diagonal lines that rise to the right
    FillDots = 7,             ///< small dots, a bitmap pattern on white ground
    FillVertical = 8,         ///< vertical lines
};

/// What counts as the inside of a filled polygon, for `HT_Renderer::SetFillMode`. Any other value changes nothing.
enum FillMode : int32_t {
    FillModeAlternate = 0, ///< even-odd rule
    FillModeWinding = 1,   ///< non-zero winding rule
};

/// How new ink goes with what is drawn already, for `HT_Renderer::SetMergeControlType`. Any other value changes
/// nothing.
enum MergeControlType : int32_t {
    MergeControlCopy = 0,  ///< new ink covers what lies below
    MergeControlMerge = 1, ///< new ink multiplies with what lies below
};

/// The fill patterns as 8 by 8 bitmaps: one set of eight rows for each `FillStyle`, by its number, from the top row
/// to the bottom one. Only the low 8 bits of a word count, bit 7 being the leftmost pixel: a clear bit is ink, a set
/// bit background.
KELDRIVER_API extern const uint16_t FillStyleBitmapBuffer[9][8];

} // namespace HT_PlotStyle
