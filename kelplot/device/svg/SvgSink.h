// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QSizeF>
#include <deque>
#include <utility>
#include <vector>

#include "device/svg/SvgPaints.h"
#include "device/svg/SvgStream.h"
#include "device/vector/VectorSink.h"

namespace kelplot {

/// Writes an SVG document as it is drawn. What follows in the same style stands in one group.
class SvgSink final : public VectorSink {
public:
    /// @param target  outlives this; takes all that is written and keeps the reason where it cannot
    /// @param page  in page units
    /// @param unitsPerMillimetre  how many page units a millimetre of the true size has
    SvgSink(QIODevice& target, QSizeF page, double unitsPerMillimetre, const QString& title);

    /// The file from which the images that are drawn next come, if they come from one.
    void setPictureFile(const QByteArray& file) { m_paints.setFile(file); }

    /// What is drawn from here on belongs to a layer; an empty name: to none.
    void setLayer(const QString& name) { m_layer = name; }

    /// Ends the document.
    void finish();

    QPaintEngine::PaintEngineFeatures features() const override;
    void setClips(const std::vector<PageShape>& clips) override;
    void fill(const PageShape& shape, const PageBrush& brush, const PageBlend& blend) override;
    void stroke(const PageShape& shape, const QPen& pen, const PageBlend& blend) override;
    void drawImage(const PagePicture& picture, const PageBlend& blend) override;
    bool drawText(const PageText& text, const PageBlend& blend) override;

private:
    void writeClip(const PageShape& clip, const QByteArray& name, const QByteArray& outer);
    QByteArray nameOfClips(const std::vector<PageShape>& clips);
    void useStyle(const QByteArray& style);
    void closeGroups();
    void closeLayer();
    void beginElement(const char* element, const QByteArray& style, const PageBlend& blend);
    static QByteArray penStyle(const QPen& pen, double opacity);

    /// Clips with the name of the last of them, which has the others in it.
    using NamedClips = std::pair<std::vector<PageShape>, QByteArray>;

    SvgStream m_stream;
    SvgPaints m_paints;
    QRectF m_page;
    std::deque<NamedClips> m_recentClips; ///< that may come again
    int m_clipCount = 0;
    QByteArray m_clip;      ///< the name of the clip in force; empty: none
    QByteArray m_groupClip; ///< of the group that is open
    QString m_layer;        ///< of what is drawn next; empty: none
    QString m_groupLayer;   ///< of the group that is open within that
    QPen m_pen{Qt::NoPen};  ///< that was used last
    double m_penOpacity = 1.0;
    QByteArray m_penStyle; ///< its attributes
    QByteArray m_style;    ///< the attributes of the group that is open within that; empty: none is
};

} // namespace kelplot
