// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PaperFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cwchar>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

#include "keldriver/IniFile.h"
#include "settings/SettingsFile.h"

namespace kelplot {
namespace {

constexpr unsigned short paperRecords = 19;
constexpr unsigned short largestPaper = 20;

// The binary file as the library writes it.
constexpr qint64 cacheHeader = 28;
constexpr qint64 cacheRecord = 160;

int paperCount(const QString& path) {
    return HT_DefaultDeviceCapabilities(paperRecords, nullptr, nullptr, path.toStdWString().c_str());
}

/// The papers of a file that is there. They are asked of a copy: between the count and the papers another program may
/// add one to the file itself.
std::vector<PaperSize> recordsFrom(const QString& original) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QFileInfo(original).fileName());
    QFile source(original);
    if (!source.copy(path)) {
        throw SettingsError(original, source.errorString());
    }
    std::vector<PaperSize> records(static_cast<size_t>(std::max(paperCount(path), 0)), PaperSize{});
    if (!records.empty()) {
        HT_DefaultDeviceCapabilities(paperRecords, reinterpret_cast<char*>(records.data()), nullptr,
                                     path.toStdWString().c_str());
    }
    return records;
}

/// The turn that every writer of a file takes, this library's functions among them: a lock on its folder.
class FolderLock {
public:
    FolderLock(const QString& folder, std::chrono::milliseconds patience)
        : m_folder(open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC)) {
        constexpr std::chrono::milliseconds pause(5);
        const auto end = std::chrono::steady_clock::now() + patience;
        while (!(m_isHeld = flock(m_folder, LOCK_EX | LOCK_NB) == 0) && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(pause);
        }
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock() { close(m_folder); }

    bool isHeld() const { return m_isHeld; }

private:
    int m_folder;
    bool m_isHeld = false;
};

bool sameName(const PaperSize& a, const PaperSize& b) {
    return std::wcsncmp(a.Name, b.Name, std::size(a.Name)) == 0;
}

bool samePaper(const PaperSize& a, const PaperSize& b) {
    const auto numbers = [](const PaperSize& p) {
        return std::array{p.Paper, p.Width, p.Length, p.UpEdge, p.DownEdge, p.LeftEdge, p.RightEdge, p.Units};
    };
    return sameName(a, b) && numbers(a) == numbers(b);
}

/// What is wrong with a paper; empty when nothing is.
QString faultOf(const PaperSize& paper) {
    if (paper.Name[0] == L'\0') {
        return QStringLiteral("has no name, or one of more than 63 bytes");
    }
    if (paper.Width <= 0 || paper.Length <= 0) {
        return QStringLiteral("has no Width or Length above 0");
    }
    const bool inward = std::min({paper.LeftEdge, paper.RightEdge, paper.UpEdge, paper.DownEdge}) >= 0;
    if (!inward || int64_t{paper.LeftEdge} + paper.RightEdge >= paper.Width ||
        int64_t{paper.UpEdge} + paper.DownEdge >= paper.Length) {
        return QStringLiteral("has margins that are negative or leave no room");
    }
    return {};
}

bool areSound(const std::vector<PaperSize>& records) {
    return std::all_of(records.begin(), records.end(), [](const PaperSize& p) { return faultOf(p).isEmpty(); });
}

/// The cache has 16 bits for a character.
bool fitsCache(const PaperSize& paper) {
    constexpr wchar_t widest = 0xFFFF;
    return std::all_of(std::begin(paper.Name), std::end(paper.Name), [](wchar_t c) { return c <= widest; });
}

QString sectionName(int index) {
    return QStringLiteral("Paper %1").arg(index);
}

/// The count must be there and be backed by sections: the library would fill what is missing with defaults.
void requireSections(const QString& path) {
    inifile::IniFile file;
    file.Load(path.toStdString());
    int count = 0;
    if (file.GetIntValue("General", "PaperCount", count) != 0 || count < 0) {
        throw SettingsError(path, QStringLiteral("section [General] states no PaperCount of 0 or more"));
    }
    for (int i = 0; i < count; ++i) {
        if (!file.HasSection(sectionName(i).toStdString())) {
            throw SettingsError(
                path, QStringLiteral("PaperCount is %1, but there is no section [%2]").arg(count).arg(sectionName(i)));
        }
    }
}

void requireSound(const QString& path, const std::vector<PaperSize>& records) {
    for (size_t i = 0; i < records.size(); ++i) {
        const QString fault = faultOf(records[i]);
        if (!fault.isEmpty()) {
            throw SettingsError(path, QStringLiteral("[%1] %2").arg(sectionName(static_cast<int>(i)), fault));
        }
    }
}

/// Refuses what a rewritten file would not keep: the note of a header swallows the line below it, and the new paper
/// takes the section behind the counted ones.
void requireRewritable(const QString& path, size_t papers) {
    inifile::IniFile file;
    std::vector<std::string> sections;
    file.Load(path.toStdString());
    file.GetSections(sections);
    for (const std::string& section : sections) {
        if (!file.getSection(section)->rightComment.empty()) {
            throw SettingsError(path, QStringLiteral("the note behind the header [%1] would swallow the line below it; "
                                                     "give the note a line of its own")
                                          .arg(QString::fromStdString(section)));
        }
    }
    const QString next = sectionName(static_cast<int>(papers));
    if (file.HasSection(next.toStdString())) {
        throw SettingsError(path,
                            QStringLiteral("PaperCount is %1, so a paper would replace [%2]").arg(papers).arg(next));
    }
}

/// A line of a settings file: section, key and value.
using StatedItem = std::array<std::string, 3>;

bool isOfPapers(const std::string& section, const std::string& key) {
    const QString name = QString::fromStdString(section);
    bool isNumber = false;
    name.midRef(name.indexOf(QLatin1Char(' ')) + 1).toInt(&isNumber);
    return (isNumber && name.startsWith(QStringLiteral("Paper "))) || (section == "General" && key == "PaperCount");
}

/// What a file states besides its papers, in its order; nothing when there is no file.
std::vector<StatedItem> otherItems(const QString& path) {
    inifile::IniFile file;
    std::vector<std::string> sections;
    std::vector<StatedItem> items;
    file.Load(path.toStdString());
    file.GetSections(sections);
    for (const std::string& section : sections) {
        for (const inifile::IniItem& item : file.getSection(section)->items) {
            if (!isOfPapers(section, item.key)) {
                items.push_back({section, item.key, item.value});
            }
        }
    }
    return items;
}

/// Names the first paper that a rewritten file does not hold as it was; empty when it holds all.
QString firstLoss(const std::vector<PaperSize>& wanted, const std::vector<PaperSize>& written) {
    const auto [lost, other] = std::mismatch(wanted.begin(), wanted.end(), written.begin(), written.end(), samePaper);
    return lost == wanted.end() ? QString()
                                : QStringLiteral(" [%1]").arg(sectionName(static_cast<int>(lost - wanted.begin())));
}

/// Names the first item that a rewritten file does not hold as it was; empty when it holds all.
QString firstLoss(const std::vector<StatedItem>& wanted, const std::vector<StatedItem>& written) {
    const auto [lost, other] = std::mismatch(wanted.begin(), wanted.end(), written.begin(), written.end());
    return lost == wanted.end() ? QString()
                                : QStringLiteral(" \"%1\" of [%2]")
                                      .arg(QString::fromStdString((*lost)[1]), QString::fromStdString((*lost)[0]));
}

/// The comment and blank lines behind the last key. The library does not keep them.
QByteArray closingComment(const QByteArray& text) {
    int start = 0;
    for (int line = 0; line < text.size();) {
        const int newline = text.indexOf('\n', line);
        const int next = newline < 0 ? text.size() : newline + 1;
        const QByteArray content = text.mid(line, next - line).trimmed();
        start = content.isEmpty() || content.startsWith('#') ? start : next;
        line = next;
    }
    return text.mid(start);
}

/// A new file beside `original` with the content of it, if there is one; returns that.
QByteArray startCopy(QTemporaryFile& copy, const QString& original) {
    QFile source(original);
    const bool exists = source.exists();
    if (exists && !source.open(QIODevice::ReadOnly)) {
        throw SettingsError(original, source.errorString());
    }
    QByteArray content = exists ? source.readAll() : QByteArray();
    if (!copy.open() || copy.write(content) != content.size() || !copy.flush()) {
        throw SettingsError(original, copy.errorString());
    }
    constexpr auto usual = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
    copy.setPermissions(exists ? source.permissions() : usual);
    copy.close();
    return content;
}

void append(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (!file.open(QIODevice::Append) || file.write(text) != text.size() || !file.flush()) {
        throw SettingsError(path, file.errorString());
    }
}

void putInPlace(QTemporaryFile& copy, const QString& path) {
    if (std::rename(QFile::encodeName(copy.fileName()).constData(), QFile::encodeName(path).constData()) != 0) {
        throw SettingsError(path, QStringLiteral("cannot be written"));
    }
    copy.setAutoRemove(false);
}

/// Puts `copy` in the place of `original`, which stays beside it.
void replaceFile(const QString& original, QTemporaryFile& copy) {
    if (QFile::exists(original)) {
        const QString beside = original + QLatin1Char('~');
        QTemporaryFile kept(beside + QStringLiteral("XXXXXX"));
        startCopy(kept, original);
        putInPlace(kept, beside);
    }
    putInPlace(copy, original);
}

} // namespace

PaperFile::PaperFile(const QString& folder)
    : m_folder(folder), m_text(QDir(folder).filePath(QStringLiteral("papers.ini"))),
      m_cache(QDir(folder).filePath(QStringLiteral("papers.PER"))) {
}

bool PaperFile::exists() const {
    return QFile::exists(m_text) || QFile::exists(m_cache);
}

/// A text file that was edited, moved or installed after the cache was made has the last word.
bool PaperFile::cacheIsCurrent() const {
    const QFileInfo text(m_text);
    const QFileInfo cache(m_cache);
    return cache.exists() && (!text.exists() || text.metadataChangeTime() < cache.lastModified());
}

bool PaperFile::cacheIsWhole() const {
    const qint64 count = paperCount(m_cache);
    return count > 0 && QFileInfo(m_cache).size() == cacheHeader + count * cacheRecord;
}

/// Makes the cache anew; not when the text file has changed since it was read.
void PaperFile::makeCache(const std::vector<PaperSize>& records, const QDateTime& textChange) const {
    if (!std::all_of(records.begin(), records.end(), fitsCache)) {
        QFile::remove(m_cache);
        return;
    }
    HT_WritePaperFile(m_cache.toStdWString().c_str(), records.data(), static_cast<int>(records.size()));
    if (QFileInfo(m_text).metadataChangeTime() != textChange) {
        QFile::remove(m_cache);
    }
}

std::vector<PaperSize> PaperFile::read(QStringList& warnings) const {
    const bool hasText = QFile::exists(m_text);
    const bool hasCache = QFile::exists(m_cache);
    std::vector<PaperSize> cached = hasCache && cacheIsWhole() ? recordsFrom(m_cache) : std::vector<PaperSize>();
    const bool usable = !cached.empty() && areSound(cached);
    if ((usable && cacheIsCurrent()) || (!hasText && !hasCache)) {
        return cached;
    }
    if (!hasText) {
        throw SettingsError(m_cache, QStringLiteral("damaged, or without papers"));
    }
    const QDateTime textChange = QFileInfo(m_text).metadataChangeTime();
    std::vector<PaperSize> records = readText();
    if (hasCache && !usable) {
        warnings << QStringLiteral("%1: damaged, or without papers; reading %2 in its place. Remove it to have "
                                   "it made anew")
                        .arg(m_cache, QFileInfo(m_text).fileName());
    } else {
        makeCache(records, textChange);
    }
    return records;
}

std::vector<PaperSize> PaperFile::readText() const {
    requireSettings(m_text);
    requireSections(m_text);
    std::vector<PaperSize> records = recordsFrom(m_text);
    requireSound(m_text, records);
    return records;
}

int PaperFile::add(const PaperSize& paper) const {
    if (!QDir().mkpath(m_folder)) {
        throw SettingsError(m_folder, QStringLiteral("cannot be made a folder"));
    }
    const QString target = QFile::exists(m_text) ? QFileInfo(m_text).canonicalFilePath() : m_text;
    const QString folder = QFileInfo(target).path();
    const FolderLock lock(folder, std::chrono::seconds(5));
    if (!lock.isHeld()) {
        throw SettingsError(m_text, QStringLiteral("another program is writing it, or its folder cannot be read"));
    }
    const bool exists = QFile::exists(target);
    if (!exists && QFile::exists(m_cache)) {
        throw SettingsError(m_cache, QStringLiteral("has no text file beside it to which a paper could be added"));
    }
    std::vector<PaperSize> wanted = exists ? readText() : std::vector<PaperSize>();

    requireRewritable(target, wanted.size());

    const QTemporaryDir workshop(folder + QStringLiteral("/.papers-XXXXXX")); // with a lock of its own
    QTemporaryFile copy(workshop.filePath(QStringLiteral("XXXXXX.ini")));
    const QByteArray before = startCopy(copy, target);
    wanted.push_back(paper);
    wanted.back().Paper = HT_DefaultCreatePaper(nullptr, paper, copy.fileName().toStdWString().c_str());
    if (wanted.back().Paper < 0) {
        throw SettingsError(m_text, QStringLiteral("cannot be written"));
    }
    append(copy.fileName(), closingComment(before));
    const QString loss =
        firstLoss(wanted, recordsFrom(copy.fileName())) + firstLoss(otherItems(target), otherItems(copy.fileName()));
    if (!loss.isEmpty()) {
        throw SettingsError(m_text,
                            QStringLiteral("rewriting it would lose or change%1, so it stays as it was").arg(loss));
    }
    replaceFile(target, copy);
    return wanted.back().Paper;
}

bool PaperFile::takes(const SheetSize& size) const {
    std::array<int32_t, 2> largest{};
    HT_DefaultDeviceCapabilities(largestPaper, reinterpret_cast<char*>(largest.data()), nullptr,
                                 m_text.toStdWString().c_str());
    const double width = largest[0] / 10.0;
    const double length = largest[1] / 10.0;
    return (size.width <= width && size.height <= length) || (size.height <= width && size.width <= length);
}

} // namespace kelplot
