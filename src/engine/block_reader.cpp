#include "engine/block_reader.h"

#include <algorithm>

namespace ostrinka {
namespace {

constexpr int32_t kBlockBytes = 256 * 1024;
constexpr int32_t kAhead = 16;         // records
constexpr int32_t kLine = 64;          // bytes that memory hands over at once
constexpr int32_t kMostFetched = 512;  // bytes of a field

}  // namespace

BlockReader::BlockReader(TableFile& file, int32_t record_length, int32_t first, int32_t last, bool ascending)
    : file_(file),
      record_length_(record_length),
      first_(first),
      last_(last),
      next_(ascending ? first : last),
      per_block_(std::max(1, kBlockBytes / record_length)),
      ascending_(ascending) {
  SeeAll();
}

void BlockReader::SeeAll() {
  const int32_t there = std::min(last_, file_.CountRecords(record_length_));
  if (first_ < 1 || there < first_ || there - first_ < per_block_) return;
  seen_ = file_.View(TableFile::RecordAt(first_, record_length_),
                     static_cast<size_t>(there - first_ + 1) * static_cast<size_t>(record_length_));
  if (!seen_) return;
  last_ = there;
  if (!ascending_) next_ = last_;
}

bool BlockReader::Fill() {
  if (seen_) {
    // What another program cut off meanwhile reads as zeros there: the end is looked up anew for every block.
    last_ = std::min(last_, file_.CountRecords(record_length_));
    if (!ascending_) next_ = std::min(next_, last_);
    if (next_ < first_ || next_ > last_) return false;
  }
  block_first_ = ascending_ ? next_ : std::max(first_, next_ - per_block_ + 1);
  block_last_ = ascending_ ? static_cast<int32_t>(std::min<int64_t>(last_, int64_t{next_} + per_block_ - 1)) : next_;
  if (seen_) {
    data_ = seen_.get() + int64_t{block_first_ - first_} * record_length_;
    return true;
  }
  block_.resize(static_cast<size_t>(block_last_ - block_first_ + 1) * static_cast<size_t>(record_length_));
  const int64_t got = file_.ReadSome(TableFile::RecordAt(block_first_, record_length_), block_.data(), block_.size());
  data_ = block_.data();
  const int32_t whole = got < 0 ? 0 : static_cast<int32_t>(got / record_length_);
  block_last_ = block_first_ + whole - 1;
  // A file that became shorter meanwhile: what is still there is read.
  if (!ascending_ && next_ > block_last_) next_ = block_last_;
  return whole > 0;
}

void BlockReader::WillTouch(const FieldDef& field) {
  if (!seen_) return;
  if (touched_.empty()) touched_.push_back(0);  // the mark of a deleted record
  const int32_t end = field.offset + std::min(field.width, kMostFetched);
  for (int32_t place = field.offset; place < end; place += kLine) touched_.push_back(place);
  touched_.push_back(end - 1);
}

const char* BlockReader::Next(int32_t& n) {
  if (next_ < first_ || next_ > last_) return nullptr;
  if ((next_ < block_first_ || next_ > block_last_) && !Fill()) return nullptr;
  // Written out here: a compiler drops the call of a function that does nothing else.
  const int64_t ahead = int64_t{next_} + (ascending_ ? kAhead : -kAhead);
  if (!touched_.empty() && ahead >= first_ && ahead <= last_) {
    const char* const record = seen_.get() + (ahead - first_) * record_length_;
    for (const int32_t place : touched_) __builtin_prefetch(record + place);
  }
  n = next_;
  next_ += ascending_ ? 1 : -1;
  return data_ + static_cast<size_t>(n - block_first_) * static_cast<size_t>(record_length_);
}

}  // namespace ostrinka
