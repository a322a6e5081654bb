// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/ParagraphLines.h"

#include <algorithm>
#include <cmath>

#include "plot/text/ParagraphOrder.h"
#include "plot/text/ParagraphPieces.h"
#include "plot/text/TextStackLayout.h"

namespace kelplot {

namespace {

constexpr double usualTab = 4.0; // heights of a capital letter

struct PlacedPiece {
    const LinePiece* piece;
    double x; ///< from the left edge of the text
};

/// Whether there may be letters of such a script; characters beyond the first 65536 count as such without a closer
/// look.
bool mayRunRightToLeft(const QString& text) {
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character.direction() == QChar::DirR || character.direction() == QChar::DirAL || character.isSurrogate();
    });
}

bool isSpread(Paragraph::Alignment alignment) {
    return alignment == Paragraph::Alignment::justified || alignment == Paragraph::Alignment::distributed;
}

/// Fills lines one after the other.
class LineFiller {
public:
    LineFiller(const Paragraph& paragraph, const ParagraphFrame& frame)
        : m_paragraph(paragraph), m_frame(frame), m_pieces(piecesOf(paragraph, frame)),
          m_rightToLeft(charactersOf(paragraph).isRightToLeft()),
          m_alignment(paragraph.alignment == Paragraph::Alignment::byText ? frame.alignment : paragraph.alignment) {}

    std::vector<ParagraphLine> fill();

private:
    double indent() const { return m_paragraph.leftIndent + (m_lines.empty() ? m_paragraph.firstIndent : 0.0); }
    double rightEdge() const { return m_frame.width - m_paragraph.rightIndent; }
    double nextTab(double x) const;
    bool fits(double right) const;
    size_t wordEnd(size_t begin) const;
    double placeWord(size_t begin, size_t end, double x);
    void finishLine(bool last);
    double spreadLine();
    double heightOfLine() const;
    void addPieces(size_t begin, size_t end, double lineHeight, ParagraphLine& line) const;
    void addText(const QString& text, size_t source, double x, double lineHeight, ParagraphLine& line) const;
    void addStack(size_t source, double x, double lineHeight, ParagraphLine& line) const;
    void addInWrittenOrder(bool spread, double lineHeight, ParagraphLine& line) const;
    bool needsOrder(bool spread) const;
    std::vector<LineItem> itemsOfLine() const;
    void addInVisualOrder(bool spread, double lineHeight, ParagraphLine& line) const;
    static double liftOf(const CharacterFormat& format, double height, double lineHeight);

    const Paragraph& m_paragraph;
    const ParagraphFrame& m_frame;
    std::vector<LinePiece> m_pieces;
    bool m_rightToLeft; ///< the paragraph begins so
    Paragraph::Alignment m_alignment;
    std::vector<PlacedPiece> m_line;
    std::vector<ParagraphLine> m_lines;
};

double LineFiller::nextTab(double x) const {
    const double slack = m_frame.usualHeight * 1e-6;
    if (m_paragraph.tabStops) {
        for (const double stop : *m_paragraph.tabStops) {
            if (stop > x + slack) {
                return stop;
            }
        }
    }
    const double step = usualTab * m_frame.usualHeight;
    return step > 0.0 ? (std::floor((x + slack) / step) + 1.0) * step : x;
}

bool LineFiller::fits(double right) const {
    constexpr double tolerance = 1e-6; // of the width
    return !(m_frame.width > 0.0) || right <= rightEdge() + tolerance * m_frame.width;
}

size_t LineFiller::wordEnd(size_t begin) const {
    size_t end = begin;
    while (end + 1 < m_pieces.size() && !m_pieces[end].breakAfter) {
        ++end;
    }
    return end + 1;
}

/// Puts a word on the line, or ends the line and puts the word on the next one. Returns where it ends.
double LineFiller::placeWord(size_t begin, size_t end, double x) {
    double right = x;
    for (size_t i = begin; i < end; ++i) {
        right += i + 1 == end ? m_pieces[i].visible : m_pieces[i].width;
    }
    if (!m_line.empty() && !fits(right)) {
        finishLine(false);
        x = indent();
    }
    for (size_t i = begin; i < end; ++i) {
        m_line.push_back({&m_pieces[i], x});
        x = m_pieces[i].kind == LinePiece::Kind::tab ? nextTab(x) : x + m_pieces[i].width;
    }
    return x;
}

std::vector<ParagraphLine> LineFiller::fill() {
    double x = indent();
    for (size_t begin = 0; begin < m_pieces.size();) {
        const size_t end = wordEnd(begin);
        x = placeWord(begin, end, x);
        begin = end;
    }
    finishLine(true);
    return std::move(m_lines);
}

/// Widens the blanks so that the line fills its place. Returns by how much.
double LineFiller::spreadLine() {
    size_t first = m_line.size() - 1;
    size_t gaps = 0;
    while (first > 0 && m_line[first - 1].piece->kind != LinePiece::Kind::tab) {
        --first;
        gaps += m_line[first].piece->endsInBlanks() ? 1 : 0;
    }
    const double missing = rightEdge() - m_line.back().x - m_line.back().piece->visible;
    if (gaps == 0 || !(missing > 0.0)) {
        return 0.0;
    }
    double shift = 0.0;
    for (size_t i = first; i < m_line.size(); ++i) {
        m_line[i].x += shift;
        shift += m_line[i].piece->endsInBlanks() && i + 1 < m_line.size() ? missing / static_cast<double>(gaps) : 0.0;
    }
    return missing;
}

double LineFiller::heightOfLine() const {
    double height = 0.0;
    for (const PlacedPiece& placed : m_line) {
        height = std::max(height, placed.piece->height);
    }
    return m_line.empty() ? m_paragraph.format.height : height;
}

/// How far a stretch is lifted in a line that is higher than itself.
double LineFiller::liftOf(const CharacterFormat& format, double height, double lineHeight) {
    switch (format.level) {
    case CharacterFormat::Level::middle:
        return (lineHeight - height) / 2.0;
    case CharacterFormat::Level::top:
        return lineHeight - height;
    default:
        return 0.0;
    }
}

/// Adds pieces of one stretch that follow one another, as one text.
void LineFiller::addPieces(size_t begin, size_t end, double lineHeight, ParagraphLine& line) const {
    QString text;
    for (size_t i = begin; i < end; ++i) {
        text += m_line[i].piece->text;
    }
    while (end == m_line.size() && !text.isEmpty() && text.back().isSpace()) {
        text.chop(1);
    }
    addText(text, m_line[begin].piece->source, m_line[begin].x, lineHeight, line);
}

void LineFiller::addText(const QString& text, size_t source, double x, double lineHeight, ParagraphLine& line) const {
    const auto& span = std::get<TextSpan>(m_paragraph.pieces[source]);
    const TextLine set = lineOf(text, lookOf(span.format, m_frame), m_frame.fonts);
    const double y = liftOf(span.format, span.format.height, lineHeight);
    line.line.block.add(set.block, {x - line.indent, y});
}

void LineFiller::addStack(size_t source, double x, double lineHeight, ParagraphLine& line) const {
    const auto& stack = std::get<TextStack>(m_paragraph.pieces[source]);
    const SetStack set = setStack(stack, lookOf(stack.format, m_frame), m_frame.fonts);
    const double y = liftOf(stack.format, set.height, lineHeight);
    line.line.block.add(set.line.block, {x - line.indent, y});
    line.height = std::max(line.height, y + set.height);
}

void LineFiller::addInWrittenOrder(bool spread, double lineHeight, ParagraphLine& line) const {
    for (size_t i = 0; i < m_line.size();) {
        const LinePiece& piece = *m_line[i].piece;
        size_t end = i + 1;
        if (piece.kind == LinePiece::Kind::text) {
            while (!spread && end < m_line.size() && m_line[end].piece->source == piece.source) {
                ++end;
            }
            addPieces(i, end, lineHeight, line);
        } else if (piece.kind == LinePiece::Kind::stack) {
            addStack(piece.source, m_line[i].x, lineHeight, line);
        }
        i = end;
    }
}

/// Whether the line is not simply read from left to right, nor one text that the renderer puts in order by itself.
bool LineFiller::needsOrder(bool spread) const {
    QString text;
    bool mixed = spread;
    for (const PlacedPiece& placed : m_line) {
        text += placed.piece->text;
        mixed = mixed || placed.piece->source != m_line.front().piece->source;
    }
    return (m_rightToLeft || mayRunRightToLeft(text)) && (mixed || text.isRightToLeft() != m_rightToLeft);
}

/// The texts of the line and, apart from them, the blanks between them.
std::vector<LineItem> LineFiller::itemsOfLine() const {
    using Kind = LineItem::Kind;
    std::vector<LineItem> items;
    for (size_t i = 0; i < m_line.size(); ++i) {
        const LinePiece& piece = *m_line[i].piece;
        const QString shown = withoutBlanksAtEnd(piece.text);
        const bool isStack = piece.kind == LinePiece::Kind::stack;
        if (isStack || !shown.isEmpty()) {
            items.push_back({isStack ? Kind::stack : Kind::text, piece.source, shown, piece.visible});
        }
        const double gap = i + 1 < m_line.size() ? m_line[i + 1].x - m_line[i].x - piece.visible : 0.0;
        if (gap != 0.0) {
            items.push_back({Kind::blank, piece.source, piece.text.mid(shown.size()), gap});
        }
    }
    return items;
}

void LineFiller::addInVisualOrder(bool spread, double lineHeight, ParagraphLine& line) const {
    double x = m_line.front().x;
    for (const LineItem& item : inVisualOrder(itemsOfLine(), m_rightToLeft, !spread)) {
        if (item.kind == LineItem::Kind::stack) {
            addStack(item.source, x, lineHeight, line);
        } else if (!item.text.isEmpty()) {
            addText(item.text, item.source, x, lineHeight, line);
        }
        x += item.width;
    }
}

void LineFiller::finishLine(bool last) {
    ParagraphLine line;
    line.indent = indent();
    line.room = m_frame.width > 0.0 ? rightEdge() - line.indent : 0.0;
    line.height = heightOfLine();
    const bool wanted = m_alignment == Paragraph::Alignment::distributed || !last;
    const bool spread =
        isSpread(m_alignment) && wanted && m_frame.width > 0.0 && m_line.size() > 1 && spreadLine() > 0.0;
    line.alignment = isSpread(m_alignment) ? Paragraph::Alignment::left : m_alignment;
    const double lineHeight = line.height;
    if (needsOrder(spread)) {
        addInVisualOrder(spread, lineHeight, line);
    } else {
        addInWrittenOrder(spread, lineHeight, line);
    }
    line.line.width = m_line.empty() ? 0.0 : m_line.back().x + m_line.back().piece->visible - line.indent;
    m_line.clear();
    m_lines.push_back(std::move(line));
}

} // namespace

std::vector<ParagraphLine> linesOf(const Paragraph& paragraph, const ParagraphFrame& frame) {
    return LineFiller(paragraph, frame).fill();
}

} // namespace kelplot
