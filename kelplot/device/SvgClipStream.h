// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QRectF>
#include <optional>

namespace kelplot {

/// Passes on an SVG document from Qt's generator and puts a clip into it, because the generator ignores its painter's
/// clip.
class SvgClipStream final : public QIODevice {
public:
    /// @param target  open for writing; outlives this
    /// @param clip    in the coordinates of the document's view box; nothing: the document passes unchanged
    SvgClipStream(QIODevice& target, const std::optional<QRectF>& clip);

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override;

private:
    QIODevice& m_target;
    QByteArray m_clip; ///< still to be put in; empty when that is done or there is none
    QByteArray m_head; ///< held back until the place for the clip has come
};

} // namespace kelplot
