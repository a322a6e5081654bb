// SPDX-License-Identifier: BSD-3-Clause
#include "render/FontStock.h"

#include <algorithm>

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

#include "render/LogFont.h"
#include "render/WideText.h"

namespace KelDriver::Internal {

namespace {

QString folded(const std::wstring& faceName) {
    return toQString(faceName).toCaseFolded();
}

/// A family's name without the foundry that Qt adds where several have one of that name.
QString withoutFoundry(const QString& family) {
    const int bracket = family.indexOf(QLatin1String(" ["));
    return bracket > 0 ? family.left(bracket) : family;
}

bool hasFontDatabase() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

QRawFont rawFontFor(const tagLOGFONTW& record) {
    QFont font = usualSizeFontFor(record);
    font.setStyleStrategy(QFont::NoFontMerging); // else other fonts lend their characters
    return QRawFont::fromFont(font);
}

} // namespace

void FontStock::add(const std::wstring& faceName, const tagLOGFONTW& record) {
    const QString name = folded(faceName);
    const auto known =
        std::find_if(m_mapped.begin(), m_mapped.end(), [&](const MappedFont& font) { return font.foldedName == name; });
    if (known != m_mapped.end()) {
        known->record = record;
    } else {
        m_mapped.push_back({name, record});
    }
}

const tagLOGFONTW* FontStock::find(const std::wstring& faceName) const {
    const QString name = folded(faceName);
    const auto known =
        std::find_if(m_mapped.begin(), m_mapped.end(), [&](const MappedFont& font) { return font.foldedName == name; });
    return known == m_mapped.end() ? nullptr : &known->record;
}

FontStock::FontKey FontStock::keyOf(const tagLOGFONTW& record) {
    return {folded(faceNameOf(record)), record.lfWeight, record.lfItalic != 0};
}

const QStringList& FontStock::families() {
    if (m_installed.isEmpty() && hasFontDatabase()) {
        for (const QString& family : QFontDatabase().families()) {
            m_installed.append(withoutFoundry(family));
        }
        m_installed.removeDuplicates();
    }
    return m_installed;
}

QString FontStock::defaultFamily() {
    if (families().isEmpty()) {
        return {};
    }
    return withoutFoundry(QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family());
}

FontCoverage* FontStock::coverageOf(const tagLOGFONTW& record) {
    if (families().isEmpty()) {
        return nullptr; // for now: once there is an application, the font may be there
    }
    const auto [place, isNew] = m_coverages.try_emplace(keyOf(record));
    if (isNew) {
        const QString family = withoutFoundry(toQString(faceNameOf(record)));
        if (families().contains(family, Qt::CaseInsensitive)) {
            place->second = std::make_unique<FontCoverage>(rawFontFor(record));
        }
    }
    return place->second.get();
}

bool FontStock::findsNewFonts() {
    return m_installed.isEmpty() && !families().isEmpty();
}

} // namespace KelDriver::Internal
