#include "plot/PictureStore.h"

#include <QFile>
#include <cstdlib>
#include <limits>

#include <imgo.h>

#include "plot/PictureFile.h"
#include "plot/PicturePixels.h"

namespace kelplot {

namespace {

constexpr int drawnDepth = 32;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > std::numeric_limits<int>::max()) {
        return {};
    }
    return file.readAll();
}

/// Encoded anew, any picture comes out with as many bits as the renderer reads.
HT_RasterImagePtr deepened(HT_RasterImagePtr picture) {
    void* data = nullptr;
    unsigned long size = 0;
    constexpr unsigned long uncompressed = 100;
    if (!picture || picture->colorDepth() == drawnDepth) {
        return picture;
    }
    return picture->convertTo(L"PNG", &data, &size, uncompressed) != 0 ? pictureOfPng(data, size) : HT_RasterImagePtr();
}

HT_RasterImagePtr decoded(const QByteArray& bytes) {
    if (bytes.startsWith("\x89PNG")) {
        return deepened(pictureOfPng(bytes.constData(), static_cast<size_t>(bytes.size())));
    }
    auto image = Imgo::Image::LoadBytes(bytes.constData(), static_cast<size_t>(bytes.size()));
    if (!image) {
        return {};
    }
    constexpr int sameOpacity = 255;
    image->AddAlphaOnCvtBmp(sameOpacity); // for 32 bits a pixel
    HT_RasterImagePtr picture = RasterImageFactory::CreateFromGiRasterImage(image.release());
    return picture->colorDepth() == drawnDepth ? std::move(picture) : HT_RasterImagePtr();
}

HT_RasterImagePtr changed(HT_RasterImagePtr picture, const PictureLook& look) {
    if (!picture || (look.keepsColours() && (look.transparent || picture->getTransparency() == 0))) {
        return picture;
    }
    QImage image = pixelsOf(*picture);
    picture.reset();
    applyLook(look, image);
    return pictureOf(image);
}

int64_t pixelCount(const HT_RasterImage& picture) {
    return int64_t{picture.pixelWidth()} * std::abs(int64_t{picture.pixelHeight()});
}

} // namespace

HT_RasterImagePtr PictureStore::load(uint32_t definition, const PictureLook& look) const {
    if (definition >= m_drawing.images.size()) {
        return {};
    }
    const QString folder = QString::fromStdString(m_drawing.folder);
    return changed(decoded(contentOf(pictureFile(m_drawing.images[definition].path, folder))), look);
}

HT_RasterImage* PictureStore::find(uint32_t definition, const PictureLook& look) {
    constexpr int64_t mostPixels = int64_t{1} << 26; // a quarter of a gibibyte
    const auto known = m_pictures.find({definition, look});
    if (known != m_pictures.end()) {
        return known->second.get();
    }
    if (m_missing.count(definition) != 0) {
        return nullptr;
    }
    HT_RasterImagePtr picture = load(definition, look);
    if (!picture) {
        m_missing.insert(definition);
        return nullptr;
    }
    const int64_t pixels = pixelCount(*picture);
    if (m_pixels + pixels > mostPixels) {
        m_pictures.clear();
        m_pixels = 0;
    }
    m_pixels += pixels;
    return m_pictures.emplace(std::pair(definition, look), std::move(picture)).first->second.get();
}

} // namespace kelplot
