// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QRgb>
#include <QSize>
#include <functional>
#include <vector>

#include "device/hpgl/OutlineGroups.h"

namespace kelplot {

/// Writes HP-GL/2 commands, and of what they set only what changes. Coordinates are plotter units, a fortieth of a
/// millimetre, y upwards.
class HpglWriter {
public:
    using Write = std::function<void(const QByteArray&)>;

    /// How a line is drawn.
    struct Pen {
        QRgb colour = 0;
        double width = 0.0; ///< millimetres
        int ends = 4;       ///< as the command LA numbers them: 1 butt, 2 square, 4 round
        int joins = 4;      ///< likewise: 1 mitred, 4 round, 5 bevelled
    };

    /// @param write  receives the commands, in pieces
    explicit HpglWriter(Write write) : m_write(std::move(write)) {}

    /// Begins a page. The title may hold anything.
    void beginPage(QSize size, const QByteArray& title);
    void endPage();

    /// @param points  at least one
    void drawPolyline(const std::vector<QPoint>& points, const Pen& pen);

    /// Fills closed outlines together.
    void fill(const std::vector<PlotterOutline>& outlines, bool evenOdd, QRgb colour);

private:
    void select(QRgb colour);
    void setWidth(double width);
    void setAttributes(const Pen& pen);
    void addEncoded(const std::vector<QPoint>& points, size_t first);
    void addNumber(int number);
    void flushIfLong();

    Write m_write;
    QByteArray m_text;
    std::vector<QRgb> m_pens; ///< the colours of pens 1 and up
    int m_selected = 0;       ///< pen; 0: none
    double m_width = -1.0;
    int m_ends = 0;
    int m_joins = 0;
};

} // namespace kelplot
