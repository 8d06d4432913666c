#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "quorin/platform/values/KeyedCoding.h"
#include "quorin/screens/DeviceCategory.h"
#include "quorin/screens/Template.h"

namespace quorin {

/// One device category of the catalogue, with its screens in the order in which users see them.
class ScreenTemplate {
public:
    using Templates = std::vector<std::shared_ptr<Template>>;

    static std::shared_ptr<ScreenTemplate> create(DeviceCategory category, Templates templates);
    ScreenTemplate(const ScreenTemplate&) = delete;
    ScreenTemplate& operator=(const ScreenTemplate&) = delete;

    DeviceCategory category() const { return _category; }
    const Templates& templates() const { return _templates; }

    /// Keys "category", the raw value, and "templates", in this order both ways.
    void encode(Encoder& encoder) const;
    /// Throws `DecodingError`; both keys are required, and the category has to be one.
    static std::shared_ptr<ScreenTemplate> decode(Decoder& decoder);

private:
    ScreenTemplate(DeviceCategory category, Templates templates)
        : _category(category), _templates(std::move(templates)) {}

    DeviceCategory _category;
    Templates _templates;
};

}  // namespace quorin
