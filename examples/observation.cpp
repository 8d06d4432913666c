#include <quorin/observation/KVOController.h>

#include <iostream>
#include <memory>
#include <string>
#include <utility>

using quorin::KVONotification;
using quorin::NSKeyValueObservingOptions;

/// Tells of its own changes: by its setters, under the names that it declares.
class Layer : public quorin::NSObject {
public:
    using Class = quorin::NSClassOf<Layer, quorin::NSObject>;

    static void declareKeys(quorin::NSKeyList<Layer>& keys) {
        keys.reportingProperty("opacity", &Layer::opacity, &Layer::setOpacity)
            .reportingProperty("parent", &Layer::parent, &Layer::setParent);
    }

    explicit Layer(double opacity) : _opacity(opacity) {}

    double opacity() const { return _opacity; }
    void setOpacity(double opacity) {
        changeValues({"opacity"}, [&] { _opacity = opacity; });
    }

    std::shared_ptr<Layer> parent() const { return _parent; }
    void setParent(std::shared_ptr<Layer> parent) {
        changeValues({"parent"}, [&] { _parent = std::move(parent); });
    }

private:
    double _opacity;
    std::shared_ptr<Layer> _parent;
};

int main() {
    const auto group = quorin::makeObject<Layer>(1.0), folder = quorin::makeObject<Layer>(0.5);
    auto leaf = quorin::makeObject<Layer>(1.0);
    leaf->setParent(group);

    quorin::KVOController controller;
    const auto options =
        NSKeyValueObservingOptions::oldValue | NSKeyValueObservingOptions::newValue;
    controller.observe(*leaf, "parent.opacity", options, [](const KVONotification& change) {
        std::cout << change.keyPath << ": " << change.oldValue().asNumber().value() << " to "
                  << change.newValue().asNumber().value() << '\n';
    });

    group->setOpacity(0.75);
    leaf->setParent(folder);  // from here on the folder is watched
    group->setOpacity(0);
    leaf->setValueForKeyPath(0.25, "parent.opacity");

    leaf.reset();  // its observation ends before it does
    folder->setOpacity(1);
    std::cout << "nobody listens any more\n";
}
