// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstdarg>

namespace KelDriver::Internal {

/// The arguments of a variadic call, ended however the call is left; to be started with `va_start` on `list`.
struct ArgumentList {
    ArgumentList() = default;
    ArgumentList(const ArgumentList&) = delete;
    ArgumentList& operator=(const ArgumentList&) = delete;
    ~ArgumentList() { va_end(list); }

    va_list list;
};

} // namespace KelDriver::Internal
