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

void fill(I_HT_PointerArray& array) {
    array.Insert(0, &letters[2]);
    array.Insert(0, &letters[0]);
    array.Insert(2, &letters[4]); // at the end
    array.Insert(1, &letters[1]);
    array.Insert(3, &letters[3]);
}

class PointerArrayTest : public ::testing::Test {
protected:
    PointerArrayTest() { destroyed.clear(); }
};

template <typename Array>
void expectAgreedOrder() {
    EXPECT_EQ(slotOf(&Array::GetCount), 0);
    EXPECT_EQ(slotOf(&Array::GetData), 1);
    EXPECT_EQ(slotOf(&Array::Insert), 2);
    EXPECT_EQ(slotOf(&Array::Remove), 3);
    EXPECT_EQ(slotOf(&Array::Clear), 4);
}

TEST_F(PointerArrayTest, SlotsKeepTheOrderAgreedWithDrivers) {
    expectAgreedOrder<I_HT_PointerArray>();
    expectAgreedOrder<HT_PointerArray>();
}

TEST_F(PointerArrayTest, InsertShiftsUpAndRemoveShiftsDownWithoutDestroying) {
    HT_PointerArray array(0, neverCreated, noteDestroyed);
    fill(array);
    EXPECT_EQ(textOf(array), "abcde");
    array.Remove(4);
    array.Remove(0);
    array.Remove(1);
    EXPECT_EQ(textOf(array), "bd");
    EXPECT_EQ(destroyed, "");
}

TEST_F(PointerArrayTest, AnswersNullOutsideItsElements) {
    HT_PointerArray array(100, nullptr, nullptr); // the capacity makes no elements
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_EQ(array.GetData(0), nullptr);
    fill(array);
    EXPECT_EQ(array.GetData(-1), nullptr);
    EXPECT_EQ(array.GetData(5), nullptr);
    EXPECT_EQ(array.GetData(INT32_MIN), nullptr);
}

TEST_F(PointerArrayTest, ClearDestroysEachElementOnceInOrder) {
    HT_PointerArray array(0, neverCreated, noteDestroyed);
    fill(array);
    array.Insert(5, &letters[0]);
    array.Clear();
    EXPECT_EQ(destroyed, "abcdea");
    EXPECT_EQ(array.GetCount(), 0);
    array.Clear();
    EXPECT_EQ(destroyed, "abcdea");
}

TEST_F(PointerArrayTest, WithoutDestroyFunctionElementsAreDropped) {
    HT_PointerArray array(0, nullptr, nullptr);
    fill(array);
    array.Clear();
    EXPECT_EQ(array.GetCount(), 0);
    EXPECT_STREQ(letters, "abcde");
}

} // namespace
