#include <gtest/gtest.h>

#include <algorithm>

#include "launch_agent/tests/JobFiles.hpp"
#include "plist/PropertyList.hpp"
#include "tool/tests/ToolRun.hpp"

namespace {

using namespace vornix::launch_agent::testing;
using vornix::tool::testing::runToolWith;
using vornix::tool::testing::ToolRun;

const std::string header =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";

// Runs `vornix-tool agent` on a job file written with `body` as the content of <plist>.
ToolRun runOnJobFile(const std::string& body) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "job.plist";
    writeFile(path, header + body + "</plist>\n");
    return runToolWith({"agent", path.string()});
}

// The XML form of the dictionary in a fixture, as our writer spells it.
std::string canonicalXml(const char* fixture) {
    return vornix::plist::writeXml(vornix::plist::readPropertyList(fileBytes(fixtureFolder() / fixture)));
}

long lineCount(const std::string& text) { return std::count(text.begin(), text.end(), '\n'); }

TEST(AgentCommand, PrintsAJobFileReEncodedAsXml) {
    const ToolRun run = runToolWith({"agent", (fixtureFolder() / "mach_services.plist").string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, canonicalXml("mach_services.plist"));
}

TEST(AgentCommand, DropsUnknownKeys) {
    const ToolRun run = runToolWith({"agent", (fixtureFolder() / "unknown_keys.plist").string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, canonicalXml("unknown_keys.expected.plist"));
}

TEST(AgentCommand, ReadsABinaryJobFileAndWritesXml) {
    const ToolRun run = runToolWith({"agent", (fixtureFolder() / "every_key.binary.plist").string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, canonicalXml("every_key.plist"));
}

TEST(AgentCommand, AMissingLabelIsOneKeyNotFoundLine) {
    const ToolRun run = runOnJobFile("<dict><key>Program</key><string>/bin/tool</string></dict>\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "keyNotFound at Label: no value for the required key \"Label\"\n");
}

TEST(AgentCommand, AWrongTypeIsOneTypeMismatchLineNamingTheKey) {
    const ToolRun run =
        runOnJobFile("<dict><key>Label</key><string>job</string><key>RunAtLoad</key><string>yes</string></dict>\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "typeMismatch at RunAtLoad: expected boolean but found string instead\n");
}

TEST(AgentCommand, ANestedFailureNamesItsWholePath) {
    const ToolRun run = runOnJobFile(
        "<dict><key>Label</key><string>job</string><key>StartCalendarInterval</key>"
        "<dict><key>Weekday</key><integer>0</integer></dict></dict>\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err,
              "dataCorrupted at StartCalendarInterval/Weekday: no case of the enumeration has the raw value 0\n");
}

TEST(AgentCommand, ANullLabelIsValueNotFound) {
    const ToolRun run = runOnJobFile("<dict><key>Label</key><string>$null</string></dict>\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err.rfind("valueNotFound at Label: ", 0), 0U) << run.err;
    EXPECT_EQ(lineCount(run.err), 1);
}

TEST(AgentCommand, ATopLevelArrayIsATypeMismatchAtTheEmptyPath) {
    const ToolRun run = runOnJobFile("<array><string>job</string></array>\n");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "typeMismatch at : expected dict but found array instead\n");
}

TEST(AgentCommand, BytesThatAreNoPropertyListAreOneDataCorruptedLine) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "job.plist";
    writeFile(path, "Label = job;\nProgram = /bin/tool;\n");
    const ToolRun run = runToolWith({"agent", path.string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err.rfind("dataCorrupted at : ", 0), 0U) << run.err;
    EXPECT_EQ(lineCount(run.err), 1) << run.err;
}

TEST(AgentCommand, AFileThatCannotBeReadNamesTheCause) {
    const TemporaryFolder folder;
    const std::string missing = (folder.path() / "absent.plist").string();
    const ToolRun absent = runToolWith({"agent", missing});
    EXPECT_EQ(absent.status, 1);
    EXPECT_EQ(absent.err, "vornix-tool agent: " + missing + ": No such file or directory\n");
    const ToolRun directory = runToolWith({"agent", folder.path().string()});
    EXPECT_EQ(directory.status, 1);
    EXPECT_EQ(directory.err, "vornix-tool agent: " + folder.path().string() + ": Is a directory\n");
}

TEST(AgentCommand, WrongArgumentsPrintUsage) {
    for (const std::vector<std::string>& args :
         std::vector<std::vector<std::string>>{{"agent"}, {"agent", "a.plist", "b.plist"}}) {
        const ToolRun run = runToolWith(args);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.err, "usage: vornix-tool agent FILE\n");
    }
}

}  // namespace
