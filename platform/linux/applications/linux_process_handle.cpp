#include "platform/linux/applications/linux_process_handle.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

namespace orvane {

std::shared_ptr<const LinuxProcessHandle> LinuxProcessHandle::open(std::int32_t pid) {
  // pidfd_open sets close-on-exec by itself.
  FileDescriptor process(static_cast<int>(::syscall(SYS_pidfd_open, pid, 0)));
  if (!process.isOpen()) return nullptr;
  return std::make_shared<const LinuxProcessHandle>(std::move(process));
}

void LinuxProcessHandle::kill() const {
  ::syscall(SYS_pidfd_send_signal, process_.get(), SIGKILL, nullptr, 0);
}

}  // namespace orvane
