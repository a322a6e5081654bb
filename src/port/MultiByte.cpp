// SPDX-License-Identifier: BSD-3-Clause
#include "port/MultiByte.h"

#include <cstdlib>
#include <stdexcept>

#include "port/Utf8.h"

namespace KelDriver::Internal {

std::wstring fromMultiByte(const std::string& bytes) {
    std::wstring wide(bytes.size(), L'\0'); // no character takes less than a byte
    const size_t length = std::mbstowcs(wide.data(), bytes.c_str(), wide.size());
    if (length != static_cast<size_t>(-1)) {
        wide.resize(length);
        return wide;
    }
    try {
        return fromUtf8(bytes.c_str());
    } catch (const std::range_error&) {
        return {};
    }
}

} // namespace KelDriver::Internal
