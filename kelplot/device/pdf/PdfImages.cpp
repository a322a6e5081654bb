// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfImages.h"

#include <QCryptographicHash>

#include "device/pdf/ImagePixels.h"
#include "device/vector/JpegStream.h"

namespace kelplot {
namespace {

/// What two images have in common only if they look the same.
QByteArray keyOf(const QImage& image, bool isSmooth) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    const int facts[] = {image.width(), image.height(), image.format(), isSmooth ? 1 : 0};
    hash.addData(reinterpret_cast<const char*>(facts), sizeof facts);
    const int rowBytes = (image.width() * image.depth() + 7) / 8;
    for (int y = 0; y < image.height(); ++y) {
        hash.addData(reinterpret_cast<const char*>(image.constScanLine(y)), rowBytes);
    }
    for (const QRgb colour : image.colorTable()) {
        hash.addData(reinterpret_cast<const char*>(&colour), sizeof colour);
    }
    return hash.result();
}

std::string headOf(const QImage& image) {
    return "/Type/XObject/Subtype/Image/Width " + std::to_string(image.width()) + "/Height " +
           std::to_string(image.height());
}

std::string colourSpaceOf(const ImagePixels& pixels) {
    if (pixels.palette.empty()) {
        return pixels.components == 1 ? "/DeviceGray" : "/DeviceRGB";
    }
    PdfBytes colours;
    for (const QRgb colour : pixels.palette) {
        colours.hex4(static_cast<uint32_t>(qRed(colour) << 8 | qGreen(colour)));
        PdfBytes blue;
        blue.hex4(static_cast<uint32_t>(qBlue(colour)));
        colours << blue.view().substr(2);
    }
    return "[/Indexed/DeviceRGB " + std::to_string(pixels.palette.size() - 1) + "<" + std::string(colours.view()) +
           ">]";
}

std::string formOf(const ImagePixels& pixels, const QImage& image) {
    std::string form = "/ColorSpace" + colourSpaceOf(pixels) + "/BitsPerComponent " + std::to_string(pixels.bits);
    if (pixels.isPredicted) {
        form += "/DecodeParms<</Predictor 15/Colors " + std::to_string(pixels.components) + "/Columns " +
                std::to_string(image.width()) + ">>";
    }
    return form;
}

} // namespace

int PdfImages::write(const QImage& image, bool isSmooth) {
    std::string dictionary = headOf(image);
    if (isSmooth) {
        dictionary += "/Interpolate true";
    }
    if (const JpegStream jpeg = jpegOf(m_file, image); !jpeg.isEmpty()) {
        dictionary += jpeg.components == 1 ? "/ColorSpace/DeviceGray" : "/ColorSpace/DeviceRGB";
        PdfBytes bytes;
        bytes << std::string_view(jpeg.bytes.constData(), static_cast<size_t>(jpeg.bytes.size()));
        return m_document.addStream(dictionary + "/BitsPerComponent 8/Filter/DCTDecode", std::move(bytes), false);
    }
    if (auto mask = opacitiesOf(image)) {
        const std::string form = formOf(*mask, image);
        dictionary += "/SMask " + pdfReference(m_document.addStream(headOf(image) + form, std::move(mask->bytes)));
    }
    ImagePixels pixels = coloursOf(image);
    dictionary += formOf(pixels, image);
    return m_document.addStream(std::move(dictionary), std::move(pixels.bytes));
}

std::string PdfImages::nameOf(const QImage& image, bool isSmooth) {
    const QByteArray key = keyOf(image, isSmooth);
    std::string& name = m_names[key];
    if (name.empty()) {
        // Rows are read as pixels of 32 bits.
        const bool isReadable = image.format() == QImage::Format_RGB32 || image.format() == QImage::Format_ARGB32;
        const QImage readable = isReadable ? image : image.convertToFormat(QImage::Format_ARGB32);
        if (readable.isNull()) {
            throw std::bad_alloc();
        }
        name = m_resources.add("XObject", 'I', write(readable, isSmooth));
    }
    return name;
}

std::string PdfImages::nameOfStencil(const QImage& image) {
    std::string& name = m_names[keyOf(image, false) + 'M'];
    if (name.empty()) {
        const QImage bits = image.convertToFormat(QImage::Format_Mono);
        PdfBytes rows;
        for (int y = 0; y < bits.height(); ++y) {
            rows << std::string_view(reinterpret_cast<const char*>(bits.constScanLine(y)),
                                     static_cast<size_t>((bits.width() + 7) / 8));
        }
        name = m_resources.add("XObject", 'I',
                               m_document.addStream(headOf(image) + "/ImageMask true/Decode[1 0]", std::move(rows)));
    }
    return name;
}

} // namespace kelplot
