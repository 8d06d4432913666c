#pragma once

#include <concepts>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

/// Converts between the value of a model and what a field shows of it. Interface files name the
/// class of the transformer that a field is to have, and `create` makes one from that name.
///
/// What a transformer takes for a number is a boxed integer or double; a Boolean is no number.
/// The null object is an object like any other: neither a number, nor a text, nor nothing.
/// Transformers are for the main thread; the registry of their classes is for any.
class ValueTransformer : public NSObject {
public:
    using Class = NSClassOf<ValueTransformer, NSObject>;

    /// From the model to the field.
    virtual Value transformedValue(const Value& value) const = 0;
    /// From the field to the model. Unless a class says how, it is the same as the way there; a
    /// class that goes one way only stops the process when it is asked.
    virtual Value reverseTransformedValue(const Value& value) const;
    virtual bool allowsReverseTransformation() const { return true; }
    /// Of what a field is given to show: "NSString" or "NSNumber".
    virtual std::string_view transformedValueClass() const = 0;

    /// A fresh transformer of the class with this name; null when no such class is registered.
    static std::shared_ptr<ValueTransformer> create(std::string_view className);
    /// Of all registered classes, in alphabetical order.
    static std::vector<std::string> classNames();

    /// Makes a class of the host known under its own name, as all of this library are from the
    /// start. Of two classes with one name the later counts.
    template <std::derived_from<ValueTransformer> Type>
    static void registerClass() {
        registerClass(NSClass::of<Type>().name(), &made<Type>);
    }

private:
    using Maker = std::shared_ptr<ValueTransformer> (*)();
    friend class ValueTransformerRegistry;

    template <typename Type>
    static std::shared_ptr<ValueTransformer> made() {
        return makeObject<Type>();
    }

    static void registerClass(const std::string& name, Maker maker);
};

/// The name that the class has on the platform.
using NSValueTransformer = ValueTransformer;

}  // namespace quorin
