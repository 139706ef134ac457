#include "platform/linux/applications/evidence_reader.h"

namespace orvane {
namespace {

constexpr std::size_t longestControlGroup = 16384;
constexpr std::size_t longestCommandLine = 32768;
constexpr std::size_t longestEnvironment = 262144;
constexpr std::size_t longestCommandText = 120;

/// The arguments in one line, program without folder.
std::string commandText(const std::vector<std::string>& arguments) {
  std::string text;
  for (const std::string& argument : arguments) {
    if (text.size() >= longestCommandText) break;
    text += text.empty() ? std::string(fileName(argument)) : ' ' + argument;
  }
  if (text.size() > longestCommandText) {
    text.resize(longestCommandText);
    // Not in the middle of a character of UTF-8.
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0x80U) != 0) text.pop_back();
  }
  return text;
}

}  // namespace

ProcessEvidence EvidenceReader::read(const Process& process) const {
  ProcessEvidence evidence;
  auto unit = parseControlGroup(table_.readFile(process.pid, "cgroup", longestControlGroup));
  if (unit) evidence.unit = std::move(*unit);
  const auto arguments =
      parseCommandLine(table_.readFile(process.pid, "cmdline", longestCommandLine));
  evidence.executable = table_.executablePath(process.pid).value_or("");
  ProcessCommand command = processCommand(evidence.executable, arguments, process.command);
  findEntry(process, command, arguments, evidence);
  evidence.command = commandText(arguments);
  evidence.name = std::move(command.name);
  evidence.role = command.role;
  if (evidence.entry && evidence.entry->launcher && evidence.role == ProcessRole::program) {
    evidence.role = ProcessRole::launcher;
  }
  return evidence;
}

void EvidenceReader::findEntry(const Process& process, const ProcessCommand& command,
                               const std::vector<std::string>& arguments,
                               ProcessEvidence& evidence) const {
  evidence.source = EntrySource::unit;
  evidence.entry = entries_.byId(evidence.unit.id);
  if (evidence.entry) return;
  const auto launchedFile = parseLaunchedDesktopFile(
      table_.readFile(process.pid, "environ", longestEnvironment), process.pid);
  evidence.source = EntrySource::launch;
  if (launchedFile) evidence.entry = entries_.byFile(*launchedFile);
  if (evidence.entry) return;
  evidence.source = EntrySource::executable;
  evidence.entry = entries_.byCommand(command, arguments);
  if (!evidence.entry) evidence.source = EntrySource::none;
}

}  // namespace orvane
