#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <string>

namespace orvane {

/// Bounds this process, a program that does one doubtful thing: 1 s of processor time, 2 s in all,
/// and 128 MiB of memory more than it has. Past them the kernel ends it, without a core dump.
void boundThisProcess();

/// What a program that bounds itself prints; empty when it can't be started or fails, and after 3
/// s. Waits for its end. Threads: any.
[[nodiscard]] QByteArray outputOf(const std::string& program, const QStringList& arguments);

}  // namespace orvane
