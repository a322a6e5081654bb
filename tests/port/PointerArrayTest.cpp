// SPDX-License-Identifier: BSD-3-Clause
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "keldriver/PointerArray.h"
#include "support/VirtualSlot.h"

static_assert(std::is_abstract_v<I_HT_PointerArray> && !std::has_virtual_destructor_v<I_HT_PointerArray>);

namespace {

char letters[] = "abcde";
std::string destroyed;

void noteDestroyed(void* element) {
    destroyed += *static_cast<char*>(element);
}

void* neverCreated() {
    ADD_FAILURE() << "the create function is kept, not called";
    return nullptr;
}

// The elements as a driver reads them through the interface.
std::string textOf(I_HT_PointerArray& array) {
    std::string text;
    for (int i = 0; i < array.GetCount(); ++i) {
        text += *static_cast<char*>(array.GetData(i));
    }
    return text;
}

template <typename Array>
void expectAgreedOrder() {
    ptrdiff_t expected = 0;
    for (const ptrdiff_t slot : {slotOf(&Array::GetCount), slotOf(&Array::GetData), slotOf(&Array::Insert),
                                 slotOf(&Array::Remove), slotOf(&Array::Clear)}) {
        EXPECT_EQ(slot, expected++);
    }
}

TEST(PointerArray, SlotsKeepTheOrderAgreedWithDrivers) {
    expectAgreedOrder<I_HT_PointerArray>();
    expectAgreedOrder<HT_PointerArray>();
}

TEST(PointerArray, ShiftsOnInsertAndRemoveAndDestroysOnClear) {
    destroyed.clear();
    HT_PointerArray array(100, neverCreated, noteDestroyed); // the capacity makes no elements
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_EQ(array.GetData(0), nullptr);
    for (const auto& [place, letter] : {std::pair{0, 2}, {0, 0}, {2, 4}, {1, 1}, {3, 3}}) {
        array.Insert(place, &letters[letter]);
    }
    EXPECT_EQ(textOf(array), "abcde");
    for (const int outside : {-1, 5, INT32_MIN}) {
        EXPECT_EQ(array.GetData(outside), nullptr) << outside;
    }
    array.Remove(4);
    array.Remove(0);
    array.Remove(1);
    EXPECT_EQ(textOf(array), "bd");
    array.Insert(2, &letters[1]);
    EXPECT_EQ(destroyed, "");
    for (int time = 0; time < 2; ++time) {
        array.Clear();
        EXPECT_EQ(destroyed, "bdb");
        EXPECT_EQ(array.GetCount(), 0);
    }
    HT_PointerArray withoutDestroy(0, nullptr, nullptr);
    withoutDestroy.Insert(0, letters);
    withoutDestroy.Clear();
    EXPECT_EQ(withoutDestroy.GetCount(), 0);
}

} // namespace
