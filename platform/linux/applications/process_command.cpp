#include "platform/linux/applications/process_command.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>

namespace orvane {
namespace {

using namespace std::string_view_literals;

constexpr std::array shells{"sh"sv, "bash"sv, "dash"sv, "zsh"sv, "ksh"sv, "mksh"sv, "fish"sv};
constexpr std::array interpreters{"python"sv, "perl"sv, "ruby"sv, "gjs"sv, "node"sv, "lua"sv};
/// Options of interpreters whose value is the program itself, which is no name.
constexpr std::array inlineCode{"-c"sv, "-e"sv, "-E"sv, "-p"sv, "--eval"sv, "--print"sv};
constexpr std::array optionsWithValue{"-W"sv, "-X"sv,        "-I"sv,       "-r"sv,
                                      "-C"sv, "--require"sv, "--import"sv, "--loader"sv};
constexpr std::array wrappers{
    "bwrap"sv,    "unshare"sv,      "env"sv,     "nohup"sv,       "setsid"sv,         "timeout"sv,
    "firejail"sv, "snap-confine"sv, "flatpak"sv, "gamemoderun"sv, "systemd-inhibit"sv};
constexpr std::array sessionRoots{
    "systemd"sv,           "startx"sv,    "xinit"sv,           "Xsession"sv,
    "x-session-manager"sv, "sshd"sv,      "dbus-daemon"sv,     "dbus-broker-launch"sv,
    "lxsession"sv,         "ksmserver"sv, "startplasma-x11"sv, "startplasma-wayland"sv,
    "start-hyprland"sv};
/// Panels, shells, window managers and compositors; windows tell the same of others, but on X11
/// only.
constexpr std::array launchers{"gnome-shell"sv,   "gnome-panel"sv,
                               "plasmashell"sv,   "kwin_x11"sv,
                               "kwin_wayland"sv,  "krunner"sv,
                               "xfce4-panel"sv,   "xfwm4"sv,
                               "xfdesktop"sv,     "lxqt-panel"sv,
                               "lxqt-runner"sv,   "lxpanel"sv,
                               "mate-panel"sv,    "marco"sv,
                               "cinnamon"sv,      "muffin"sv,
                               "budgie-panel"sv,  "budgie-wm"sv,
                               "mutter"sv,        "metacity"sv,
                               "waybar"sv,        "sway"sv,
                               "swaybar"sv,       "i3"sv,
                               "i3bar"sv,         "polybar"sv,
                               "tint2"sv,         "openbox"sv,
                               "fluxbox"sv,       "icewm"sv,
                               "jwm"sv,           "awesome"sv,
                               "bspwm"sv,         "sxhkd"sv,
                               "herbstluftwm"sv,  "dwm"sv,
                               "pekwm"sv,         "dwl"sv,
                               "wmaker"sv,        "spectrwm"sv,
                               "leftwm"sv,        "gala"sv,
                               "phosh"sv,         "cosmic-comp"sv,
                               "hyprland"sv,      "xmonad-x86_64-linux"sv,
                               "xmonad"sv,        "qtile"sv,
                               "enlightenment"sv, "Hyprland"sv,
                               "labwc"sv,         "wayfire"sv,
                               "river"sv,         "niri"sv,
                               "weston"sv,        "dmenu"sv,
                               "rofi"sv,          "fuzzel"sv,
                               "wofi"sv,          "xfce4-appfinder"sv};

template <typename Names>
bool contains(const Names& names, std::string_view name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

/// "python3.11" is "python".
bool isInterpreter(std::string_view name) {
  return std::any_of(interpreters.begin(), interpreters.end(), [&](std::string_view known) {
    return name.starts_with(known) &&
           name.find_first_not_of("0123456789.-", known.size()) == std::string_view::npos;
  });
}

bool isSessionRoot(std::string_view name) {
  return contains(sessionRoots, name) || name.ends_with("-session") || name.ends_with("_session") ||
         name.starts_with("gnome-session");
}

/// What part a program of this name plays; `otherwise` when the name doesn't tell.
ProcessRole roleOf(std::string_view name, ProcessRole otherwise) {
  if (isSessionRoot(name)) return ProcessRole::sessionRoot;
  return contains(launchers, name) ? ProcessRole::launcher : otherwise;
}

/// False for what a shell does itself: its words, assignments, groups.
bool namesProgram(std::string_view word) {
  constexpr std::array shellWords{"while"sv, "until"sv,  "for"sv,  "if"sv,   "case"sv, "cd"sv,
                                  "set"sv,   "export"sv, "trap"sv, "exec"sv, "eval"sv, "test"sv};
  return !contains(shellWords, word) &&
         word.find_first_of("()[]{}<>$=!:'\"`\\") == std::string_view::npos;
}

std::string_view firstWord(std::string_view text) {
  const std::size_t start = std::min(text.find_first_not_of(" \t\n"), text.size());
  text.remove_prefix(start);
  return text.substr(0, text.find_first_of(" \t\n;&|"));
}

/// What an interpreter was told to run: a script's path, or the first word of an inline command;
/// empty when it was told nothing, none when an inline command names no program.
std::optional<std::string_view> interpretedProgram(const std::vector<std::string>& arguments,
                                                   bool shell) {
  for (std::size_t i = 1; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    const bool last = i + 1 == arguments.size();
    if (shell && !argument.starts_with("--") && argument.starts_with('-') &&
        argument.find('c') != std::string::npos) {
      const std::string_view word = last ? ""sv : firstWord(arguments[i + 1]);
      return namesProgram(word) ? std::optional(word) : std::nullopt;
    }
    if (!shell && contains(inlineCode, argument)) return ""sv;
    if (!shell && contains(optionsWithValue, argument)) {
      ++i;
      continue;
    }
    if (argument == "-m" && !shell) return last ? ""sv : std::string_view(arguments[i + 1]);
    // A script without a file of its own has no name either.
    if (argument.starts_with("/dev/fd/") || argument.starts_with("/proc/")) return ""sv;
    if (!argument.starts_with('-') && !argument.starts_with('+')) return argument;
  }
  return ""sv;
}

std::optional<std::string_view> variable(std::string_view environment, std::string_view name) {
  while (!environment.empty()) {
    const std::size_t end = std::min(environment.find('\0'), environment.size());
    const std::string_view assignment = environment.substr(0, end);
    if (assignment.size() > name.size() && assignment.starts_with(name) &&
        assignment[name.size()] == '=') {
      return assignment.substr(name.size() + 1);
    }
    environment.remove_prefix(std::min(end + 1, environment.size()));
  }
  return {};
}

bool isFieldCode(std::string_view argument) {
  return argument.size() == 2 && argument[0] == '%' && argument[1] != '%';
}

void removeEnvironmentPrefix(std::vector<std::string>& arguments) {
  if (arguments.empty() || fileName(arguments.front()) != "env") return;
  auto end = std::find_if(arguments.begin() + 1, arguments.end(), [](const std::string& argument) {
    return argument.find('=') == std::string::npos && !argument.starts_with('-');
  });
  arguments.erase(arguments.begin(), end);
}

}  // namespace

std::string_view fileName(std::string_view path) {
  return path.substr(path.rfind('/') + 1);
}

std::vector<std::string> parseCommandLine(std::string_view text) {
  std::vector<std::string> arguments;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\0'), text.size());
    arguments.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return arguments;
}

ProcessCommand processCommand(std::string_view executable,
                              const std::vector<std::string>& arguments,
                              std::string_view kernelName) {
  // A program that runs from memory alone has no file to be named after.
  const bool hasFile = !executable.empty() && !executable.starts_with("/memfd:");
  const std::string_view program = hasFile ? fileName(executable) : kernelName;
  const bool shell = contains(shells, program);
  if (!shell && !isInterpreter(program)) {
    const bool wrapper = contains(wrappers, program);
    return {.name = std::string(program),
            .path = std::string(executable),
            .role = roleOf(program, wrapper ? ProcessRole::wrapper : ProcessRole::program)};
  }
  const auto script = interpretedProgram(arguments, shell);
  if (!script) return {.name = std::string(program), .path = "", .role = ProcessRole::script};
  const std::string_view name = fileName(*script);
  if (name.empty()) {
    return {.name = std::string(program),
            .path = "",
            .role = shell ? ProcessRole::shell : ProcessRole::program};
  }
  return {.name = std::string(name),
          .path = std::string(*script),
          .role = roleOf(name, shell ? ProcessRole::script : ProcessRole::program)};
}

std::optional<std::string> parseLaunchedDesktopFile(std::string_view environment,
                                                    std::int32_t pid) {
  const auto file = variable(environment, "GIO_LAUNCHED_DESKTOP_FILE");
  const auto owner = variable(environment, "GIO_LAUNCHED_DESKTOP_FILE_PID");
  if (!file || !owner || file->empty()) return {};
  std::int32_t number = 0;
  const char* end = owner->data() + owner->size();
  const auto [stop, error] = std::from_chars(owner->data(), end, number);
  if (error != std::errc{} || stop != end || number != pid) return {};
  return std::string(*file);
}

std::optional<std::vector<std::string>> parseExecLine(std::string_view line) {
  int count = 0;
  char** parsed = nullptr;
  if (g_shell_parse_argv(std::string(line).c_str(), &count, &parsed, nullptr) == 0) return {};
  const std::unique_ptr<char*, decltype(&g_strfreev)> owned(parsed, g_strfreev);
  std::vector<std::string> arguments(parsed, parsed + count);
  std::erase_if(arguments, isFieldCode);
  removeEnvironmentPrefix(arguments);
  if (arguments.empty() || arguments.front().empty()) return {};
  return arguments;
}

}  // namespace orvane
