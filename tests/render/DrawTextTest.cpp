// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <complex>
#include <cwchar>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <QDirIterator>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QScreen>
#include <QStandardPaths>

#include "keldriver/FontName.h"
#include "render/LogFont.h"
#include "render/RendererFixture.h"

using namespace KelDriver::Internal;

namespace {

constexpr double pi = 3.141592653589793;
constexpr double height = 40;

// A text whose second character takes two UTF-16 units.
std::wstring sample = L"A\U0001D400gW";

HT_Font fontOf(double characterHeight, double rotation = 0) {
    HT_Font font{};
    font.height = characterHeight;
    font.rotation = rotation;
    std::wcscpy(font.faceName, L"DejaVu Sans");
    return font;
}

// The font by its size in points, made without the renderer's means.
QFont qtFont(double points) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setWeight(50);
    font.setPointSizeF(points);
    font.setStyleStrategy(QFont::PreferAntialias);
    return font;
}

double usualPoints() {
    return height * 72 / static_cast<int>(QGuiApplication::primaryScreen()->logicalDotsPerInch());
}

QPainterPath outlineOf(const QFont& font) {
    QPainterPath path;
    path.addText(0, 0, font, QString::fromStdWString(sample));
    return path;
}

bool isSameOutline(const QPainterPath& a, const QPainterPath& b) {
    bool same = a.elementCount() == b.elementCount();
    for (int i = 0; same && i < a.elementCount(); ++i) {
        const QPainterPath::Element left = a.elementAt(i), right = b.elementAt(i);
        same = left.type == right.type && left.x == right.x && left.y == right.y; // to the last bit
    }
    return same;
}

// The file of DejaVu Serif with a name as long as its own.
QByteArray renamedSerif(const char* family) {
    const auto bigEndian = [](const char* name) {
        QByteArray bytes;
        for (; *name != '\0'; ++name) {
            bytes += '\0';
            bytes += *name;
        }
        return bytes;
    };
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::FontsLocation)) {
        QDirIterator files(folder, {QStringLiteral("DejaVuSerif.ttf")}, QDir::Files, QDirIterator::Subdirectories);
        if (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QFile::ReadOnly));
            return file.readAll().replace(bigEndian("DejaVu Serif"), bigEndian(family));
        }
    }
    return {};
}

class TextTest : public RendererTest {
protected:
    void draw(const HT_Font& font, double oblique = 0, double widthFactor = 1) {
        renderer.DrawText(sample.data(), 0, font, {100.3, 200.7}, oblique, widthFactor, nullptr);
    }
};

// Where the base line and an upright stroke of the text run on the page.
TEST_F(TextTest, TurnsLeansAndStretches) {
    const struct {
        const char* name;
        double scale, degrees, oblique, widthFactor;
    } rows[] = {
        {"upright", 1, 0, 0, 1},   {"90 degrees", 1, 90, 0, 1},     {"oblique", 1, 0, pi / 12, 1},
        {"mirrored", 1, 0, 0, -1}, {"all at once", 3, 30, 0.25, 2}, {"leaning back, scaled", 0.5, -60, -0.5, 0.75},
    };
    for (const auto& row : rows) {
        recorder.clear();
        renderer.setScale(row.scale);
        draw(fontOf(height, row.degrees), row.oblique, row.widthFactor);
        ASSERT_EQ(recorder.calls().size(), 1U) << row.name;
        const PlotRecorder::Call& call = recorder.calls().back();
        EXPECT_EQ(call.path, outlineOf(qtFont(usualPoints()))) << row.name;
        const auto onPage = [&](double x, double up) {
            const QPointF point = call.transform.map(QPointF(x, -up)) / row.scale;
            return std::complex<double>(point.x(), -point.y()); // counter-clockwise on the page
        };
        const std::complex<double> start(100.3, -200.7);
        const std::complex<double> turn = std::polar(1.0, row.degrees * pi / 180);
        EXPECT_NEAR(std::abs(onPage(0, 0) - start), 0, 1e-4) << row.name;
        EXPECT_NEAR(std::abs(onPage(1, 0) - start - turn * row.widthFactor), 0, 1e-4) << row.name;
        EXPECT_NEAR(std::abs(onPage(0, 1) - start - turn * std::complex(std::tan(row.oblique), 1.0)), 0, 1e-4)
            << row.name;
    }
}

TEST_F(TextTest, ReachesThePainterInOneFillThatLeavesItAsItWas) {
    renderer.SetColor(0x332211);
    renderer.SetAlpha(0x80);
    painter.setTransform(QTransform::fromScale(7, 7));
    painter.setBackgroundMode(Qt::OpaqueMode);
    const QPen pen = painter.pen();
    renderer.setScale(2);
    draw(fontOf(height, 90));
    ASSERT_EQ(recorder.calls().size(), 1U);
    const std::string state = " | pen none | brush #80112233 solid | transform";
    EXPECT_EQ(recorder.calls()[0].state.substr(0, state.size()), state);
    // In single precision.
    EXPECT_EQ(recorder.calls()[0].transform.m11(), 2 * static_cast<double>(static_cast<float>(std::cos(pi / 2))));
    EXPECT_EQ(recorder.calls()[0].transform.dx(), static_cast<double>(static_cast<float>(100.3 * 2)));
    EXPECT_TRUE(painter.transform() == QTransform::fromScale(7, 7) && painter.pen() == pen);
    EXPECT_EQ(painter.backgroundMode(), Qt::OpaqueMode);
}

TEST_F(TextTest, FitsTheWidthInWholePoints) {
    const double points = usualPoints();
    const auto fitted = [&](double target, int characters) {
        const QString measured = QString::fromStdWString(sample.substr(0, static_cast<size_t>(characters)));
        return qtFont(static_cast<int>(points * target / QFontMetrics(qtFont(points)).horizontalAdvance(measured)));
    };
    const double huge = std::numeric_limits<double>::max();
    const struct {
        const char* name;
        int length;
        std::vector<double> widths;
        double widthFactor;
        QFont expected;
    } rows[] = {
        {"each width rounded", 4, {50.5, 50.4, 49.5, 50}, 1, fitted(51 + 50 + 50 + 50, 4)},
        {"without the stretch", 4, {50, 50, 50, 50}, 2, fitted(100, 4)},
        {"first characters only", 2, {60, 60}, 1, fitted(120, 2)},
        {"more widths than characters", 5, {50, 50, 50, 50, 50}, 1, fitted(250, 4)},
        {"no widths", 0, {1}, 1, qtFont(points)},
        {"negative length", -3, {1}, 1, qtFont(points)},
        {"widths of nothing", 4, {0.4, 0.4, 0.4, 0.4}, 1, qtFont(points)},
        {"below one point", 4, {1, 1, 0, 0}, 1, qtFont(points)},
        {"saturated widths that cancel out", 2, {huge, -huge}, 1, qtFont(points)},
    };
    for (const auto& row : rows) {
        recorder.clear();
        std::vector<double> widths = row.widths;
        renderer.DrawText(sample.data(), row.length, fontOf(height), {0, 0}, 0, row.widthFactor, widths.data());
        ASSERT_EQ(recorder.calls().size(), 1U) << row.name;
        EXPECT_EQ(recorder.calls()[0].path, outlineOf(row.expected)) << row.name;
    }
}

// A plot keeps outlines, and draws the same as a renderer that was never told to start one.
TEST_F(TextTest, PlotsThatRepeatTextsDrawThemAsBefore) {
    QTRenderer plot;
    plot.AttachDriver(&painter, {1000, 1000}, false);
    ASSERT_TRUE(plot.StartRender());
    const auto drawBoth = [&](std::wstring text, const HT_Font& font, std::vector<double> widths) {
        for (QTRenderer* const drawing : {&renderer, &plot, &plot}) {
            drawing->DrawText(text.data(), static_cast<int>(widths.size()), font, {0, 0}, 0, 2,
                              widths.empty() ? nullptr : widths.data());
        }
        const auto count = recorder.calls().size();
        ASSERT_GE(count, 3U);
        for (const size_t kept : {count - 2, count - 1}) {
            EXPECT_TRUE(isSameOutline(recorder.calls()[count - 3].path, recorder.calls()[kept].path))
                << QString::fromStdWString(text).toStdString();
        }
    };
    HT_Font heavy = fontOf(height);
    heavy.bold = 1;
    HT_Font slanted = fontOf(height);
    slanted.italic = 1;
    HT_Font otherFace = fontOf(height);
    std::wcscpy(otherFace.faceName, L"DejaVu Serif");
    for (const HT_Font& font : {fontOf(height), fontOf(height + 1), heavy, slanted, otherFace}) {
        // The same text in all ways to fit it, and texts that begin or end like one another.
        for (const std::vector<double>& widths :
             {std::vector<double>(), {200, 200, 200}, {200, 200}, {150, 150, 100}}) {
            drawBoth(L"AVA", font, widths);
        }
        for (const wchar_t* const text :
             {L"AV", L"", L" ", L"ffi To. \u00C4\u00E9", L"a\u00ADb\u00AD", L"x\ty", L"+\u4E2D"}) {
            drawBoth(text, font, {});
        }
    }
    std::minstd_rand random;
    constexpr wchar_t scripts[] = {L' ', L'0', L'A', L'\u00A0', L'\u0300', L'\u0410', L'\u05D0', L'\u0620', L'\u4E00'};
    for (int i = 0; i < 1000; ++i) { // more than there is room for, and one too long to keep
        std::wstring text(1 + random() % 30, L' ');
        const wchar_t script = scripts[random() % std::size(scripts)];
        std::generate(text.begin(), text.end(), [&] { return script + static_cast<wchar_t>(random() % 0x20); });
        drawBoth(text, fontOf(5 + i % 40), {});
        recorder.clear();
    }
    drawBoth(std::wstring(15'000, L'.'), fontOf(height), {});

    // Other fonts count at once, even while a plot is drawn.
    HT_Font changing = fontOf(height);
    std::wcscpy(changing.faceName, L"Goes away!!!");
    const auto drawnAnew = [&] {
        drawBoth(L"AVA", changing, {});
        return recorder.calls().back().path;
    };
    const int added = QFontDatabase::addApplicationFontFromData(renamedSerif("Goes away!!!"));
    const QPainterPath serif = drawnAnew();
    QFontDatabase::removeApplicationFont(added);
    const QPainterPath other = drawnAnew();
    EXPECT_FALSE(isSameOutline(serif, other));
    QFont::insertSubstitution(QStringLiteral("Goes away!!!"), QStringLiteral("DejaVu Serif"));
    EXPECT_TRUE(isSameOutline(serif, drawnAnew()));
    QFont::removeSubstitutions(QStringLiteral("Goes away!!!"));
    EXPECT_TRUE(isSameOutline(other, drawnAnew()));
    plot.DetachDriver();
}

// Each renderer keeps its own outlines, in whatever thread it draws.
TEST(TextThreads, DrawPlotsSideBySide) {
    PlotRecorder recorders[2];
    std::vector<std::thread> threads;
    for (PlotRecorder& recorder : recorders) {
        threads.emplace_back([&recorder] {
            QPainter painter(&recorder);
            QTRenderer renderer;
            renderer.AttachDriver(&painter, {1000, 1000}, false);
            renderer.StartRender();
            for (int i = 0; i < 300; ++i) {
                std::wstring text = L"N " + std::to_wstring(i % 100);
                renderer.DrawText(text.data(), 0, fontOf(height), {0, 0}, 0, 1, nullptr);
            }
            renderer.DetachDriver();
        });
    }
    std::for_each(threads.begin(), threads.end(), [](std::thread& thread) { thread.join(); });
    ASSERT_TRUE(recorders[0].calls().size() == 300 && recorders[1].calls().size() == 300);
    for (size_t i = 0; i < 300; ++i) {
        EXPECT_TRUE(isSameOutline(recorders[0].calls()[i].path, recorders[1].calls()[i].path)) << i;
    }
}

TEST_F(TextTest, HeavyAndSlantedFonts) {
    HT_Font font = fontOf(-height); // the height's sign does not count
    font.bold = 7;
    font.italic = 7;
    draw(font);
    QFont expected = qtFont(usualPoints());
    expected.setWeight(75);
    expected.setItalic(true);
    EXPECT_EQ(recorder.calls().at(0).path, outlineOf(expected));
    EXPECT_NE(recorder.calls()[0].path, outlineOf(qtFont(usualPoints())));
}

TEST_F(TextTest, OddArgumentsAreHarmless) {
    const double extremes[] = {1e300, -1e300, -2147483648.0, std::numeric_limits<double>::infinity(), std::nan("")};
    for (const double value : extremes) {
        draw(fontOf(value));
        draw(fontOf(height, value));
        draw(fontOf(height), value);
        draw(fontOf(height), 0, value);
        renderer.setScale(value);
        draw(fontOf(height));
        renderer.setScale(1);
    }
    recorder.clear();
    renderer.DrawText(nullptr, 4, fontOf(height), {0, 0}, 0, 1, nullptr);
    draw(fontOf(height), 0, 0);
    EXPECT_EQ(recorder.shapes(), "");
    HT_Font unterminated = fontOf(0);
    std::wmemset(unterminated.faceName, L'x', 32);
    draw(unterminated);
    EXPECT_EQ(recorder.calls().size(), 1U);
    QTRenderer unattached;
    unattached.DrawText(sample.data(), 4, fontOf(height), {0, 0}, 0, 1, nullptr);
    EXPECT_EQ(recorder.calls().size(), 1U);
}

TEST(LogFontTest, WeightsAndLines) {
    const struct {
        int32_t weight;
        int expected;
    } rows[] = {{0, 50},   {1, 50},   {100, 0},  {200, 12}, {300, 25}, {400, 50}, {450, 50},
                {500, 57}, {600, 63}, {700, 75}, {800, 81}, {900, 87}, {1000, 50}};
    for (const auto& row : rows) {
        tagLOGFONTW record{};
        record.lfWeight = row.weight;
        EXPECT_EQ(fontFor(record).weight(), row.expected) << row.weight;
    }
    for (const auto& [underline, strikeOut] : {std::pair{0, 0}, {1, 0}, {0, 1}, {255, 255}}) {
        tagLOGFONTW record{};
        record.lfUnderline = static_cast<uint8_t>(underline);
        record.lfStrikeOut = static_cast<uint8_t>(strikeOut);
        const QFont font = fontFor(record);
        EXPECT_TRUE(font.underline() == (underline != 0) && font.strikeOut() == (strikeOut != 0) && !font.overline());
    }
}

TEST(FontNameTest, IsTheFamilyAskedFor) {
    for (const std::wstring& family :
         {std::wstring(), std::wstring(L"No such fönt \U0001D400"), std::wstring(32, L'x')}) {
        tagLOGFONTW record{};
        std::wmemcpy(record.lfFaceName, family.data(), family.size()); // the longest has no terminator
        std::wstring name = L"before";
        EXPECT_EQ(GetFontFullName(&record, name), 1);
        EXPECT_EQ(name, family);
    }
    std::wstring name = L"before";
    EXPECT_EQ(GetFontFullName(nullptr, name), 1);
    EXPECT_EQ(name, L"");
}

} // namespace
