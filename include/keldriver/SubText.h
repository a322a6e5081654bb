// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "keldriver/Export.h"
#include "keldriver/Win32Types.h"

namespace KelDriver::Internal {
class FontChoosers;
}

/// The fonts of a driver: a `tagLOGFONTW` for each face name that drawings use, in the driver's order of preference.
///
/// A driver fills one and keeps it for the plot, since it also remembers which characters each font can show; fonts
/// that are installed later are seen by a new map only. It must not outlive the `QGuiApplication`. Face names are
/// told apart without regard to case. One thread uses a map at a time.
class KELDRIVER_API HT_FontMap {
public:
    /// Holds no font.
    HT_FontMap();
    /// Forgets the fonts; texts keep the records that they took from it.
    ~HT_FontMap();
    /// Leaves `other` without a font.
    HT_FontMap(HT_FontMap&& other) noexcept;
    /// Leaves `other` without a font.
    HT_FontMap& operator=(HT_FontMap&& other) noexcept;

    /// Adds a font after those already there. A face name that the map knows keeps its place and gets this font.
    ///
    /// @param faceName  the name that texts ask for; it need not be that of an installed font
    /// @param font      what to draw with instead; its `lfFaceName` names the installed font
    void Add(const std::wstring& faceName, const tagLOGFONTW& font);
    /// The number of face names that the map knows.
    int GetCount() const;
    /// The font for a face name, owned by the map and valid until it changes; null when there is none.
    const tagLOGFONTW* Find(const std::wstring& faceName) const;

private:
    friend class HT_Text;
    std::unique_ptr<KelDriver::Internal::FontChoosers> choosers; ///< null when another map has taken it
};

/// A run of characters of an `HT_Text` that are shown with one font.
struct HT_SubText {
    int start;        ///< first character of the text, from 0
    int length;       ///< number of characters, at least 1
    tagLOGFONTW font; ///< can show every character of the run, where any font can
};

/// A text, split into runs by the font that can show them.
///
/// Characters are wide characters. Each goes to the requested font where that can show it, else to the first of the
/// map that can, else to a system font; what no font can show stays with the requested one. A font that is not
/// installed shows nothing here, whatever the system would take in its place. What belongs together stays together:
/// combining marks, variation selectors, joiners and what they join, the parts of a flag or a syllable. Where no single
/// font can show all that joiners join, it is split after the joiner. Blanks, which every font can show, and characters
/// that show nothing at all go to the run before them, at the start of a text to the one after; a blank that carries a
/// mark goes where the mark is shown. The runs are in order, without gaps, and neighbours differ in their fonts. A text
/// without characters has no runs. Without a `QGuiApplication` there are no fonts to ask, and the text is one run with
/// the requested font.
///
/// @code
/// const HT_Text text(L"Ω = 50 中", L"Arial", fonts);
/// for (const HT_SubText& run : text.GetSubTexts()) {
///     draw(text.GetRunText(run), run.font);
/// }
/// @endcode
class KELDRIVER_API HT_Text {
public:
    /// No text.
    HT_Text();
    /// Asks for a face name: the font that the map holds for it, else the installed font of that name.
    ///
    /// Runs get records of the map as they are. A face name that the map does not know becomes a record of weight 400
    /// with zeros elsewhere. System fonts take size, angles, weight, slant and lines of the requested one.
    ///
    /// @param source    zero-terminated, copied; null counts as empty
    /// @param faceName  zero-terminated; null or an empty name leaves the choice to the map and the system
    HT_Text(const wchar_t* source, const wchar_t* faceName, const HT_FontMap& fonts);
    /// Asks for a font by its record: the installed font of its face name, else what the map holds for that name.
    ///
    /// Every run keeps the record's size, angles, weight, slant, lines and quality; only face name, character set,
    /// pitch and precision change with the font.
    HT_Text(const wchar_t* source, const tagLOGFONTW& font, const HT_FontMap& fonts);

    /// The text as it was given, valid as long as this is.
    const std::wstring& GetText() const { return text; }
    /// The runs in the order of the text, valid as long as this is.
    const std::vector<HT_SubText>& GetSubTexts() const { return subTexts; }
    /// The characters of one of the runs; empty when `run` lies outside the text.
    std::wstring GetRunText(const HT_SubText& run) const;

private:
    std::wstring text;
    std::vector<HT_SubText> subTexts;
};
