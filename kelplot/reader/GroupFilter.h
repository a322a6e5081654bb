// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <exception>
#include <streambuf>
#include <string>

#include "reader/RecordRouter.h"
#include "reader/groups/GroupSource.h"

namespace kelplot {

/// The drawing as the DXF library gets to see it: group by group, well-formed, and only those groups that
/// the router leaves to it.
class GroupFilter : public std::streambuf {
public:
    GroupFilter(GroupSource& groups, RecordRouter& router) : m_groups(groups), m_router(router) {}

    /// Throws what went wrong while the library was reading; all it saw was the end of its input.
    void rethrowFailure() const;

protected:
    int_type underflow() override;

private:
    bool fill();
    void write(const Group& group);

    GroupSource& m_groups;
    RecordRouter& m_router;
    std::string m_text; ///< the group that the library is reading
    std::exception_ptr m_failure;
};

} // namespace kelplot
