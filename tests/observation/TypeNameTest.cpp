#include "quorin/observation/TypeName.h"

#include "tests/TestSupport.h"

class OutsideAnyNamespace;

namespace quorin {

class InTheLibrary;
struct Outer {
    struct Inner;
    template <typename Type>
    struct Template {
        struct Inside;
    };
};

namespace {

class InNoNamedNamespace;
enum class Choice { one };

TEST(TypeName, isTheTypesOwnWithoutWhatIsAroundIt) {
    static_assert(typeName<InTheLibrary>() == "InTheLibrary");
    struct Local;
    EXPECT_EQ(typeName<OutsideAnyNamespace>(), "OutsideAnyNamespace");
    EXPECT_EQ(typeName<InTheLibrary>(), "InTheLibrary");
    EXPECT_EQ(typeName<InNoNamedNamespace>(), "InNoNamedNamespace");
    EXPECT_EQ(typeName<Outer::Inner>(), "Inner");
    EXPECT_EQ(typeName<Outer::Template<Outer>::Inside>(), "Inside");
    EXPECT_EQ(typeName<Local>(), "Local");
    EXPECT_EQ(typeName<Choice>(), "Choice");
    EXPECT_EQ(typeName<int>(), "int");
}

}  // namespace
}  // namespace quorin
