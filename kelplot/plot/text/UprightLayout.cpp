// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/UprightLayout.h"

#include <algorithm>

#include "plot/text/ParagraphPieces.h"
#include "plot/text/TextPlace.h"
#include "plot/text/TextStackLayout.h"

namespace kelplot {

namespace {

constexpr int tabCells = 4;
constexpr double columnDistance = 4.0 / 3.0; ///< in heights of a capital letter

/// What stands on a line of its own.
struct Cell {
    TextLine line;
    double height = 0.0; ///< above its base line
    double step = 0.0;   ///< from its upper edge to that of the next cell
};

struct Column {
    TextBlock block; ///< down from its upper edge, about its middle
    double length = 0.0;
    double width = 0.0;  ///< of its widest letter
    double height = 0.0; ///< of its highest letter
};

std::vector<Cell> cellsOf(const TextPiece& piece, const ParagraphFrame& frame) {
    std::vector<Cell> cells;
    if (const auto* span = std::get_if<TextSpan>(&piece)) {
        const double height = span->format.height;
        for (const QString& letter : graphemesOf(QString::fromStdString(span->text))) {
            cells.push_back({lineOf(letter, lookOf(span->format, frame), frame.fonts), height, uprightStep * height});
        }
    } else if (const auto* stack = std::get_if<TextStack>(&piece)) {
        SetStack set = setStack(*stack, lookOf(stack->format, frame), frame.fonts);
        cells.push_back({std::move(set.line), set.height, set.height + (uprightStep - 1.0) * stack->format.height});
    } else {
        cells.push_back({{}, 0.0, tabCells * uprightStep * std::get<TextTab>(piece).format.height});
    }
    return cells;
}

/// Adds the columns of a paragraph: one at least. A column ends wherever it is full: letters that stand one below the
/// other are read one by one.
void addColumns(const Paragraph& paragraph, const ParagraphFrame& frame, std::vector<Column>& columns) {
    columns.push_back({{}, 0.0, 0.0, paragraph.format.height});
    double y = 0.0;
    for (const TextPiece& piece : paragraph.pieces) {
        for (const Cell& cell : cellsOf(piece, frame)) {
            if (frame.width > 0.0 && y > 0.0 && y + cell.height > frame.width) {
                columns.push_back({});
                y = 0.0;
            }
            Column& column = columns.back();
            column.block.add(cell.line.block, {-cell.line.width / 2.0, -y - cell.height});
            column.length = y + cell.height;
            column.width = std::max(column.width, cell.line.block.ink.width());
            column.height = std::max(column.height, cell.height);
            y += cell.step;
        }
    }
}

} // namespace

void placeUpright(const MText& text, const ParagraphFrame& frame, PlacedText& placed) {
    std::vector<Column> columns;
    for (const Paragraph& paragraph : text.paragraphs) {
        addColumns(paragraph, frame, columns);
    }
    std::vector<double> middles; // of the columns, from the left edge
    double length = frame.width;
    for (const Column& column : columns) {
        const double distance = columnDistance * column.height * relativeSpacingOf(text);
        middles.push_back(middles.empty() ? column.width / 2.0 : middles.back() + distance);
        length = std::max(length, column.length);
    }
    const double width = columns.empty() ? 0.0 : middles.back() + columns.back().width / 2.0;
    const Attachment attachment = attachmentOf(text);
    const double left = -attachment.across / 2.0 * width;
    const double top = attachment.down / 2.0 * length;
    placed.frame.add(Vec2{left, top - length});
    placed.frame.add(Vec2{left + width, top});
    for (size_t i = 0; i < columns.size(); ++i) {
        const double start = attachment.down / 2.0 * (length - columns[i].length);
        placed.block.add(columns[i].block, {left + middles[i], top - start});
    }
    placed.frame.add(placed.block.ink);
}

} // namespace kelplot
