// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfContent.h"

#include <algorithm>
#include <cmath>

#include "device/pdf/PdfPath.h"

namespace kelplot {
namespace {

/// Writes a colour and the operator for it.
void writeColour(PdfBytes& bytes, QRgb colour, const char* greyOperator, const char* colourOperator) {
    constexpr double brightest = 255.0;
    constexpr int decimals = 3;
    bytes.decimal(qRed(colour) / brightest, decimals);
    if (qRed(colour) == qGreen(colour) && qGreen(colour) == qBlue(colour)) {
        bytes << greyOperator;
        return;
    }
    bytes.decimal(qGreen(colour) / brightest, decimals).decimal(qBlue(colour) / brightest, decimals) << colourOperator;
}

int capOf(const QPen& pen) {
    switch (pen.capStyle()) {
    case Qt::FlatCap:
        return 0;
    case Qt::RoundCap:
        return 1;
    default:
        return 2;
    }
}

int joinOf(const QPen& pen) {
    switch (pen.joinStyle()) {
    case Qt::RoundJoin:
        return 1;
    case Qt::BevelJoin:
        return 2;
    default:
        return 0;
    }
}

QPointF startOf(const PageShape& shape) {
    return {shape.elements[0].x, shape.elements[0].y};
}

/// Tells whether readers find the order of a text by the places of its letters: mirrored, they run backwards, and on a
/// slope each seems to begin a line.
bool isReadInOrder(const QTransform& place) {
    constexpr double slight = 1e-3;
    const double along = std::abs(place.m11());
    const double across = std::abs(place.m12());
    const bool isMirrored = place.m11() * place.m22() - place.m12() * place.m21() > 0.0;
    return !isMirrored && std::min(along, across) <= slight * std::max(along, across);
}

} // namespace

void PdfContent::beginPage(const QTransform& base) {
    m_state = {};
    m_penIsSet = false;
    concatenate(base);
}

void PdfContent::endPage() {
    m_nextClips.clear();
    m_clipsChange = true;
    m_layer.clear();
    drawing();
}

void PdfContent::setClips(const std::vector<PageShape>& clips) {
    m_nextClips = clips;
    m_clipsChange = true;
}

void PdfContent::beginCopy() {
    endRun();
    ++m_copies;
}

void PdfContent::endCopy() {
    endRun();
    --m_copies;
}

/// Begins a run within a copy, unless there is one already.
void PdfContent::beginRun(QPointF at) {
    const QPointF base(std::round(at.x()), std::round(at.y()));
    const bool isNear = std::abs(base.x()) <= PdfForms::farthest && std::abs(base.y()) <= PdfForms::farthest;
    if (m_copies == 0 || m_run || !isNear) {
        return;
    }
    endText();
    m_bytes << "q 1 0 0 1 ";
    m_bytes.decimal(base.x(), 0).decimal(base.y(), 0) << "cm\n";
    m_run = Run{m_bytes.size(), base, m_state, m_pen, m_penIsSet};
}

void PdfContent::endRun() {
    if (!m_run) {
        return;
    }
    endText();
    if (const std::string_view form = m_forms.nameOf(m_bytes.view().substr(m_run->start)); !form.empty()) {
        m_bytes.cutAfter(m_run->start);
        m_bytes << '/' << form << " Do\n";
    }
    m_bytes << "Q\n";
    m_state = std::move(m_run->state);
    m_pen = std::move(m_run->pen);
    m_penIsSet = m_run->penIsSet;
    m_run.reset();
}

/// Ends a run after something that it drew; what comes next begins another.
void PdfContent::endLongRun() {
    constexpr size_t mostBytes = size_t{1} << 16;
    if (m_run && m_bytes.size() - m_run->start > mostBytes) {
        endRun();
    }
}

void PdfContent::endText() {
    if (m_isInText) {
        m_bytes << "ET\n";
        m_isInText = false;
    }
}

void PdfContent::endLayer() {
    endRun();
    endText();
    if (!m_openLayer.empty()) {
        m_bytes << "EMC\n";
        m_openLayer.clear();
    }
}

/// Keeps the clips that stay, from the outermost inwards.
void PdfContent::updateClips() {
    m_clipsChange = false;
    const auto end = m_clips.begin() + static_cast<std::ptrdiff_t>(std::min(m_clips.size(), m_nextClips.size()));
    const auto kept =
        static_cast<size_t>(std::mismatch(m_clips.begin(), end, m_nextClips.begin()).first - m_clips.begin());
    if (kept == m_clips.size() && kept == m_nextClips.size()) {
        return;
    }
    endLayer();
    while (m_clips.size() > kept) {
        m_bytes << "Q\n";
        m_state = std::move(m_outer.back());
        m_outer.pop_back();
        m_clips.pop_back();
        m_penIsSet = false;
    }
    for (size_t i = kept; i < m_nextClips.size(); ++i) {
        const PageShape& clip = m_nextClips[i];
        m_bytes << "q\n";
        PdfPath(m_bytes, clip, PathUse::area).clip();
        m_outer.push_back(m_state);
        m_clips.push_back(clip);
    }
}

void PdfContent::update() {
    if (m_clipsChange) {
        updateClips();
    }
    if (m_layer != m_openLayer) {
        endLayer();
        m_openLayer = m_layer;
        if (!m_layer.empty()) {
            m_bytes << "/OC/" << m_layer << " BDC\n";
        }
    }
}

void PdfContent::ready() {
    endText();
    update();
}

PdfBytes& PdfContent::drawing() {
    endRun();
    ready();
    return m_bytes;
}

void PdfContent::setFill(QRgb colour) {
    update();
    if (m_state.fill != colour) {
        m_state.fill = colour;
        writeColour(m_bytes, colour, "g\n", "rg\n");
    }
}

void PdfContent::setBlend(int blend) {
    update();
    if (m_state.blend != blend) {
        m_state.blend = blend;
        m_bytes << "/B" << blend << " gs\n";
    }
}

void PdfContent::setDashes(const QPen& pen) {
    constexpr int decimals = 2;
    PdfBytes dashes;
    dashes << '[';
    const QVector<qreal> pattern = pen.style() == Qt::SolidLine ? QVector<qreal>() : pen.dashPattern();
    const double unit = pen.widthF() > 0.0 ? pen.widthF() : 1.0;
    if (std::any_of(pattern.begin(), pattern.end(), [](double length) { return length > 0.0; })) {
        for (const double length : pattern) {
            dashes.decimal(std::max(0.0, length) * unit, decimals);
        }
        dashes << ']';
        dashes.decimal(pen.dashOffset() * unit, decimals) << "d\n";
    } else {
        dashes << "]0 d\n";
    }
    if (m_state.dashes != dashes.view()) {
        m_state.dashes = dashes.view();
        m_bytes << dashes.view();
    }
}

void PdfContent::setPen(const QPen& pen) {
    ready();
    if (m_penIsSet && pen == m_pen) {
        return;
    }
    m_pen = pen;
    m_penIsSet = true;
    if (const QRgb colour = pen.color().rgb(); m_state.stroke != colour) {
        m_state.stroke = colour;
        writeColour(m_bytes, colour, "G\n", "RG\n");
    }
    if (m_state.lineWidth != pen.widthF()) {
        m_state.lineWidth = pen.widthF();
        m_bytes.decimal(pen.widthF(), 2) << "w\n";
    }
    if (m_state.cap != capOf(pen)) {
        m_state.cap = capOf(pen);
        m_bytes << m_state.cap << " J\n";
    }
    if (m_state.join != joinOf(pen)) {
        m_state.join = joinOf(pen);
        m_bytes << m_state.join << " j\n";
    }
    // The painter counts the limit from the line's middle and in widths, the file from inside to outside.
    if (const double limit = std::max(1.0, pen.miterLimit() * 2.0); m_state.join == 0 && m_state.mitreLimit != limit) {
        m_state.mitreLimit = limit;
        m_bytes.decimal(limit, 2) << "M\n";
    }
    setDashes(pen);
}

void PdfContent::fill(const PageShape& shape) {
    ready();
    beginRun(startOf(shape));
    PdfPath(m_bytes, shape, PathUse::area, base()).paint(shape.rule == Qt::OddEvenFill ? "f*\n" : "f\n");
    endLongRun();
}

void PdfContent::stroke(const PageShape& shape) {
    ready();
    beginRun(startOf(shape));
    const PathUse use = m_pen.style() == Qt::SolidLine ? PathUse::solidLine : PathUse::dashedLine;
    PdfPath(m_bytes, shape, use, base()).paint("S\n");
    endLongRun();
}

void PdfContent::show(const QString& text, const PreparedText& prepared, const QTransform& place) {
    if (prepared.pieces.empty()) {
        return;
    }
    update();
    beginRun({place.dx(), place.dy()});
    if (!m_isInText) {
        m_bytes << "BT\n";
        m_isInText = true;
    }
    const bool needsSpan = !prepared.hasSpans && !isReadInOrder(place);
    m_bytes << (needsSpan ? beginSpan(text) : std::string());
    for (const TextPiece& piece : prepared.pieces) {
        show(piece, place);
    }
    m_bytes << (needsSpan ? endSpan : "");
    endLongRun();
}

void PdfContent::show(const TextPiece& piece, const QTransform& place) {
    constexpr int decimals = 3; // of the letters' size: a text is many times as long as that
    if (m_state.font != piece.font) {
        m_state.font = piece.font;
        m_bytes << "/F" << piece.font << " 1 Tf\n";
    }
    m_bytes.decimal(place.m11(), decimals).decimal(place.m12(), decimals);
    m_bytes.decimal(place.m21() + piece.slant * place.m11(), decimals);
    m_bytes.decimal(place.m22() + piece.slant * place.m12(), decimals);
    m_bytes.coordinate(place.dx() + piece.start * place.m11() - base().x());
    m_bytes.coordinate(place.dy() + piece.start * place.m12() - base().y());
    m_bytes << "Tm\n" << piece.showing;
}

void PdfContent::concatenate(const QTransform& map) {
    constexpr int decimals = 8;
    m_bytes.decimal(map.m11(), decimals).decimal(map.m12(), decimals).decimal(map.m21(), decimals);
    m_bytes.decimal(map.m22(), decimals).decimal(map.dx(), decimals).decimal(map.dy(), decimals) << "cm\n";
}

} // namespace kelplot
