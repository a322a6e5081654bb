// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "kelplot/plot/PlotKit.h"

namespace kelplot {
namespace {

TEST(ConstructionLines, RunToTheEdgesOfThePageAndOutOfTheFit) {
    const struct {
        const char* name;
        ConstructionLine line;
        const char* expected; ///< the pen's width of 2.5 units beyond the page of 1000 by 1000
    } rows[] = {
        {"ray", {{10, 20, 0}, {0, 5, 0}}, "line 100,800 100,-3\n"},
        {"both ways", {{10, 20, 7}, {0, 5, 0}, true}, "line 100,1003 100,-3\n"},
        {"ray that starts far off", {{-1e9, 50, 0}, {1, 0, 0}}, "line -3,500 1003,500\n"},
        {"ray away from the page", {{-10, 50, 0}, {-1, 0, 0}}, ""},
        {"seen from its end", {{10, 20, 0}, {0, 0, 1}, true}, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(textOf(shapesOf(entityOf(row.line))), row.expected) << row.name;
        Drawing drawing = drawingOf(entityOf(row.line));
        EXPECT_TRUE(visibleExtents(drawing, drawing.modelSpace).isEmpty()) << row.name;
    }
}

} // namespace
} // namespace kelplot
