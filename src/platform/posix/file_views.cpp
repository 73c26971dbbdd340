#include "platform/posix/file_views.h"

#include <linux/magic.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <iterator>

namespace ostrinka {
namespace {

// Magic numbers of the file systems whose mappings follow writes of every process: from the kernel's magic.h; XFS keeps its own.
constexpr uint32_t kXfsMagic = 0x58465342;
constexpr uint32_t kLocalFileSystems[] = {EXT4_SUPER_MAGIC,      TMPFS_MAGIC,      BTRFS_SUPER_MAGIC,
                                          OVERLAYFS_SUPER_MAGIC, F2FS_SUPER_MAGIC, kXfsMagic};

// A mapping reaches beyond the end of the file, so that records added later are seen without a new one.
constexpr size_t kRoomToGrow = size_t{16} << 20;

// The mappings of the process, for the handler of the bus error alone: signals know no object.
struct MappedRange {
  std::atomic<uintptr_t> begin{0}, end{0};
  std::atomic<bool> taken{false}, torn{false};
};
constexpr int kMostMappings = 128;
std::array<MappedRange, kMostMappings> mapped_ranges;
uintptr_t page_size = 4096;

void OnBusError(int, siginfo_t* info, void*) {
  const auto address = reinterpret_cast<uintptr_t>(info->si_addr);
  for (MappedRange& range : mapped_ranges) {
    if (address < range.begin || address >= range.end) continue;
    range.torn = true;
    void* const page = reinterpret_cast<void*>(address & ~(page_size - 1));
    if (mmap(page, page_size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED) return;
  }
  // Not ours: the fault comes again and ends the program as it would have.
  signal(SIGBUS, SIG_DFL);
}

void WatchBusErrors() {
  static const bool once = [] {
    page_size = static_cast<uintptr_t>(sysconf(_SC_PAGESIZE));
    struct sigaction action {};
    action.sa_sigaction = OnBusError;
    action.sa_flags = SA_SIGINFO;
    sigemptyset(&action.sa_mask);
    return sigaction(SIGBUS, &action, nullptr) == 0;
  }();
  (void)once;
}

int TakeSlot() {
  for (int slot = 0; slot < kMostMappings; ++slot) {
    if (!mapped_ranges[static_cast<size_t>(slot)].taken.exchange(true)) return slot;
  }
  return -1;
}

}  // namespace

std::shared_ptr<FileMapping> FileMapping::Of(int descriptor, size_t length) {
  WatchBusErrors();
  const int slot = TakeSlot();
  if (slot < 0) return nullptr;
  MappedRange& range = mapped_ranges[static_cast<size_t>(slot)];
  void* const begin = mmap(nullptr, length, PROT_READ, MAP_SHARED, descriptor, 0);
  if (begin == MAP_FAILED) {
    range.taken = false;
    return nullptr;
  }
  range.torn = false;
  range.begin = reinterpret_cast<uintptr_t>(begin);
  range.end = range.begin + length;
  return std::shared_ptr<FileMapping>(new FileMapping(static_cast<char*>(begin), length, slot));
}

FileMapping::~FileMapping() {
  MappedRange& range = mapped_ranges[static_cast<size_t>(slot_)];
  range.end = 0;
  range.begin = 0;
  munmap(begin_, length_);
  range.taken = false;
}

bool FileMapping::torn() const {
  return mapped_ranges[static_cast<size_t>(slot_)].torn;
}

std::shared_ptr<const char> FileView::Bytes(int descriptor, int64_t position, size_t length) {
  struct stat status;
  if (position < 0 || length == 0 || fstat(descriptor, &status) != 0) return nullptr;
  const auto size = static_cast<uint64_t>(status.st_size), from = static_cast<uint64_t>(position);
  if (from > size || length > size - from) return nullptr;
  if (mapping_ && (mapping_->torn() || mapping_->length() < size)) mapping_.reset();
  if (!mapping_ && asked_) mapping_ = FileMapping::Of(descriptor, size + kRoomToGrow);
  asked_ = true;
  return mapping_ ? std::shared_ptr<const char>(mapping_, mapping_->begin() + from) : nullptr;
}

void FileView::Drop() {
  mapping_.reset();
  asked_ = false;
}

std::shared_ptr<FileView> FileViews::Of(int descriptor, dev_t device, ino_t file) {
  struct statfs place;
  if (fstatfs(descriptor, &place) != 0) return nullptr;
  const auto magic = static_cast<uint32_t>(place.f_type);
  if (std::find(std::begin(kLocalFileSystems), std::end(kLocalFileSystems), magic) == std::end(kLocalFileSystems)) return nullptr;
  std::weak_ptr<FileView>& kept = views_[{device, file}];
  std::shared_ptr<FileView> view = kept.lock();
  if (!view) kept = view = std::make_shared<FileView>();
  return view;
}

void FileViews::Drop() {
  for (auto at = views_.begin(); at != views_.end();) {
    if (const std::shared_ptr<FileView> view = at->second.lock()) {
      view->Drop();
      ++at;
    } else {
      at = views_.erase(at);
    }
  }
}

}  // namespace ostrinka
