#include <gtest/gtest.h>

#include <ostream>

#include "cli/LayerFilter.h"

namespace kelplot {
namespace {

struct MatchCase {
    const char* pattern;
    const char* name;
    bool matches;
};

std::ostream& operator<<(std::ostream& stream, const MatchCase& row) {
    return stream << row.pattern << " and " << row.name;
}

class LayerPattern : public ::testing::TestWithParam<MatchCase> {};

TEST_P(LayerPattern, Matches) {
    EXPECT_EQ(matchesLayer(GetParam().pattern, GetParam().name), GetParam().matches);
}

INSTANTIATE_TEST_SUITE_P(All, LayerPattern,
                         ::testing::Values(MatchCase{"walls", "WALLS", true}, MatchCase{"wall", "WALLS", false},
                                           MatchCase{"Wall*", "WALLS-EXT", true}, MatchCase{"*ext", "WALLS-EXT", true},
                                           MatchCase{"w*-*t", "WALLS-EXT", true}, MatchCase{"*", "0", true},
                                           MatchCase{"a.c", "abc", false}, MatchCase{"a.c", "a.c", true},
                                           MatchCase{"x|0", "0", false}, MatchCase{"m[1]", "m[1]", true},
                                           MatchCase{"m?", "m1", false}, MatchCase{"ОСИ", "Оси", true},
                                           MatchCase{"m\u00e4*", "M\u00c4RZ", true}));

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

struct FilterCase {
    const char* name;
    QStringList wanted;
    QStringList unwanted;
    const char* plotted;
    QStringList unmatched;
};

std::ostream& operator<<(std::ostream& stream, const FilterCase& row) {
    return stream << row.name;
}

class LayerFilter : public ::testing::TestWithParam<FilterCase> {};

TEST_P(LayerFilter, KeepsLayersOffPaper) {
    Drawing drawing = drawingWithLayers({"0", "A1", "A2", "B"});
    drawing.layers[3].plotted = false;
    EXPECT_EQ(filterLayers(drawing, GetParam().wanted, GetParam().unwanted), GetParam().unmatched);
    EXPECT_EQ(plottedLayers(drawing), GetParam().plotted);
}

INSTANTIATE_TEST_SUITE_P(All, LayerFilter,
                         ::testing::Values(FilterCase{"all", {}, {}, "0 A1 A2 ", {}},
                                           FilterCase{"some", {"a*"}, {}, "A1 A2 ", {}},
                                           FilterCase{"all but some", {}, {"a*"}, "0 ", {}},
                                           FilterCase{"some but one", {"a*"}, {"A2"}, "A1 ", {}},
                                           FilterCase{"layer that is off paper anyway", {"B"}, {}, "", {}},
                                           FilterCase{"unknown", {"A1", "X"}, {"Y*"}, "A1 ", {"X", "Y*"}}));

} // namespace
} // namespace kelplot
