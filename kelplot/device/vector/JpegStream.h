// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>

namespace kelplot {

/// A JPEG picture that a document may hold in place of its pixels.
struct JpegStream {
    QByteArray bytes;   ///< without what the pixels do not depend on: cameras' notes, previews, colour profiles
    int components = 0; ///< 1: grey, 3: colours

    bool isEmpty() const { return bytes.isEmpty(); }
};

/// The picture in a file as a JPEG stream, if every reader takes these pixels from it. Empty for files of other
/// formats, for kinds of JPEG that few programs read alike, and where the pixels are others.
JpegStream jpegOf(const QByteArray& file, const QImage& pixels);

} // namespace kelplot
