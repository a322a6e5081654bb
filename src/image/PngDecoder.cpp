#include "image/PngDecoder.h"

#include <cstdint>
#include <cstring>
#include <optional>

#include <QByteArray>
#include <QRgba64>

namespace {

constexpr int signatureSize = 8;
constexpr int chunkFrame = 12; // length and name before a chunk's content, checksum after it
constexpr int chunkHead = 8;
constexpr int depthOffset = 24; // in the file: in the first chunk, behind width and height
constexpr int colorTypeOffset = 25;
constexpr int trueColor = 2;

/// The one colour of a picture that is to be seen through.
struct KeyColor {
    int chunkOffset;
    uint16_t red;
    uint16_t green;
    uint16_t blue;
};

uint16_t word(const unsigned char* bytes) {
    return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

bool isNamed(const unsigned char* chunk, const char* name) {
    return std::memcmp(chunk + 4, name, 4) == 0;
}

// Of a picture with 16 bits a channel and no opacities: with a key colour, Qt's reader takes its rows for longer
// than they are. Other kinds it reads right.
std::optional<KeyColor> deepKeyColor(const unsigned char* data, int size) {
    if (size <= colorTypeOffset || data[depthOffset] != 16 || data[colorTypeOffset] != trueColor) {
        return {};
    }
    constexpr int keySize = 6;
    int64_t offset = signatureSize;
    while (offset + chunkFrame + keySize <= size) {
        const unsigned char* chunk = data + offset;
        const uint32_t length = static_cast<uint32_t>(word(chunk)) << 16 | word(chunk + 2);
        if (isNamed(chunk, "tRNS") && length == keySize) {
            const unsigned char* key = chunk + chunkHead;
            return KeyColor{static_cast<int>(offset), word(key), word(key + 2), word(key + 4)};
        }
        if (isNamed(chunk, "IDAT")) {
            break;
        }
        offset += chunkFrame + int64_t{length};
    }
    return {};
}

void makeTransparent(QImage& image, const KeyColor& key) {
    for (int y = 0; y < image.height(); ++y) {
        auto* pixels = reinterpret_cast<QRgba64*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (pixels[x].red() == key.red && pixels[x].green() == key.green && pixels[x].blue() == key.blue) {
                pixels[x].setAlpha(0);
            }
        }
    }
}

} // namespace

QImage decodePng(const unsigned char* data, int size) {
    if (data == nullptr || size <= 0) {
        return {};
    }
    const std::optional<KeyColor> key = deepKeyColor(data, size);
    if (!key) {
        return QImage::fromData(data, size, "PNG");
    }
    constexpr int keyChunkSize = chunkFrame + 6;
    QByteArray bytes(reinterpret_cast<const char*>(data), size);
    bytes.remove(key->chunkOffset, keyChunkSize);
    QImage image = QImage::fromData(bytes, "PNG").convertToFormat(QImage::Format_RGBA64);
    makeTransparent(image, *key);
    return image;
}
