// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

/// Group codes of the data that programs attach to a record.
namespace kelplot::attached {

constexpr int text = 1000;
constexpr int application = 1001; ///< whose data follow
constexpr int brace = 1002;       ///< opens or closes a group of them
constexpr int layer = 1003;
constexpr int firstOther = 1004; ///< from here on: values that are neither text nor structure
constexpr int point = 1010;      ///< its x; y and z follow with 10 and 20 more
constexpr int real = 1040;
constexpr int shortInteger = 1070;
constexpr int integer = 1071;

} // namespace kelplot::attached
