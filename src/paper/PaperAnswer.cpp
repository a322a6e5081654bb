// SPDX-License-Identifier: BSD-3-Clause
#include "paper/PaperAnswer.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <iterator>

namespace KelDriver::Internal {

// Entries are copied bytewise: a driver's buffer is one of characters and need not be aligned.
namespace {

void writeNumber(const PaperSize& paper, char* entry) {
    const auto number = static_cast<uint16_t>(paper.Paper);
    std::memcpy(entry, &number, sizeof number);
}

void writeSize(const PaperSize& paper, char* entry) {
    const int32_t size[] = {paper.Width, paper.Length};
    std::memcpy(entry, size, sizeof size);
}

void writeName(const PaperSize& paper, char* entry) {
    std::memcpy(entry, paper.Name, sizeof paper.Name);
}

void writeWhole(const PaperSize& paper, char* entry) {
    std::memcpy(entry, &paper, sizeof paper);
}

void writeMargins(const PaperSize& paper, char* entry) {
    const int32_t margins[] = {paper.LeftEdge, paper.UpEdge, paper.RightEdge, paper.DownEdge};
    std::memcpy(entry, margins, sizeof margins);
}

constexpr PaperAnswer answers[] = {
    {2, sizeof(uint16_t), writeNumber},       {3, 2 * sizeof(int32_t), writeSize},
    {9, sizeof(PaperSize::Name), writeName}, // as 16: part of the interface
    {16, sizeof(PaperSize::Name), writeName}, {wholePapersCode, sizeof(PaperSize), writeWhole},
    {65, 4 * sizeof(int32_t), writeMargins},
};

} // namespace

const PaperAnswer* paperAnswerFor(unsigned short code) {
    const auto* answer = std::find_if(std::begin(answers), std::end(answers),
                                      [code](const PaperAnswer& each) { return each.code == code; });
    return answer == std::end(answers) ? nullptr : answer;
}

} // namespace KelDriver::Internal
