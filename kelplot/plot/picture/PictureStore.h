// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <map>
#include <string>
#include <utility>

#include "drawing/Drawing.h"
#include "keldriver/RasterImage.h"
#include "plot/picture/PictureLook.h"

namespace kelplot {

/// Why a picture is left out.
enum class PictureFault {
    notFound,
    notReadable, ///< there is a file, but the user may not read it
    notPicture,  ///< the file holds none, or a damaged one
    tooLarge,
};

/// The pictures that are left out, by their indices into Drawing::images.
using PictureFaults = std::map<uint32_t, PictureFault>;

/// The pictures of a drawing, read when they are first asked for.
class PictureStore {
public:
    /// @param drawing  borrowed for the store's life
    explicit PictureStore(const Drawing& drawing) : m_drawing(drawing) {}

    /// A picture as the renderer takes it, with 32 bits per pixel; valid until the next call. Null where its file
    /// is missing or holds no picture.
    HT_RasterImage* find(uint32_t definition, const PictureLook& look);
    /// The file of the picture that was found last, where it shows as it came and its format is one that documents may
    /// hold; else empty.
    const QByteArray& file() const { return m_file; }

    /// The pictures that could not be loaded.
    const PictureFaults& missing() const { return m_missing; }

private:
    struct Picture {
        HT_RasterImagePtr pixels;
        QByteArray file;
    };

    Picture load(uint32_t definition, const PictureLook& look);

    const Drawing& m_drawing;
    std::map<std::pair<uint32_t, PictureLook>, Picture> m_pictures;
    QByteArray m_file;
    int64_t m_pixels = 0; ///< of all that are kept
    PictureFaults m_missing;
};

} // namespace kelplot
