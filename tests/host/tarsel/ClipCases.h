// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>
#include <vector>

#include "Polygon.h"

/// One operation with a known result, read from a sample file.
struct ClipCase {
    enum class Expectation {
        Area,        ///< the area of the result
        RoundedArea, ///< the area after crossings were rounded to whole units
        Consistency, ///< nothing is known of the result, but the operations' areas have to add up
    };

    std::string name; ///< file, place in the file, operation
    gpc_op op;
    std::vector<Polygon> operands; ///< the operation joins each to those before it
    Expectation expectation;
    double area;
    std::string rule; ///< of filling, as far as the file names one
};

/// Lines "CAPTION:", "CLIPTYPE:", "FILLRULE:", "SOL_AREA:", then vertices under "SUBJECTS" and "CLIPS".
std::vector<ClipCase> readCaptionedCases(const std::string& path);

/// XML with geometries as text or hexadecimal records, and operations with their expected geometry.
std::vector<ClipCase> readXmlCases(const std::string& path);

/// A collection of features: two operands, then results with the property "operation"; none without such.
std::vector<ClipCase> readFeatureCases(const std::string& path);

/// A directory with the operands in args.geojson and one file a result.
std::vector<ClipCase> readDirectoryCases(const std::string& path);
