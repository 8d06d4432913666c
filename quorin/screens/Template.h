#pragma once

#include <memory>
#include <string>
#include <utility>

#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/KeyedCoding.h"
#include "quorin/platform/values/Object.h"

namespace quorin {

/// The screen of one device: its size in points, and its density, how many pixels a point is wide.
/// An object, so that an item of a menu can stand for it.
class Template : public Object {
public:
    static std::shared_ptr<Template> create(CGFloat width, CGFloat height, CGFloat density,
                                            std::string name);

    CGFloat width() const { return _width; }
    CGFloat height() const { return _height; }
    CGFloat density() const { return _density; }
    /// As users know the device.
    const std::string& name() const { return _name; }

    /// Keys "width", "height", "density" and "name", in this order both ways.
    void encode(Encoder& encoder) const;
    /// Throws `DecodingError`; every key is required.
    static std::shared_ptr<Template> decode(Decoder& decoder);

    /// The name.
    std::string description() const override { return _name; }

private:
    Template(CGFloat width, CGFloat height, CGFloat density, std::string name)
        : _width(width), _height(height), _density(density), _name(std::move(name)) {}

    CGFloat _width, _height, _density;
    std::string _name;
};

}  // namespace quorin
