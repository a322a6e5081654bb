#pragma once

#include <exception>
#include <streambuf>
#include <string>

#include "reader/GroupReader.h"
#include "reader/RecordRouter.h"

namespace kelplot {

/// The drawing as the DXF library gets to see it: group by group, well-formed, and only those groups that
/// the router leaves to it.
class GroupFilter : public std::streambuf {
public:
    GroupFilter(GroupReader& groups, RecordRouter& router) : groups_(groups), router_(router) {}

    /// Throws what went wrong while the library read; it only saw the input end.
    void rethrowFailure() const;

protected:
    int_type underflow() override;

private:
    bool fill();
    void write(const Group& group);

    GroupReader& groups_;
    RecordRouter& router_;
    std::string text_; ///< the group that the library is reading
    std::exception_ptr failure_;
};

} // namespace kelplot
