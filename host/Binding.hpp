#pragma once

#include <functional>
#include <utility>

namespace vornix::host {

// A two-way link to a value kept elsewhere (a view's state): reading reads that value, writing
// writes it.
template <class Value>
class Binding {
public:
    using Getter = std::function<Value()>;
    using Setter = std::function<void(Value)>;

    Binding(Getter get, Setter set) : get_(std::move(get)), set_(std::move(set)) {}

    Value wrappedValue() const { return get_(); }
    void setWrappedValue(Value value) const { set_(std::move(value)); }

    // A binding that reads this one, and on each write first stores the new value here and then
    // runs `execute` with it.
    Binding didSet(std::function<void(const Value&)> execute) const {
        return Binding(get_, [set = set_, execute = std::move(execute)](Value value) {
            set(value);
            execute(value);
        });
    }

private:
    Getter get_;
    Setter set_;
};

}  // namespace vornix::host
