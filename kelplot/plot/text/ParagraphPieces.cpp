// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/ParagraphPieces.h"

#include <QTextBoundaryFinder>

#include "plot/text/TextStackLayout.h"

namespace kelplot {

namespace {

/// The characters of a piece that decide where lines may end. A stack is like a number, which stays with
/// what it is written next to.
QString charactersOf(const TextPiece& piece) {
    if (const auto* span = std::get_if<TextSpan>(&piece)) {
        return QString::fromStdString(span->text);
    }
    return QString(QLatin1Char(std::holds_alternative<TextTab>(piece) ? '\t' : '0'));
}

const CharacterFormat& formatOf(const TextPiece& piece) {
    return std::visit([](const auto& content) -> const CharacterFormat& { return content.format; }, piece);
}

/// Cuts the paragraph's characters into pieces as it goes along.
class PieceCutter {
public:
    PieceCutter(const Paragraph& paragraph, const ParagraphFrame& frame)
        : m_paragraph(paragraph), m_frame(frame), m_characters(charactersOf(paragraph)) {}

    std::vector<LinePiece> cut() {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Line, m_characters);
        int next = finder.toNextBoundary();
        int start = 0;
        for (size_t source = 0; source < m_paragraph.pieces.size(); ++source) {
            const int end = start + charactersOf(m_paragraph.pieces[source]).size();
            const TextLook look = lookOf(formatOf(m_paragraph.pieces[source]), m_frame);
            while (start < end) {
                while (next >= 0 && next <= start) {
                    next = finder.toNextBoundary();
                }
                const int stop = next < 0 ? end : std::min(next, end);
                add(source, look, m_characters.mid(start, stop - start), stop == next);
                start = stop;
            }
        }
        return std::move(m_pieces);
    }

private:
    void add(size_t source, const TextLook& look, const QString& text, bool breakAfter) {
        LinePiece piece;
        piece.source = source;
        piece.breakAfter = breakAfter;
        std::visit([&](const auto& content) { measure(content, look, text, piece); }, m_paragraph.pieces[source]);
        m_pieces.push_back(std::move(piece));
    }

    void measure(const TextSpan& span, const TextLook& look, const QString& text, LinePiece& piece) const {
        piece.text = text;
        piece.width = widthOf(text, look, m_frame.fonts);
        const QString shown = withoutBlanksAtEnd(text);
        piece.visible = shown.size() == text.size() ? piece.width : widthOf(shown, look, m_frame.fonts);
        piece.height = span.format.height;
    }
    void measure(const TextStack& stack, const TextLook& look, const QString& /*text*/, LinePiece& piece) const {
        piece.kind = LinePiece::Kind::stack;
        piece.width = setStack(stack, look, m_frame.fonts).line.width;
        piece.visible = piece.width;
        piece.height = stack.format.height;
    }
    static void measure(const TextTab& tab, const TextLook& /*look*/, const QString& /*text*/, LinePiece& piece) {
        piece.kind = LinePiece::Kind::tab;
        piece.height = tab.format.height;
        piece.breakAfter = true;
    }

    const Paragraph& m_paragraph;
    const ParagraphFrame& m_frame;
    QString m_characters;
    std::vector<LinePiece> m_pieces;
};

} // namespace

QString withoutBlanksAtEnd(const QString& text) {
    int length = text.size();
    while (length > 0 && text[length - 1].isSpace() && text[length - 1] != QChar::Nbsp) {
        --length;
    }
    return text.left(length);
}

QString charactersOf(const Paragraph& paragraph) {
    QString characters;
    for (const TextPiece& piece : paragraph.pieces) {
        characters += charactersOf(piece);
    }
    return characters;
}

TextLook lookOf(const CharacterFormat& format, const ParagraphFrame& frame) {
    TextLook look;
    look.font = frame.fonts.choose(format.font.value_or(frame.style.font), frame.style.bigFontFile);
    look.height = format.height;
    look.widthFactor = format.widthFactor * (look.font.standIn ? frame.standInRatio : 1.0);
    look.obliqueAngle = format.obliqueAngle;
    look.tracking = format.tracking;
    look.colour = format.colour;
    look.lines = format.lines;
    return look;
}

std::vector<LinePiece> piecesOf(const Paragraph& paragraph, const ParagraphFrame& frame) {
    return PieceCutter(paragraph, frame).cut();
}

} // namespace kelplot
