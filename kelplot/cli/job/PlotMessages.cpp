// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/job/PlotMessages.h"

#include <QMap>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace kelplot {
namespace {

QString counted(size_t count, const char* one, const char* many) {
    return QString::number(count) + QLatin1Char(' ') + QLatin1String(count == 1 ? one : many);
}

/// The first few of `names`.
QString firstOf(const QStringList& names) {
    constexpr int mostNames = 5;
    const QStringList first = names.mid(0, mostNames);
    return first.join(QStringLiteral(", ")) + QLatin1String(names.size() > mostNames ? ", ..." : "");
}

QString blockNames(const Drawing& drawing, const std::set<const Insert*>& references) {
    std::set<uint32_t> blocks;
    for (const Insert* reference : references) {
        if (reference->block < drawing.blocks.size()) {
            blocks.insert(reference->block);
        }
    }
    QStringList names;
    for (const uint32_t block : blocks) {
        names << QString::fromStdString(drawing.blocks[block].name);
    }
    return firstOf(names);
}

QString externalPaths(const Drawing& drawing, const WalkReport& report) {
    std::map<std::pair<std::string, std::string>, size_t> counts; // of the blocks, by path and reason
    for (const uint32_t block : report.external) {
        const Block& missing = drawing.blocks[block];
        ++counts[{missing.externalPath, missing.externalFault}];
    }
    QStringList paths;
    for (const auto& [file, count] : counts) {
        QStringList remarks;
        if (count > 1) {
            remarks << QStringLiteral("%1 blocks").arg(count);
        }
        if (!file.second.empty()) {
            remarks << QString::fromStdString(file.second);
        }
        const QString remark = remarks.join(QStringLiteral(": "));
        paths << QString::fromStdString(file.first) +
                     (remark.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(remark));
    }
    return firstOf(paths);
}

/// All kinds with their numbers: what is left out is to be named.
QString unplottedKinds(const ExtentsReport& report) {
    QStringList kinds;
    for (const auto& [kind, entities] : report.unplotted) {
        kinds << QString::number(entities.size()) + QLatin1Char(' ') + QString::fromStdString(kind);
    }
    return kinds.join(QStringLiteral(", "));
}

QString nameOf(PictureFault fault) {
    switch (fault) {
    case PictureFault::notFound:
        return QStringLiteral("not found");
    case PictureFault::notReadable:
        return QStringLiteral("not readable");
    case PictureFault::notPicture:
        return QStringLiteral("not a picture");
    case PictureFault::tooLarge:
        return QStringLiteral("too large");
    }
    return {};
}

QString pictureNames(const Drawing& drawing, const PictureFaults& faults) {
    QStringList names;
    for (const auto& [picture, fault] : faults) {
        const std::string path = picture < drawing.images.size() ? drawing.images[picture].path : std::string();
        names << (path.empty() ? QStringLiteral("one without a file")
                               : QStringLiteral("%1 (%2)").arg(QString::fromStdString(path), nameOf(fault)));
    }
    names.removeDuplicates();
    return firstOf(names);
}

} // namespace

QStringList missingParts(const Drawing& drawing, const ExtentsReport& report) {
    QStringList messages;
    if (!report.undefined.empty()) {
        messages << counted(report.undefined.size(), "reference to blocks", "references to blocks") +
                        QStringLiteral(" that the drawing does not define: ") + blockNames(drawing, report.undefined);
    }
    if (!report.uncut.empty()) {
        messages << counted(report.uncut.size(), "reference shows", "references show") +
                        QStringLiteral(" more than the clips leave: ") + blockNames(drawing, report.uncut);
    }
    if (!report.external.empty()) {
        messages << QStringLiteral("left out, external drawings: ") + externalPaths(drawing, report);
    }
    if (!report.undefinedLineTypes.empty()) {
        QStringList names;
        for (const uint32_t type : report.undefinedLineTypes) {
            names << QString::fromStdString(drawing.lineTypes[type].name);
        }
        messages << QStringLiteral("line types that the drawing does not define are plotted continuous: ") +
                        firstOf(names);
    }
    if (!report.unplotted.empty()) {
        messages << QStringLiteral("left out: ") + unplottedKinds(report);
    }
    if (!drawing.unknownCodePage.empty()) {
        messages << QStringLiteral("texts may be wrong, their code page is unknown: ") +
                        QString::fromStdString(drawing.unknownCodePage);
    }
    return messages;
}

QStringList missingParts(const Drawing& drawing, const PlotReport& report) {
    QStringList messages;
    if (!report.missingPictures.empty()) {
        messages << counted(report.missingPictures.size(), "picture", "pictures") + QStringLiteral(" left out: ") +
                        pictureNames(drawing, report.missingPictures);
    }
    if (!report.tintedHatches.empty()) {
        messages << counted(report.tintedHatches.size(), "hatch has", "hatches have") +
                        QStringLiteral(" too many lines; a tint stands for them");
    }
    if (report.lostLineTypeTexts) {
        messages << QStringLiteral("too many texts in line types; the plot is incomplete");
    }
    if (report.tooManyViewports) {
        messages << QStringLiteral("too many viewports; the plot is incomplete");
    }
    if (report.tooManyCopies) {
        messages << QStringLiteral("too many block copies; the plot is incomplete");
    }
    if (report.tooDeep) {
        messages << QStringLiteral("blocks are nested too deeply; the plot is incomplete");
    }
    return messages;
}

QString tooLarge(const Box2& subject, double millimetresPerUnit, const PageLayout& layout, bool isWindow) {
    const auto lengthText = [&](double units) {
        return QString::number(units * millimetresPerUnit, 'g', 6);
    };
    // A scale of whole numbers that is surely small enough.
    const double fitting = layout.fittingScale;
    const QString scale = fitting >= 1.0 ? QStringLiteral("%1:1").arg(std::floor(fitting), 0, 'g', 6)
                                         : QStringLiteral("1:%1").arg(std::ceil(1.0 / fitting), 0, 'g', 6);
    return QStringLiteral(
               "the %1 is larger than the paper at this scale: %2 x %3 mm with a unit of %4 mm; --scale %5 fits")
        .arg(isWindow ? QStringLiteral("window") : QStringLiteral("drawing"), lengthText(subject.width()),
             lengthText(subject.height()))
        .arg(millimetresPerUnit, 0, 'g', 6)
        .arg(scale);
}

QString replacedFonts(const FontReport& fonts) {
    QMap<QString, QStringList> standIns;
    for (const auto& [font, family] : fonts.replaced) {
        standIns[family] << font;
    }
    QStringList replaced;
    for (auto standIn = standIns.cbegin(); standIn != standIns.cend(); ++standIn) {
        replaced << QStringLiteral("%1 for %2").arg(standIn.key(), standIn->join(QStringLiteral(", ")));
    }
    return replaced.isEmpty() ? QString() : QStringLiteral("fonts replaced: ") + replaced.join(QStringLiteral("; "));
}

QString shortcomings(const std::map<QString, size_t>& counts) {
    QStringList kinds;
    for (const auto& [kind, count] : counts) {
        kinds << QStringLiteral("%1: %2").arg(kind).arg(count);
    }
    return kinds.isEmpty() ? QString() : QStringLiteral("in this format: ") + kinds.join(QStringLiteral("; "));
}

QString missingCharacters(const FontReport& fonts) {
    QStringList missing;
    for (const uint character : fonts.missing) {
        missing << QStringLiteral("U+%1").arg(character, 4, 16, QLatin1Char('0')).toUpper();
    }
    return missing.isEmpty()
               ? QString()
               : counted(fonts.missing.size(), "character that no font has", "characters that no font has") +
                     QStringLiteral(": ") + firstOf(missing);
}

} // namespace kelplot
