// SPDX-License-Identifier: GPL-2.0-or-later
#include "plot/text/ParagraphOrder.h"

#include <QVector>
#include <algorithm>

namespace kelplot {

namespace {

enum class Direction : uint8_t { unknown, leftToRight, rightToLeft };

struct DirectedItem {
    LineItem item;
    Direction direction;
};

/// The direction of the first character that has one. Numbers take the direction of what precedes them.
Direction directionOf(const QString& text, Direction before) {
    bool hasDigits = false;
    for (const uint character : text.toUcs4()) {
        switch (QChar::direction(character)) {
        case QChar::DirL:
            return Direction::leftToRight;
        case QChar::DirR:
        case QChar::DirAL:
            return Direction::rightToLeft;
        case QChar::DirEN:
        case QChar::DirAN:
            hasDigits = true;
            break;
        default:
            break;
        }
    }
    return hasDigits ? before : Direction::unknown;
}

/// The items with their own directions.
std::vector<DirectedItem> directed(std::vector<LineItem> items, Direction base) {
    std::vector<DirectedItem> result;
    Direction before = base;
    for (LineItem& item : items) {
        const bool isText = item.kind == LineItem::Kind::text;
        const Direction own = isText ? directionOf(item.text, before) : Direction::unknown;
        const bool divides = item.kind != LineItem::Kind::text && item.text.isEmpty(); // stacks and tabs
        result.push_back({std::move(item), divides ? base : own});
        before = own == Direction::unknown ? before : own;
    }
    return result;
}

/// Gives items without a direction that of their neighbours where these agree, else that of the paragraph.
void settle(std::vector<DirectedItem>& items, Direction base) {
    Direction before = base;
    for (auto item = items.begin(); item != items.end(); ++item) {
        if (item->direction == Direction::unknown) {
            const auto next = std::find_if(
                item, items.end(), [](const DirectedItem& other) { return other.direction != Direction::unknown; });
            const Direction after = next == items.end() ? base : next->direction;
            const Direction between = before == after ? before : base;
            std::for_each(item, next, [between](DirectedItem& other) { other.direction = between; });
        }
        before = item->direction;
    }
}

bool belongTogether(const DirectedItem& a, const DirectedItem& b) {
    const auto isWritten = [](const LineItem& item) {
        return !item.text.isEmpty();
    };
    return isWritten(a.item) && isWritten(b.item) && a.item.source == b.item.source && a.direction == b.direction;
}

std::vector<DirectedItem> joined(std::vector<DirectedItem> items) {
    std::vector<DirectedItem> result;
    for (DirectedItem& next : items) {
        if (result.empty() || !belongTogether(result.back(), next)) {
            result.push_back(std::move(next));
            continue;
        }
        LineItem& last = result.back().item;
        last.kind = LineItem::Kind::text;
        last.text += next.item.text;
        last.width += next.item.width;
    }
    return result;
}

} // namespace

std::vector<LineItem> inVisualOrder(std::vector<LineItem> items, bool rightToLeft, bool join) {
    const Direction base = rightToLeft ? Direction::rightToLeft : Direction::leftToRight;
    std::vector<DirectedItem> line = directed(std::move(items), base);
    settle(line, base);
    if (join) {
        line = joined(std::move(line));
    }
    if (rightToLeft) {
        std::reverse(line.begin(), line.end());
    }
    const auto isForeign = [base](const DirectedItem& item) {
        return item.direction != base;
    };
    for (auto begin = std::find_if(line.begin(), line.end(), isForeign); begin != line.end();) {
        const auto end = std::find_if_not(begin, line.end(), isForeign);
        std::reverse(begin, end);
        begin = std::find_if(end, line.end(), isForeign);
    }
    std::vector<LineItem> ordered;
    ordered.reserve(line.size());
    for (DirectedItem& item : line) {
        ordered.push_back(std::move(item.item));
    }
    return ordered;
}

} // namespace kelplot
