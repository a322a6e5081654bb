// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/picture/PictureStore.h"

#include <QFile>
#include <QImageReader>
#include <cstdlib>
#include <imgo.h>
#include <optional>

#include "base/StatedFile.h"
#include "plot/picture/QImagePicture.h"

namespace kelplot {

namespace {

constexpr int drawnDepth = 32;

/// Opens the file of a picture and returns the reason not to read it, if there is one.
std::optional<PictureFault> faultOf(QFile& file) {
    constexpr qint64 mostBytes = qint64{1} << 29;
    constexpr int64_t mostPixels = int64_t{1} << 28;
    if (file.fileName().isEmpty()) {
        return PictureFault::notFound;
    }
    // The system's own files look empty, and some block their reader, so they are not even opened.
    if (file.size() == 0) {
        return PictureFault::notPicture;
    }
    if (file.size() > mostBytes) {
        return PictureFault::tooLarge;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return PictureFault::notReadable;
    }
    QImageReader reader(&file);
    reader.setDecideFormatFromContent(true);
    if (!reader.canRead()) {
        return PictureFault::notPicture;
    }
    const QSize size = reader.size();
    return int64_t{size.width()} * size.height() > mostPixels ? std::optional(PictureFault::tooLarge) : std::nullopt;
}

QByteArray contentOf(QFile& file) {
    return file.seek(0) ? file.read(file.size()) : QByteArray();
}

/// Encoding any picture again gives it as many bits as the renderer reads.
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
    image->AddAlphaOnCvtBmp(sameOpacity); // for 32 bits per pixel
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

PictureStore::Picture PictureStore::load(uint32_t definition, const PictureLook& look) {
    const ImageDefinition stated =
        definition < m_drawing.images.size() ? m_drawing.images[definition] : ImageDefinition();
    const std::string& folder = stated.folder.empty() ? m_drawing.folder : stated.folder;
    QFile file(statedFile(stated.path, QString::fromStdString(folder)));
    const std::optional<PictureFault> fault = faultOf(file);
    const QByteArray bytes = fault ? QByteArray() : contentOf(file);
    HT_RasterImagePtr pixels = fault ? HT_RasterImagePtr() : changed(decoded(bytes), look);
    if (!pixels) {
        m_missing.emplace(definition, fault.value_or(PictureFault::notPicture));
    }
    const bool isKept = look.keepsColours() && bytes.startsWith("\xFF\xD8");
    return {std::move(pixels), isKept ? bytes : QByteArray()};
}

HT_RasterImage* PictureStore::find(uint32_t definition, const PictureLook& look) {
    constexpr int64_t mostPixels = int64_t{1} << 26; // a quarter of a gibibyte
    const auto known = m_pictures.find({definition, look});
    if (known != m_pictures.end()) {
        m_file = known->second.file;
        return known->second.pixels.get();
    }
    if (m_missing.count(definition) != 0) {
        return nullptr;
    }
    Picture picture = load(definition, look);
    if (!picture.pixels) {
        return nullptr;
    }
    const int64_t pixels = pixelCount(*picture.pixels);
    if (m_pixels + pixels > mostPixels) {
        m_pictures.clear();
        m_pixels = 0;
    }
    m_pixels += pixels;
    m_file = picture.file;
    return m_pictures.emplace(std::pair(definition, look), std::move(picture)).first->second.pixels.get();
}

} // namespace kelplot
