// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <set>
#include <string>
#include <vector>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>

#include "Require.h"

/// Ends the run where the content of a page holds anything but operands and the operators of PDF, or leaves a state, a
/// text or a layer open.
class ContentCheck final : public QPDFObjectHandle::ParserCallbacks {
public:
    void handleObject(QPDFObjectHandle object) override {
        if (!object.isOperator()) {
            require(!object.isNull());
            return;
        }
        static const std::set<std::string> operators{
            "q",  "Q",   "cm", "w",   "J",  "j",  "M",  "d",  "i",  "gs", "m",  "l",  "c",   "v",   "y",
            "h",  "re",  "S",  "s",   "f",  "f*", "B",  "B*", "b",  "b*", "n",  "W",  "W*",  "BT",  "ET",
            "Tc", "Tw",  "Tz", "TL",  "Tf", "Tr", "Ts", "Td", "TD", "Tm", "T*", "Tj", "TJ",  "CS",  "cs",
            "SC", "SCN", "sc", "scn", "G",  "g",  "RG", "rg", "K",  "k",  "sh", "Do", "BMC", "BDC", "EMC"};
        const std::string name = object.getOperatorValue();
        require(operators.count(name) == 1);
        if (name == "q" || name == "BT" || name == "BDC" || name == "BMC") {
            m_open.push_back(name);
        } else if (name == "Q" || name == "ET" || name == "EMC") {
            const std::string begin = name == "Q" ? "q" : name == "ET" ? "BT" : "BDC";
            require(!m_open.empty() && m_open.back() == begin);
            m_open.pop_back();
        }
    }
    void handleEOF() override { require(m_open.empty()); }

private:
    std::vector<std::string> m_open;
};

/// Ends the run where a document is damaged, or has another number of pages.
inline void requireSoundPdf(const std::string& written, int pages) {
    QPDF document;
    document.setSuppressWarnings(true);
    document.processMemoryFile("written", written.data(), written.size());
    std::vector<QPDFPageObjectHelper> all = QPDFPageDocumentHelper(document).getAllPages();
    require(static_cast<int>(all.size()) == pages);
    for (QPDFPageObjectHelper& page : all) {
        ContentCheck check;
        page.parseContents(&check);
    }
    for (QPDFObjectHandle& object : document.getAllObjects()) {
        if (object.isStream()) {
            object.getStreamData(qpdf_dl_generalized);
        }
    }
    require(!document.anyWarnings());
}
