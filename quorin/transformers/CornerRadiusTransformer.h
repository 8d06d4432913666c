#pragma once

#include "quorin/transformers/CoordinatesTransformer.h"

namespace quorin {

/// One radius, or a list of radii for the corners of a selection, as one text: "4;8;4;0". A list
/// with something that is no number is no list of radii.
class CornerRadiusTransformer : public CoordinatesTransformer {
public:
    using Class = NSClassOf<CornerRadiusTransformer, CoordinatesTransformer>;

    /// One text for all radii when they are equal. Always to tenths, whatever the rounding
    /// increment. An empty list gives `NSMultipleValuesMarker`, what is neither gives "0".
    Value transformedValue(const Value& value) const override;
    /// The radii between the semicolons. Each piece is plain arithmetic with "." as the decimal
    /// point, whatever the locale; what is none counts as 0, as do negative radii, and NaN stays
    /// NaN. What is no text gives [0.0].
    Value reverseTransformedValue(const Value& value) const override;

    /// Steps each radius of a list; a single one comes back unchanged.
    Value incrementValue(const Value& value, double increments, double scale) const override;
    /// Clamps each radius of a list to the bounds as they are, without the point scale; a single
    /// one comes back unchanged.
    Value clampValue(const Value& value, const ClosedRange<double>& to) const override;
};

}  // namespace quorin
