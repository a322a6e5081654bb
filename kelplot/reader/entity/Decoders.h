// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "reader/RecordDecoder.h"
#include "reader/entity/UnplottedDecoder.h"

namespace kelplot {

/// Where in a drawing records stand; one type may mean different things in each.
enum class RecordPlace { tables, entities, objects };

/// The decoders for the records of one drawing. A further one is a row in the table of the source.
class Decoders {
public:
    Decoders();

    /// The decoder for records of this type; null when there is none. It keeps what it learnt from those before.
    RecordDecoder* find(RecordPlace place, std::string_view type) const;
    /// The decoder for entities of types that have none.
    RecordDecoder& unplotted() { return m_unplotted; }

private:
    std::vector<std::unique_ptr<RecordDecoder>> m_decoders; ///< one a row
    UnplottedDecoder m_unplotted;
};

} // namespace kelplot
