// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <string>

#include "drawing/Drawing.h"

namespace kelplot {

/// Reads the drawings that a drawing refers to, and those that these refer to, into the blocks that stand for them. A
/// block keeps its reason where that cannot be done.
class ExternalDrawings {
public:
    /// Reads one drawing alone, or throws `ReadError`.
    using ReadOne = std::function<Drawing(const std::string& path)>;

    explicit ExternalDrawings(ReadOne readOne) : m_readOne(std::move(readOne)) {}

    /// Fills the blocks of `drawing`, which was read from `path`.
    void resolve(Drawing& drawing, const QString& path);

private:
    /// What is known of the references of one drawing.
    struct References {
        QHash<QString, uint32_t> firstBlocks; ///< for each file the first block that stands for it
        QSet<QString> layered;                ///< names of blocks that the drawing lists layers of
    };

    void fill(uint32_t block, Drawing& drawing, References& references);
    std::string reasonAgainst(const QString& file);
    void read(const QString& file, uint32_t block, Drawing& drawing);

    ReadOne m_readOne;
    QStringList m_open; ///< the drawing, and the references that lead to what is being read
    int m_referencesLeft = 1000;
    std::int64_t m_bytesLeft = std::int64_t{1} << 28;      ///< of all drawings together
    std::int64_t m_bytesLeftAgain = std::int64_t{1} << 26; ///< of those that were read before
    QSet<QString> m_readBefore;
};

} // namespace kelplot
