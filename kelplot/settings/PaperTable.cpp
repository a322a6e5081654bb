// SPDX-License-Identifier: GPL-2.0-or-later
#include "settings/PaperTable.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "settings/NearestNames.h"
#include "settings/PaperFile.h"

namespace kelplot {
namespace {

constexpr double tenths = 10.0;

/// A name as it is compared.
QString plainName(const QString& name) {
    QString plain = name.toCaseFolded();
    for (const char ignored : {' ', '-', '_'}) {
        plain.remove(QLatin1Char(ignored));
    }
    for (const QLatin1String norm : {QLatin1String("din"), QLatin1String("iso")}) {
        if (plain.startsWith(norm) && plain.size() > norm.size()) {
            return plain.mid(norm.size());
        }
    }
    return plain;
}

NamedPaper paperOf(const PaperSize& record, bool own) {
    const auto* const end = std::find(std::begin(record.Name), std::end(record.Name), L'\0');
    NamedPaper paper;
    paper.name = QString::fromWCharArray(record.Name, static_cast<int>(end - record.Name));
    paper.size = {record.Width / tenths, record.Length / tenths};
    paper.margins = {record.LeftEdge / tenths, record.UpEdge / tenths, record.RightEdge / tenths,
                     record.DownEdge / tenths};
    paper.number = record.Paper;
    paper.own = own;
    return paper;
}

bool isKept(uint character) {
    constexpr uint lastOfBasicPlane = 0xFFFF;
    return character <= lastOfBasicPlane && character != '#' && character != '"' && QChar::isPrint(character);
}

int inTenths(double millimetres) {
    return static_cast<int>(std::lround(millimetres * tenths));
}

bool isInTenths(double millimetres) {
    constexpr double readingError = 1e-6;
    return std::abs(millimetres * tenths - std::round(millimetres * tenths)) < readingError;
}

} // namespace

PaperTable PaperTable::load(QStringList& warnings) {
    PaperTable table;
    table.add(PaperFile::ofUser().read(warnings), true);
    table.add(PaperFile::ofDevice().read(warnings), false);
    return table;
}

void PaperTable::add(const std::vector<PaperSize>& records, bool own) {
    for (const PaperSize& record : records) {
        NamedPaper paper = paperOf(record, own);
        if (!find(paper.name)) {
            m_papers.push_back(std::move(paper));
        }
    }
}

const NamedPaper* PaperTable::find(const QString& name) const& {
    const QString wanted = plainName(name);
    const auto found = std::find_if(m_papers.begin(), m_papers.end(),
                                    [&](const NamedPaper& paper) { return plainName(paper.name) == wanted; });
    return found != m_papers.end() ? &*found : nullptr;
}

QStringList PaperTable::nearest(const QString& name) const {
    constexpr int mostNames = 5;
    QStringList names;
    for (const NamedPaper& paper : m_papers) {
        names << paper.name;
    }
    return nearestNames(name, names, mostNames, plainName);
}

QString sizeText(const SheetSize& size) {
    return QStringLiteral("%1x%2").arg(size.width, 0, 'g', 9).arg(size.height, 0, 'g', 9);
}

std::optional<PaperSize> recordFor(const QString& name, const SheetSize& size, const Margins& margins) {
    PaperSize record{};
    const QVector<uint> characters = name.toUcs4();
    const bool fits = !characters.isEmpty() && name.toUtf8().size() < static_cast<int>(std::size(record.Name));
    if (!fits || name != name.trimmed() || !std::all_of(characters.begin(), characters.end(), isKept)) {
        return std::nullopt;
    }
    name.toWCharArray(record.Name);
    record.Paper = -1;
    record.Width = inTenths(size.width);
    record.Length = inTenths(size.height);
    record.LeftEdge = inTenths(margins.left);
    record.UpEdge = inTenths(margins.top);
    record.RightEdge = inTenths(margins.right);
    record.DownEdge = inTenths(margins.bottom);
    record.Units = 1;
    return record;
}

bool isInTenths(const SheetSize& size, const Margins& margins) {
    const double lengths[] = {size.width, size.height, margins.left, margins.top, margins.right, margins.bottom};
    return std::all_of(std::begin(lengths), std::end(lengths), [](double length) { return isInTenths(length); });
}

} // namespace kelplot
