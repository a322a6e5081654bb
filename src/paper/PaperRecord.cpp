// SPDX-License-Identifier: BSD-3-Clause
#include "paper/PaperRecord.h"

#include <iterator>

namespace KelDriver::Internal {

namespace {

constexpr size_t nameLength = std::size(PaperSize{}.Name);

/// The numbers after the name, in the order of both forms.
constexpr int32_t PaperSize::*numbersAfterName[] = {
    &PaperSize::Width,    &PaperSize::Length,    &PaperSize::UpEdge, &PaperSize::DownEdge,
    &PaperSize::LeftEdge, &PaperSize::RightEdge, &PaperSize::Units,
};

constexpr size_t recordSize(size_t characterSize) {
    return sizeof(int32_t) * (1 + std::size(numbersAfterName)) + nameLength * characterSize;
}
static_assert(recordSize(2) == compactRecordSize && recordSize(4) == wholeRecordSize);

uint32_t takeUnsigned(const char* bytes, size_t size) {
    uint32_t value = 0;
    for (size_t i = size; i > 0; --i) {
        value = value << 8U | static_cast<unsigned char>(bytes[i - 1]);
    }
    return value;
}

void putUnsigned(char* bytes, uint32_t value, size_t size) {
    for (size_t i = 0; i < size; ++i, value >>= 8U) {
        bytes[i] = static_cast<char>(value & 0xFFU);
    }
}

PaperSize fromRecord(const char* bytes, size_t characterSize) {
    PaperSize paper{};
    paper.Paper = takeInt32(bytes);
    bytes += sizeof(int32_t);
    for (wchar_t& character : paper.Name) {
        character = static_cast<wchar_t>(takeUnsigned(bytes, characterSize));
        bytes += characterSize;
    }
    for (const auto number : numbersAfterName) {
        paper.*number = takeInt32(bytes);
        bytes += sizeof(int32_t);
    }
    return paper;
}

} // namespace

int32_t takeInt32(const char* bytes) {
    return static_cast<int32_t>(takeUnsigned(bytes, sizeof(int32_t)));
}

void putInt32(char* bytes, int32_t value) {
    putUnsigned(bytes, static_cast<uint32_t>(value), sizeof value);
}

PaperSize fromCompactRecord(const char* bytes) {
    return fromRecord(bytes, 2);
}

PaperSize fromWholeRecord(const char* bytes) {
    return fromRecord(bytes, 4);
}

void toCompactRecord(const PaperSize& paper, char* bytes) {
    putInt32(bytes, paper.Paper);
    bytes += sizeof(int32_t);
    for (const wchar_t character : paper.Name) { // all of it, with whatever follows the terminator
        putUnsigned(bytes, static_cast<uint32_t>(character), 2);
        bytes += 2;
    }
    for (const auto number : numbersAfterName) {
        putInt32(bytes, paper.*number);
        bytes += sizeof(int32_t);
    }
}

} // namespace KelDriver::Internal
