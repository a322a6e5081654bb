// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "keldriver/Export.h"

/// A list of untyped pointers that a driver lends to the library to be filled.
///
/// Positions count from 0. Who owns the elements is agreed with the function that fills the list.
class KELDRIVER_API I_HT_PointerArray {
public:
    /// The number of elements.
    virtual int32_t GetCount() const = 0;
    /// The element at `index`; null when there is none.
    virtual void* GetData(int index) = 0;
    /// Puts `data` before the element at `index`, which moves up like those after it; at the count `data` becomes
    /// the last one. Other indices are not allowed.
    virtual void Insert(int index, void* data) = 0;
    /// Takes the element at `index` out of the list; those after it move down. It is not destroyed. There must be
    /// an element of that index.
    virtual void Remove(int index) = 0;
    /// Empties the list. Whether its elements are destroyed is the list's matter.
    virtual void Clear() = 0;

protected:
    // Not virtual: the table of operations ends with Clear. A list is destroyed as what it was created as.
    ~I_HT_PointerArray() = default;
};

/// The library's list of pointers, for drivers to create, lend and destroy.
class KELDRIVER_API HT_PointerArray final : public I_HT_PointerArray {
public:
    /// Starts empty.
    ///
    /// @param capacity  not read: no room is reserved
    /// @param create    kept, never called; may be null
    /// @param destroy   called by `Clear` on each element; null when the list does not own them
    HT_PointerArray(size_t capacity, void* (*create)(), void (*destroy)(void*));
    HT_PointerArray(const HT_PointerArray&) = delete;
    HT_PointerArray& operator=(const HT_PointerArray&) = delete;
    /// Drops the elements without destroying them: call `Clear` first when the list owns them.
    ~HT_PointerArray() = default;

    int32_t GetCount() const override;
    void* GetData(int index) override;
    /// `index` must lie between 0 and the count, both included; it is not checked. Where memory runs out
    /// `std::bad_alloc` is thrown, and the list stays as it was.
    void Insert(int index, void* data) override;
    /// `index` must be that of an element; it is not checked. The element is not passed to the destroy function.
    void Remove(int index) override;
    /// Calls the destroy function, if there is one, once on every element from the first on; then the list is empty.
    void Clear() override;

private:
    std::vector<void*> elements;
    [[maybe_unused]] void* (*createElement)(); // nothing calls it; it keeps the agreed layout
    void (*destroyElement)(void*);
};
