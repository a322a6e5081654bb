// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "device/pdf/StreamWorker.h"

namespace kelplot {

/// The objects of a PDF document, which go to its file as they come. Dictionaries and the like are gathered and
/// compressed together; only streams are written one by one.
class PdfFile {
public:
    /// @param file  borrowed; the caller commits it after `finish`
    explicit PdfFile(OutputFile& file) : m_worker(file), m_file(file) {}

    /// A number for an object that others refer to before it is written.
    int newNumber() { return m_nextNumber++; }

    /// Adds an object that is no stream and returns its number.
    int addObject(std::string content);
    void addObject(int number, std::string content);
    /// Adds a stream and returns its number.
    ///
    /// @param dictionary  its entries, but those of the length and of the compression
    int addStream(std::string dictionary, PdfBytes bytes, bool compressed = true);

    /// Ends the document. Throws `OutputError` or `std::bad_alloc` if it could not be written, as the others do.
    void finish(int catalogue, int information);

private:
    struct Place {
        int container; ///< the stream that an object is in
        int index;     ///< its place there
    };

    void flushObjects();
    PdfBytes crossReferences(int ownNumber, int offsetBytes) const;

    StreamWorker m_worker;
    OutputFile& m_file;
    int m_nextNumber = 1;
    std::vector<std::pair<int, std::string>> m_gathered; ///< objects that are still to be written, by their numbers
    std::vector<std::pair<int, Place>> m_places;         ///< of the objects that were gathered
};

/// A reference to an object.
std::string pdfReference(int number);
/// A text as PDF keeps it, in any script.
std::string pdfText(const QString& text);
/// The hexadecimal digits of a text in UTF-16, first byte first.
std::string utf16Hex(const QString& text);

} // namespace kelplot
