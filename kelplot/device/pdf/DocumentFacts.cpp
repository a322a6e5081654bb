// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/DocumentFacts.h"

#include <utility>

#include "device/pdf/PdfFile.h"

namespace kelplot {
namespace {

constexpr char program[] = "kelplot";

/// The time of now, or the one that builds of the same bytes are asked to state.
QDateTime timeOfMaking() {
    bool isStated = false;
    const qint64 stated = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&isStated);
    return isStated ? QDateTime::fromSecsSinceEpoch(stated, Qt::UTC) : QDateTime::currentDateTimeUtc();
}

} // namespace

DocumentFacts::DocumentFacts(QString title) : m_title(std::move(title)), m_made(timeOfMaking()) {
}

std::string DocumentFacts::information() const {
    const std::string date = m_made.toString(QStringLiteral("'(D:'yyyyMMddHHmmss'Z)'")).toStdString();
    const std::string maker = std::string("(") + program + ")";
    return "<</Title" + pdfText(m_title) + "/Creator" + maker + "/Producer" + maker + "/CreationDate" + date +
           "/ModDate" + date + ">>";
}

PdfBytes DocumentFacts::metadata() const {
    const std::string date = m_made.toString(Qt::ISODate).toStdString();
    PdfBytes packet;
    packet
        << "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
           "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
           "<rdf:Description rdf:about=\"\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\""
           " xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" xmlns:pdf=\"http://ns.adobe.com/pdf/1.3/\">\n"
           "<dc:format>application/pdf</dc:format>\n<dc:title><rdf:Alt><rdf:li xml:lang=\"x-default\">"
        << m_title.toHtmlEscaped().toStdString() << "</rdf:li></rdf:Alt></dc:title>\n<xmp:CreatorTool>" << program
        << "</xmp:CreatorTool><xmp:CreateDate>" << date << "</xmp:CreateDate><xmp:ModifyDate>" << date
        << "</xmp:ModifyDate>\n<pdf:Producer>" << program
        << "</pdf:Producer>\n</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end=\"r\"?>";
    return packet;
}

} // namespace kelplot
