// The entries the autostart job manager writes, read by the tools of a real session: the
// format's own validator, GLib's launcher (which GNOME's and Xfce's sessions start autostart
// entries with) and systemd's xdg-autostart generator, each given a table of awkward program
// paths and arguments that must reach the program as the same words.
#include <sys/wait.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "launch_agent/XdgAutostartJobManager.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "launch_agent/LaunchControl.hpp"
#include "platform/Files.hpp"

namespace {

using namespace std::chrono_literals;
using vornix::launch_agent::JobManager;
using vornix::launch_agent::LaunchAgent;
using vornix::launch_agent::LaunchControl;
using vornix::launch_agent::XdgAutostartJobManager;
using vornix::launch_agent::testing::LaunchControlTestHome;
using vornix::platform::readWholeFile;
using Words = std::vector<std::string>;
namespace fs = std::filesystem;

struct Row {
    std::string what;
    // The program's folder below the test's "programs" folder, then its arguments.
    std::string programFolder;
    Words arguments;
};

// Carried word for word by every reader.
const std::vector<Row> everyReader = {
    {"blanks", "Vornix OS", {"two words", " padded ", "a  b"}},
    {"quotes", "it's \"quoted\"", {"say \"hi\"", "it's", "'", "\""}},
    {"percent signs", "100% sure", {"%u", "%%", "100%", "50% off"}},
    {"shell syntax", "a;b|c&d (x)", {"a;b|c&d>e<f", "~user", "*?#()", "KEY=value", "-", "--flag=x y"}},
    {"empty words", "plain", {"", "", "last"}},
    {"line ends and tabs", "plain", {"two\nlines", "tab\there", "\n"}},
    {"UTF-8", "Gr\xC3\xB6\xC3\x9F" "e \xE6\x97\xA5\xE6\x9C\xAC", {"na\xC3\xAF" "ve", "\xE2\x80\x94"}},
};

// Written by the Desktop Entry rules (a backslash in quotes is written "\\\\", a dollar sign
// "\\$", a backtick "\\`"), which the validator and GLib follow; systemd 252's generator reads
// these three differently, so they are not given to it.
const std::vector<Row> desktopReaders = {
    {"backslashes", "back\\slash", {"C:\\dir\\", "\\", "a\\nb"}},
    {"dollar signs and backticks", "$HOME", {"$PATH", "${x}", "`id`", "$"}},
};

// A stand-in program that writes the words it was started with, NUL-terminated, into the file
// named by $VORNIX_RECORD, whole or not at all.
constexpr std::string_view recorder =
    "#!/bin/sh\n"
    "for word in \"$0\" \"$@\"; do printf '%s\\0' \"$word\"; done > \"$VORNIX_RECORD.part\"\n"
    "mv \"$VORNIX_RECORD.part\" \"$VORNIX_RECORD\"\n";

Words splitAtNul(const std::string& bytes) {
    Words words;
    std::size_t start = 0;
    for (std::size_t end = bytes.find('\0'); end != std::string::npos; end = bytes.find('\0', start)) {
        words.push_back(bytes.substr(start, end - start));
        start = end + 1;
    }
    return words;
}

// `text` in single quotes for /bin/sh.
std::string shellQuoted(const std::string& text) {
    std::string quoted = "'";
    for (char character : text) {
        quoted += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return quoted + "'";
}

int run(const std::string& command) {
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::optional<fs::path> generator() {
    for (const char* candidate : {"/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator",
                                  "/lib/systemd/user-generators/systemd-xdg-autostart-generator"}) {
        if (fs::exists(candidate)) {
            return fs::path(candidate);
        }
    }
    return std::nullopt;
}

// One command line of a unit's ExecStart, read as systemd reads it: the prefix characters, then
// words split at unquoted blanks, "..." and '...' quoting, C escapes, and "%%" for '%'. An escape
// systemd does not know keeps its backslash, as systemd does after its warning.
Words systemdCommandLine(std::string line) {
    while (!line.empty() && std::string_view("@-:+!").find(line.front()) != std::string_view::npos) {
        line.erase(0, 1);
    }
    Words words;
    std::size_t index = 0;
    const auto blank = [&](std::size_t at) { return line[at] == ' ' || line[at] == '\t'; };
    while (index < line.size()) {
        while (index < line.size() && blank(index)) {
            ++index;
        }
        if (index == line.size()) {
            break;
        }
        std::string word;
        char quote = 0;
        if (line[index] == '"' || line[index] == '\'') {
            quote = line[index++];
        }
        while (index < line.size() && (quote ? line[index] != quote : !blank(index))) {
            const char character = line[index++];
            if (character == '%') {
                EXPECT_EQ(line.at(index), '%') << "a specifier in " << line;
                word += line[index++];
            } else if (character != '\\') {
                word += character;
            } else {
                const char escaped = line.at(index++);
                switch (escaped) {
                    case 'n': word += '\n'; break;
                    case 't': word += '\t'; break;
                    case 'r': word += '\r'; break;
                    case 'a': word += '\a'; break;
                    case 'b': word += '\b'; break;
                    case 'f': word += '\f'; break;
                    case 'v': word += '\v'; break;
                    case 's': word += ' '; break;
                    case '\\': case '"': case '\'': word += escaped; break;
                    case 'x':
                        word += static_cast<char>(std::stoi(line.substr(index, 2), nullptr, 16));
                        index += 2;
                        break;
                    default:
                        word += '\\';
                        word += escaped;
                }
            }
        }
        if (quote) {
            ++index;
        }
        words.push_back(std::move(word));
    }
    return words;
}

// A home with the autostart job manager installed, and the recorder copied to each row's folder.
class ReaderHome : public LaunchControlTestHome {
public:
    fs::path config() const { return home().path() / "config"; }
    fs::path autostart() const { return config() / "autostart"; }

    // Writes the row's job file, loads it, and returns the job's words and its entry.
    std::pair<Words, fs::path> load(const Row& row, const std::string& label) {
        const fs::path program = home().path() / "programs" / row.programFolder / "record";
        fs::create_directories(program.parent_path());
        vornix::platform::writeWholeFile(program, recorder);
        fs::permissions(program, fs::perms::owner_all);
        Words words{program.string()};
        words.insert(words.end(), row.arguments.begin(), row.arguments.end());
        LaunchAgent agent(label, words);
        agent.runAtLoad = true;
        LaunchControl::shared().write(agent);
        LaunchControl::shared().load(agent);
        return {words, autostart() / (label + ".desktop")};
    }

    XdgAutostartJobManager manager{[this] { return autostart(); }};

private:
    vornix::platform::ScopedPort<JobManager> port_{&manager};
};

void expectValid(const fs::path& entry, const std::string& what) {
    const fs::path report = entry.parent_path().parent_path() / "validator-report";
    const std::string command =
        "desktop-file-validate " + shellQuoted(entry.string()) + " > " + shellQuoted(report.string()) + " 2>&1";
    EXPECT_EQ(run(command), 0) << what;
    EXPECT_EQ(readWholeFile(report), "") << what;
}

// Starts `entry` with GLib's launcher and waits for its program to write `record`.
testing::AssertionResult launchedByGlib(const fs::path& entry, const fs::path& record) {
    fs::remove(record);
    if (run("VORNIX_RECORD=" + shellQuoted(record.string()) + " gio launch " + shellQuoted(entry.string())) != 0) {
        return testing::AssertionFailure() << "gio launch failed";
    }
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (!fs::exists(record) && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(5ms);
    }
    if (!fs::exists(record)) {
        return testing::AssertionFailure() << "the program did not run";
    }
    return testing::AssertionSuccess();
}

void expectGlibRunsExactly(const fs::path& entry, const Words& words, const std::string& what) {
    const fs::path record = entry.parent_path().parent_path() / "record";
    ASSERT_TRUE(launchedByGlib(entry, record)) << what;
    EXPECT_EQ(splitAtNul(readWholeFile(record)), words) << what;
}

TEST(AutostartReaders, EveryEntryPassesTheValidator) {
    ReaderHome home;
    int number = 0;
    for (const auto* table : {&everyReader, &desktopReaders}) {
        for (const Row& row : *table) {
            expectValid(home.load(row, "com.example.row" + std::to_string(++number)).second, row.what);
        }
    }
}

TEST(AutostartReaders, GlibStartsTheProgramWithExactlyTheJobsWords) {
    ReaderHome home;
    int number = 0;
    for (const auto* table : {&everyReader, &desktopReaders}) {
        for (const Row& row : *table) {
            const auto [words, entry] = home.load(row, "com.example.row" + std::to_string(++number));
            expectGlibRunsExactly(entry, words, row.what);
        }
    }
}

TEST(AutostartReaders, GlibStartsTheProgramInTheJobsWorkingDirectoryWithItsEnvironment) {
    ReaderHome home;
    const fs::path program = home.home().path() / "programs" / "where";
    const fs::path workingDirectory = home.home().path() / "work dir";
    fs::create_directories(program.parent_path());
    fs::create_directories(workingDirectory);
    vornix::platform::writeWholeFile(program,
                                     "#!/bin/sh\n"
                                     "{ pwd; printf '%s\\n' \"$VORNIX_GREETING\" \"$VORNIX_QUOTED\"; } > \"$VORNIX_RECORD.part\"\n"
                                     "mv \"$VORNIX_RECORD.part\" \"$VORNIX_RECORD\"\n");
    fs::permissions(program, fs::perms::owner_all);
    LaunchAgent agent("com.example.where", program.string());
    agent.runAtLoad = true;
    agent.workingDirectory = workingDirectory.string();
    agent.environmentVariables =
        std::map<std::string, std::string>{{"VORNIX_GREETING", "two words"}, {"VORNIX_QUOTED", "it's \"$x\" 100%"}};
    LaunchControl::shared().write(agent);
    LaunchControl::shared().load(agent);
    const fs::path entry = home.autostart() / "com.example.where.desktop";
    expectValid(entry, "working directory and environment");

    const fs::path record = home.home().path() / "record";
    ASSERT_TRUE(launchedByGlib(entry, record));
    EXPECT_EQ(readWholeFile(record), workingDirectory.string() + "\ntwo words\nit's \"$x\" 100%\n");
}

TEST(AutostartReaders, SystemdsGeneratorMakesAUnitWhoseCommandLineIsTheJobsWords) {
    const std::optional<fs::path> tool = generator();
    ASSERT_TRUE(tool) << "systemd-xdg-autostart-generator is not installed (package systemd)";
    ReaderHome home;
    std::vector<std::pair<std::string, Words>> expected;
    int number = 0;
    for (const Row& row : everyReader) {
        const std::string label = "com.example.row" + std::to_string(++number);
        Words words = home.load(row, label).first;
        // A program whose path holds '%' is started through env (see autostartCommandWords).
        if (row.programFolder.find('%') != std::string::npos) {
            words.insert(words.begin(), "/usr/bin/env");
        }
        expected.emplace_back(label, std::move(words));
    }
    const fs::path units = home.home().path() / "units";
    const fs::path noSystemEntries = home.home().path() / "no-system-entries";
    fs::create_directories(units);
    fs::create_directories(noSystemEntries);
    const std::string folder = shellQuoted(units.string());
    const std::string environment = "XDG_CONFIG_HOME=" + shellQuoted(home.config().string()) +
                                    " XDG_CONFIG_DIRS=" + shellQuoted(noSystemEntries.string());
    ASSERT_EQ(run(environment + " " + tool->string() + " " + folder + " " + folder + " " + folder), 0);
    for (const auto& [label, words] : expected) {
        const fs::path unit = units / ("app-" + label + "@autostart.service");
        ASSERT_TRUE(fs::exists(unit)) << label;
        const std::string text = readWholeFile(unit);
        const std::size_t start = text.find("\nExecStart=");
        ASSERT_NE(start, std::string::npos) << text;
        const std::size_t from = start + std::string_view("\nExecStart=").size();
        EXPECT_EQ(systemdCommandLine(text.substr(from, text.find('\n', from) - from)), words) << text;
    }
}

}  // namespace
