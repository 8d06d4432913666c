#include "quorin/observation/SwizzleObjectClass.h"

#include <dlfcn.h>

#include <thread>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

std::vector<std::string> called;

// Every test has classes of its own, since a class stays patched.
template <int number>
struct Base : NSObject {
    using Class = NSClassOf<Base, NSObject>;

    ~Base() override { called.emplace_back("~Base"); }
};

template <int number>
struct Derived : Base<number> {
    using Class = NSClassOf<Derived, Base<number>>;

    ~Derived() override { called.emplace_back("~Derived"); }
};

void first(NSObject*) { called.emplace_back("first"); }
void second(NSObject*) { called.emplace_back("second"); }

struct SwizzleObjectClass : testing::Test {
    SwizzleObjectClass() { called.clear(); }
};

TEST_F(SwizzleObjectClass, hasTheCallbackCalledWithTheObjectBeforeItsDestructors) {
    static NSObject* given = nullptr;
    auto object = makeObject<Derived<1>>();
    swizzleObjectClassIfNeeded(object.get(), [](NSObject* dying) {
        given = dying;
        called.emplace_back("callback");
    });
    EXPECT_THAT(called, testing::IsEmpty());
    const NSObject* address = object.get();
    object.reset();
    EXPECT_EQ(given, address);
    EXPECT_THAT(called, testing::ElementsAre("callback", "~Derived", "~Base"));
}

TEST_F(SwizzleObjectClass, patchesAClassAtMostOnce) {
    auto object = makeObject<Base<2>>();
    swizzleObjectClassIfNeeded(object.get(), &first);
    swizzleObjectClassIfNeeded(object.get(), &first);
    swizzleObjectClassIfNeeded(object.get(), &second);
    swizzleObjectClassIfNeeded(makeObject<Base<2>>().get(), &second);
    called.clear();
    object.reset();
    EXPECT_THAT(called, testing::ElementsAre("first", "~Base"));
}

TEST_F(SwizzleObjectClass, patchesTheClassOfEveryInstance) {
    swizzleObjectClassIfNeeded(makeObject<Base<3>>().get(), &first);
    called.clear();
    makeObject<Base<3>>();
    EXPECT_THAT(called, testing::ElementsAre("first", "~Base"));
}

TEST_F(SwizzleObjectClass, patchesASubclassOnItsOwn) {
    swizzleObjectClassIfNeeded(makeObject<Base<4>>().get(), &first);
    auto derived = makeObject<Derived<4>>();
    swizzleObjectClassIfNeeded(derived.get(), &second);
    called.clear();
    derived.reset();
    EXPECT_THAT(called, testing::ElementsAre("second", "first", "~Derived", "~Base"));
    called.clear();
    makeObject<Base<4>>();
    EXPECT_THAT(called, testing::ElementsAre("first", "~Base"));
}

TEST_F(SwizzleObjectClass, isInheritedByASubclassThatIsNotPatchedItself) {
    swizzleObjectClassIfNeeded(makeObject<Base<8>>().get(), &first);
    called.clear();
    makeObject<Derived<8>>();
    EXPECT_THAT(called, testing::ElementsAre("first", "~Derived", "~Base"));
}

TEST_F(SwizzleObjectClass, callsThePatchOfTheSubclassFirstInWhicheverOrderTheyCame) {
    swizzleObjectClassIfNeeded(makeObject<Derived<9>>().get(), &second);
    swizzleObjectClassIfNeeded(makeObject<Base<9>>().get(), &first);
    called.clear();
    makeObject<Derived<9>>();
    EXPECT_THAT(called, testing::ElementsAre("second", "first", "~Derived", "~Base"));
}

TEST_F(SwizzleObjectClass, callsTheSameCallbackOnceForEachPatchedClassOfTheObject) {
    swizzleObjectClassIfNeeded(makeObject<Base<10>>().get(), &first);
    swizzleObjectClassIfNeeded(makeObject<Derived<10>>().get(), &first);
    called.clear();
    makeObject<Derived<10>>();
    EXPECT_THAT(called, testing::ElementsAre("first", "first", "~Derived", "~Base"));
}

TEST_F(SwizzleObjectClass, leavesTheSuperclassOfAPatchedClassAlone) {
    swizzleObjectClassIfNeeded(makeObject<Derived<5>>().get(), &first);
    called.clear();
    makeObject<Base<5>>();
    EXPECT_THAT(called, testing::ElementsAre("~Base"));
}

TEST_F(SwizzleObjectClass, doesNothingWithoutAnObject) {
    swizzleObjectClassIfNeeded(nullptr, &first);
    makeObject<Base<6>>();
    EXPECT_THAT(called, testing::ElementsAre("~Base"));
}

TEST_F(SwizzleObjectClass, patchesOnceWhenSeveralThreadsAsk) {
    const auto object = makeObject<Base<7>>();
    static std::atomic<int> count{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(
            [&] { swizzleObjectClassIfNeeded(object.get(), [](NSObject*) { ++count; }); });
    for (std::thread& thread : threads)
        thread.join();
    makeObject<Base<7>>();
    EXPECT_EQ(count, 1);
}

TEST_F(SwizzleObjectClass, isFoundByAPlainSymbolName) {
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "swizzleObjectClassIfNeeded"),
              reinterpret_cast<void*>(&swizzleObjectClassIfNeeded));
}

}  // namespace
}  // namespace quorin
