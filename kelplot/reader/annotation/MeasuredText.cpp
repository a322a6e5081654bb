// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/MeasuredText.h"

#include <QString>
#include <cmath>

#include "base/Angles.h"
#include "reader/GroupValue.h"
#include "reader/annotation/NumberText.h"

namespace kelplot {

namespace {

constexpr std::string_view measuredMark = "<>";
constexpr std::string_view alternateMark = "[]";

using Fractions = NumberForm::Fractions;

Fractions fractionsOf(int number) {
    return number == 0 ? Fractions::stacked : (number == 1 ? Fractions::slanting : Fractions::plain);
}

/// Sets a unit by the numbers that tell unit and fractions together.
void setUnit(int number, NumberForm& form) {
    constexpr int units[] = {2, 1, 2, 3, 4, 5, 4, 5};
    constexpr int firstPlain = 6;
    form.unit = number >= 0 && number < 8 ? units[number] : 2;
    form.fractions = number < firstPlain ? Fractions::stacked : Fractions::plain;
}

std::string decimalSignOf(const StyleValues& style) {
    const int sign = style.integer(StyleCode::decimalSign);
    return sign > ' ' && sign < 0xD800 ? QString(QChar(sign)).toStdString() : ".";
}

NumberForm lengthForm(const StyleValues& style) {
    NumberForm form;
    if (!style.has(StyleCode::unit) && style.has(StyleCode::oldUnit)) {
        setUnit(style.integer(StyleCode::oldUnit), form);
    } else {
        form.unit = style.integer(StyleCode::unit);
        form.fractions = fractionsOf(style.integer(StyleCode::fractions));
    }
    form.digits = style.integer(StyleCode::digits);
    form.zeros = style.integer(StyleCode::zeros);
    form.decimalSign = decimalSignOf(style);
    form.rounding = style.real(StyleCode::rounding);
    return form;
}

NumberForm angleForm(const StyleValues& style) {
    NumberForm form;
    form.unit = style.integer(StyleCode::angleUnit);
    const int digits = style.integer(StyleCode::angleDigits);
    form.digits = digits < 0 ? style.integer(StyleCode::digits) : digits;
    form.zeros = style.integer(StyleCode::angleZeros) * 4; // the same two bits as those of lengths, at the start
    form.decimalSign = decimalSignOf(style);
    return form;
}

NumberForm alternateForm(const StyleValues& style) {
    NumberForm form;
    setUnit(style.integer(StyleCode::alternateUnit), form);
    form.digits = style.integer(StyleCode::alternateDigits);
    form.zeros = style.integer(StyleCode::alternateZeros);
    form.decimalSign = decimalSignOf(style);
    form.rounding = style.real(StyleCode::alternateRounding);
    return form;
}

std::string numberText(double value, const NumberForm& form, bool isAngle) {
    return isAngle ? angleText(value, form) : lengthText(value, form);
}

std::string signedText(double value, const NumberForm& form, bool isAngle) {
    const char* const sign = value > 0.0 ? "+" : (value < 0.0 ? "-" : " ");
    return sign + numberText(std::abs(value), form, isAngle);
}

/// Two texts one above the other, in the size of tolerances.
std::string stacked(const std::string& upper, const std::string& lower, const StyleValues& style) {
    const std::string size = QString::number(style.real(StyleCode::toleranceHeight), 'g', 6).toStdString();
    return "{\\H" + size + "x;\\S" + upper + '^' + lower + ";}";
}

/// A number with the tolerances or limits that its style asks for.
///
/// @param factor      from the units of the tolerances to those of the number
/// @param tolerance   how the tolerances are written
std::string withTolerances(double value, const NumberForm& form, const NumberForm& tolerance, double factor,
                           bool isAngle, const StyleValues& style) {
    const double upper = style.real(StyleCode::upperTolerance) * factor;
    const double lower = style.real(StyleCode::lowerTolerance) * factor;
    if (style.flag(StyleCode::limits)) {
        return stacked(numberText(value + upper, form, isAngle), numberText(value - lower, form, isAngle), style);
    }
    std::string number = numberText(value, form, isAngle);
    if (!style.flag(StyleCode::tolerances)) {
        return number;
    }
    if (upper == lower) {
        return number + "%%p" + numberText(upper, tolerance, isAngle);
    }
    return number + stacked(signedText(upper, tolerance, isAngle), signedText(-lower, tolerance, isAngle), style);
}

/// Puts a number where a text has the mark for it, or before the text.
std::string framed(const std::string& number, const std::string& frame, const char* mark) {
    const size_t at = frame.find(measuredMark);
    if (at == std::string::npos) {
        return mark + number + frame;
    }
    return (at == 0 ? mark : "") + frame.substr(0, at) + number + frame.substr(at + measuredMark.size());
}

std::string primaryText(const Measurement& measurement, const StyleValues& style, const TextEncoding& decoder) {
    const NumberForm form = measurement.isAngle ? angleForm(style) : lengthForm(style);
    NumberForm tolerance = form;
    tolerance.digits = measurement.isAngle ? form.digits : style.integer(StyleCode::toleranceDigits);
    tolerance.zeros = style.integer(StyleCode::toleranceZeros);
    tolerance.rounding = 0.0;
    const double factor = measurement.isAngle ? radiansFromDegrees(1.0) : 1.0; // styles state them in degrees
    const std::string number = withTolerances(measurement.value, form, tolerance, factor, measurement.isAngle, style);
    const std::string frame =
        measurement.isAngle ? std::string() : decoder.decodeMarkup(style.text(StyleCode::postfix));
    return framed(number, frame, measurement.mark);
}

/// The same length in other units; empty where the style has none.
std::string alternateText(const Measurement& measurement, const StyleValues& style, const TextEncoding& decoder) {
    if (measurement.isAngle || !style.flag(StyleCode::alternates)) {
        return {};
    }
    const double factor = style.real(StyleCode::alternateFactor);
    const NumberForm form = alternateForm(style);
    NumberForm tolerance = form;
    tolerance.digits = style.integer(StyleCode::alternateToleranceDigits);
    tolerance.zeros = style.integer(StyleCode::alternateToleranceZeros);
    tolerance.rounding = 0.0;
    const std::string number = withTolerances(measurement.value * factor, form, tolerance, factor, false, style);
    return '[' + framed(number, decoder.decodeMarkup(style.text(StyleCode::alternatePostfix)), "") + ']';
}

/// Whether a text puts the measurement after its mark already.
bool hasMark(const std::string& text, std::string_view mark) {
    const size_t at = text.find(measuredMark);
    return at != std::string::npos && at >= mark.size() && text.compare(at - mark.size(), mark.size(), mark) == 0;
}

/// `text` with the first few of what it holds of `what` replaced.
std::string replaced(std::string_view text, std::string_view what, const std::string& by) {
    constexpr int most = 16; // a damaged file may hold any number, each of which would be as long as its style says
    std::string result;
    for (int i = 0; i < most; ++i) {
        const size_t at = text.find(what);
        if (at == std::string_view::npos) {
            break;
        }
        result += text.substr(0, at);
        result += by;
        text.remove_prefix(at + what.size());
    }
    return result += text;
}

} // namespace

std::string dimensionText(const Measurement& measurement, std::string_view stated, const StyleValues& style,
                          const TextEncoding& decoder) {
    std::string text = stated.empty() ? std::string(measuredMark) : decoder.decodeMarkup(stated);
    Measurement marked = measurement;
    marked.mark = hasMark(text, measurement.mark) ? "" : measurement.mark;
    const std::string primary = primaryText(marked, style, decoder);
    const std::string alternate = alternateText(measurement, style, decoder);
    const bool placesAlternate = text.find(alternateMark) != std::string::npos;
    text = replaced(text, alternateMark, alternate);
    text = replaced(text, measuredMark, placesAlternate || alternate.empty() ? primary : primary + ' ' + alternate);
    text = replaced(text, "\\X", "\\P"); // what follows stands below the dimension line
    constexpr const char* levels[] = {"\\A0;", "\\A1;", "\\A2;"};
    const int level = style.integer(StyleCode::toleranceLevel);
    return levels[level >= 0 && level <= 2 ? level : 1] + text;
}

} // namespace kelplot
