#include "platform/linux/memory/linux_memory_claims.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <limits>
#include <mutex>
#include <string_view>
#include <utility>

#include "platform/linux/files/held_file.h"
#include "platform/linux/memory/cgroup_limits.h"
#include "platform/linux/memory/meminfo.h"

namespace orvane {

/// Raises oom_score_adj while at least one claim is held and puts the old value back after.
class LinuxMemoryClaims::RaisedOomScore {
 public:
  explicit RaisedOomScore(std::string path) : path_(std::move(path)) {}

  void raise() {
    const std::scoped_lock lock(mutex_);
    if (holders_++ > 0) return;
    HeldFile file(path_);
    previous_ = file.read();
    if (!previous_.empty()) write("1000");
  }

  void restore() {
    const std::scoped_lock lock(mutex_);
    if (--holders_ == 0 && !previous_.empty()) write(previous_);
  }

 private:
  void write(std::string_view value) const {
    const FileDescriptor file(::open(path_.c_str(), O_WRONLY | O_CLOEXEC | O_TRUNC));
    // A refusal leaves the ordinary score, and the claim is safe by its size already.
    if (file.isOpen() && ::write(file.get(), value.data(), value.size()) < 0) return;
  }

  std::string path_;
  std::mutex mutex_;
  int holders_ = 0;
  std::string previous_;
};

class LinuxMemoryClaims::Mapping : public MemoryClaim {
 public:
  Mapping(void* address, std::size_t words, std::shared_ptr<RaisedOomScore> oomScore)
      : words_(static_cast<std::uint32_t*>(address), words), oomScore_(std::move(oomScore)) {}
  Mapping(const Mapping&) = delete;
  Mapping& operator=(const Mapping&) = delete;
  ~Mapping() override {
    ::munmap(words_.data(), words_.size_bytes());
    oomScore_->restore();
  }

  [[nodiscard]] std::span<std::uint32_t> words() override { return words_; }

 private:
  std::span<std::uint32_t> words_;
  std::shared_ptr<RaisedOomScore> oomScore_;
};

LinuxMemoryClaims::LinuxMemoryClaims(MemoryClaimPaths paths)
    : paths_(std::move(paths)),
      oomScore_(std::make_shared<RaisedOomScore>(paths_.oomScoreAdjustment)) {}

LinuxMemoryClaims::~LinuxMemoryClaims() = default;

std::unique_ptr<MemoryClaim> LinuxMemoryClaims::claim(std::size_t words) {
  constexpr std::size_t mostWords = std::numeric_limits<std::size_t>::max() / sizeof(std::uint32_t);
  if (words == 0 || words > mostWords) return nullptr;
  const std::size_t bytes = words * sizeof(std::uint32_t);
  if (!isSafe(bytes)) return nullptr;
  oomScore_->raise();
  void* address =
      ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (address == MAP_FAILED) {
    oomScore_->restore();
    return nullptr;
  }
  return std::make_unique<Mapping>(address, words, oomScore_);
}

bool LinuxMemoryClaims::isSafe(std::size_t bytes) const {
  HeldFile meminfo(paths_.meminfo);
  const auto state = parseMeminfo(meminfo.read());
  if (!state || bytes > state->available) return false;
  HeldFile cgroup(paths_.cgroup);
  const auto headroom =
      memoryHeadroom(memoryCgroupDirectories(cgroup.readToEnd(), paths_.cgroupRoot));
  return !headroom || bytes <= *headroom;
}

}  // namespace orvane
