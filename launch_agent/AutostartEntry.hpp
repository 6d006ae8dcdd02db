#pragma once

#include <string>
#include <vector>

#include "launch_agent/LaunchAgent.hpp"

namespace vornix::launch_agent {

// A job as an XDG autostart entry ("<Label>.desktop" in the user's autostart folder), which
// every freedesktop session starts at login: GNOME, KDE Plasma, Xfce, and systemd's
// xdg-autostart generator.
struct AutostartEntry {
    // The entry's text: one "[Desktop Entry]" group with Type, Name, Exec, Path (when the job has
    // a working directory), NoDisplay and X-GNOME-Autostart-enabled.
    std::string text;
    // The job's keys that an entry cannot express, in key-table order ("KeepAlive", ...), with
    // "argv[0]" after ProgramArguments when the job also names its Program.
    std::vector<std::string> ignoredKeys;
};

// The words the job runs: `Program` then `ProgramArguments` after its first word when both are
// there (launchd runs Program with that argument vector; an entry cannot name argv[0]), else
// `ProgramArguments`, else `Program`. Throws DesktopEntryError for a job with no program.
std::vector<std::string> jobProgramWords(const LaunchAgent& agent);

// The words the entry's Exec holds: the job's program words, behind "/usr/bin/env" and the
// job's environment variables as "NAME=value" when it has any, or behind "/usr/bin/env" alone
// when the program's path holds '%' (launchers look the program up before they read "%%" as
// '%'). Throws DesktopEntryError for a variable name that is not letters, digits and
// underscores (not starting with a digit), or a program holding '=' behind env, which would read
// it as an assignment.
std::vector<std::string> autostartCommandWords(const LaunchAgent& agent);

// The entry for `agent`. Keys it cannot express are listed, not refused; texts that no entry
// can hold are a DesktopEntryError naming the label.
AutostartEntry autostartEntryFor(const LaunchAgent& agent);

// "<label>.desktop"; a label that is no file name ("", ".", "..", or one holding '/') is a
// DesktopEntryError.
std::string autostartFileName(const std::string& label);

}  // namespace vornix::launch_agent
