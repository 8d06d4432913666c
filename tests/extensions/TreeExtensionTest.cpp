#include "quorin/extensions/TreeExtension.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::Optional;
using Nodes = std::vector<std::shared_ptr<NSTreeNode>>;

/// All of these equal each other.
struct Layer : Object {
    std::string description() const override { return "layer"; }
    bool isEqual(const Object&) const override { return true; }
};

std::shared_ptr<NSTreeNode> node(Value represented, Nodes children = {}) {
    return std::make_shared<NSTreeNode>(std::move(represented), std::move(children));
}

TEST(IndexPathOfObject, leadsFromTheTopToTheNode) {
    const Nodes nodes = {node("a", {node("b"), node("c", {node("d")})}), node("e")};
    EXPECT_THAT(indexPathOfObject("a", nodes), Optional(ElementsAre(0)));
    EXPECT_THAT(indexPathOfObject("b", nodes), Optional(ElementsAre(0, 0)));
    EXPECT_THAT(indexPathOfObject("d", nodes), Optional(ElementsAre(0, 1, 0)));
    EXPECT_THAT(indexPathOfObject("e", nodes), Optional(ElementsAre(1)));
}

TEST(IndexPathOfObject, isNothingWithoutTheNode) {
    EXPECT_EQ(indexPathOfObject("z", Nodes{node("a", {node("b")}), node("c")}), std::nullopt);
    EXPECT_EQ(indexPathOfObject("z", Nodes{}), std::nullopt);
}

TEST(IndexPathOfObject, searchesDepthFirst) {
    const Nodes nodes = {node("a", {node("b", {node("x")})}), node("x", {node("b")})};
    EXPECT_THAT(indexPathOfObject("x", nodes), Optional(ElementsAre(0, 0, 0)));
    EXPECT_THAT(indexPathOfObject("b", nodes), Optional(ElementsAre(0, 0)));
}

TEST(IndexPathOfObject, takesANodeBeforeThoseBelowIt) {
    EXPECT_THAT(indexPathOfObject("a", Nodes{node("a", {node("a")})}), Optional(ElementsAre(0)));
}

TEST(IndexPathOfObject, meansTheObjectItself) {
    const auto first = std::make_shared<Layer>(), second = std::make_shared<Layer>();
    const Nodes nodes = {node(first), node("text"), node(second)};
    EXPECT_THAT(indexPathOfObject(second, nodes), Optional(ElementsAre(2)));
    EXPECT_EQ(indexPathOfObject(std::make_shared<Layer>(), nodes), std::nullopt);
}

TEST(IndexPathOfObject, isFoundAtAnyDepth) {
    constexpr std::size_t depth = 100'000;  // more than the stack has frames for
    std::shared_ptr<NSTreeNode> top = node("x");
    for (std::size_t i = 0; i < depth; ++i)
        top = node("a", {std::move(top)});
    const auto path = indexPathOfObject("x", Nodes{top});
    ASSERT_TRUE(path.has_value());
    EXPECT_EQ(*path, NSIndexPath(depth + 1, 0));
}

TEST(TreeNode, leavesABranchToWhoStillHoldsIt) {
    const auto branch = node("b", {node("c", {node("d")})});
    node("a", {branch, node("e")}).reset();
    EXPECT_THAT(indexPathOfObject("d", Nodes{branch}), Optional(ElementsAre(0, 0, 0)));
}

TEST(IndexPathOfObject, isFoundInTheArrangedNodesOfAController) {
    NSTreeController controller;
    EXPECT_EQ(indexPathOfObject(controller, "b"), std::nullopt);
    controller.setArrangedNodes({node("a"), node("c", {node("b")})});
    EXPECT_THAT(indexPathOfObject(controller, "b"), Optional(ElementsAre(1, 0)));
}

}  // namespace
}  // namespace quorin
