#include "quorin/screens/ScreenTemplate.h"

#include <string>

namespace quorin {

std::shared_ptr<ScreenTemplate> ScreenTemplate::create(DeviceCategory category,
                                                       Templates templates) {
    return std::shared_ptr<ScreenTemplate>(new ScreenTemplate(category, std::move(templates)));
}

void ScreenTemplate::encode(Encoder& encoder) const {
    encoder.encodeText("category", rawValue(_category));
    encoder.encodeRecords("templates", _templates.size(), [this](Encoder& record, std::size_t i) {
        _templates[i]->encode(record);
    });
}

std::shared_ptr<ScreenTemplate> ScreenTemplate::decode(Decoder& decoder) {
    const std::string name = decoder.decodeText("category");
    const auto category = deviceCategory(name);
    if (!category)
        decoder.corrupted("category", "\"" + name + "\" is no category");
    Templates templates;
    decoder.decodeRecords("templates", [&](Decoder& record, std::size_t) {
        templates.push_back(Template::decode(record));
    });
    return create(*category, std::move(templates));
}

}  // namespace quorin
