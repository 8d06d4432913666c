#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"

/// Objects to observe, and one that writes down what it is told.
namespace quorin::test {

class Node : public NSObject {
public:
    using Class = NSClassOf<Node, NSObject>;

    static void declareKeys(NSKeyList<Node>& keys) {
        keys.reportingProperty("number", &Node::number, &Node::setNumber)
            .property("name", &Node::name,
                      [](Node& node, std::string given) { node.name = std::move(given); })
            .reportingProperty("next", &Node::next, &Node::setNext)
            .reportingProperty("other", &Node::other, &Node::setOther)
            .property("items", &Node::items)
            .property("text", [](const Node& node) { return node.name; });
    }

    std::int64_t number() const { return _number; }
    void setNumber(std::int64_t number) {
        changeValues({"number"}, [&] { _number = number; });
    }

    std::shared_ptr<Node> next() const { return _next; }
    void setNext(std::shared_ptr<Node> next) {
        changeValues({"next"}, [&] { _next = std::move(next); });
    }

    std::shared_ptr<Node> other() const { return _other; }
    void setOther(std::shared_ptr<Node> other) {
        changeValues({"other"}, [&] { _other = std::move(other); });
    }

    /// Changes the items at `indexes` in the given way.
    template <typename Edit>
    void edit(NSKeyValueChange kind, std::vector<std::size_t> indexes, Edit edit) {
        const auto places = NSIndexSet::create(std::move(indexes));
        willChange(kind, places, "items");
        edit(items);
        didChange(kind, places, "items");
    }

    std::string name;
    std::vector<std::int64_t> items;

private:
    std::int64_t _number = 0;
    std::shared_ptr<Node> _next, _other;
};

/// A class of its own below Node, with a key of its own.
class Leaf : public Node {
public:
    using Class = NSClassOf<Leaf, Node>;

    static void declareKeys(NSKeyList<Leaf>& keys) {
        keys.property("weight", &Leaf::weight,
                      [](Leaf& leaf, double given) { leaf.weight = given; });
    }

    double weight = 0;
};

inline std::shared_ptr<Node> numbered(std::int64_t number) {
    auto node = makeObject<Node>();
    node->setNumber(number);
    return node;
}

/// Node 0 leads to node 1, and so on; the last has no next.
inline std::vector<std::shared_ptr<Node>> chain(std::size_t count) {
    std::vector<std::shared_ptr<Node>> nodes;
    for (std::size_t i = 0; i < count; ++i) {
        nodes.push_back(numbered(static_cast<std::int64_t>(i)));
        if (i > 0)
            nodes[i - 1]->setNext(nodes[i]);
    }
    return nodes;
}

class Recorder : public NSObject {
public:
    using Class = NSClassOf<Recorder, NSObject>;

    struct Told {
        std::string keyPath;
        NSObject* object;
        NSKeyValueChangeRecord change;
        const void* context;
    };

    void observeValue(const std::string* keyPath, NSObject* object,
                      const NSKeyValueChangeRecord* change, const void* context) override {
        told.push_back({*keyPath, object, *change, context});
        if (const auto running = then)  // it may give this another one to do
            running();
    }

    Value lastOld() const { return told.back().change[NSKeyValueChangeKey::oldValue]; }
    Value lastNew() const { return told.back().change[NSKeyValueChangeKey::newValue]; }

    std::vector<Told> told;
    std::function<void()> then;
};

}  // namespace quorin::test
