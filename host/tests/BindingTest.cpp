#include "host/Binding.hpp"
#include "host/State.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vornix::host::Binding;
using vornix::host::State;

TEST(Binding, ReadsAndWritesTheValueItIsBoundTo) {
    State<int> state(1);
    Binding<int> binding = state.projectedValue();
    EXPECT_EQ(binding.wrappedValue(), 1);
    binding.setWrappedValue(5);
    EXPECT_EQ(state.wrappedValue(), 5);
}

TEST(Binding, DidSetReadsTheWrappedBinding) {
    State<std::string> state("on");
    auto derived = state.projectedValue().didSet([](const std::string&) { FAIL() << "reading runs no action"; });
    EXPECT_EQ(derived.wrappedValue(), "on");
    state.setWrappedValue("off");
    EXPECT_EQ(derived.wrappedValue(), "off");
}

TEST(Binding, DidSetStoresTheNewValueFirstThenRunsTheActionWithIt) {
    State<bool> state(false);
    std::vector<std::string> steps;
    auto derived = state.projectedValue().didSet([&](const bool& value) {
        steps.push_back(std::string("action ") + (value ? "true" : "false") + ", stored " +
                        (state.wrappedValue() ? "true" : "false"));
    });
    derived.setWrappedValue(true);
    derived.setWrappedValue(false);
    EXPECT_EQ(steps, (std::vector<std::string>{"action true, stored true", "action false, stored false"}));
}

TEST(Binding, DidSetRunsOnEveryWriteEvenOfTheSameValue) {
    State<int> state(3);
    int runs = 0;
    auto derived = state.projectedValue().didSet([&](const int&) { ++runs; });
    derived.setWrappedValue(3);
    derived.setWrappedValue(3);
    EXPECT_EQ(runs, 2);
}

TEST(State, EachCopyHasItsOwnValue) {
    State<int> original(1);
    State<int> copy = original;
    copy.setWrappedValue(2);
    EXPECT_EQ(original.wrappedValue(), 1);
    EXPECT_EQ(copy.wrappedValue(), 2);
}

}  // namespace
