// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfDocument.h"

#include <algorithm>
#include <utility>

#include "device/pdf/DocumentFacts.h"
#include "device/pdf/PdfUnits.h"

namespace kelplot {

PdfDocument::PdfDocument(OutputFile& file, QString title) : m_file(file), m_title(std::move(title)) {
}

std::string PdfDocument::layer(const QString& name) {
    std::string& resource = m_layerNames[name];
    if (resource.empty()) {
        m_layers.push_back(m_file.addObject("<</Type/OCG/Name" + pdfText(name) + ">>"));
        resource = m_resources.add("Properties", 'L', m_layers.back());
    }
    return resource;
}

void PdfDocument::beginPage(const SheetSize& sheet, const QString& name) {
    m_pages.push_back({m_file.newNumber(), sheet, name, {}});
}

void PdfDocument::addContent(PdfBytes content) {
    m_pages.back().contents.push_back(m_file.addStream({}, std::move(content)));
}

void PdfDocument::writePages(int tree, int resources) {
    std::string kids;
    for (const Page& page : m_pages) {
        constexpr int decimals = 3;
        PdfBytes object;
        object << "<</Type/Page/Parent " << pdfReference(tree) << "/Resources " << pdfReference(resources)
               << "/MediaBox[0 0 ";
        object.decimal(page.sheet.width * pointsPerMillimetre, decimals);
        object.decimal(page.sheet.height * pointsPerMillimetre, decimals) << "]/Contents[";
        for (const int content : page.contents) {
            object << pdfReference(content) << ' ';
        }
        // Colours are mixed as on a screen, whatever the printer's inks are.
        object << "]/Group<</S/Transparency/CS/DeviceRGB>>>>";
        m_file.addObject(page.number, std::string(object.view()));
        kids += pdfReference(page.number) + ' ';
    }
    m_file.addObject(tree, "<</Type/Pages/Count " + std::to_string(m_pages.size()) + "/Kids[" + kids + "]>>");
}

/// The outline names the pages where there are several.
std::string PdfDocument::outlineEntries() {
    const size_t count = m_pages.size();
    if (count < 2) {
        return {};
    }
    const int outline = m_file.newNumber();
    std::vector<int> entries(count);
    std::generate(entries.begin(), entries.end(), [this] { return m_file.newNumber(); });
    for (size_t i = 0; i < count; ++i) {
        m_file.addObject(entries[i], "<</Title" + pdfText(m_pages[i].name) + "/Parent " + pdfReference(outline) +
                                         "/Dest[" + pdfReference(m_pages[i].number) + "/Fit]" +
                                         (i > 0 ? "/Prev " + pdfReference(entries[i - 1]) : std::string()) +
                                         (i + 1 < count ? "/Next " + pdfReference(entries[i + 1]) : std::string()) +
                                         ">>");
    }
    m_file.addObject(outline, "<</Type/Outlines/First " + pdfReference(entries.front()) + "/Last " +
                                  pdfReference(entries.back()) + "/Count " + std::to_string(count) + ">>");
    return "/Outlines " + pdfReference(outline) + "/PageMode/UseOutlines" + labelEntries();
}

/// Viewers show the names of pages in place of their numbers.
std::string PdfDocument::labelEntries() const {
    std::string labels;
    for (size_t i = 0; i < m_pages.size(); ++i) {
        labels += std::to_string(i) + "<</P" + pdfText(m_pages[i].name) + ">>";
    }
    return "/PageLabels<</Nums[" + labels + "]>>";
}

std::string PdfDocument::layerEntries() const {
    if (m_layers.empty()) {
        return {};
    }
    std::string all;
    for (const int layer : m_layers) {
        all += pdfReference(layer) + ' ';
    }
    return "/OCProperties<</OCGs[" + all + "]/D<</Order[" + all + "]>>>>";
}

void PdfDocument::finish(const std::string& fonts) {
    const int tree = m_file.newNumber();
    const int resources = m_file.newNumber();
    m_resources.write(m_file, resources, fonts);
    writePages(tree, resources);
    const DocumentFacts facts(m_title);
    const int metadata = m_file.addStream("/Type/Metadata/Subtype/XML", facts.metadata(), false);
    const std::string outline = outlineEntries();
    const int catalogue =
        m_file.addObject("<</Type/Catalog/Pages " + pdfReference(tree) + "/Metadata " + pdfReference(metadata) +
                         "/ViewerPreferences<</DisplayDocTitle true>>" + outline + layerEntries() + ">>");
    m_file.finish(catalogue, m_file.addObject(facts.information()));
}

} // namespace kelplot
