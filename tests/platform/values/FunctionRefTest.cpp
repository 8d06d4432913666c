#include "quorin/platform/values/FunctionRef.h"

#include <memory>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

int doubled(int value) { return 2 * value; }

int callWith(FunctionRef<int(int)> function, int value) { return function(value); }

TEST(FunctionRef, callsALambdaWithItsCaptures) {
    int seen = 0;
    const auto remember = [&](int value) { seen = value; };
    const FunctionRef<void(int)> function = remember;
    function(7);
    EXPECT_EQ(seen, 7);
}

TEST(FunctionRef, callsAFunction) {
    EXPECT_EQ(callWith(doubled, 21), 42);
    EXPECT_EQ(callWith(&doubled, 21), 42);
}

TEST(FunctionRef, refersToTheCallableInsteadOfCopyingIt) {
    struct Counter {
        int count = 0;
        void operator()() { ++count; }
    } counter;
    const FunctionRef<void()> count = counter;
    count();
    count();
    EXPECT_EQ(counter.count, 2);
}

TEST(FunctionRef, callsAConstCallable) {
    const auto add = [](int value) { return value + 1; };
    EXPECT_EQ(callWith(add, 1), 2);
}

TEST(FunctionRef, passesReferencesThrough) {
    std::string text;
    const auto append = [](std::string& target) { target += "x"; };
    const FunctionRef<void(std::string&)> function = append;
    function(text);
    function(text);
    EXPECT_EQ(text, "xx");
}

TEST(FunctionRef, passesAnArgumentThatCanOnlyMove) {
    const auto take = [](std::unique_ptr<int> pointer) { return *pointer; };
    const FunctionRef<int(std::unique_ptr<int>)> function = take;
    EXPECT_EQ(function(std::make_unique<int>(5)), 5);
}

TEST(FunctionRef, dropsAResultNobodyAskedFor) {
    int calls = 0;
    const auto call = [&] { return ++calls; };
    const FunctionRef<void()> function = call;
    function();
    EXPECT_EQ(calls, 1);
}

TEST(FunctionRef, copiesReferToTheSameCallable) {
    int calls = 0;
    auto count = [&] { ++calls; };
    const FunctionRef<void()> first = count;
    const FunctionRef<void()> second = first;  // NOLINT: the copy is what is tested
    first();
    second();
    EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace quorin
