#pragma once

#include "quorin/platform/ui/NSStoryboardSegue.h"

namespace quorin {

/// Makes the destination a child of the source, whose view it fills from then on. Both have to be
/// view controllers.
class NSEmbedSegue : public NSStoryboardSegue {
public:
    using Class = NSClassOf<NSEmbedSegue, NSStoryboardSegue>;

    using NSStoryboardSegue::NSStoryboardSegue;

    void perform() override;
};

}  // namespace quorin
