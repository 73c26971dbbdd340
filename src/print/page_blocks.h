// Blocks that follow each other down the page: measured first, then placed by one planner.
#pragma once

#include <functional>
#include <vector>

#include "print/page_flow.h"

namespace ostrinka {

// A block, measured. Lengths are mm.
struct PageBlock {
  double height = 0;                         // of what must stand on the page where the block begins: all of it, unless it breaks by itself
  double gap = 5;                            // above it, left out at the head of a page
  bool with_previous = false;                // stands on the page of the block before, which goes along to the next page
  std::function<void(PageFlow& flow)> draw;  // at the cursor, which it moves to its lower end; null: nothing to place
};

// Places the blocks from the cursor on. Blocks that stay together go to the next page as a whole when they do not fit; those that no page
// would hold together are placed one by one.
void PlaceBlocks(PageFlow& flow, const std::vector<PageBlock>& blocks);

}  // namespace ostrinka
