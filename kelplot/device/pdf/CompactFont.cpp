// SPDX-License-Identifier: GPL-2.0-or-later
#include "device/pdf/CompactFont.h"

#include <QtEndian>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kelplot {
namespace {

/// Reads numbers from a table, and 0 past its end.
class TableReader {
public:
    explicit TableReader(std::string_view table, size_t at = 0) : m_table(table), m_at(at) {}

    size_t at() const { return m_at; }
    bool atEnd() const { return m_at >= m_table.size(); }
    uint32_t number(int bytes) {
        uint32_t value = 0;
        for (int i = 0; i < bytes; ++i, ++m_at) {
            value = value << 8 | (m_at < m_table.size() ? static_cast<uint8_t>(m_table[m_at]) : 0U);
        }
        return value;
    }
    void skip(size_t bytes) { m_at += bytes; }

    /// Reads a list of byte strings and returns the first one.
    std::string_view firstOfList() {
        const uint32_t count = number(2);
        if (count == 0) {
            return {};
        }
        const int offsetSize = static_cast<int>(number(1));
        const size_t first = number(offsetSize);
        const size_t second = number(offsetSize);
        TableReader last(m_table, m_at + static_cast<size_t>(offsetSize) * (size_t{count} - 2));
        const size_t end = count == 1 ? second : last.number(offsetSize);
        const size_t data = m_at + static_cast<size_t>(offsetSize) * (size_t{count} - 1) - 1;
        m_at = data + end;
        return second >= first && data + first <= m_table.size() ? m_table.substr(data + first, second - first)
                                                                 : std::string_view();
    }

private:
    std::string_view m_table;
    size_t m_at;
};

/// The last operand of an operator in a dictionary; nothing where the operator is missing.
std::optional<int64_t> operandOf(std::string_view dictionary, uint32_t wanted) {
    constexpr uint32_t escape = 12;
    int64_t operand = 0;
    for (TableReader reader(dictionary); !reader.atEnd();) {
        const uint32_t byte = reader.number(1);
        if (byte < 22) {
            const uint32_t found = byte == escape ? escape << 8 | reader.number(1) : byte;
            if (found == wanted) {
                return operand;
            }
        } else if (byte == 28) {
            operand = static_cast<int16_t>(reader.number(2));
        } else if (byte == 29) {
            operand = static_cast<int32_t>(reader.number(4));
        } else if (byte == 30) { // decimal digits, two a byte, up to one that is no digit
            for (uint32_t digits = 0; !reader.atEnd() && (digits & 0xFU) != 0xFU && digits >> 4 != 0xFU;) {
                digits = reader.number(1);
            }
        } else if (byte <= 246) {
            operand = static_cast<int64_t>(byte) - 139;
        } else {
            const int64_t rest = reader.number(1);
            const int64_t high = (int64_t{byte} - (byte < 251 ? 247 : 251)) * 256 + rest + 108;
            operand = byte < 251 ? high : -high;
        }
    }
    return std::nullopt;
}

} // namespace

bool numbersGlyphsInOrder(const QByteArray& table) {
    constexpr uint32_t characterCollection = 12 << 8 | 30;
    constexpr uint32_t characterSet = 15;
    const std::string_view bytes(table.constData(), static_cast<size_t>(table.size()));
    TableReader reader(bytes);
    reader.skip(2);
    reader.skip(reader.number(1) - 3);
    reader.firstOfList(); // the names
    const std::string_view dictionary = reader.firstOfList();
    if (dictionary.empty()) {
        return false;
    }
    if (!operandOf(dictionary, characterCollection)) {
        return true;
    }
    // In order, they are one range from 1 to the last.
    TableReader set(bytes, static_cast<size_t>(operandOf(dictionary, characterSet).value_or(0)));
    const uint32_t format = set.number(1);
    const uint32_t first = set.number(2);
    const uint32_t more = set.number(2);
    TableReader glyphs(bytes, static_cast<size_t>(operandOf(dictionary, 17).value_or(0)));
    return format == 2 && first == 1 && more + 2 == glyphs.number(2);
}

} // namespace kelplot
