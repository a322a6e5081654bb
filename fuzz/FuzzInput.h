// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

/// The bytes of a fuzz input, taken as values one after another; zeros follow the last byte.
class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    bool atEnd() const { return m_size == 0; }

    template <typename Value>
    Value take() {
        Value value{};
        const size_t length = m_size < sizeof value ? m_size : sizeof value;
        if (length > 0) {
            std::memcpy(&value, m_data, length);
        }
        m_data += length;
        m_size -= length;
        return value;
    }

    /// A coordinate in one of four ways: raw bits reach every special value, small integers reach contours and
    /// lines that touch and overlap.
    double takeCoordinate(unsigned way) {
        switch (way) {
        case 0:
            return take<double>();
        case 1:
            return take<float>();
        case 2:
            return take<int16_t>();
        default:
            return take<int8_t>() % 8;
        }
    }

private:
    const uint8_t* m_data;
    size_t m_size;
};
