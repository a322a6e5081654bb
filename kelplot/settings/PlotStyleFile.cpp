// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PlotStyleFile.h"

#include <QFile>
#include <QFileInfo>
#include <zlib.h>

#include "settings/PlotStyleRecords.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr qint64 largestFile = 1 << 20; // bytes; a table by colours takes a few thousand
constexpr int largestText = 4 << 20;

/// What stands before the compressed text: a line with the kind of table, the name of the compression, and then a
/// checksum and the lengths of the text and of its compressed form, four bytes each. They are passed over: the
/// compressed stream has a checksum of its own and tells where it ends.
constexpr char mark[] = "PIAFILEVERSION_2.0,";
constexpr char compression[] = "pmzlibcodec";
constexpr int lengthOfNumbers = 12;

/// The text in a stream of zlib. Throws the reason where it cannot be had.
QByteArray inflated(const QByteArray& stream) {
    z_stream codec{};
    codec.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(stream.constData()));
    codec.avail_in = static_cast<uInt>(stream.size());
    if (inflateInit(&codec) != Z_OK) {
        throw std::bad_alloc();
    }
    QByteArray text;
    QByteArray part(1 << 16, '\0');
    int state = Z_OK;
    while (state == Z_OK && text.size() <= largestText) {
        codec.next_out = reinterpret_cast<Bytef*>(part.data());
        codec.avail_out = static_cast<uInt>(part.size());
        state = inflate(&codec, Z_NO_FLUSH);
        text.append(part.constData(), part.size() - static_cast<int>(codec.avail_out));
    }
    inflateEnd(&codec);
    if (text.size() > largestText) {
        throw PlotStyleFault{QStringLiteral("too large for a table of plot styles")};
    }
    if (state != Z_STREAM_END) {
        throw PlotStyleFault{state == Z_BUF_ERROR ? QStringLiteral("cut off") : QStringLiteral("damaged")};
    }
    return text;
}

PenTable tableIn(const QByteArray& bytes) {
    const QByteArray head = bytes.mid(static_cast<int>(sizeof mark) - 1, 3);
    const bool byColours = head == "CTB";
    const int codec = bytes.left(128).indexOf(compression);
    if (!bytes.startsWith(mark) || !(byColours || head == "STB") || codec < 0) {
        throw PlotStyleFault{QStringLiteral("not a table of plot styles")};
    }
    const int start = codec + static_cast<int>(sizeof compression) - 1 + lengthOfNumbers;
    return plotStylesIn(inflated(bytes.mid(start)), byColours ? StyleNames::colours : StyleNames::free);
}

} // namespace

PenTable plotStylesFrom(const QString& path) {
    QFile file(path);
    if (QFileInfo(path).isDir() || !file.open(QIODevice::ReadOnly)) {
        throw SettingsError(path, QFileInfo(path).isDir() ? QStringLiteral("not a file") : file.errorString());
    }
    const QByteArray bytes = file.read(largestFile + 1);
    try {
        if (bytes.size() > largestFile) {
            throw PlotStyleFault{QStringLiteral("too large for a table of plot styles")};
        }
        return tableIn(bytes);
    } catch (const PlotStyleFault& fault) {
        throw SettingsError(path, fault.reason);
    }
}

} // namespace kelplot
