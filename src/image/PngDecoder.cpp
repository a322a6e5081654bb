// SPDX-License-Identifier: BSD-3-Clause
#include "image/PngDecoder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>

#include <QByteArray>
#include <QRgba64>

namespace KelDriver::Internal {

namespace {

constexpr int signatureSize = 8;
constexpr int chunkFrame = 12; // length and name before a chunk's content, checksum after it
constexpr int chunkHead = 8;
constexpr int nameOffset = 4;
constexpr int nameSize = 4;
constexpr int keySize = 6;
constexpr int depthOffset = 24; // in the file: in the first chunk, after width and height
constexpr int colorTypeOffset = 25;
constexpr int trueColor = 2;

/// The one colour of a picture that is transparent.
struct KeyColor {
    uint16_t red;
    uint16_t green;
    uint16_t blue;
};

uint16_t word(const unsigned char* bytes) {
    return static_cast<uint16_t>(bytes[0] << 8 | bytes[1]);
}

uint32_t doubleWord(const unsigned char* bytes) {
    return static_cast<uint32_t>(word(bytes)) << 16 | word(bytes + 2);
}

/// The CRC-32 that ends a chunk, of its name and content.
uint32_t checksum(const unsigned char* bytes, int count) {
    uint32_t sum = UINT32_MAX;
    for (int i = 0; i < count; ++i) {
        sum ^= bytes[i];
        for (int bit = 0; bit < 8; ++bit) {
            sum = sum >> 1 ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
        }
    }
    return ~sum;
}

bool isNamed(const unsigned char* chunk, const char* name) {
    return std::memcmp(chunk + nameOffset, name, nameSize) == 0;
}

/// Whether a chunk before the pixels states more content than the file has. Such a file cannot be read, but readers
/// take memory for all of that content, up to a gigabyte, before they know.
bool isCutOff(const unsigned char* data, int size) {
    int64_t offset = signatureSize;
    while (offset + chunkFrame <= size && !isNamed(data + offset, "IDAT")) {
        offset += chunkFrame + int64_t{doubleWord(data + offset)};
    }
    return offset > size;
}

/// A damaged key colour does not count: readers skip it.
bool isKeyColor(const unsigned char* chunk) {
    return isNamed(chunk, "tRNS") && doubleWord(chunk) == keySize &&
           checksum(chunk + nameOffset, nameSize + keySize) == doubleWord(chunk + chunkHead + keySize);
}

// True colours with 16 bits a channel and no opacities.
bool isDeep(const unsigned char* data, int size) {
    return size > colorTypeOffset && data[depthOffset] == 16 && data[colorTypeOffset] == trueColor;
}

/// Takes the key colours out of the file of a deep picture. The first is answered; the format allows no other.
std::optional<KeyColor> takeKeyColor(QByteArray& file) {
    std::optional<KeyColor> key;
    QByteArray rest = file.left(signatureSize);
    int64_t offset = signatureSize;
    while (offset + chunkFrame + keySize <= file.size()) {
        const auto* chunk = reinterpret_cast<const unsigned char*>(file.constData()) + offset;
        if (isNamed(chunk, "IDAT")) {
            break;
        }
        const int64_t size = std::min(chunkFrame + int64_t{doubleWord(chunk)}, file.size() - offset);
        if (!isKeyColor(chunk)) {
            rest.append(reinterpret_cast<const char*>(chunk), static_cast<int>(size));
        } else if (!key) {
            const unsigned char* content = chunk + chunkHead;
            key = {word(content), word(content + 2), word(content + 4)};
        }
        offset += size;
    }
    rest.append(file.mid(static_cast<int>(offset)));
    file = rest;
    return key;
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
    if (data == nullptr || size <= 0 || isCutOff(data, size)) {
        return {};
    }
    if (!isDeep(data, size)) {
        return QImage::fromData(data, size, "PNG");
    }
    // Qt 5.15 declares a deep picture with a key colour to have four channels but has three decoded: it neither turns
    // the key into opacities nor fills the fourth in, so pixels are shifted and the ends of rows uninitialised. Hence
    // it gets the file without the key colour, which is applied here. A Qt that reads such files right needs none of
    // this.
    QByteArray file(reinterpret_cast<const char*>(data), size);
    const std::optional<KeyColor> key = takeKeyColor(file);
    QImage image = QImage::fromData(file, "PNG");
    if (key) {
        image = image.convertToFormat(QImage::Format_RGBA64);
        makeTransparent(image, *key);
    }
    return image;
}

} // namespace KelDriver::Internal
