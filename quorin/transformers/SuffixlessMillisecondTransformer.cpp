#include "quorin/transformers/SuffixlessMillisecondTransformer.h"

namespace quorin {

SuffixlessMillisecondTransformer::SuffixlessMillisecondTransformer()
    : _numberFormatter(std::make_shared<NSNumberFormatter>()) {
    _numberFormatter->setNumberStyle(NSNumberFormatterStyle::decimal);
    _numberFormatter->setUsesGroupingSeparator(true);
}

}  // namespace quorin
