// Every reader of bytes that others write, by name. What a reader gives must keep its promises too.
#include <fuzzer/FuzzedDataProvider.h>
#include <unistd.h>

#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "core/utf8.h"
#include "platform/linux/applications/desktop_entries.h"
#include "platform/linux/applications/process_command.h"
#include "platform/linux/applications/process_stat.h"
#include "platform/linux/applications/systemd_unit.h"
#include "platform/linux/bus/bus_export.h"
#include "platform/linux/desktop/linux_preferences.h"
#include "platform/linux/memory/cgroup_limits.h"
#include "platform/linux/memory/meminfo.h"
#include "platform/linux/status_item/dbus_menu_adaptor.h"
#include "platform/linux/status_item/status_notifier_adaptor.h"
#include "platform/linux/updates/appcast.h"
#include "platform/linux/updates/http_answer.h"

namespace orvane {
namespace {

void require(bool promise) {
  if (!promise) std::abort();
}

std::string fileWith(std::string_view name, std::string_view text) {
  static const QTemporaryDir folder(QStringLiteral("/dev/shm/orvane-XXXXXX"));
  std::string path = folder.path().toStdString() + '/' + std::string(name);
  std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
  return path;
}

void meminfo(std::string_view text) {
  const auto figures = parseMeminfo(text);
  if (!figures) return;
  require(figures->available <= figures->total);
  const std::uint64_t unit = countingUnit(figures->total, 4096);
  const PageCounts counts = pageCounts(*figures, figures->swapTotal, figures->zswap, unit);
  const std::uint64_t pages =
      std::uint64_t{counts.free} + counts.active + counts.inactive + counts.wired;
  require(pages == figures->total / unit);
}

void zramAndArc(std::string_view text) {
  (void)parseZramMemory(text);
  (void)parseReclaimableArc(text);
}

void processStat(std::string_view text) {
  if (const auto stat = parseProcessStat(text)) require(stat->command.size() <= text.size());
}

void processSizes(std::string_view text) {
  (void)parseProcessPages(text);
  (void)parseProportionalSize(text);
}

void controlGroup(std::string_view text) {
  (void)parseControlGroup(text);
  for (const std::string& folder : memoryCgroupDirectories(text, "/none")) {
    require(folder.starts_with("/none"));
  }
}

void commandLine(std::string_view text) {
  const auto arguments = parseCommandLine(text);
  for (const char* program : {"", "/usr/bin/python3.11", "/bin/sh", "/usr/bin/bwrap"}) {
    (void)processCommand(program, arguments, text.substr(0, 15));
  }
  (void)parseLaunchedDesktopFile(text, 1);
}

void shownName(std::string_view text) {
  const std::string line = singleLineText(text);
  require(decodeUtf8(line) == line && line.find_first_of("\n\r\t\x1b") == std::string::npos);
}

void appcast(std::string_view text) {
  const auto result = readAppcast({text.data(), static_cast<qsizetype>(text.size())}, "1.0");
  const auto* offer = std::get_if<UpdateOffer>(&result);
  if (offer != nullptr) require(offer->downloadPage.starts_with("https://"));
}

void httpAnswer(std::string_view text) {
  const auto answer = readHttpAnswer({text.data(), static_cast<qsizetype>(text.size())});
  if (!answer) return;
  require(answer->status == 0 || (answer->status >= 200 && answer->status <= 999));
  require(static_cast<std::size_t>(answer->body.size()) <= text.size());
}

void preferences(std::string_view text) {
  // QSettings keeps what it read of a file by its name.
  static int serial = 0;
  const std::string path = fileWith("preferences" + std::to_string(++serial), text);
  LinuxPreferences(path).setText("key", "value");
  require(LinuxPreferences(path).text("key") == "value");
  ::unlink(path.c_str());
  ::unlink((path + ".corrupt").c_str());
}

void desktopEntry(std::string_view text) {
  (void)parseExecLine(text);
  const std::string path = fileWith("an.desktop", text);
  DesktopEntries entries({path.substr(0, path.rfind('/'))});
  (void)entries.refresh();
  if (const auto entry = entries.byId("an")) require(!entry->id.empty());
}

QStringList names(FuzzedDataProvider& bytes) {
  static constexpr std::array known = {"label", "type", "toggle-state", "enabled"};
  QStringList chosen{QString::fromStdString(bytes.ConsumeRandomLengthString(8))};
  while (bytes.ConsumeBool()) chosen << QString::fromLatin1(bytes.PickValueInArray(known));
  return chosen;
}

void busCalls(std::string_view text) {
  using Kind = StatusItemMenuEntry::Kind;
  FuzzedDataProvider bytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  BusExport exported;
  StatusNotifierAdaptor item(&exported, QStringLiteral("/Menu"));
  DbusMenuAdaptor menu(&exported);
  menu.setEntries({{.kind = Kind::figure, .text = [] { return std::string("figure"); }},
                   {.kind = Kind::action, .label = "entry", .activate = [] {}}});
  while (bytes.remaining_bytes() > 0) {
    const int id =
        bytes.ConsumeBool() ? bytes.ConsumeIntegralInRange(-1, 4) : bytes.ConsumeIntegral<int>();
    const QString word = names(bytes).join(QString());
    MenuLayoutItem layout;
    QList<int> unknown;
    menu.GetLayout(id, bytes.ConsumeIntegral<int>(), names(bytes), layout);
    require(layout.children.size() <= 2);
    (void)menu.GetGroupProperties({id, bytes.ConsumeIntegral<int>()}, names(bytes));
    (void)menu.GetProperty(id, word);
    menu.Event(id, word, QDBusVariant(word), 0);
    (void)menu.EventGroup({{.id = id, .type = QStringLiteral("clicked"), .data = {}}});
    (void)menu.AboutToShowGroup({id, id}, unknown);
    item.Scroll(id, word);
    item.ProvideXdgActivationToken(word);
  }
}

constexpr struct {
  std::string_view name;
  void (*read)(std::string_view);
} parsers[] = {{"meminfo", meminfo},         {"zram_arc", zramAndArc}, {"stat", processStat},
               {"sizes", processSizes},      {"cgroup", controlGroup}, {"cmdline", commandLine},
               {"name", shownName},          {"appcast", appcast},     {"http", httpAnswer},
               {"preferences", preferences}, {"entry", desktopEntry},  {"bus", busCalls}};

void (*chosen)(std::string_view) = nullptr;

}  // namespace
}  // namespace orvane

extern "C" int LLVMFuzzerInitialize(int* count, char*** values) {
  constexpr std::string_view option = "--parser=";
  for (const std::string_view argument : std::vector<std::string_view>(*values, *values + *count)) {
    for (const auto& parser : orvane::parsers) {
      if (argument.starts_with(option) && argument.substr(option.size()) == parser.name)
        orvane::chosen = parser.read;
    }
  }
  if (orvane::chosen == nullptr) {
    for (const auto& parser : orvane::parsers) std::puts(std::string(parser.name).c_str());
    std::exit(0);
  }
  static int none = 1;
  static std::array<char*, 2> self = {**values, nullptr};
  qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QGuiApplication application(none, self.data());
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::chosen({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
