// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfForms.h"

namespace kelplot {
namespace {

/// Placing an object takes about half as many bytes.
constexpr size_t leastBytes = 80;
constexpr size_t mostBytes = size_t{1} << 16;
/// Measured: an object weighs as much as about ten repetitions, which compress well.
constexpr int worthwhileCount = 10;
/// Of all the runs that are remembered.
constexpr size_t mostRemembered = size_t{1} << 22;

/// What an object may show: it holds all of the largest page, wherever the run begins.
constexpr const char* boxEntry = "/BBox[-10000000 -10000000 10000000 10000000]";

} // namespace

std::string_view PdfForms::nameOf(std::string_view operators) {
    if (operators.size() < leastBytes || operators.size() > mostBytes) {
        return {};
    }
    if (m_bytes > mostRemembered) {
        m_runs.clear();
        m_bytes = 0;
    }
    Run& run = m_runs[std::string(operators)];
    if (++run.count == 1) {
        m_bytes += operators.size();
    }
    if (run.count == worthwhileCount) {
        PdfBytes content;
        content << operators;
        const int number = m_document.file().addStream("/Type/XObject/Subtype/Form/Resources " +
                                                           pdfReference(m_document.resourcesNumber()) + boxEntry,
                                                       std::move(content));
        run.name = m_document.resources().add("XObject", 'X', number);
    }
    return run.name;
}

} // namespace kelplot
