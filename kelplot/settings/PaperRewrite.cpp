// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PaperRewrite.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

#include "keldriver/IniFile.h"
#include "settings/PaperRecords.h"
#include "settings/SettingsFile.h"

namespace kelplot {

namespace {

/// The lock on a file's folder that all its writers take in turn, the library's functions among them.
class FolderLock {
public:
    FolderLock(const QString& folder, std::chrono::milliseconds patience)
        : m_folder(open(QFile::encodeName(folder).constData(), O_RDONLY | O_CLOEXEC)) {
        constexpr std::chrono::milliseconds pause(5);
        const auto end = std::chrono::steady_clock::now() + patience;
        m_isHeld = flock(m_folder, LOCK_EX | LOCK_NB) == 0;
        while (!m_isHeld && errno == EWOULDBLOCK && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(pause);
            m_isHeld = flock(m_folder, LOCK_EX | LOCK_NB) == 0;
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

/// Refuses what a rewritten file would not keep: the note of a header swallows the line below it, and the new paper
/// takes the section after the counted ones.
void requireRewritable(const QString& path, size_t papers) {
    inifile::IniFile file;
    std::vector<std::string> sections;
    file.Load(path.toStdString());
    file.GetSections(sections);
    for (const std::string& section : sections) {
        if (!file.getSection(section)->rightComment.empty()) {
            throw SettingsError(path,
                                QStringLiteral("the comment after the header [%1] would swallow the line below it; "
                                               "give the note a line of its own")
                                    .arg(QString::fromStdString(section)));
        }
    }
    const QString next = paperSection(static_cast<int>(papers));
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
                                : QStringLiteral(" [%1]").arg(paperSection(static_cast<int>(lost - wanted.begin())));
}

/// Names the first item that a rewritten file does not hold as it was; empty when it holds all.
QString firstLoss(const std::vector<StatedItem>& wanted, const std::vector<StatedItem>& written) {
    const auto [lost, other] = std::mismatch(wanted.begin(), wanted.end(), written.begin(), written.end());
    return lost == wanted.end() ? QString()
                                : QStringLiteral(" \"%1\" of [%2]")
                                      .arg(QString::fromStdString((*lost)[1]), QString::fromStdString((*lost)[0]));
}

/// The comment and blank lines after the last key. The library does not keep them.
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

int addToPaperFile(const QString& path, const PaperSize& paper) {
    const QString target = QFile::exists(path) ? QFileInfo(path).canonicalFilePath() : path;
    const QString folder = QFileInfo(target).path();
    const FolderLock lock(folder, std::chrono::seconds(5));
    if (!lock.isHeld()) {
        throw SettingsError(path, QStringLiteral("another program is writing it, or its folder cannot be read"));
    }
    std::vector<PaperSize> wanted = QFile::exists(target) ? soundPaperRecords(path) : std::vector<PaperSize>();
    requireRewritable(target, wanted.size());

    const QTemporaryDir workshop(folder + QStringLiteral("/.papers-XXXXXX")); // with a lock of its own
    QTemporaryFile copy(workshop.filePath(QStringLiteral("XXXXXX.ini")));
    const QByteArray before = startCopy(copy, target);
    wanted.push_back(paper);
    wanted.back().Paper = HT_DefaultCreatePaper(nullptr, paper, copy.fileName().toStdWString().c_str());
    if (wanted.back().Paper < 0) {
        throw SettingsError(path, QStringLiteral("cannot be written"));
    }
    append(copy.fileName(), closingComment(before));
    const QString loss =
        firstLoss(wanted, paperRecords(copy.fileName())) + firstLoss(otherItems(target), otherItems(copy.fileName()));
    if (!loss.isEmpty()) {
        throw SettingsError(path,
                            QStringLiteral("rewriting it would lose or change%1, so it stays as it was").arg(loss));
    }
    replaceFile(target, copy);
    return wanted.back().Paper;
}

} // namespace kelplot
