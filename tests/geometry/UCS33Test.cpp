// SPDX-License-Identifier: BSD-3-Clause
#include <cmath>
#include <complex>
#include <cstdint>
#include <functional>
#include <vector>

#include <gtest/gtest.h>

#include "keldriver/UCS33.h"

namespace {

using Point = std::complex<double>;

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
        {"scale, offset", [](CUCS33& u) { u.Scale(2, 3), u.Offset(1, 0); }, {1, 1}, {3, 3}},
        {"offset, scale", [](CUCS33& u) { u.Offset(1, 0), u.Scale(2, 2); }, {1, 1}, {4, 2}},
        {"mirror in the x axis", [](CUCS33& u) { u.Mirror(1, 0); }, {3, 4}, {3, -4}},
        {"mirror in the y axis", [](CUCS33& u) { u.Mirror(0, 1); }, {3, 4}, {-3, 4}},
        {"mirror that collapses", [](CUCS33& u) { u.Mirror(2, 2), u.Offset(5, 6); }, {3, 4}, {5, 6}},
        {"mirror x", [](CUCS33& u) { u.Offset(1, 1), u.MirrorX(); }, {3, 4}, {4, -5}},
        {"mirror y", [](CUCS33& u) { u.MirrorY(); }, {3, 4}, {-3, 4}},
        {"mirror origin", [](CUCS33& u) { u.MirrorOrg(); }, {3, 4}, {-3, -4}},
        {"system", [](CUCS33& u) { u.CreateUCS(0, 0, 3, 4); }, {1, 0}, {3, 4}},
        {"turned system away from the origin", [](CUCS33& u) { u.CreateUCS(7, -8, 3, 4); }, {2, 5}, {-7, 15}},
        {"system without a direction", [](CUCS33& u) { u.CreateUCS(5, 5, 0, 1e-6); }, {1, 1}, {6, 6}},
        {"inverted", [](CUCS33& u) { u.CreateUCS(7, -8, 3, 4), u.Invert(); }, {-7, 15}, {2, 5}},
    };
    for (const auto& row : rows) {
        CUCS33 ucs;
        row.steps(ucs);
        EXPECT_NEAR(std::abs(mapped(ucs, row.from) - row.to), 0, 1e-12) << row.name;
    }
}

TEST(UCS33Test, InitialisationsLeaveOtherElementsAlone) {
    const struct {
        std::function<bool(CUCS33&)> initialise;
        std::vector<double> elements;
    } rows[] = {
        {[](CUCS33& u) { return u.InitStandard(); }, {1, 11, 12, 13, 1, 15, 16, 17, 1}},
        {[](CUCS33& u) { return u.InitOffsetMatrix(2, 3); }, {1, 11, 12, 13, 1, 15, 2, 3, 1}},
        {[](CUCS33& u) { return u.InitScaleMatrix(2, 3); }, {2, 11, 12, 13, 3, 15, 16, 17, 18}},
        {[](CUCS33& u) { return u.InitRotateMatrix(2, 3); }, {2, 3, 12, -3, 2, 15, 16, 17, 1}},
        {[](CUCS33& u) { return u.InitMirrorMatrix(2, 3); }, {-1, 11, 12, 13, 1, 15, 16, 17, 18}},
    };
    for (const auto& row : rows) {
        CUCS33 ucs;
        for (int i = 0; i < 9; ++i) {
            ucs.SetElement(i / 3, i % 3, 10 + i);
        }
        EXPECT_TRUE(row.initialise(ucs));
        std::vector<double> elements(9);
        ucs.GetElements(elements.data(), 9);
        EXPECT_EQ(elements, row.elements);
        const std::vector<double>& e = row.elements;
        std::vector<double> six(6);
        ucs.GetElements(six.data(), 4);
        EXPECT_EQ(six, std::vector<double>(6)) << "no such count";
        ucs.GetElements(six.data(), 6);
        EXPECT_EQ(six, (std::vector<double>{e[0], e[1], e[3], e[4], e[6], e[7]}));
    }
}

TEST(UCS33Test, IntegerPointsRoundHalvesUpAndSaturate) {
    for (const auto& [offset, expected] :
         {std::pair(2.5, 3), {-2.5, -2}, {-2.51, -3}, {3e9, INT32_MAX}, {-3e9, INT32_MIN}, {std::nan(""), 0}}) {
        CUCS33 ucs;
        ucs.Offset(offset, 1);
        int x = 0;
        int y = 4;
        EXPECT_TRUE(ucs.MultiplyPointIntXY(x, y));
        EXPECT_TRUE(x == expected && y == 5) << offset << " gives " << x << ", " << y;
    }
}

} // namespace
