// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <string>

/// Lets Qt warn about one thing while in scope; every other warning of Qt fails the running test.
///
/// Fails the test at the end of the scope when the warning never came. Scopes do not nest.
class ExpectedWarnings {
public:
    /// @param start  how the text of the expected warnings begins
    explicit ExpectedWarnings(std::string start);
    ~ExpectedWarnings();
    ExpectedWarnings(const ExpectedWarnings&) = delete;
    ExpectedWarnings& operator=(const ExpectedWarnings&) = delete;
};
