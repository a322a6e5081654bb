// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QIODevice>
#include <QSize>
#include <QString>

#include "device/OutputDevice.h"

struct png_struct_def;
struct png_info_def;

namespace kelplot {

/// What the head of a PNG file states.
struct PngHead {
    QSize size;
    PixelKind pixels = PixelKind::colour;
    int dotsPerMetre = 0;
    QString title; ///< empty: none
};

/// Writes a PNG file row by row.
class PngEncoder {
public:
    /// @param target  outlives this; takes all that is written and keeps the reason where it cannot
    PngEncoder(QIODevice& target, const PngHead& head);
    ~PngEncoder();
    PngEncoder(const PngEncoder&) = delete;
    PngEncoder& operator=(const PngEncoder&) = delete;

    /// Writes the next row, of as many bytes as the head calls for. False where there is no memory for it.
    bool writeRow(const uchar* bytes);
    /// Ends the file after the last row. False as above.
    bool finish();

private:
    bool writeHead(const PngHead& head);

    png_struct_def* m_png = nullptr;
    png_info_def* m_info = nullptr;
    bool m_works = false;
};

} // namespace kelplot
