#include "quorin/screens/Template.h"

namespace quorin {

std::shared_ptr<Template> Template::create(CGFloat width, CGFloat height, CGFloat density,
                                           std::string name) {
    return std::shared_ptr<Template>(new Template(width, height, density, std::move(name)));
}

void Template::encode(Encoder& encoder) const {
    encoder.encodeNumber("width", _width);
    encoder.encodeNumber("height", _height);
    encoder.encodeNumber("density", _density);
    encoder.encodeText("name", _name);
}

std::shared_ptr<Template> Template::decode(Decoder& decoder) {
    const CGFloat width = decoder.decodeNumber("width");
    const CGFloat height = decoder.decodeNumber("height");
    const CGFloat density = decoder.decodeNumber("density");
    return create(width, height, density, decoder.decodeText("name"));
}

}  // namespace quorin
