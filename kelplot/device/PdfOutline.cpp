// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/PdfOutline.h"

#include "device/PlotMark.h"

#include <algorithm>
#include <cstdio>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>
#include <stdexcept>
#include <unistd.h>

namespace kelplot {

namespace {

/// Where the PDF library writes to.
class FilePipeline final : public Pipeline {
public:
    explicit FilePipeline(OutputFile& target) : Pipeline("output", nullptr), m_target(target) {}

    void write(const unsigned char* data, size_t length) override {
        m_target.write(QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(length)));
    }
    void finish() override {}

private:
    OutputFile& m_target;
};

/// Gives the document an outline of one entry for each page, and has viewers show it.
void addOutline(QPDF& document, const QStringList& pageNames) {
    QPDFObjectHandle outline = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
    const std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(document).getAllPages();
    const size_t count = std::min(pages.size(), static_cast<size_t>(pageNames.size()));
    QPDFObjectHandle last;
    for (size_t i = 0; i < count; ++i) {
        QPDFObjectHandle entry = document.makeIndirectObject(QPDFObjectHandle::newDictionary());
        const std::string name = pageNames[static_cast<int>(i)].toStdString();
        entry.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(name));
        entry.replaceKey("/Parent", outline);
        entry.replaceKey("/Dest",
                         QPDFObjectHandle::newArray({pages[i].getObjectHandle(), QPDFObjectHandle::newName("/Fit")}));
        if (i == 0) {
            outline.replaceKey("/First", entry);
        } else {
            entry.replaceKey("/Prev", last);
            last.replaceKey("/Next", entry);
        }
        last = entry;
    }
    if (count > 1) {
        outline.replaceKey("/Type", QPDFObjectHandle::newName("/Outlines"));
        outline.replaceKey("/Last", last);
        outline.replaceKey("/Count", QPDFObjectHandle::newInteger(static_cast<long long>(count)));
        document.getRoot().replaceKey("/Outlines", outline);
        document.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));
    }
}

} // namespace

void copyWithOutline(QFileDevice& document, const QStringList& pageNames, OutputFile& target) {
    const int handle = dup(document.handle());
    std::FILE* const file = fdopen(handle, "rb");
    if (file == nullptr) {
        close(handle);
        throw std::runtime_error("the finished pages cannot be read");
    }
    QPDF copy;
    copy.processFile("pages", file, true);
    addOutline(copy, pageNames);
    FilePipeline pipeline(target);
    QPDFWriter writer(copy);
    writer.setOutputPipeline(&pipeline);
    writer.setExtraHeaderText(std::string("% ") + plotMark + "\n");
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setDeterministicID(true);
    writer.write();
}

} // namespace kelplot
