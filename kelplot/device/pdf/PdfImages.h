// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <QByteArray>
#include <QImage>
#include <map>
#include <string>

#include "device/pdf/PdfResources.h"

namespace kelplot {

/// The images of a document: an object for each, however often and from however many copies it is drawn.
class PdfImages {
public:
    /// Both are borrowed.
    PdfImages(PdfFile& file, PdfResources& resources) : m_document(file), m_resources(resources) {}

    /// The file from which the next images may come: where it holds their very pixels as a JPEG, it is taken over.
    void setFile(const QByteArray& file) { m_file = file; }

    /// The name of an image among the resources, without the slash.
    std::string nameOf(const QImage& image, bool isSmooth);
    /// The same of a stencil: the pixels with index 1 of an image with a bit for each are painted, others let through.
    std::string nameOfStencil(const QImage& image);

private:
    int write(const QImage& image, bool isSmooth);

    PdfFile& m_document;
    PdfResources& m_resources;
    QByteArray m_file;
    std::map<QByteArray, std::string> m_names; ///< by what tells images apart
};

} // namespace kelplot
