// SPDX-License-Identifier: BSD-3-Clause
#include "support/GoldenText.h"

#include <algorithm>
#include <sstream>

namespace {

size_t indentation(const std::string& line) {
    return std::min(line.find_first_not_of(' '), line.size());
}

} // namespace

std::string golden(const std::string& text) {
    const size_t begin = !text.empty() && text.front() == '\n' ? 1 : 0;
    const size_t end = text.find_last_not_of(' ') + 1;
    const std::string body = begin < end ? text.substr(begin, end - begin) : std::string();

    size_t shared = std::string::npos;
    std::string line;
    for (std::istringstream lines(body); std::getline(lines, line);) {
        shared = line.empty() ? shared : std::min(shared, indentation(line));
    }
    std::string result;
    for (std::istringstream lines(body); std::getline(lines, line);) {
        result += line.substr(std::min(shared, line.size())) + '\n';
    }
    return result;
}
