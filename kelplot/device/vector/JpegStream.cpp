// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/vector/JpegStream.h"

namespace kelplot {
namespace {

constexpr int startOfImage = 0xD8;
constexpr int endOfImage = 0xD9;
constexpr int startOfScan = 0xDA;
constexpr int jfifSegment = 0xE0;
constexpr int adobeSegment = 0xEE;
constexpr int lastApplicationSegment = 0xEF;
constexpr int comment = 0xFE;

int byteAt(const QByteArray& bytes, int index) {
    return static_cast<unsigned char>(bytes[index]);
}

bool isFrame(int marker) {
    constexpr int tables[] = {0xC4, 0xC8, 0xCC}; // among the numbers of frames
    return marker >= 0xC0 && marker <= 0xCF && marker != tables[0] && marker != tables[1] && marker != tables[2];
}

/// The components of a frame that every program reads: of Huffman codes, with eight bits a sample; 0: of another.
int componentsOf(int marker, const QByteArray& frame) {
    constexpr int baseline = 0xC0, progressive = 0xC2;
    constexpr int headBytes = 6, componentBytes = 3;
    if (marker > progressive || marker < baseline || frame.size() < headBytes || byteAt(frame, 0) != 8) {
        return 0;
    }
    const int count = byteAt(frame, headBytes - 1);
    if ((count != 1 && count != 3) || frame.size() < headBytes + count * componentBytes) {
        return 0;
    }
    const bool isRed = count == 3 && frame[headBytes] == 'R'; // the names of components that are colours themselves
    return isRed ? 0 : count;
}

/// Adobe's programs state how components become colours.
bool isUsual(const QByteArray& adobe, int components) {
    constexpr int transformAt = 11;
    return components == 1 || (adobe.size() > transformAt && byteAt(adobe, transformAt) == 1);
}

/// A stream of a kind that every program reads alike; what the file says besides is left out.
JpegStream plainStream(const QByteArray& file) {
    const char end[] = {'\xFF', static_cast<char>(endOfImage)};
    JpegStream stream;
    if (file.size() < 4 || byteAt(file, 0) != 0xFF || byteAt(file, 1) != startOfImage ||
        !file.endsWith(QByteArray(end, 2))) {
        return {};
    }
    QByteArray kept = file.left(2);
    QByteArray adobe;
    for (int at = 2; at + 4 <= file.size();) {
        const int marker = byteAt(file, at + 1);
        const int length = byteAt(file, at + 2) << 8 | byteAt(file, at + 3);
        if (byteAt(file, at) != 0xFF || length < 2 || at + 2 + length > file.size()) {
            return {};
        }
        const QByteArray content = file.mid(at + 4, length - 2);
        if (isFrame(marker)) {
            stream.components = componentsOf(marker, content);
        } else if (marker == adobeSegment) {
            adobe = content;
        } else if (marker == startOfScan) {
            const bool isPlain = stream.components != 0 && (adobe.isEmpty() || isUsual(adobe, stream.components));
            stream.bytes = isPlain ? kept + file.mid(at) : QByteArray();
            return stream;
        }
        const bool isNote =
            (marker > jfifSegment && marker <= lastApplicationSegment && marker != adobeSegment) || marker == comment;
        kept += isNote ? QByteArray() : file.mid(at, 2 + length);
        at += 2 + length;
    }
    return {};
}

} // namespace

JpegStream jpegOf(const QByteArray& file, const QImage& pixels) {
    JpegStream stream = plainStream(file);
    if (stream.isEmpty()) {
        return {};
    }
    constexpr auto format = QImage::Format_ARGB32;
    const QImage shown = QImage::fromData(stream.bytes, "JPG").convertToFormat(format);
    return shown == pixels.convertToFormat(format) ? stream : JpegStream();
}

} // namespace kelplot
