#include "engine/block_reader.h"

#include <algorithm>

namespace ostrinka {
namespace {

constexpr int32_t kBlockBytes = 256 * 1024;

}  // namespace

BlockReader::BlockReader(TableFile& file, int32_t record_length, int32_t first, int32_t last, bool ascending)
    : file_(file),
      record_length_(record_length),
      first_(first),
      last_(last),
      next_(ascending ? first : last),
      per_block_(std::max(1, kBlockBytes / record_length)),
      ascending_(ascending) {}

bool BlockReader::Fill() {
  block_first_ = ascending_ ? next_ : std::max(first_, next_ - per_block_ + 1);
  block_last_ = ascending_ ? static_cast<int32_t>(std::min<int64_t>(last_, int64_t{next_} + per_block_ - 1)) : next_;
  block_.resize(static_cast<size_t>(block_last_ - block_first_ + 1) * static_cast<size_t>(record_length_));
  const int64_t got = file_.ReadSome(TableFile::RecordAt(block_first_, record_length_), block_.data(), block_.size());
  const int32_t whole = got < 0 ? 0 : static_cast<int32_t>(got / record_length_);
  block_last_ = block_first_ + whole - 1;
  // A file that became shorter meanwhile: what is still there is read.
  if (!ascending_ && next_ > block_last_) next_ = block_last_;
  return whole > 0;
}

const char* BlockReader::Next(int32_t& n) {
  if (next_ < first_ || next_ > last_) return nullptr;
  if ((next_ < block_first_ || next_ > block_last_) && !Fill()) return nullptr;
  n = next_;
  next_ += ascending_ ? 1 : -1;
  return block_.data() + static_cast<size_t>(n - block_first_) * static_cast<size_t>(record_length_);
}

}  // namespace ostrinka
