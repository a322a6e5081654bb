// SPDX-License-Identifier: GPL-2.0-or-later

// Reads any bytes as a file of kelplot's settings. The first byte tells which, as a digit: 0 a pen table, 1 a table of
// fonts, 2 papers as people edit them, 3 the binary cache of papers, 4 the text of a table of plot styles. The rest is
// the file.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "MemoryFile.h"
#include "Require.h"
#include "settings/FontSection.h"
#include "settings/PaperFile.h"
#include "settings/PaperTable.h"
#include "settings/PenSection.h"
#include "settings/PlotStyleRecords.h"
#include "settings/SettingsFile.h"

using namespace kelplot;

namespace {

void check(const PenRule& rule) {
    require(!rule.width || (*rule.width >= 0.0 && *rule.width <= 100.0));
    require(!rule.ink || *rule.ink <= 0xFFFFFF);
    require(rule.screening >= 0 && rule.screening <= fullInk);
    require(!rule.fill || (*rule.fill >= HT_PlotStyle::FillSolid && *rule.fill <= HT_PlotStyle::FillVertical));
    if (rule.lineType) {
        for (const double length : rule.lineType->pattern) {
            require(std::isfinite(length));
        }
    }
}

void checkRules(const PenTable& table) {
    for (uint32_t number = 1; number <= PenTable::lastNumber; ++number) {
        check(table.ruleFor({Colour::Kind::index, number}));
    }
}

void readPens(std::string_view text) {
    const MemoryFile file;
    file.write(text);
    const QString path = QString::fromStdString(file.path());
    const bool holds = holdsPens(path);
    const PenTable table = penTableFrom({path});
    require(holds);
    checkRules(table);
}

void readPlotStyles(std::string_view text) {
    const QByteArray bytes(text.data(), static_cast<int>(text.size()));
    try {
        checkRules(plotStylesIn(bytes, StyleNames::colours));
        const PenTable named = plotStylesIn(bytes, StyleNames::free);
        require(named.goesByNames());
        check(named.ruleFor(QStringLiteral("Normal")));
    } catch (const PlotStyleFault& fault) {
        require(!fault.reason.isEmpty());
    }
}

void readFonts(std::string_view text) {
    const MemoryFile file;
    file.write(text);
    const QString path = QString::fromStdString(file.path());
    FontTable table;
    addFonts(path, table);
    for (const Setting& setting : settingsFrom(path, "Fonts").value_or(std::vector<Setting>())) {
        const QString key = setting.key.toLower();
        const FontRule* const rule = table.find(key);
        require(rule != nullptr || key == QLatin1String("other"));
        require(rule == nullptr ||
                std::none_of(rule->standIns.begin(), rule->standIns.end(),
                             [](const FontStandIn& standIn) { return !(standIn.widthRatio > 0.0); }));
    }
}

/// A folder with one file of papers in it.
class PaperFolder {
public:
    PaperFolder(const QString& name, std::string_view content) {
        QFile file(m_folder.filePath(name));
        require(file.open(QIODevice::WriteOnly));
        require(file.write(content.data(), static_cast<qint64>(content.size())) == static_cast<qint64>(content.size()));
    }

    PaperFile papers() const { return PaperFile(m_folder.path()); }

private:
    QTemporaryDir m_folder;
};

/// A table finds each paper that it lists, under its name.
void checkNames(const std::vector<PaperSize>& records) {
    PaperTable table;
    table.add(records, true);
    for (const NamedPaper& paper : table.papers()) {
        require(table.find(paper.name) == &paper);
        require(!table.nearest(paper.name).isEmpty());
    }
}

void readPapers(std::string_view text) {
    const PaperFolder folder(QStringLiteral("papers.ini"), text);
    QStringList warnings;
    const std::vector<PaperSize> before = folder.papers().read(warnings);
    checkNames(before);
    require(folder.papers().read(warnings).size() == before.size()); // now there is a cache of them
    const SheetSize size{914.4, 5000.0};
    const auto added = recordFor(QStringLiteral("Banner"), size, {1.0, 2.0, 3.0, 4.0});
    require(added.has_value());
    const int number = folder.papers().add(*added);
    const std::vector<PaperSize> after = folder.papers().read(warnings);
    require(after.size() == before.size() + 1 && after.back().Paper == number && after.back().Width == added->Width);
    require(folder.papers().takes(size));
    require(warnings.isEmpty());
}

void readCache(std::string_view bytes) {
    const PaperFolder folder(QStringLiteral("papers.PER"), bytes);
    QStringList warnings;
    checkNames(folder.papers().read(warnings));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr void (*readers[])(std::string_view) = {readPens, readFonts, readPapers, readCache, readPlotStyles};
    if (size == 0) {
        return 0;
    }
    try {
        readers[static_cast<uint8_t>(data[0] - '0') % std::size(readers)](
            {reinterpret_cast<const char*>(data) + 1, size - 1});
    } catch (const SettingsError&) {
        return 0; // the one way in which a file may be refused
    }
    return 0;
}
