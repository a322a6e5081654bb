// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

/// An expected text written in place, as an indented raw string literal.
///
/// Drops the line break after the opening quote, the blanks before the closing one, and the indentation that
/// all lines share, so that an expected text may follow the indentation of its test.
std::string golden(const std::string& text);
