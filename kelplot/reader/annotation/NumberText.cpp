// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/annotation/NumberText.h"

#include <QString>
#include <algorithm>
#include <cmath>

#include "base/Angles.h"

namespace kelplot {

namespace {

constexpr int mostDigits = 8;
constexpr double inchesInFoot = 12.0;
constexpr double largestOfFractions = 1e9;

// Bits of NumberForm::zeros, and what its two lowest mean together.
constexpr int withoutLeading = 4;
constexpr int withoutTrailing = 8;
constexpr int feetAndInchBits = 3;

int digitsOf(const NumberForm& form) {
    return std::clamp(form.digits, 0, mostDigits);
}

bool showsZeroFeet(const NumberForm& form) {
    const int bits = form.zeros & feetAndInchBits;
    return bits == 1 || bits == 2;
}

bool showsZeroInches(const NumberForm& form) {
    const int bits = form.zeros & feetAndInchBits;
    return bits == 1 || bits == 3;
}

/// Takes the zeros away that the form leaves out, and sets its sign.
std::string trimmedZeros(QString digits, const NumberForm& form) {
    if ((form.zeros & withoutTrailing) != 0 && digits.contains(QLatin1Char('.'))) {
        while (digits.endsWith(QLatin1Char('0'))) {
            digits.chop(1);
        }
        if (digits.endsWith(QLatin1Char('.'))) {
            digits.chop(1);
        }
    }
    const int start = digits.startsWith(QLatin1Char('-')) ? 1 : 0;
    if ((form.zeros & withoutLeading) != 0 && digits.midRef(start).startsWith(QLatin1String("0."))) {
        digits.remove(start, 1);
    }
    digits.replace(QLatin1Char('.'), QString::fromStdString(form.decimalSign));
    return digits.toStdString();
}

std::string decimal(double value, const NumberForm& form) {
    const QString digits = QString::number(value, 'f', digitsOf(form));
    const bool isZero = digits.count(QLatin1Char('0')) + digits.count(QLatin1Char('.')) + 1 == digits.size();
    return trimmedZeros(isZero && digits.startsWith(QLatin1Char('-')) ? digits.mid(1) : digits, form);
}

std::string fractionText(long long numerator, long long denominator, NumberForm::Fractions look) {
    while (numerator % 2 == 0) {
        numerator /= 2;
        denominator /= 2;
    }
    const std::string over = std::to_string(denominator);
    const std::string top = std::to_string(numerator);
    switch (look) {
    case NumberForm::Fractions::stacked:
        return "{\\S" + top + '/' + over + ";}";
    case NumberForm::Fractions::slanting:
        return "{\\S" + top + '#' + over + ";}";
    case NumberForm::Fractions::plain:
        break;
    }
    return top + '/' + over;
}

/// A number that is not negative, with a fraction of a power of two.
std::string withFraction(double value, const NumberForm& form) {
    const long long denominator = 1LL << digitsOf(form);
    const long long parts = std::llround(value * static_cast<double>(denominator));
    const long long whole = parts / denominator;
    const long long rest = parts % denominator;
    if (rest == 0) {
        return std::to_string(whole);
    }
    const std::string blank = form.fractions == NumberForm::Fractions::plain ? " " : "";
    return (whole != 0 ? std::to_string(whole) + blank : "") + fractionText(rest, denominator, form.fractions);
}

/// A length in inches that is not negative.
std::string feetAndInches(double value, const NumberForm& form, bool fractions) {
    // Rounded first, so that what is nearly a foot becomes one.
    const double step = fractions ? std::ldexp(1.0, -digitsOf(form)) : std::pow(10.0, -digitsOf(form));
    const double rounded = std::round(value / step) * step;
    const double feet = std::floor(rounded / inchesInFoot);
    const double inches = rounded - feet * inchesInFoot;
    const bool hasFeet = feet > 0.0 || showsZeroFeet(form);
    const bool hasInches = inches > 0.0 || !hasFeet || showsZeroInches(form);
    std::string text = hasFeet ? QString::number(feet, 'f', 0).toStdString() + '\'' : "";
    if (hasInches) {
        const bool onlyFraction = fractions && hasFeet && inches > 0.0 && inches < 1.0;
        const std::string number = fractions ? withFraction(inches, form) : decimal(inches, form);
        text += (hasFeet ? "-" : "") + std::string(onlyFraction ? "0 " : "") + number + '"';
    }
    return text;
}

std::string degreesMinutesSeconds(double degrees, const NumberForm& form) {
    const int digits = digitsOf(form);
    const double fineness = digits == 0 ? 1.0 : (digits <= 2 ? 60.0 : 3600.0);
    const auto parts = static_cast<long long>(std::llround(degrees * fineness));
    const auto perDegree = static_cast<long long>(fineness);
    std::string text = std::to_string(parts / perDegree) + "%%d";
    if (digits > 0) {
        const long long rest = parts % perDegree * (3600 / perDegree);
        text += std::to_string(rest / 60) + '\'' + (digits > 2 ? std::to_string(rest % 60) + '"' : "");
    }
    return text;
}

} // namespace

std::string lengthText(double value, const NumberForm& form) {
    const double rounded = form.rounding > 0.0 ? std::round(value / form.rounding) * form.rounding : value;
    const bool ofFractions = form.unit >= 3 && form.unit <= 5 && std::abs(rounded) < largestOfFractions;
    if (form.unit == 1) {
        return trimmedZeros(QString::number(rounded, 'E', digitsOf(form)), form);
    }
    if (!ofFractions) {
        return decimal(rounded, form);
    }
    const std::string sign = rounded < 0.0 ? "-" : "";
    const double size = std::abs(rounded);
    return sign + (form.unit == 5 ? withFraction(size, form) : feetAndInches(size, form, form.unit == 4));
}

std::string angleText(double radians, const NumberForm& form) {
    const double degrees = degreesFromRadians(std::min(radians, turn));
    switch (form.unit) {
    case 1:
    case 4:
        return degreesMinutesSeconds(degrees, form);
    case 2:
        return decimal(degrees / 0.9, form) + 'g';
    case 3:
        return decimal(radians, form) + 'r';
    default:
        return decimal(degrees, form) + "%%d";
    }
}

} // namespace kelplot
