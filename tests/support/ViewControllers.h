#pragma once

#include <string>
#include <utility>
#include <vector>

#include "quorin/platform/ui/NSViewController.h"

namespace quorin::test {

/// Writes down what it is called for, after its name.
class NotingController : public NSViewController {
public:
    using Class = NSClassOf<NotingController, NSViewController>;

    NotingController(const std::string& name, std::vector<std::string>& given)
        : NSViewController(name), prefix(name.empty() ? name : name + " "), calls(given) {}

    void awakeFromNib() override { note("awakeFromNib"); }
    void loadView() override {
        note("loadView");
        NSViewController::loadView();
    }
    void viewDidLoad() override { note("viewDidLoad"); }
    void viewWillAppear() override { note("viewWillAppear"); }
    void viewDidAppear() override { note("viewDidAppear"); }
    void viewWillDisappear() override { note("viewWillDisappear"); }
    void viewDidDisappear() override { note("viewDidDisappear"); }

private:
    void note(const char* call) { calls.push_back(prefix + call); }

    std::string prefix;
    std::vector<std::string>& calls;
};

}  // namespace quorin::test
