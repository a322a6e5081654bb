// SPDX-License-Identifier: BSD-3-Clause
#include "BoostClipper.h"

#ifdef KELDRIVER_HAS_BOOST

#include <exception>

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>

namespace {

using Polygon = boost::geometry::model::polygon<boost::geometry::model::d2::point_xy<double>>;
using Polygons = boost::geometry::model::multi_polygon<Polygon>;

Polygon polygonOf(const Outline& outline) {
    Polygon polygon;
    for (const HT_Double_Point& point : outline) {
        boost::geometry::append(polygon, boost::geometry::model::d2::point_xy<double>(point.x, point.y));
    }
    boost::geometry::correct(polygon); // closed, and clockwise
    return polygon;
}

void combine(gpc_op op, const Polygon& first, const Polygon& second, Polygons& out) {
    switch (op) {
    case GPC_UNION:
        boost::geometry::union_(first, second, out);
        break;
    case GPC_INT:
        boost::geometry::intersection(first, second, out);
        break;
    case GPC_DIFF:
        boost::geometry::difference(first, second, out);
        break;
    case GPC_XOR:
        boost::geometry::sym_difference(first, second, out);
        break;
    }
}

} // namespace

void clipByBoost(benchmark::State& state, gpc_op op, const Outline& first, const Outline& second) {
    const Polygon subject = polygonOf(first);
    const Polygon clip = polygonOf(second);
    double area = 0.0;
    try {
        for (auto _ : state) {
            Polygons result;
            combine(op, subject, clip, result);
            benchmark::DoNotOptimize(result.data());
            state.PauseTiming();
            area = boost::geometry::area(result);
            state.ResumeTiming();
        }
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
    state.counters["result"] = area;
}

#endif
