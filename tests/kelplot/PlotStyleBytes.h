// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <string>

/// The bytes of a table of plot styles ("CTB" or "STB") with this text. Its checksum and lengths are left at 0.
inline std::string plotStyleBytes(const std::string& kind, const std::string& text) {
    constexpr int lengthOfSize = 4; // that Qt puts before a stream of zlib
    const QByteArray stream = qCompress(QByteArray::fromStdString(text)).mid(lengthOfSize);
    return "PIAFILEVERSION_2.0," + kind + "VER1,compress\r\npmzlibcodec" + std::string(12, '\0') + stream.toStdString();
}
