// SPDX-FileCopyrightText: 2026 The Pallistrom authors
// SPDX-License-Identifier: MIT
#include "InstalledService.h"

#include "Environment.h"
#include "WaylandSession.h"
#include "desktopProgram.h"
#include "pallistrom/Names.h"

#include <unistd.h>

#include <fstream>
#include <stdexcept>

namespace pallistrom::vm {

namespace {

namespace fs = std::filesystem;

const std::string service{Names::serviceProgram};
constexpr const char* pamService = "vm-person";

std::string numberOf(InstalledService::Person person) {
    return std::to_string(static_cast<uid_t>(person));
}

std::string nameOf(InstalledService::Person person) {
    return person == InstalledService::Person::First ? "first" : "second";
}

int terminalOf(InstalledService::Person person) {
    return person == InstalledService::Person::First ? 1 : 2;
}

ChildProcess started(const std::vector<std::string>& arguments) {
    return ChildProcess{
        {.arguments = arguments, .environment = {{"PATH", Environment::value("PATH")}}}};
}

// What the package does, but below the prefix of the build.
void install() {
    mustRun({"cmake", "--install", BUILD_FOLDER, "--component", "service"});
    mustRun({"systemd-sysusers", std::string{Names::servicePackage} + ".conf"});
    // Neither the bus nor the authority looks below other prefixes.
    for (const fs::path folder : {"dbus-1/system.d", "polkit-1/actions"}) {
        fs::copy(fs::path{INSTALL_PREFIX} / "share" / folder,
                 fs::path{"/usr/share"} / folder,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    }
    mustRun({"udevadm", "control", "--reload"});
    mustRun({"udevadm", "trigger", "--action=change", "--sysname-match=uinput", "--settle"});
}

// An administrator's rule in place of an administrator who types a password.
void grantToTheFirst() {
    std::ofstream{"/etc/polkit-1/rules.d/10-vm.rules"}
        << "polkit.addRule(function(action, subject) {\n"
           "    if (action.id == '"
        << Names::polkitAction
        << "' && subject.user == 'first' && subject.local && subject.active)\n"
           "        return polkit.Result.YES;\n"
           "});\n";
    fs::permissions("/etc/polkit-1", fs::perms{0755});
    fs::permissions("/etc/polkit-1/rules.d", fs::perms{0755});
}

void logIn(InstalledService::Person person) {
    const std::string terminal = "/dev/tty" + std::to_string(terminalOf(person));
    mustRun({"systemd-sysusers",
             "--inline",
             "u " + nameOf(person) + " " + numberOf(person) + " - /tmp /bin/sh"});
    mustRun({"systemd-run",
             "--quiet",
             "--unit=person-" + nameOf(person),
             "--property=User=" + nameOf(person),
             "--property=PAMName=" + std::string{pamService},
             "--property=TTYPath=" + terminal,
             "--property=StandardInput=tty",
             "sleep",
             "infinity"});
    const bool isThere = waitUntil([&] { return fs::exists("/run/user/" + numberOf(person)); },
                                   WaylandSession::patience());
    if (!isThere) {
        throw std::runtime_error{nameOf(person) + " cannot log in"};
    }
}

// The file that lists the processes of somebody's session. Who is written to it belongs there.
fs::path membersOfSessionOf(InstalledService::Person person) {
    const fs::path slice = "/sys/fs/cgroup/user.slice/user-" + numberOf(person) + ".slice";
    for (const auto& entry : fs::directory_iterator{slice}) {
        if (entry.path().filename().string().starts_with("session-")) {
            return entry.path() / "cgroup.procs";
        }
    }
    throw std::runtime_error{nameOf(person) + " has no session"};
}

} // namespace

void mustRun(const std::vector<std::string>& arguments) {
    if (started(arguments).wait(WaylandSession::patience()) != 0) {
        throw std::runtime_error{arguments.front() + " " + arguments.at(1) + " fails"};
    }
}

bool InstalledService::isPossible() {
    return fs::exists("/run/systemd/system");
}

InstalledService::InstalledService() {
    install();
    grantToTheFirst();
    mustRun({"systemctl", "daemon-reload"});
    mustRun({"systemctl", "reload", "dbus.service"});
    std::ofstream{std::string{"/etc/pam.d/"} + pamService} << "account required pam_permit.so\n"
                                                              "session required pam_permit.so\n"
                                                              "session required pam_systemd.so\n";
    logIn(Person::Second);
    logIn(Person::First);
    bringToFront(Person::First);
}

ChildProcess InstalledService::desktopOf(Person person) {
    return ChildProcess{[person, members = membersOfSessionOf(person)] {
        std::ofstream{members} << ::getpid() << std::flush;
        const auto number = static_cast<uid_t>(person);
        const bool isThem = ::setgid(number) == 0 && ::setuid(number) == 0;
        return isThem ? desktopProgram() : 1;
    }};
}

std::string InstalledService::answerTo(Person person, const std::string& method) {
    const std::string name{Names::keyboardBusName};
    const std::string call = "busctl --timeout=100 call " + name + " " +
                             std::string{Names::keyboardObject} + " " + name + " " + method;
    return started({"sh",
                    "-c",
                    "echo $$ >" + membersOfSessionOf(person).string() +
                        " && exec setpriv --reuid=" + numberOf(person) +
                        " --regid=" + numberOf(person) + " --clear-groups " + call})
        .readLine(WaylandSession::patience())
        .value_or("");
}

void InstalledService::bringToFront(Person person) {
    mustRun({"busybox", "chvt", std::to_string(terminalOf(person))});
}

std::string InstalledService::property(const std::string& name) {
    return started({"systemctl", "show", "--value", "--property=" + name, service})
        .readLine(WaylandSession::patience())
        .value_or("");
}

pid_t InstalledService::process() {
    return static_cast<pid_t>(std::stol(property("MainPID")));
}

void InstalledService::printLog() {
    mustRun({"sh",
             "-c",
             "loginctl list-sessions >&2;"
             "journalctl --boot --no-pager --lines=150 --output=short-monotonic | grep -v kernel: "
             ">&2"});
}

} // namespace pallistrom::vm
