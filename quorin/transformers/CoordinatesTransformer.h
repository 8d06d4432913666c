#pragma once

#include "quorin/transformers/NumberTransformer.h"

namespace quorin {

/// Positions and sizes, always shown to hundredths.
class CoordinatesTransformer : public NumberTransformer {
public:
    using Class = NSClassOf<CoordinatesTransformer, NumberTransformer>;

    double roundingIncrement() const override { return 0.01; }
    /// Changes nothing.
    void setRoundingIncrement(double) override {}
};

}  // namespace quorin
