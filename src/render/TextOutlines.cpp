// SPDX-License-Identifier: BSD-3-Clause
#include "render/TextOutlines.h"

#include <cstdint>
#include <mutex>
#include <utility>

#include <QGuiApplication>

#include "render/LogFont.h"
#include "render/WideText.h"

namespace KelDriver::Internal {

namespace {

/// Of each of the two tables: some megabytes.
constexpr size_t mostElements = size_t{1} << 17;

/// Two texts with the same key have the same outline. Each name ends with a null, which none of them and no text holds.
std::wstring keyOf(const TextShape& shape) {
    const int32_t numbers[] = {shape.font.lfHeight, shape.font.lfWeight, shape.font.lfItalic != 0 ? 1 : 0,
                               shape.width,         shape.measured,      shape.dotsPerInch};
    std::wstring key;
    for (const int32_t number : numbers) {
        key += static_cast<wchar_t>(number);
    }
    const std::wstring face = faceNameOf(shape.font);
    key += face;
    key += L'\0';
    for (const QString& substitute : QFont::substitutes(toQString(face))) {
        key += substitute.toStdWString();
        key += L'\0';
    }
    key += L'\0';
    key += shape.text;
    return key;
}

struct Keeping {
    std::mutex mutex; ///< each renderer has its own outlines, but all share the list
    std::unordered_map<const QTRenderer*, std::unique_ptr<TextOutlines>> outlines;
};

/// Never destroyed: a renderer may live as long as the program.
Keeping& keeping() {
    static auto* const all = new Keeping;
    return *all;
}

} // namespace

TextOutlines::TextOutlines() : m_fontsChanged(std::make_shared<std::atomic<bool>>(false)) {
    if (auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        m_fontChanges = QObject::connect(application, &QGuiApplication::fontDatabaseChanged,
                                         [changed = m_fontsChanged] { *changed = true; });
    }
}

TextOutlines::~TextOutlines() {
    QObject::disconnect(m_fontChanges);
}

QPainterPath TextOutlines::get(const TextShape& shape) {
    if (m_fontsChanged->exchange(false)) {
        m_recent.clear();
        m_older.clear();
        m_recentSize = 0;
        m_letters = {};
    }
    std::wstring key = keyOf(shape);
    if (const auto known = m_recent.find(key); known != m_recent.end()) {
        return known->second;
    }
    const auto older = m_older.find(key);
    const QPainterPath outline = older != m_older.end() ? older->second : make(shape);
    keep(std::move(key), outline);
    return outline;
}

QPainterPath TextOutlines::make(const TextShape& shape) {
    const QString text = toQString(shape.text);
    const QFont font = fontOf(shape);
    QPainterPath outline = m_letters.join(text, font);
    if (outline.isEmpty()) {
        outline.addText(0, 0, font, text);
    }
    return outline;
}

void TextOutlines::keep(std::wstring&& key, const QPainterPath& outline) {
    const size_t size = key.size() + static_cast<size_t>(outline.elementCount());
    if (size > mostElements) {
        return;
    }
    if (m_recentSize + size > mostElements) {
        m_older = std::exchange(m_recent, {});
        m_recentSize = 0;
    }
    m_recentSize += size;
    m_recent.emplace(std::move(key), outline);
}

void beginTextOutlines(const QTRenderer* renderer) {
    const std::lock_guard lock(keeping().mutex);
    keeping().outlines[renderer] = std::make_unique<TextOutlines>();
}

void endTextOutlines(const QTRenderer* renderer) {
    const std::lock_guard lock(keeping().mutex);
    keeping().outlines.erase(renderer);
}

TextOutlines* textOutlinesOf(const QTRenderer* renderer) {
    const std::lock_guard lock(keeping().mutex);
    const auto kept = keeping().outlines.find(renderer);
    return kept == keeping().outlines.end() ? nullptr : kept->second.get();
}

} // namespace KelDriver::Internal
