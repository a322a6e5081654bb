// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "cli/LayerFilter.h"

namespace kelplot {
namespace {

TEST(LayerPattern, MatchesWholeNamesInAnyCase) {
    const struct {
        const char* pattern;
        const char* name;
        bool matches;
    } rows[] = {
        {"walls", "WALLS", true}, {"wall", "WALLS", false}, {"Wall*", "WALLS-EXT", true}, {"*ext", "WALLS-EXT", true},
        {"a.c", "abc", false},    {"x|0", "0", false},      {"w*-*t", "WALLS-EXT", true}, {"m[1]", "m[1]", true},
        {"m?", "m1", false},      {"ОСИ", "Оси", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(matchesLayer(row.pattern, row.name), row.matches) << row.pattern << " and " << row.name;
    }
}

Drawing drawingWithLayers(const std::vector<std::string>& names) {
    Drawing drawing;
    for (const std::string& name : names) {
        Layer layer;
        layer.name = name;
        drawing.layers.push_back(layer);
    }
    return drawing;
}

std::string plottedLayers(const Drawing& drawing) {
    std::string names;
    for (const Layer& layer : drawing.layers) {
        names += layer.plotted ? layer.name + ' ' : "";
    }
    return names;
}

TEST(LayerFilter, KeepsLayersOffPaper) {
    const struct {
        const char* name;
        QStringList wanted;
        QStringList unwanted;
        const char* plotted;
        QStringList unmatched;
    } rows[] = {
        {"all", {}, {}, "0 A1 A2 ", {}},
        {"all but some", {}, {"a*"}, "0 ", {}},
        {"some but one", {"a*"}, {"A2"}, "A1 ", {}},
        {"layer that is off paper anyway", {"B"}, {}, "", {}},
        {"unknown", {"A1", "X"}, {"Y*"}, "A1 ", {"X", "Y*"}},
    };
    for (const auto& row : rows) {
        Drawing drawing = drawingWithLayers({"0", "A1", "A2", "B"});
        drawing.layers[3].plotted = false;
        EXPECT_EQ(filterLayers(drawing, row.wanted, row.unwanted), row.unmatched) << row.name;
        EXPECT_EQ(plottedLayers(drawing), row.plotted) << row.name;
    }
}

} // namespace
} // namespace kelplot
