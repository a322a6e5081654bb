// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <memory>
#include <utility>

namespace kelplot {

/// A value that lies elsewhere, so that what holds it stays small. Copies are values of their own; one that was moved
/// from may only be assigned to or destroyed.
template <typename Value>
class Boxed {
public:
    Boxed() : m_value(std::make_unique<Value>()) {}
    Boxed(Value value) : m_value(std::make_unique<Value>(std::move(value))) {} // NOLINT(google-explicit-constructor)
    Boxed(const Boxed& other) : m_value(std::make_unique<Value>(*other)) {}
    Boxed(Boxed&& other) noexcept = default;
    Boxed& operator=(const Boxed& other) {
        m_value = std::make_unique<Value>(*other);
        return *this;
    }
    Boxed& operator=(Boxed&& other) noexcept = default;
    ~Boxed() = default;

    const Value& operator*() const { return *m_value; }
    Value& operator*() { return *m_value; }
    const Value* operator->() const { return m_value.get(); }
    Value* operator->() { return m_value.get(); }

private:
    std::unique_ptr<Value> m_value;
};

} // namespace kelplot
