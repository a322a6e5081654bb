// SPDX-License-Identifier: GPL-2.0-or-later
#include "reader/proxy/ProxyGraphics.h"

#include <QByteArray>

#include "reader/GroupValue.h"
#include "reader/proxy/ProxyPainter.h"

namespace kelplot {

namespace {

constexpr int subclassCode = 100;
constexpr int bytesCode = 310;
constexpr size_t itemHead = 8; ///< bytes: the size of the item with them, and its kind

bool announcesPicture(int code) {
    return code == 92 || code == 160;
}

} // namespace

void ProxyGraphics::clear() {
    m_bytes.clear();
    m_inPicture = false;
    m_mayBegin = true;
}

void ProxyGraphics::take(const Group& group) {
    if (group.code == bytesCode && m_inPicture) {
        const std::string_view digits = trimmed(group.value);
        const QByteArray hexadecimal = QByteArray::fromRawData(digits.data(), static_cast<int>(digits.size()));
        m_bytes += QByteArray::fromHex(hexadecimal).toStdString();
        return;
    }
    m_inPicture = false;
    if (group.code == subclassCode) {
        const std::string_view name = trimmed(group.value);
        m_mayBegin =
            m_bytes.empty() && (name == "AcDbEntity" || name == "AcDbProxyEntity" || name == "AcDbZombieEntity");
    } else if (announcesPicture(group.code) && m_mayBegin) {
        m_inPicture = true;
        m_mayBegin = false;
    }
}

ProxyGraphics::Outcome ProxyGraphics::draw(const RecordHeader& header, DrawingBuilder& builder) const {
    ProxyPainter painter(header, builder);
    ByteStream stream(m_bytes);
    stream.integer(); // the size of all
    const int32_t count = stream.integer();
    size_t at = itemHead;
    bool whole = true;
    for (int32_t i = 0; i < count && at + itemHead <= m_bytes.size(); ++i) {
        ByteStream head(std::string_view(m_bytes).substr(at, itemHead));
        const int32_t size = head.integer();
        const int32_t kind = head.integer();
        if (size < static_cast<int32_t>(itemHead) || static_cast<size_t>(size) > m_bytes.size() - at) {
            whole = false;
            break;
        }
        ByteStream data(std::string_view(m_bytes).substr(at + itemHead, static_cast<size_t>(size) - itemHead));
        whole = painter.take(kind, data) && whole;
        at += static_cast<size_t>(size);
    }
    if (!painter.hasDrawn()) {
        return Outcome::nothing;
    }
    return whole ? Outcome::whole : Outcome::part;
}

} // namespace kelplot
