// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/PdfFile.h"

#include <algorithm>

namespace kelplot {
namespace {

/// Objects that go into one stream.
constexpr size_t mostGathered = 200;

/// Appends the lowest bytes of a number, the highest of them first.
void addBytes(PdfBytes& bytes, uint64_t number, int count) {
    for (int i = count - 1; i >= 0; --i) {
        bytes << static_cast<char>(number >> (8 * i) & 0xFFU);
    }
}

std::string hexOf(uint64_t number) {
    PdfBytes digits;
    for (const int shift : {48, 32, 16, 0}) {
        digits.hex4(static_cast<uint32_t>(number >> shift & 0xFFFFU));
    }
    return std::string(digits.view());
}

int bytesFor(uint64_t number) {
    int bytes = 1;
    for (; number > 0xFFU; number >>= 8) {
        ++bytes;
    }
    return bytes;
}

} // namespace

int PdfFile::addObject(std::string content) {
    const int number = newNumber();
    addObject(number, std::move(content));
    return number;
}

void PdfFile::addObject(int number, std::string content) {
    m_gathered.emplace_back(number, std::move(content));
    if (m_gathered.size() == mostGathered) {
        flushObjects();
    }
}

int PdfFile::addStream(std::string dictionary, PdfBytes bytes, bool compressed) {
    const int number = newNumber();
    m_worker.add({number, std::move(dictionary), std::move(bytes), compressed});
    return number;
}

void PdfFile::flushObjects() {
    if (m_gathered.empty()) {
        return;
    }
    PdfBytes index;
    PdfBytes objects;
    const int container = newNumber();
    int count = 0;
    for (const auto& [number, content] : m_gathered) {
        index << number << ' ' << static_cast<int64_t>(objects.size()) << ' ';
        objects << content << '\n';
        m_places.emplace_back(number, Place{container, count++});
    }
    const auto first = static_cast<int64_t>(index.size());
    index << objects.view();
    PdfBytes dictionary;
    dictionary << "/Type/ObjStm/N " << count << "/First " << first;
    m_worker.add({container, std::string(dictionary.view()), std::move(index), true});
    m_gathered.clear();
}

PdfBytes PdfFile::crossReferences(int ownNumber, int offsetBytes) const {
    struct Entry {
        int kind = 0; // a number that is not in use
        uint64_t first = 0;
        uint64_t second = 0;
    };
    std::vector<Entry> entries(static_cast<size_t>(ownNumber) + 1);
    const std::vector<int64_t>& offsets = m_worker.offsets();
    for (size_t i = 0; i < offsets.size(); ++i) {
        if (offsets[i] != 0) {
            entries[i] = {1, static_cast<uint64_t>(offsets[i]), 0};
        }
    }
    for (const auto& [number, place] : m_places) {
        entries[static_cast<size_t>(number)] = {2, static_cast<uint64_t>(place.container),
                                                static_cast<uint64_t>(place.index)};
    }
    entries.back() = {1, static_cast<uint64_t>(m_worker.size()), 0};
    entries.front() = {0, 0, 0xFFFFU};
    PdfBytes bytes;
    for (const Entry& entry : entries) {
        addBytes(bytes, static_cast<uint64_t>(entry.kind), 1);
        addBytes(bytes, entry.first, offsetBytes);
        addBytes(bytes, entry.second, 2);
    }
    return bytes;
}

void PdfFile::finish(int catalogue, int information) {
    flushObjects();
    const int number = newNumber();
    m_worker.finish();
    const int offsetBytes = bytesFor(static_cast<uint64_t>(m_worker.size()));
    const PdfBytes entries = crossReferences(number, offsetBytes);
    const std::string id = hexOf(m_worker.fingerprint()) + hexOf(static_cast<uint64_t>(m_worker.size()));
    PdfBytes end;
    end << number << " 0 obj\n<</Type/XRef/Size " << (number + 1) << "/W[1 " << offsetBytes << " 2]/Root "
        << pdfReference(catalogue) << "/Info " << pdfReference(information) << "/ID[<" << id << "><" << id
        << ">]/Length " << static_cast<int64_t>(entries.size()) << ">>\nstream\n"
        << entries.view() << "\nendstream\nendobj\nstartxref\n"
        << m_worker.size() << "\n%%EOF\n";
    m_file.write(QByteArray::fromRawData(end.data(), static_cast<int>(end.size())));
}

std::string pdfReference(int number) {
    return std::to_string(number) + " 0 R";
}

std::string utf16Hex(const QString& text) {
    PdfBytes digits;
    for (const QChar unit : text) {
        digits.hex4(unit.unicode());
    }
    return std::string(digits.view());
}

std::string pdfText(const QString& text) {
    const auto isPlain = [](QChar letter) {
        const char16_t code = letter.unicode();
        return code >= 0x20 && code < 0x7F && code != '(' && code != ')' && code != '\\';
    };
    if (std::all_of(text.begin(), text.end(), isPlain)) {
        return "(" + text.toStdString() + ")";
    }
    return "<FEFF" + utf16Hex(text) + ">";
}

} // namespace kelplot
