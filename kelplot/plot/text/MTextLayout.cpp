// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/MTextLayout.h"

#include <algorithm>
#include <cmath>

#include "plot/text/ParagraphLines.h"
#include "plot/text/TextPlace.h"
#include "plot/text/UprightLayout.h"

namespace kelplot {

namespace {

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
    explicit ColumnFiller(const MText& text) : m_text(&text) {}

    void add(ParagraphLine line);
    void breakColumn();

    const std::vector<ColumnLine>& lines() const { return m_lines; }
    /// From the upper edge to the lowest base line.
    double depth() const { return m_depth; }

private:
    double spacing() const;
    double baseLineFor(const ParagraphLine& line) const;
    bool isFull(double baseLine) const;

    const MText* m_text;
    std::vector<ColumnLine> m_lines;
    int m_column = 0;
    bool m_begun = false; ///< the current column has a line
    double m_next = 0.0;  ///< upper edge of the next line, or its base line where distances are exact
    double m_depth = 0.0;
};

double ColumnFiller::spacing() const {
    constexpr double usual = 5.0 / 3.0; // heights of a capital letter
    return usual * relativeSpacingOf(*m_text);
}

double ColumnFiller::baseLineFor(const ParagraphLine& line) const {
    return m_begun && m_text->exactLineSpacing ? m_next : m_next + line.height;
}

bool ColumnFiller::isFull(double baseLine) const {
    constexpr double tolerance = 1.0 + 1e-6;
    const std::vector<double>& heights = m_text->columns.heights;
    if (!m_begun || heights.empty()) {
        return false;
    }
    const double height = heights[std::min(static_cast<size_t>(m_column), heights.size() - 1)];
    return height > 0.0 && baseLine > height * tolerance;
}

void ColumnFiller::breakColumn() {
    if (m_column + 1 < m_text->columns.count) {
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
    m_next = m_text->exactLineSpacing ? baseLine + spacing() * m_text->height
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

// How wide a font that stands for another is set where it takes too much room at its own width.
constexpr double standInRatios[] = {0.97, 0.94, 0.91};
constexpr double narrowestStandIn = 0.88;

ParagraphFrame narrowed(ParagraphFrame frame, double ratio) {
    frame.standInRatio = ratio;
    return frame;
}

/// What `set` makes of a text with the widest stand-ins at which its `cost` is within the limit, or least.
template <typename Set, typename Cost>
auto fitted(const ParagraphFrame& frame, double limit, Set set, Cost cost) {
    auto natural = set(frame);
    if (cost(natural) <= limit) {
        return natural;
    }
    auto narrowest = set(narrowed(frame, narrowestStandIn));
    if (!(cost(narrowest) < cost(natural))) {
        return natural;
    }
    for (const double ratio : standInRatios) {
        auto narrower = set(narrowed(frame, ratio));
        if (cost(narrower) <= limit) {
            return narrower;
        }
    }
    return narrowest;
}

/// The lines of a paragraph. Where a font is wider than the one that it stands for, a paragraph of one line would
/// break: it is set narrower if it fits its line then.
std::vector<ParagraphLine> linesKeptWhole(const Paragraph& paragraph, const ParagraphFrame& frame) {
    constexpr size_t mostLines = 3; // into which a little too much can fall
    return fitted(
        frame, 0.0, [&](const ParagraphFrame& tried) { return linesOf(paragraph, tried); },
        [](const std::vector<ParagraphLine>& lines) {
            return lines.size() == 1 || lines.size() > mostLines ? 0.0 : 1.0;
        });
}

/// Puts all lines of a text in their places, single ones kept whole if `keepLines` says so.
ColumnFiller filled(const MText& text, const ParagraphFrame& frame, bool keepLines) {
    ColumnFiller filler(text);
    for (const Paragraph& paragraph : text.paragraphs) {
        for (ParagraphLine& line : keepLines ? linesKeptWhole(paragraph, frame) : linesOf(paragraph, frame)) {
            filler.add(std::move(line));
        }
        if (paragraph.columnBreakAfter) {
            filler.breakColumn();
        }
    }
    return filler;
}

/// Puts the lines of a text in their places, with as many as the drawing has where it says how deep the text is.
ColumnFiller filled(const MText& text, const ParagraphFrame& frame) {
    constexpr double slack = 0.5; // heights of a capital letter; a line more takes five thirds
    if (!(text.depth > 0.0) || hasColumns(text)) {
        return filled(text, frame, true);
    }
    return fitted(
        frame, text.depth + slack * text.height,
        [&](const ParagraphFrame& tried) { return filled(text, tried, false); },
        [](const ColumnFiller& filler) { return filler.depth(); });
}

/// Puts the columns of a text about the point that it hangs on.
void place(const ColumnFiller& filler, const MText& text, PlacedText& placed) {
    const Attachment attachment = attachmentOf(text);
    const double width = columnWidth(text, filler.lines());
    const double step = width + text.columns.gutter;
    const int count = hasColumns(text) ? text.columns.count : 1;
    const double whole = width + (count - 1) * step;
    const double left = -attachment.across / 2.0 * whole;
    const double top = attachment.down / 2.0 * filler.depth();
    for (const ColumnLine& line : filler.lines()) {
        const int column = text.columns.reversed ? count - 1 - line.column : line.column;
        placed.block.add(line.content.line.block,
                         {left + column * step + startOf(line.content, width), top - line.baseLine});
    }
    if (!placed.block.ink.isEmpty()) {
        placed.frame = placed.block.ink;
        placed.frame.add(Vec2{left, top});
        placed.frame.add(Vec2{left + whole, top - filler.depth()});
    }
}

} // namespace

PlacedText layOut(const MText& text, const TextStyle& style, FontSet& fonts) {
    const ParagraphFrame frame{style, fonts, wrapWidthOf(text), text.height, alignmentOf(attachmentOf(text))};
    PlacedText placed;
    if (text.vertical) {
        placeUpright(text, frame, placed);
    } else {
        place(filled(text, frame), text, placed);
    }
    placed.toPlane =
        Affine2::translation({text.position.x, text.position.y}).after(Affine2::rotationRadians(text.rotation));
    placed.elevation = text.position.z;
    return placed;
}

} // namespace kelplot
