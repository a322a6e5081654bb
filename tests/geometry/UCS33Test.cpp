// SPDX-License-Identifier: BSD-3-Clause
#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdint>
#include <functional>

#include <gtest/gtest.h>

#include "keldriver/UCS33.h"

namespace {

using Point = std::complex<double>; // turning and scaling a point is multiplying it

Point mapped(const CUCS33& ucs, Point point) {
    double x = point.real();
    double y = point.imag();
    EXPECT_TRUE(ucs.MultiplyPointXY(x, y));
    return {x, y};
}

TEST(UCS33Test, StepsActAfterEachOther) {
    const struct {
        const char* name;
        std::function<void(CUCS33&)> steps;
        Point from;
        Point to;
    } rows[] = {
        {"identity", [](CUCS33&) {}, {1, 2}, {1, 2}},
        {"offset", [](CUCS33& u) { u.Offset(10, 20); }, {1, 2}, {11, 22}},
        {"quarter turn", [](CUCS33& u) { u.Rotate(0, 1); }, {1, 0}, {0, 1}},
        {"turn", [](CUCS33& u) { u.Rotate(0.6, 0.8); }, {5, 10}, Point(5, 10) * Point(0.6, 0.8)},
        {"scale, offset", [](CUCS33& u) { u.Scale(2, 3), u.Offset(1, 0); }, {1, 1}, {3, 3}},
        {"offset, scale", [](CUCS33& u) { u.Offset(1, 0), u.Scale(2, 2); }, {1, 1}, {4, 2}},
        {"offset, turn", [](CUCS33& u) { u.Offset(1, 2), u.Rotate(0, 1); }, {3, 4}, Point(4, 6) * Point(0, 1)},
        {"mirror in the x axis", [](CUCS33& u) { u.Mirror(1, 0); }, {3, 4}, {3, -4}},
        {"mirror in the y axis", [](CUCS33& u) { u.Mirror(0, 1); }, {3, 4}, {-3, 4}},
        {"mirror that collapses", [](CUCS33& u) { u.Mirror(2, 2), u.Offset(5, 6); }, {3, 4}, {5, 6}},
        {"mirror x", [](CUCS33& u) { u.Offset(1, 1), u.MirrorX(); }, {3, 4}, {4, -5}},
        {"mirror y", [](CUCS33& u) { u.MirrorY(); }, {3, 4}, {-3, 4}},
        {"mirror origin", [](CUCS33& u) { u.MirrorOrg(); }, {3, 4}, {-3, -4}},
        {"system", [](CUCS33& u) { u.CreateUCS(0, 0, 3, 4); }, {1, 0}, {3, 4}},
        {"turned system away from the origin",
         [](CUCS33& u) { u.CreateUCS(7, -8, 3, 4); },
         {2, 5},
         Point(7, -8) + Point(2, 5) * Point(3, 4)},
        {"system without a direction", [](CUCS33& u) { u.CreateUCS(5, 5, 0, 1e-6); }, {1, 1}, {6, 6}},
        {"inverted", [](CUCS33& u) { u.CreateUCS(7, -8, 3, 4), u.Invert(); }, {7 - 14, -8 + 23}, {2, 5}},
    };
    for (const auto& row : rows) {
        CUCS33 ucs;
        row.steps(ucs);
        EXPECT_NEAR(std::abs(mapped(ucs, row.from) - row.to), 0, 1e-12) << row.name;
    }
}

TEST(UCS33Test, InitialisationsLeaveOtherElementsAlone) {
    CUCS33 ucs;
    for (int i = 0; i < 9; ++i) {
        ucs.SetElement(i / 3, i % 3, 10 + i);
    }
    const std::function<bool(CUCS33&)> initialisations[] = {
        [](CUCS33& u) { return u.InitStandard(); },         [](CUCS33& u) { return u.InitOffsetMatrix(2, 3); },
        [](CUCS33& u) { return u.InitScaleMatrix(2, 3); },  [](CUCS33& u) { return u.InitRotateMatrix(2, 3); },
        [](CUCS33& u) { return u.InitMirrorMatrix(2, 3); },
    };
    const double expected[][9] = {
        {1, 11, 12, 13, 1, 15, 16, 17, 1}, {1, 11, 12, 13, 1, 15, 2, 3, 1},     {2, 11, 12, 13, 3, 15, 16, 17, 18},
        {2, 3, 12, -3, 2, 15, 16, 17, 1},  {-1, 11, 12, 13, 1, 15, 16, 17, 18},
    };
    for (size_t i = 0; i < 5; ++i) {
        CUCS33 changed(ucs);
        EXPECT_TRUE(initialisations[i](changed));
        double elements[9] = {};
        changed.GetElements(elements, 9);
        EXPECT_TRUE(std::equal(elements, elements + 9, expected[i])) << "initialisation " << i;
    }
    double six[6] = {};
    ucs.GetElements(six, 4);
    EXPECT_EQ(six[0], 0);
    ucs.GetElements(six, 6);
    const double affine[] = {10, 11, 13, 14, 16, 17};
    EXPECT_TRUE(std::equal(six, six + 6, affine));
}

TEST(UCS33Test, IntegerPointsRoundHalvesUpAndSaturate) {
    const struct {
        double offset;
        int expected;
    } rows[] = {{2.5, 3}, {-2.5, -2}, {-2.51, -3}, {3e9, INT32_MAX}, {-3e9, INT32_MIN}, {std::nan(""), 0}};
    for (const auto& row : rows) {
        CUCS33 ucs;
        ucs.Offset(row.offset, 1);
        int x = 0;
        int y = 4;
        EXPECT_TRUE(ucs.MultiplyPointIntXY(x, y));
        EXPECT_EQ(x, row.expected) << row.offset;
        EXPECT_EQ(y, 5);
    }
}

} // namespace
