// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/SvgClipStream.h"

namespace kelplot {
namespace {

// The generator writes a list of definitions and then one group around the whole picture.
const QByteArray endOfDefinitions = QByteArrayLiteral("</defs>");
const QByteArray groupTag = QByteArrayLiteral("<g ");

QByteArray clipDefinition(const QRectF& clip) {
    return QStringLiteral("<clipPath id=\"visible\"><rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\"/></clipPath>\n")
        .arg(clip.x())
        .arg(clip.y())
        .arg(clip.width())
        .arg(clip.height())
        .toUtf8();
}

} // namespace

SvgClipStream::SvgClipStream(QIODevice& target, const std::optional<QRectF>& clip) : m_target(target) {
    if (clip) {
        m_clip = clipDefinition(*clip);
    }
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

qint64 SvgClipStream::writeData(const char* data, qint64 size) {
    if (m_clip.isEmpty()) {
        return m_target.write(data, size);
    }
    m_head.append(data, static_cast<int>(size));
    const int definitions = m_head.indexOf(endOfDefinitions);
    const int group = definitions < 0 ? -1 : m_head.indexOf(groupTag, definitions);
    if (group < 0) {
        return size;
    }
    m_head.insert(group + groupTag.size(), QByteArrayLiteral("clip-path=\"url(#visible)\" "));
    m_head.insert(definitions, m_clip);
    m_clip.clear();
    const bool written = m_target.write(m_head) == m_head.size();
    m_head.clear();
    return written ? size : -1;
}

} // namespace kelplot
