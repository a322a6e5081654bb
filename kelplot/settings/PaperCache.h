// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <vector>

#include "keldriver/Paper.h"

namespace kelplot {

/// The binary copy of a text file of papers, which the library reads in less time.
class PaperCache {
public:
    PaperCache(QString text, QString cache) : m_text(std::move(text)), m_cache(std::move(cache)) {}

    const QString& path() const { return m_cache; }
    bool exists() const;
    /// Whether it was made after the text file was last edited, moved or installed; the text file takes precedence.
    bool isCurrent() const;
    /// Its papers; none when it is damaged.
    std::vector<PaperSize> records() const;
    /// Reads the text file with `read` and makes the cache from the result. No cache is made for a list without papers,
    /// which would look damaged, for a name with characters that it has no room for, or when the file changes
    /// meanwhile. If the cache cannot be written, or its path is empty, there is none.
    std::vector<PaperSize> remake(const std::function<std::vector<PaperSize>()>& read) const;

private:
    QString m_text;
    QString m_cache;
};

} // namespace kelplot
