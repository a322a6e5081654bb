// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/proxy/ByteStream.h"

#include <QString>
#include <algorithm>

#include "base/LittleEndian.h"
#include "reader/GroupValue.h"

namespace kelplot {

namespace {

constexpr size_t wordSize = 4;

} // namespace

/// Empty where there are not as many.
std::string_view ByteStream::take(size_t size) {
    if (size > left()) {
        m_failed = true;
        m_at = m_bytes.size();
        return {};
    }
    m_at += size;
    return m_bytes.substr(m_at - size, size);
}

int32_t ByteStream::integer() {
    return fromLittleEndian<int32_t>(take(sizeof(int32_t)));
}

double ByteStream::real() {
    return saneReal(fromLittleEndian<double>(take(sizeof(double))));
}

Vec3 ByteStream::point() {
    Vec3 result;
    result.x = real();
    result.y = real();
    result.z = real();
    return result;
}

std::string ByteStream::text() {
    const std::string_view rest = m_bytes.substr(m_at);
    const size_t length = std::min(rest.find('\0'), rest.size());
    take(std::min((length / wordSize + 1) * wordSize, left()));
    return std::string(rest.substr(0, length));
}

std::string ByteStream::wideText() {
    QString result;
    const size_t start = m_at;
    while (left() >= 2 && !m_failed) {
        const std::string_view unit = take(2);
        const auto code =
            static_cast<ushort>(static_cast<unsigned char>(unit[0]) | static_cast<unsigned char>(unit[1]) << 8);
        if (code == 0) {
            break;
        }
        result += QChar(code);
    }
    const size_t beyond = (m_at - start) % wordSize;
    take(beyond == 0 ? 0 : std::min(wordSize - beyond, left()));
    return result.toStdString();
}

size_t ByteStream::count(size_t itemSize) {
    const int32_t stated = integer();
    if (stated < 0 || static_cast<size_t>(stated) > left() / itemSize) {
        m_failed = true;
        return 0;
    }
    return static_cast<size_t>(stated);
}

} // namespace kelplot
