#pragma once

#include <utility>

#include "host/Binding.hpp"

namespace vornix::host {

// A view's own piece of state. Views are values whose bodies do not change them, yet their state
// is writable from inside (through bindings), as in a declarative view toolkit. Each copy of a
// view has its own state; a binding refers to the state of the view it came from, which must not
// move while the binding is in use.
template <class Value>
class State {
public:
    explicit State(Value initialValue) : value_(std::move(initialValue)) {}

    const Value& wrappedValue() const { return value_; }
    void setWrappedValue(Value value) const { value_ = std::move(value); }

    Binding<Value> projectedValue() const {
        return Binding<Value>([this] { return value_; }, [this](Value value) { value_ = std::move(value); });
    }

private:
    mutable Value value_;
};

}  // namespace vornix::host
