#include <quorin/observation/TypedNotification.h>

#include <iostream>
#include <memory>
#include <string>
#include <utility>

using quorin::NSNotification;
using quorin::Object;
using quorin::Value;

class Layer : public Object {
public:
    explicit Layer(std::string text) : name(std::move(text)) {}
    std::string description() const override { return name; }

private:
    std::string name;
};

/// Travels under its own name, with the layer as sender and the opacity as user info.
struct OpacityDidChange {
    OpacityDidChange(std::shared_ptr<Object> changed, double to) : layer(changed), opacity(to) {}
    explicit OpacityDidChange(const NSNotification& note)
        : layer(note.object()), opacity(note.userInfo()->at("opacity").asNumber().value()) {}

    std::shared_ptr<Object> object() const { return layer; }
    NSNotification::UserInfo userInfo() const { return Value::Map{{"opacity", opacity}}; }

    std::shared_ptr<Object> layer;
    double opacity;
};

int main() {
    const auto sky = std::make_shared<Layer>("sky"), sea = std::make_shared<Layer>("sea");
    const auto print = [](const OpacityDidChange& change) {
        std::cout << change.layer->description() << " now has " << change.opacity << '\n';
    };

    auto token = quorin::startObserving<OpacityDidChange>(sky, print);  // of the sky alone
    quorin::post(OpacityDidChange(sky, 0.5));
    quorin::post(OpacityDidChange(sea, 0.25));

    token.reset();
    quorin::post(OpacityDidChange(sky, 1));
    std::cout << "nobody listens any more\n";
}
