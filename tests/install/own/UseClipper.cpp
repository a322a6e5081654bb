// SPDX-License-Identifier: BSD-3-Clause

// Succeeds when the library's regions come from the clipper that it was built against.

#include <gpc.h>
#include <keldriver/KelDriver.h>

#include <cstdlib>

int main() {
    const HT_Double_Point diamond[] = {{0, 10}, {10, 0}, {20, 10}, {10, 20}};
    CVornRgn a;
    CVornRgn b;
    a.CreatePolygonRgn(diamond, 4, 1);
    b.CreateRectRgn(5, 5, 30, 30);
    CVornRgn both;
    HT_Double_Rectangle box;
    const bool combined = both.CombineRgn(&a, &b, 1) == 3 && both.GetRgnBox(&box) == 3;

    gpc_polygon* polygon = PolyAlgoOperator::convert_2_gpc_polygon(both.m_pClipRgn);
    const bool converted = polygon->num_contours == 1 && polygon->contour[0].num_vertices == 3;
    gpc_free_polygon(polygon);
    std::free(polygon);
    return combined && converted && box.minX == 1 && box.minY == 2 && box.maxX == 5 && box.maxY == 7 ? 0 : 1;
}
