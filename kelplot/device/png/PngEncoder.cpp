// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/png/PngEncoder.h"

#include <csetjmp>
#include <png.h>

#include "device/PlotMark.h"

namespace kelplot {
namespace {

/// Plots are mostly plain ground: a filter finds nothing that the compression does not, and more effort saves little.
constexpr int compression = 1;

/// Bytes that are passed on together.
constexpr size_t pieceSize = size_t(1) << 18;

void passOn(png_structp png, png_bytep data, size_t size) {
    static_cast<QIODevice*>(png_get_io_ptr(png))->write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
}

void flushNothing(png_structp /*png*/) {
}

/// The library's way back where it finds no memory; what it would print about that is dropped.
[[noreturn]] void jumpBack(png_structp png, png_const_charp /*text*/) {
    png_longjmp(png, 1);
}

void keepQuiet(png_structp /*png*/, png_const_charp /*text*/) {
}

int colourTypeOf(PixelKind pixels) {
    return pixels == PixelKind::colour ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_GRAY;
}

/// A text beyond Latin-1 takes the chunk for UTF-8. The entry refers to `value`.
png_text entryOf(char* key, const QString& text, QByteArray& value) {
    const bool isLatin = QString::fromLatin1(text.toLatin1()) == text;
    value = isLatin ? text.toLatin1() : text.toUtf8();
    value.replace('\0', ' ');
    png_text entry = {};
    entry.compression = isLatin ? PNG_TEXT_COMPRESSION_NONE : PNG_ITXT_COMPRESSION_NONE;
    entry.key = key;
    entry.text = value.data();
    return entry;
}

} // namespace

PngEncoder::PngEncoder(QIODevice& target, const PngHead& head)
    : m_png(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, jumpBack, keepQuiet)) {
    if (m_png != nullptr) {
        m_info = png_create_info_struct(m_png);
        png_set_write_fn(m_png, &target, passOn, flushNothing);
    }
    m_works = m_info != nullptr && writeHead(head);
}

PngEncoder::~PngEncoder() {
    png_destroy_write_struct(&m_png, &m_info);
}

bool PngEncoder::writeHead(const PngHead& head) {
    char software[] = "Software";
    char title[] = "Title";
    QByteArray values[2]; // an error of the library jumps over the ends of no other scope
    png_text texts[] = {entryOf(software, QString::fromLatin1(plotMark), values[0]),
                        entryOf(title, head.title, values[1])};
    if (setjmp(png_jmpbuf(m_png)) != 0) {
        return false;
    }
    png_set_text(m_png, m_info, texts, head.title.isEmpty() ? 1 : 2); // copies them
    png_set_user_limits(m_png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_IHDR(m_png, m_info, static_cast<png_uint_32>(head.size.width()),
                 static_cast<png_uint_32>(head.size.height()), head.pixels == PixelKind::bilevel ? 1 : 8,
                 colourTypeOf(head.pixels), PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    const auto dots = static_cast<png_uint_32>(head.dotsPerMetre);
    png_set_pHYs(m_png, m_info, dots, dots, PNG_RESOLUTION_METER);
    png_set_filter(m_png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_compression_level(m_png, compression);
    png_set_compression_buffer_size(m_png, pieceSize);
    png_write_info(m_png, m_info);
    return true;
}

bool PngEncoder::writeRow(const uchar* bytes) {
    if (!m_works || setjmp(png_jmpbuf(m_png)) != 0) {
        m_works = false;
        return false;
    }
    png_write_row(m_png, bytes);
    return true;
}

bool PngEncoder::finish() {
    if (!m_works || setjmp(png_jmpbuf(m_png)) != 0) {
        m_works = false;
        return false;
    }
    png_write_end(m_png, nullptr);
    return true;
}

} // namespace kelplot
