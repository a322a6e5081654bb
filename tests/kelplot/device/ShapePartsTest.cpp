// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include <QPainterPath>

#include "device/vector/ShapeParts.h"

namespace kelplot {
namespace {

TEST(ShapeParts, LieApart) {
    using Boxes = std::vector<QRectF>;
    constexpr size_t circle = 13; // elements
    const Boxes two = {{0, 0, 10, 10}, {20, 0, 10, 10}};
    const struct {
        const char* name;
        Boxes circles;
        int rectangleAt; ///< a rectangle far away before this circle; -1: none
        std::vector<size_t> parts;
    } rows[] = {
        {"one", {{0, 0, 10, 10}}, -1, {0}},
        {"side by side", two, -1, {0, circle}},
        {"one above the other", {{0, 0, 10, 10}, {0, 20, 10, 10}}, -1, {0, circle}},
        {"touching", {{0, 0, 10, 10}, {10, 0, 10, 10}}, -1, {0}},
        {"with holes", {{0, 0, 10, 10}, {2, 2, 6, 6}, {20, 0, 10, 10}, {22, 2, 6, 6}}, -1, {0, 2 * circle}},
        {"the third in the first", {{0, 0, 10, 10}, {20, 0, 10, 10}, {2, 2, 6, 6}}, -1, {0}},
        {"the third over all, then another",
         {{0, 0, 10, 10}, {20, 0, 10, 10}, {5, 5, 20, 2}, {50, 0, 10, 10}},
         -1,
         {0, 3 * circle}},
        {"a rectangle goes with what follows", two, 0, {0, 5 + circle}},
        {"or with what was before", two, 1, {0, circle + 5}},
    };
    for (const auto& row : rows) {
        QPainterPath path;
        for (size_t i = 0; i < row.circles.size(); ++i) {
            if (static_cast<int>(i) == row.rectangleAt) {
                path.addRect(-50, -50, 10, 10);
            }
            path.addEllipse(row.circles[i]);
        }
        PageShape shape;
        for (int i = 0; i < path.elementCount(); ++i) {
            shape.add(path.elementAt(i).x, path.elementAt(i).y, path.elementAt(i).type);
        }
        EXPECT_EQ(partsOfArea(shape), row.parts) << row.name;
    }
}

} // namespace
} // namespace kelplot
