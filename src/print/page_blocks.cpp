#include "print/page_blocks.h"

namespace ostrinka {
namespace {

// The number behind the last block that stays with the one at `first`.
size_t EndOfGroup(const std::vector<PageBlock>& blocks, size_t first) {
  size_t end = first + 1;
  while (end < blocks.size() && blocks[end].with_previous) ++end;
  return end;
}

// Draws a block with its gap, on the next page when `needed` does not fit here.
void Place(PageFlow& flow, const PageBlock& block, double needed) {
  if (!block.draw) return;
  flow.y += block.gap;
  if (!flow.Fits(needed) && !flow.AtTopOfFurtherPage()) flow.NextPage();
  block.draw(flow);
}

}  // namespace

void PlaceBlocks(PageFlow& flow, const std::vector<PageBlock>& blocks) {
  for (size_t first = 0; first < blocks.size();) {
    const size_t end = EndOfGroup(blocks, first);
    double together = blocks[first].height;
    for (size_t i = first + 1; i < end; ++i) together += blocks[i].gap + blocks[i].height;
    Place(flow, blocks[first], together <= flow.Room() ? together : blocks[first].height);
    for (size_t i = first + 1; i < end; ++i) Place(flow, blocks[i], blocks[i].height);
    first = end;
  }
}

}  // namespace ostrinka
