// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "device/pdf/PdfDocument.h"

namespace kelplot {

/// Runs of operators that come again and again in a document, as the copies of a block do: an object for each.
class PdfForms {
public:
    /// How far from the page's corner a run may begin for an object in its place to reach all of the page.
    static constexpr double farthest = 5e6;

    /// @param document  borrowed
    explicit PdfForms(PdfDocument& document) : m_document(document) {}

    /// The name among the resources, without the slash, of the object that stands for these operators; empty: they are
    /// too few, or came too seldom so far, to be worth one. Valid until the next run.
    std::string_view nameOf(std::string_view operators);

private:
    struct Run {
        int count = 0;
        std::string name;
    };

    PdfDocument& m_document;
    std::unordered_map<std::string, Run> m_runs;
    size_t m_bytes = 0; ///< of their operators
};

} // namespace kelplot
