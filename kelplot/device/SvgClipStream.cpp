// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/SvgClipStream.h"

namespace kelplot {
namespace {

// The generator writes a list of definitions and then one group around the whole picture, with a group in it for each
// change of the painter's state. Definitions, groups and paths begin a line.
const QByteArray endOfDefinitions = QByteArrayLiteral("</defs>");
const QByteArray groupTag = QByteArrayLiteral("<g ");
const QByteArray pathTag = QByteArrayLiteral("<path ");

/// Farther out than a plot draws.
constexpr double markAt = -77777.0;
const QByteArray markData = QByteArrayLiteral(" d=\"M-77777,-77777 L-77777,0\"/>");

QByteArray clipDefinition(const QRectF& clip) {
    return QStringLiteral("<clipPath id=\"visible\"><rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\"/></clipPath>\n")
        .arg(clip.x())
        .arg(clip.y())
        .arg(clip.width())
        .arg(clip.height())
        .toUtf8();
}

QByteArray dataOf(const QPainterPath& path) {
    QByteArray data;
    for (int i = 0; i < path.elementCount(); ++i) {
        constexpr int digits = 9;
        constexpr char letters[] = {'M', 'L', 'C', ' '}; // the second and third point of a curve have none
        const QPainterPath::Element element = path.elementAt(i);
        data += letters[element.type] + QByteArray::number(element.x, 'g', digits) + ',' +
                QByteArray::number(element.y, 'g', digits);
    }
    return data;
}

} // namespace

SvgClipStream::SvgClipStream(QIODevice& target, const std::optional<QRectF>& clip) : m_target(target) {
    if (clip) {
        m_whole = clipDefinition(*clip);
    }
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

QPainterPath SvgClipStream::mark() {
    QPainterPath path(QPointF(markAt, markAt));
    path.lineTo(markAt, 0.0);
    return path;
}

qint64 SvgClipStream::writeData(const char* data, qint64 size) {
    int begin = 0;
    int end = m_rest.size(); // there is no line end before; a picture makes a line of megabytes
    m_rest.append(data, static_cast<int>(size));
    for (; (end = m_rest.indexOf('\n', end)) >= 0; begin = ++end) {
        if (!writeLine(m_rest.mid(begin, end + 1 - begin))) {
            return -1;
        }
    }
    m_rest.remove(0, begin);
    return size;
}

/// Ends the clip in force, begins the next one if there is one, and goes on with the painter's state as it was.
QByteArray SvgClipStream::groupsForNextClip() {
    const std::optional<QPainterPath> clip = m_clips.front();
    m_clips.pop_front();
    QByteArray groups = m_isCut ? "</g>\n</g>\n" : "</g>\n";
    m_isCut = clip.has_value();
    if (clip) {
        const QByteArray name = "clip" + QByteArray::number(++m_clipsPut);
        const QByteArray rule = clip->fillRule() == Qt::OddEvenFill ? "evenodd" : "nonzero";
        groups += "<clipPath id=\"" + name + "\"><path clip-rule=\"" + rule + "\" d=\"" + dataOf(*clip) +
                  "\"/></clipPath>\n<g clip-path=\"url(#" + name + ")\">\n";
    }
    return groups + m_group;
}

bool SvgClipStream::writeLine(const QByteArray& line) {
    QByteArray written = line;
    if (!m_whole.isEmpty() && line.startsWith(endOfDefinitions)) {
        written.prepend(m_whole);
    }
    if (line.startsWith(groupTag)) {
        m_group.clear();
        m_inGroupTag = true;
        if (!m_whole.isEmpty()) {
            written.insert(groupTag.size(), QByteArrayLiteral("clip-path=\"url(#visible)\" "));
            m_whole.clear();
        }
    }
    if (m_inGroupTag) {
        m_group += line;
        m_inGroupTag = !line.trimmed().endsWith('>');
    } else if (!m_clips.empty() && line.startsWith(pathTag) && line.trimmed().endsWith(markData)) {
        written = groupsForNextClip();
    }
    return m_target.write(written) == written.size();
}

} // namespace kelplot
