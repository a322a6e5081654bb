// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/SubText.h"

#include <string_view>

#include "render/FontChoosers.h"
#include "render/LogFont.h"
#include "render/TextCluster.h"

using namespace KelDriver::Internal;

using KelDriver::Internal::FontChooser;
using KelDriver::Internal::FontChoosers;
using KelDriver::Internal::inStyleOf;

namespace {

/// A stretch of a text and the number of its font.
struct FontRun {
    size_t start;
    size_t length;
    size_t font;
};

/// As much of a cluster as one font shows: all of it, or else everything up to its first joiner, that included.
std::wstring_view shownTogether(std::wstring_view cluster, FontChooser& chooser) {
    const size_t joiner = cluster.find(zeroWidthJoiner);
    return joiner == std::wstring_view::npos || chooser.hasFontForAll(cluster) ? cluster
                                                                               : cluster.substr(0, joiner + 1);
}

/// The first cluster that is not blank; where all are, the first.
std::wstring_view firstVisibleCluster(std::wstring_view text) {
    size_t end = 0;
    for (size_t start = 0; start < text.size(); start = end) {
        end = clusterEnd(text, start);
        const std::wstring_view cluster = text.substr(start, end - start);
        if (!isBlank(cluster)) {
            return cluster;
        }
    }
    return text.substr(0, clusterEnd(text, 0));
}

std::vector<FontRun> splitByFont(std::wstring_view text, FontChooser& chooser) {
    if (text.empty()) {
        return {};
    }
    const std::wstring_view visible = shownTogether(firstVisibleCluster(text), chooser);
    std::vector<FontRun> runs{{0, 0, chooser.choose(visible)}}; // blanks in front belong to it
    for (size_t start = 0; start < text.size();) {
        const std::wstring_view cluster = shownTogether(text.substr(start, clusterEnd(text, start) - start), chooser);
        const size_t length = cluster.size();
        const size_t font = isBlank(cluster) ? runs.back().font : chooser.choose(cluster);
        if (runs.back().font == font) {
            runs.back().length += length;
        } else {
            runs.push_back({start, length, font});
        }
        start += length;
    }
    return runs;
}

HT_SubText subTextFor(const FontRun& run, const tagLOGFONTW& font) {
    return {static_cast<int>(run.start), static_cast<int>(run.length), font};
}

std::wstring textOrNone(const wchar_t* text) {
    return text != nullptr ? text : L"";
}

} // namespace

HT_FontMap::HT_FontMap() : choosers(std::make_unique<FontChoosers>()) {
}

HT_FontMap::~HT_FontMap() = default;
HT_FontMap::HT_FontMap(HT_FontMap&& other) noexcept = default;
HT_FontMap& HT_FontMap::operator=(HT_FontMap&& other) noexcept = default;

void HT_FontMap::Add(const std::wstring& faceName, const tagLOGFONTW& font) {
    if (!choosers) {
        choosers = std::make_unique<FontChoosers>();
    }
    choosers->add(faceName, font);
}

int HT_FontMap::GetCount() const {
    return choosers ? static_cast<int>(choosers->count()) : 0;
}

const tagLOGFONTW* HT_FontMap::Find(const std::wstring& faceName) const {
    return choosers ? choosers->find(faceName) : nullptr;
}

HT_Text::HT_Text() = default;

HT_Text::HT_Text(const wchar_t* source, const wchar_t* faceName, const HT_FontMap& fonts) : text(textOrNone(source)) {
    FontChoosers noFonts; // of a map whose fonts another one has taken
    FontChooser& chooser = (fonts.choosers ? *fonts.choosers : noFonts).chooserFor(textOrNone(faceName));
    for (const FontRun& run : splitByFont(text, chooser)) {
        subTexts.push_back(subTextFor(run, chooser.record(run.font)));
    }
}

HT_Text::HT_Text(const wchar_t* source, const tagLOGFONTW& font, const HT_FontMap& fonts) : text(textOrNone(source)) {
    FontChoosers noFonts;
    FontChooser& chooser = (fonts.choosers ? *fonts.choosers : noFonts).chooserFor(font);
    for (const FontRun& run : splitByFont(text, chooser)) {
        subTexts.push_back(subTextFor(run, run.font == 0 ? font : inStyleOf(font, chooser.record(run.font))));
    }
}

std::wstring HT_Text::GetRunText(const HT_SubText& run) const {
    if (run.start < 0 || run.length < 0 || static_cast<size_t>(run.start) > text.size()) {
        return {};
    }
    return text.substr(static_cast<size_t>(run.start), static_cast<size_t>(run.length));
}
