// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PaperCache.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <iterator>

#include "settings/PaperRecords.h"

namespace kelplot {

namespace {

// The file as the library writes it.
constexpr qint64 headerSize = 28;
constexpr qint64 recordSize = 160;

/// The cache has 16 bits for a character.
bool fitsCache(const PaperSize& paper) {
    constexpr wchar_t widest = 0xFFFF;
    return std::all_of(std::begin(paper.Name), std::end(paper.Name), [](wchar_t c) { return c <= widest; });
}

} // namespace

bool PaperCache::exists() const {
    return QFile::exists(m_cache);
}

bool PaperCache::isCurrent() const {
    const QFileInfo text(m_text);
    const QFileInfo cache(m_cache);
    return cache.exists() && (!text.exists() || text.metadataChangeTime() < cache.lastModified());
}

std::vector<PaperSize> PaperCache::records() const {
    const qint64 count = exists() ? paperCount(m_cache) : 0;
    if (count <= 0 || QFileInfo(m_cache).size() != headerSize + count * recordSize) {
        return {};
    }
    std::vector<PaperSize> records = paperRecords(m_cache);
    return areSound(records) ? records : std::vector<PaperSize>();
}

std::vector<PaperSize> PaperCache::remake(const std::function<std::vector<PaperSize>()>& read) const {
    const QDateTime change = QFileInfo(m_text).metadataChangeTime();
    std::vector<PaperSize> records = read();
    if (m_cache.isEmpty()) {
        return records;
    }
    if (records.empty() || !std::all_of(records.begin(), records.end(), fitsCache)) {
        QFile::remove(m_cache);
        return records;
    }
    QDir().mkpath(QFileInfo(m_cache).path());
    HT_WritePaperFile(m_cache.toStdWString().c_str(), records.data(), static_cast<int>(records.size()));
    if (QFileInfo(m_text).metadataChangeTime() != change) {
        QFile::remove(m_cache);
    }
    return records;
}

} // namespace kelplot
