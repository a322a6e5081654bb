// SPDX-License-Identifier: BSD-3-Clause
#include <cstdint>
#include <cwchar>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <QChar>
#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>
#include <QRawFont>

#include "keldriver/SubText.h"

namespace {

constexpr const wchar_t* sans = L"DejaVu Sans";
constexpr const wchar_t* serif = L"DejaVu Serif";
constexpr const wchar_t* cjk = L"Droid Sans Fallback";

tagLOGFONTW fontOf(const wchar_t* faceName) {
    tagLOGFONTW font{};
    std::wcscpy(font.lfFaceName, faceName);
    return font;
}

using Shown = std::pair<std::wstring, std::wstring>; // characters and face name

std::vector<Shown> runsOf(const HT_Text& text) {
    std::vector<Shown> runs;
    std::wstring joined;
    for (const HT_SubText& run : text.GetSubTexts()) {
        EXPECT_EQ(static_cast<size_t>(run.start), joined.size());
        runs.emplace_back(text.GetRunText(run), run.font.lfFaceName);
        joined += runs.back().first;
    }
    EXPECT_EQ(joined, text.GetText());
    return runs;
}

class SubTextTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const wchar_t* face : {sans, serif, cjk}) {
            ASSERT_TRUE(QFontDatabase().families().contains(QString::fromWCharArray(face)))
                << "not installed: " << QString::fromWCharArray(face).toStdString();
        }
        fonts.Add(L"Han", fontOf(cjk));
        fonts.Add(L"Stroke", fontOf(serif));
        fonts.Add(L"Gone", fontOf(L"Not installed"));
    }

    HT_FontMap fonts;
};

TEST_F(SubTextTest, SplitsByFont) {
    const struct {
        const char* name;
        const wchar_t* text;
        const wchar_t* faceName;
        std::vector<Shown> runs;
    } rows[] = {
        {"one font", L"Ab é Ж Ω", sans, {{L"Ab é Ж Ω", sans}}},
        {"any case", L"Ab", L"dejavu sans", {{L"Ab", L"dejavu sans"}}},
        {"through the map", L"Ab", L"sTROKE", {{L"Ab", serif}}},
        {"back to the requested font", L"Ω 中文  Ω", sans, {{L"Ω ", sans}, {L"中文  ", cjk}, {L"Ω", sans}}},
        {"blanks in front", L"  中Ω", sans, {{L"  中", cjk}, {L"Ω", sans}}},
        {"a byte order mark in front", L"\uFEFFabc", L"Gone", {{L"\uFEFFabc", serif}}},
        {"nothing but blanks", L" \uFEFF ", sans, {{L" \uFEFF ", sans}}},
        {"a blank that the font lacks", L"中\u2006\u00A0文", sans, {{L"中\u2006\u00A0文", cjk}}},
        {"a space that is a stroke", L"中\u1680", sans, {{L"中", cjk}, {L"\u1680", sans}}},
        {"what shows nothing", L"中\t\u200E\u00AD", sans, {{L"中\t\u200E\u00AD", cjk}}},
        {"a mark", L"a\u0301中\u0301\u20DDb", sans, {{L"a\u0301", sans}, {L"中\u0301\u20DD", cjk}, {L"b", sans}}},
        {"a variation selector", L"中\U000E0100文", sans, {{L"中\U000E0100文", cjk}}},
        {"a joiner and what it joins", L"中\u200D文Ж", sans, {{L"中\u200D文", cjk}, {L"Ж", sans}}},
        {"a joiner after a space", L"Ω \u200D中", sans, {{L"Ω ", sans}, {L"\u200D中", cjk}}},
        {"joined signs that share no font", L"中\u200DΩ\u200DΨ", sans, {{L"中\u200D", cjk}, {L"Ω\u200DΨ", sans}}},
        {"a mark on a blank", L"中 \u0301", sans, {{L"中", cjk}, {L" \u0301", sans}}},
        {"a joiner after a direction mark", L"中\u200E\u200DΩ", sans, {{L"中\u200E", cjk}, {L"\u200DΩ", sans}}},
        {"a mark after a soft hyphen", L"中\u00AD\u0301Ω", sans, {{L"中\u00AD", cjk}, {L"\u0301Ω", sans}}},
        {"a joiner before a space", L"b\u200D 中", sans, {{L"b\u200D ", sans}, {L"中", cjk}}},
        {"a mark in front", L"\u0301a", sans, {{L"\u0301a", sans}}},
        {"a map font that is not installed", L"Ω", L"Gone", {{L"Ω", serif}}},
        {"an unknown face", L"Ж中", L"No such font", {{L"Ж", serif}, {L"中", cjk}}},
        {"no face", L"Ж", nullptr, {{L"Ж", serif}}},
        {"what no font shows", L"A\u0378 \xD800 \x110000", sans, {{L"A\u0378 \xD800 \x110000", sans}}},
        {"nothing but that", L"\u0378 \u0378", L"No such font", {{L"\u0378 \u0378", L"No such font"}}},
        {"empty", L"", sans, {}},
        {"null", nullptr, sans, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(runsOf(HT_Text(row.text, row.faceName, fonts)), row.runs) << row.name;
    }
    EXPECT_TRUE(HT_Text().GetSubTexts().empty());
}

TEST_F(SubTextTest, AMapWhoseFontsAreTakenIsEmpty) {
    const HT_FontMap taken = std::move(fonts);
    EXPECT_EQ(taken.GetCount(), 3);
    // What is left is part of the interface. NOLINTBEGIN(bugprone-use-after-move)
    EXPECT_EQ(fonts.GetCount(), 0);
    EXPECT_EQ(fonts.Find(L"Han"), nullptr);
    EXPECT_EQ(runsOf(HT_Text(L"A", sans, fonts)), (std::vector<Shown>{{L"A", sans}}));
    EXPECT_EQ(runsOf(HT_Text(L"A", fontOf(sans), fonts)), (std::vector<Shown>{{L"A", sans}}));
    fonts.Add(L"Han", fontOf(serif));
    EXPECT_EQ(runsOf(HT_Text(L"Ж", L"Han", fonts)), (std::vector<Shown>{{L"Ж", serif}}));
    // NOLINTEND(bugprone-use-after-move)
}

TEST_F(SubTextTest, MapOrderDecides) {
    HT_FontMap serifFirst;
    serifFirst.Add(L"b", fontOf(serif));
    serifFirst.Add(L"a", fontOf(sans));
    EXPECT_EQ(runsOf(HT_Text(L"Ж", L"unknown", serifFirst)), (std::vector<Shown>{{L"Ж", serif}}));
    serifFirst.Add(L"B", fontOf(sans)); // keeps its place
    serifFirst.Add(L"a", fontOf(serif));
    EXPECT_EQ(serifFirst.GetCount(), 2);
    EXPECT_EQ(runsOf(HT_Text(L"Ж", L"unknown", serifFirst)), (std::vector<Shown>{{L"Ж", sans}}));
    ASSERT_NE(serifFirst.Find(L"A"), nullptr);
    EXPECT_STREQ(serifFirst.Find(L"A")->lfFaceName, serif);
    EXPECT_EQ(serifFirst.Find(L"c"), nullptr);
}

TEST_F(SubTextTest, RecordsKeepTheirStyle) {
    tagLOGFONTW request = fontOf(L"Stroke");
    request.lfHeight = -40;
    request.lfWeight = 700;
    request.lfItalic = 1;
    request.lfUnderline = 1;
    request.lfCharSet = 200;
    const HT_Text text(L"Ω中\u0378", request, fonts); // the last one stays with what was asked for
    EXPECT_EQ(runsOf(text), (std::vector<Shown>{{L"Ω", serif}, {L"中", cjk}, {L"\u0378", L"Stroke"}}));
    for (const HT_SubText& run : text.GetSubTexts()) {
        EXPECT_TRUE(run.font.lfHeight == -40 && run.font.lfWeight == 700);
        EXPECT_TRUE(run.font.lfItalic == 1 && run.font.lfUnderline == 1);
    }
    EXPECT_EQ(text.GetSubTexts()[2].font.lfCharSet, 200);
    EXPECT_EQ(text.GetRunText({2, 9, {}}), L"\u0378");
    EXPECT_EQ(text.GetRunText({-1, 1, {}}) + text.GetRunText({4, 1, {}}), L"");
}

TEST_F(SubTextTest, DefaultFontShowsWhatIsAskedOfNone) {
    const std::wstring family =
        QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family().toStdWString();
    EXPECT_EQ(runsOf(HT_Text(L"AB", nullptr, {})), (std::vector<Shown>{{L"AB", family}}));
}

// Every visible character of a run is in its font, asked straight, whatever the size; neighbours differ.
TEST_F(SubTextTest, SystemFontsShowWhatTheyAreChosenFor) {
    std::wstring sample;
    for (wchar_t c = 0x20; c < 0x3100; c += 7) {
        sample += c >= 0x1100 && c < 0x1200 ? L'x' : c; // parts of syllables make up one long syllable
    }
    sample += L"中文 한국어 ﷺ \U0001D400\U0001F600";
    tagLOGFONTW request = fontOf(L"No such font");
    const HT_FontMap none;
    const std::vector<Shown> runs = runsOf(HT_Text(sample.c_str(), request, none));
    ASSERT_GT(runs.size(), 2U);
    for (const int height : {INT32_MIN, 1000000000, 0, -12}) { // what a huge one finds out holds for the next
        request.lfHeight = height;
        EXPECT_EQ(runsOf(HT_Text(sample.c_str(), request, {})), runs) << height;
    }
    for (size_t i = 0; i < runs.size(); ++i) {
        const auto& [text, face] = runs[i];
        EXPECT_TRUE(i == 0 || face != runs[i - 1].second);
        QFont font(QString::fromStdWString(face));
        font.setStyleStrategy(QFont::NoFontMerging);
        const QRawFont raw = QRawFont::fromFont(font);
        for (const wchar_t c : text) {
            const QChar::Category category = QChar::category(static_cast<char32_t>(c));
            const bool mayLack = category == QChar::Other_Format || category == QChar::Other_Control ||
                                 category == QChar::Mark_NonSpacing || category == QChar::Separator_Space ||
                                 face == request.lfFaceName;
            EXPECT_TRUE(mayLack || raw.supportsCharacter(static_cast<char32_t>(c))) << std::hex << c << " in run " << i;
        }
    }
}

} // namespace
