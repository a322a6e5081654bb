// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>
#include <sstream>

#include "cli/PlotJob.h"
#include "reader/DrawingReader.h"
#include "support/TemporaryDirectory.h"

namespace kelplot {
namespace {

const std::filesystem::path samples = std::filesystem::path(KELDRIVER_SHARED_DATA) / "dxf";

/// A sound drawing with nothing in it.
const std::string emptySample = "text_layers_unicode";

struct PlotResult {
    std::string refusal; ///< empty: there is a plot
    std::string warnings;
    bool hasInk = false;
};

bool hasInk(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255)) {
                return true;
            }
        }
    }
    return false;
}

PlotResult plotSmall(const std::filesystem::path& path, const TemporaryDirectory& directory) {
    const QString output = QString::fromStdString(directory.path("plot.png"));
    PlotPlan plan;
    plan.format = OutputFormat::png;
    plan.dotsPerInch = 20;
    std::ostringstream warnings;
    Console console(warnings, Console::Progress::never, true);
    try {
        plotDrawing(QString::fromStdString(path.string()), output, plan, console);
    } catch (const ReadError& error) {
        EXPECT_EQ(error.reason, ReadError::Reason::notADrawing);
        EXPECT_FALSE(directory.exists("plot.png"));
        return {error.what(), warnings.str(), false};
    }
    const QImage image(output);
    EXPECT_FALSE(image.isNull());
    return {{}, warnings.str(), hasInk(image)};
}

void checkSample(const std::filesystem::path& path) {
    const std::string name = path.stem().string();
    const bool damaged = name.rfind("bad_", 0) == 0;
    const bool binary = name.rfind("ver_bin_", 0) == 0;
    const TemporaryDirectory directory;
    const PlotResult result = plotSmall(path, directory);
    EXPECT_TRUE(!binary || result.refusal.find("binary") != std::string::npos) << result.refusal;
    EXPECT_TRUE(damaged || binary || result.refusal.empty()) << result.refusal;
    if (!result.refusal.empty()) {
        EXPECT_NE(result.refusal.find(path.filename().string() + ": "), std::string::npos) << result.refusal;
        return;
    }
    const bool saysNothing = result.warnings.find("nothing to plot") != std::string::npos;
    EXPECT_NE(result.hasInk, saysNothing) << "a blank page comes with a warning, and no other does";
    EXPECT_TRUE(damaged || result.hasInk == (name != emptySample));
}

TEST(SamplePlots, ShowInkOrSayWhyNot) {
    if (!std::filesystem::is_directory(samples)) {
        GTEST_SKIP() << "no sample drawings in " << samples;
    }
    for (const auto& entry : std::filesystem::directory_iterator(samples)) {
        if (entry.path().extension() != ".dxf") {
            continue;
        }
        SCOPED_TRACE(entry.path().filename().string());
        checkSample(entry.path());
    }
}

} // namespace
} // namespace kelplot
