// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <atomic>
#include <memory>
#include <string>
#include <unordered_map>

#include <QMetaObject>
#include <QPainterPath>

#include "render/LetterOutlines.h"
#include "render/TextShape.h"

class QTRenderer;

namespace KelDriver::Internal {

/// The outlines of the texts that a plot has drawn, as far as there is room: plans repeat a few words many times.
/// For one thread at a time.
class TextOutlines {
public:
    TextOutlines();
    ~TextOutlines();
    TextOutlines(const TextOutlines&) = delete;
    TextOutlines& operator=(const TextOutlines&) = delete;

    /// The same as `outlineOf`. Fonts that the application adds or removes count from the next text on.
    QPainterPath get(const TextShape& shape);

private:
    using Table = std::unordered_map<std::wstring, QPainterPath>;

    QPainterPath make(const TextShape& shape);
    void keep(std::wstring&& key, const QPainterPath& outline);

    Table m_recent;
    Table m_older;           ///< what is not asked for again goes with the next exchange
    size_t m_recentSize = 0; ///< in elements of paths and characters
    LetterOutlines m_letters;
    std::shared_ptr<std::atomic<bool>> m_fontsChanged;
    QMetaObject::Connection m_fontChanges;
};

/// From here on the renderer keeps outlines, none so far. They lie outside of it since its layout is shared with
/// drivers.
void beginTextOutlines(const QTRenderer* renderer);
/// The renderer keeps no outlines any more. Nothing where it kept none.
void endTextOutlines(const QTRenderer* renderer);
/// Null for a renderer that keeps none. Owned by the library until the renderer begins anew or ends.
TextOutlines* textOutlinesOf(const QTRenderer* renderer);

} // namespace KelDriver::Internal
