// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <string>
#include <vector>

#include "device/pdf/PdfResources.h"
#include "page/SheetSize.h"

namespace kelplot {

/// The pages of a document and what it tells of itself: title, dates, an outline and labels where there are several
/// pages, layers.
class PdfDocument {
public:
    /// @param file  borrowed
    PdfDocument(OutputFile& file, QString title);

    PdfFile& file() { return m_file; }
    PdfResources& resources() { return m_resources; }

    /// The name of a layer among the resources, without the slash. Layers that are never asked for are left out.
    std::string layer(const QString& name);

    /// Begins a page, after the one before if there is one.
    ///
    /// @param name  for the outline and the label
    void beginPage(const SheetSize& sheet, const QString& name);
    /// Adds to the content of the page that was begun last.
    void addContent(PdfBytes content);

    /// Writes all that is left. Throws `OutputError` or `std::bad_alloc` if the document could not be written, as the
    /// others do. Only committing the file remains.
    void finish(const std::string& fonts);

private:
    struct Page {
        int number;
        SheetSize sheet;
        QString name;
        std::vector<int> contents;
    };

    void writePages(int tree, int resources);
    std::string outlineEntries();
    std::string labelEntries() const;
    std::string layerEntries() const;

    PdfFile m_file;
    PdfResources m_resources;
    QString m_title;
    std::vector<Page> m_pages;
    std::vector<int> m_layers;                ///< the numbers of their objects
    QHash<QString, std::string> m_layerNames; ///< among the resources
};

} // namespace kelplot
