#include "quorin/platform/ui/NSStoryboard.h"

#include "tests/TestSupport.h"
#include "tests/support/ViewControllers.h"

namespace quorin {
namespace {

std::vector<std::string> calls;

class Source : public NSViewController {
public:
    using Class = NSClassOf<Source, NSViewController>;

    void prepare(NSStoryboardSegue& forSegue, NSObject* sender) override {
        NSViewController::prepare(forSegue, sender);
        calls.push_back(std::string("prepare ").append(forSegue.identifier()));
        preparedBy = sender;
        destination = std::dynamic_pointer_cast<NSViewController>(forSegue.destinationController());
        destination->setRepresentedObject(representedObject());
    }

    NSObject* preparedBy = nullptr;
    std::shared_ptr<NSViewController> destination;
};

class NotingSegue : public NSStoryboardSegue {
public:
    using Class = NSClassOf<NotingSegue, NSStoryboardSegue>;

    using NSStoryboardSegue::NSStoryboardSegue;

    void perform() override { calls.push_back(std::string("perform ").append(identifier())); }
};

struct NSStoryboardTest : testing::Test {
    NSStoryboardTest() {
        calls.clear();
        storyboard->registerScene("first", [] { return makeObject<Source>(); });
        storyboard->registerScene(
            "second", [] { return makeObject<test::NotingController>("second", calls); });
        storyboard->registerSegue<NotingSegue>("pushSecond", "first", "second");
    }

    std::shared_ptr<NSStoryboard> storyboard = NSStoryboard::create();
};

TEST_F(NSStoryboardTest, makesAndAwakesTheControllersOfItsScenes) {
    const auto controller = storyboard->instantiateController("second");
    EXPECT_THAT(calls, testing::ElementsAre("second awakeFromNib"));
    EXPECT_EQ(controller->storyboard(), storyboard);
    EXPECT_FALSE(controller->isViewLoaded());
    EXPECT_NE(storyboard->instantiateController("second"), controller);
}

TEST_F(NSStoryboardTest, beginsWithTheSceneThatWasRegisteredFirst) {
    const auto controller = storyboard->instantiateInitialController();
    EXPECT_NE(std::dynamic_pointer_cast<Source>(controller), nullptr);
}

TEST_F(NSStoryboardTest, preparesForASegueThenPerformsIt) {
    const auto source =
        std::dynamic_pointer_cast<Source>(storyboard->instantiateInitialController());
    source->setRepresentedObject("document");
    source->performSegue("pushSecond", source.get());
    EXPECT_THAT(calls, testing::ElementsAre("second awakeFromNib", "prepare pushSecond",
                                            "perform pushSecond"));
    EXPECT_EQ(source->preparedBy, source.get());
    EXPECT_EQ(source->destination->representedObject(), Value("document"));
    EXPECT_EQ(source->destination->storyboard(), storyboard);
}

TEST_F(NSStoryboardTest, leavesNothingOfASegueBehind) {
    const auto source =
        std::dynamic_pointer_cast<Source>(storyboard->instantiateInitialController());
    source->performSegue("pushSecond", nullptr);
    const std::weak_ptr<NSViewController> destination = source->destination;
    source->destination.reset();
    EXPECT_TRUE(destination.expired());
    EXPECT_EQ(source.use_count(), 1);
}

TEST_F(NSStoryboardTest, takesSeguesFromTheSceneOfTheSource) {
    storyboard->registerSegue<NotingSegue>("pushSecond", "second", "first");
    const auto second = storyboard->instantiateController("second");
    const auto segue = storyboard->instantiateSegue("pushSecond", second);
    EXPECT_EQ(segue->sourceController(), second);
    EXPECT_NE(std::dynamic_pointer_cast<Source>(segue->destinationController()), nullptr);
}

TEST_F(NSStoryboardTest, performsPlainSeguesByTheirHandler) {
    int count = 0;
    const auto controller = makeObject<NSViewController>();
    makeObject<NSStoryboardSegue>("show", controller, nullptr, [&] { ++count; })->perform();
    EXPECT_EQ(count, 1);
    makeObject<NSStoryboardSegue>("show", controller, nullptr)->perform();
}

using NSStoryboardDeathTest = NSStoryboardTest;

TEST_F(NSStoryboardDeathTest, namesTheSceneOrSegueThatIsMissing) {
    EXPECT_DEATH(storyboard->instantiateController("third"), "a storyboard has no scene \"third\"");
    EXPECT_DEATH(NSStoryboard::create()->instantiateInitialController(),
                 "a storyboard has no scene \"\"");
    const auto second = storyboard->instantiateController("second");
    EXPECT_DEATH(second->performSegue("pushSecond", nullptr),
                 "no segue \"pushSecond\" leads from the scene \"second\"");
    EXPECT_DEATH(makeObject<NSViewController>()->performSegue("show", nullptr),
                 "is in no storyboard that could have the segue \"show\"");
}

}  // namespace
}  // namespace quorin
