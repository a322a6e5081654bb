// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QPainterPath>
#include <QRectF>
#include <deque>
#include <optional>

namespace kelplot {

/// Passes on an SVG document from Qt's generator and puts clips into it, because the generator ignores its painter's
/// clip: one around the whole picture, and one from each mark to the next.
class SvgClipStream final : public QIODevice {
public:
    /// @param target  open for writing; outlives this
    /// @param clip    in the coordinates of the document's view box; nothing: the whole picture shows
    SvgClipStream(QIODevice& target, const std::optional<QRectF>& clip);

    /// What to draw where the clip changes. It does not get into the document.
    static QPainterPath mark();
    /// Cuts everything from a mark on to a path in the coordinates of the view box, or to nothing. The paths count in
    /// the order in which their marks are drawn.
    void addClip(const std::optional<QPainterPath>& clip) { m_clips.push_back(clip); }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override;

private:
    bool writeLine(const QByteArray& line);
    QByteArray groupsForNextClip();

    QIODevice& m_target;
    QByteArray m_rest;  ///< of a line that is not complete yet
    QByteArray m_whole; ///< the clip around the picture, still to be put in; empty when that is done or there is none
    QByteArray m_group; ///< the tag of the group that was begun last
    bool m_inGroupTag = false;
    bool m_isCut = false; ///< a clip from a mark is in force
    int m_clipsPut = 0;
    std::deque<std::optional<QPainterPath>> m_clips; ///< of the marks that are still to come
};

} // namespace kelplot
