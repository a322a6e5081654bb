// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/MTextLayout.h"

#include <algorithm>
#include <cmath>

#include "plot/text/ParagraphLines.h"

namespace kelplot {

namespace {

constexpr double usualDistance = 5.0 / 3.0; ///< from line to line, in heights of a capital letter

/// Where a text hangs on its point: 0 at its left or upper edge, 1 in the middle, 2 at the other edge.
struct Attachment {
    int across;
    int down;
};

Attachment attachmentOf(const MText& text) {
    const int index = text.attachment >= 1 && text.attachment <= 9 ? text.attachment - 1 : 0;
    return {index % 3, index / 3};
}

Paragraph::Alignment alignmentOf(const Attachment& attachment) {
    constexpr Paragraph::Alignment alignments[] = {Paragraph::Alignment::left, Paragraph::Alignment::center,
                                                   Paragraph::Alignment::right};
    return alignments[attachment.across];
}

/// A line in its place in a column.
struct ColumnLine {
    ParagraphLine content;
    int column;
    double baseLine; ///< below the upper edge
};

/// Puts lines one below the other, and into the next column where one is full.
class ColumnFiller {
public:
    explicit ColumnFiller(const MText& text) : m_text(text) {}

    void add(ParagraphLine line);
    void breakColumn();

    const std::vector<ColumnLine>& lines() const { return m_lines; }
    /// From the upper edge to the lowest base line.
    double depth() const { return m_depth; }

private:
    double spacing() const;
    double baseLineFor(const ParagraphLine& line) const;
    bool isFull(double baseLine) const;

    const MText& m_text;
    std::vector<ColumnLine> m_lines;
    int m_column = 0;
    bool m_begun = false; ///< the current column has a line
    double m_next = 0.0;  ///< upper edge of the next line, or its base line where distances are exact
    double m_depth = 0.0;
};

double ColumnFiller::spacing() const {
    const double stated = m_text.lineSpacing;
    return usualDistance * (stated > 0.0 && std::isfinite(stated) ? stated : 1.0);
}

double ColumnFiller::baseLineFor(const ParagraphLine& line) const {
    return m_begun && m_text.exactLineSpacing ? m_next : m_next + line.height;
}

bool ColumnFiller::isFull(double baseLine) const {
    constexpr double tolerance = 1.0 + 1e-6;
    const std::vector<double>& heights = m_text.columns.heights;
    if (!m_begun || heights.empty()) {
        return false;
    }
    const double height = heights[std::min(static_cast<size_t>(m_column), heights.size() - 1)];
    return height > 0.0 && baseLine > height * tolerance;
}

void ColumnFiller::breakColumn() {
    if (m_column + 1 < m_text.columns.count) {
        ++m_column;
        m_begun = false;
        m_next = 0.0;
    }
}

void ColumnFiller::add(ParagraphLine line) {
    if (isFull(baseLineFor(line))) {
        breakColumn();
    }
    const double baseLine = baseLineFor(line);
    m_next = m_text.exactLineSpacing ? baseLine + spacing() * m_text.height
                                     : baseLine - line.height + spacing() * line.height;
    m_begun = true;
    m_depth = std::max(m_depth, baseLine);
    m_lines.push_back({std::move(line), m_column, baseLine});
}

bool hasColumns(const MText& text) {
    return text.columns.count > 1 && text.columns.width > 0.0;
}

double wrapWidthOf(const MText& text) {
    const double width = hasColumns(text) ? text.columns.width : text.width;
    return std::isfinite(width) ? std::max(width, 0.0) : 0.0;
}

/// The width of one column: the stated one, or that of the longest line.
double columnWidth(const MText& text, const std::vector<ColumnLine>& lines) {
    double width = wrapWidthOf(text);
    if (!(width > 0.0)) {
        for (const ColumnLine& line : lines) {
            width = std::max(width, line.content.indent + line.content.line.width);
        }
    }
    return width;
}

/// Where a line starts, from the left edge of its column.
double startOf(const ParagraphLine& line, double width) {
    const double room = line.room > 0.0 ? line.room : width - line.indent;
    switch (line.alignment) {
    case Paragraph::Alignment::center:
        return line.indent + (room - line.line.width) / 2.0;
    case Paragraph::Alignment::right:
        return line.indent + room - line.line.width;
    default:
        return line.indent;
    }
}

void fill(ColumnFiller& filler, const MText& text, const ParagraphFrame& frame) {
    for (const Paragraph& paragraph : text.paragraphs) {
        for (ParagraphLine& line : linesOf(paragraph, frame)) {
            filler.add(std::move(line));
        }
        if (paragraph.columnBreakAfter) {
            filler.breakColumn();
        }
    }
}

TextBlock blockOf(const ColumnFiller& filler, const MText& text) {
    const Attachment attachment = attachmentOf(text);
    const double width = columnWidth(text, filler.lines());
    const double step = width + text.columns.gutter;
    const int count = hasColumns(text) ? text.columns.count : 1;
    const double left = -attachment.across / 2.0 * (width + (count - 1) * step);
    const double top = attachment.down / 2.0 * filler.depth();
    TextBlock block;
    for (const ColumnLine& line : filler.lines()) {
        const int place = text.columns.reversed ? count - 1 - line.column : line.column;
        block.add(line.content.line.block, {left + place * step + startOf(line.content, width), top - line.baseLine});
    }
    return block;
}

} // namespace

PlacedText layOut(const MText& text, const TextStyle& style, FontSet& fonts) {
    const ParagraphFrame frame{style, fonts, wrapWidthOf(text), text.height, alignmentOf(attachmentOf(text))};
    ColumnFiller filler(text);
    fill(filler, text, frame);
    PlacedText placed;
    placed.block = blockOf(filler, text);
    placed.toPlane =
        Affine2::translation({text.position.x, text.position.y}).after(Affine2::rotationRadians(text.rotation));
    placed.elevation = text.position.z;
    return placed;
}

} // namespace kelplot
