#pragma once

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// What a transformer can be told about the field it serves, whatever its class: whoever sets up
/// fields finds it by `std::dynamic_pointer_cast`.
class PointScaleConvertiableTransformer {
public:
    virtual ~PointScaleConvertiableTransformer() = default;

    /// Displayed units per point of the model, for example 2 in pixels of a document at 2x.
    virtual CGFloat pointScale() const = 0;
    virtual void setPointScale(CGFloat pointScale) = 0;

    /// Whether an empty field means no value rather than 0.
    virtual bool allowNil() const = 0;
    virtual void setAllowNil(bool allowNil) = 0;

    /// What is displayed is a multiple of this.
    virtual double roundingIncrement() const = 0;
    virtual void setRoundingIncrement(double roundingIncrement) = 0;

protected:
    PointScaleConvertiableTransformer() = default;
    PointScaleConvertiableTransformer(const PointScaleConvertiableTransformer&) = default;
    PointScaleConvertiableTransformer& operator=(const PointScaleConvertiableTransformer&) =
        default;
};

}  // namespace quorin
