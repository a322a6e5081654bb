// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PaperRecords.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cwchar>

#include "keldriver/IniFile.h"
#include "settings/SettingsFile.h"

namespace kelplot {

namespace {

constexpr unsigned short wholeRecords = 19;

bool sameName(const PaperSize& a, const PaperSize& b) {
    return std::wcsncmp(a.Name, b.Name, std::size(a.Name)) == 0;
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

/// The count must be there and be backed by sections: the library would fill what is missing with defaults.
void requireSections(const QString& path) {
    inifile::IniFile file;
    file.Load(path.toStdString());
    int count = 0;
    if (file.GetIntValue("General", "PaperCount", count) != 0 || count < 0) {
        throw SettingsError(path, QStringLiteral("section [General] has no PaperCount, or one below 0"));
    }
    for (int i = 0; i < count; ++i) {
        if (!file.HasSection(paperSection(i).toStdString())) {
            throw SettingsError(
                path, QStringLiteral("PaperCount is %1, but there is no section [%2]").arg(count).arg(paperSection(i)));
        }
    }
}

void requireSound(const QString& path, const std::vector<PaperSize>& records) {
    for (size_t i = 0; i < records.size(); ++i) {
        const QString fault = faultOf(records[i]);
        if (!fault.isEmpty()) {
            throw SettingsError(path, QStringLiteral("[%1] %2").arg(paperSection(static_cast<int>(i)), fault));
        }
    }
}

} // namespace

int paperCount(const QString& path) {
    return HT_DefaultDeviceCapabilities(wholeRecords, nullptr, nullptr, path.toStdWString().c_str());
}

std::vector<PaperSize> paperRecords(const QString& path) {
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QFileInfo(path).fileName());
    QFile source(path);
    if (!source.copy(copy)) {
        throw SettingsError(path, source.errorString());
    }
    std::vector<PaperSize> records(static_cast<size_t>(std::max(paperCount(copy), 0)), PaperSize{});
    if (!records.empty()) {
        HT_DefaultDeviceCapabilities(wholeRecords, reinterpret_cast<char*>(records.data()), nullptr,
                                     copy.toStdWString().c_str());
    }
    return records;
}

QString paperSection(int index) {
    return QStringLiteral("Paper %1").arg(index);
}

bool samePaper(const PaperSize& a, const PaperSize& b) {
    const auto numbers = [](const PaperSize& p) {
        return std::array{p.Paper, p.Width, p.Length, p.UpEdge, p.DownEdge, p.LeftEdge, p.RightEdge, p.Units};
    };
    return sameName(a, b) && numbers(a) == numbers(b);
}

bool areSound(const std::vector<PaperSize>& records) {
    return std::all_of(records.begin(), records.end(), [](const PaperSize& p) { return faultOf(p).isEmpty(); });
}

std::vector<PaperSize> soundPaperRecords(const QString& path) {
    requireSettings(path);
    requireSections(path);
    std::vector<PaperSize> records = paperRecords(path);
    requireSound(path, records);
    return records;
}

} // namespace kelplot
