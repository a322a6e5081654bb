// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

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
    void fill(uint32_t block, Drawing& drawing);
    std::string reasonAgainst(const QString& file) const;

    ReadOne m_readOne;
    QStringList m_open; ///< the drawing, and the references that lead to what is being read
    int m_referencesLeft = 1000;
    std::int64_t m_bytesLeft = std::int64_t{1} << 28; ///< of all drawings together
};

} // namespace kelplot
