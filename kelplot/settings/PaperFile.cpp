// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PaperFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <array>

#include "settings/Folders.h"
#include "settings/PaperRecords.h"
#include "settings/PaperRewrite.h"
#include "settings/SettingsFile.h"

namespace kelplot {

namespace {

QString textIn(const QString& folder) {
    return QDir(folder).filePath(QStringLiteral("papers.ini"));
}

} // namespace

PaperFile::PaperFile(const QString& folder) : PaperFile(folder, QDir(folder).filePath(QStringLiteral("papers.PER"))) {
}

PaperFile::PaperFile(const QString& folder, const QString& cache)
    : m_folder(folder), m_text(textIn(folder)), m_cache(m_text, cache) {
}

PaperFile PaperFile::ofDevice() {
    const QString folder = driverFolder();
    return {folder, driverCacheOf(textIn(folder))};
}

PaperFile PaperFile::ofUser() {
    return PaperFile(ownFolder());
}

bool PaperFile::exists() const {
    return QFile::exists(m_text) || m_cache.exists();
}

std::vector<PaperSize> PaperFile::read(QStringList& warnings) const {
    const bool hasText = QFile::exists(m_text);
    const bool hasCache = m_cache.exists();
    std::vector<PaperSize> cached = m_cache.records();
    if ((!cached.empty() && m_cache.isCurrent()) || (!hasText && !hasCache)) {
        return cached;
    }
    if (!hasText) {
        throw SettingsError(m_cache.path(), QStringLiteral("damaged, or without papers"));
    }
    const auto readText = [&] {
        return soundPaperRecords(m_text);
    };
    if (hasCache && cached.empty()) {
        cached = readText();
        warnings << QStringLiteral("%1: damaged, or without papers; reading %2 instead. Remove it to have "
                                   "it made again")
                        .arg(m_cache.path(), QFileInfo(m_text).fileName());
        return cached;
    }
    return m_cache.remake(readText);
}

int PaperFile::add(const PaperSize& paper) const {
    if (!QDir().mkpath(m_folder)) {
        throw SettingsError(m_folder, QStringLiteral("the folder cannot be created"));
    }
    if (!QFile::exists(m_text) && m_cache.exists()) {
        throw SettingsError(m_cache.path(), QStringLiteral("there is no text file beside it to add a paper to"));
    }
    return addToPaperFile(m_text, paper);
}

bool PaperFile::takes(const SheetSize& size) const {
    constexpr unsigned short largestPaper = 20;
    std::array<int32_t, 2> largest{};
    HT_DefaultDeviceCapabilities(largestPaper, reinterpret_cast<char*>(largest.data()), nullptr,
                                 m_text.toStdWString().c_str());
    const double width = largest[0] / 10.0;
    const double length = largest[1] / 10.0;
    return (size.width <= width && size.height <= length) || (size.height <= width && size.width <= length);
}

} // namespace kelplot
