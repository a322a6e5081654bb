// SPDX-License-Identifier: BSD-3-Clause
#include "keldriver/PointerArray.h"

static_assert(sizeof(I_HT_PointerArray) == sizeof(void*), "the interface holds no data");
static_assert(sizeof(HT_PointerArray) == 48, "record shared with drivers");

// The capacity is not read: nothing is reserved for it.
HT_PointerArray::HT_PointerArray(size_t, void* (*create)(), void (*destroy)(void*))
    : createElement(create), destroyElement(destroy) {
}

int32_t HT_PointerArray::GetCount() const {
    return static_cast<int32_t>(elements.size());
}

void* HT_PointerArray::GetData(int index) {
    return index >= 0 && index < GetCount() ? elements[static_cast<size_t>(index)] : nullptr;
}

void HT_PointerArray::Insert(int index, void* data) {
    elements.insert(elements.begin() + index, data);
}

void HT_PointerArray::Remove(int index) {
    elements.erase(elements.begin() + index);
}

void HT_PointerArray::Clear() {
    if (destroyElement != nullptr) {
        for (void* element : elements) {
            destroyElement(element);
        }
    }
    elements.clear();
}
