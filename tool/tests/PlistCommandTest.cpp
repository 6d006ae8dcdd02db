#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "tool/tests/ToolRun.hpp"

namespace {

namespace fs = std::filesystem;

using vornix::tool::testing::ToolRun;

ToolRun runTool(std::vector<std::string> args) { return vornix::tool::testing::runToolWith(std::move(args)); }

constexpr std::string_view jobXml =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n"
    "<dict>\n"
    "\t<key>Label</key>\n"
    "\t<string>com.example</string>\n"
    "\t<key>RunAtLoad</key>\n"
    "\t<true/>\n"
    "</dict>\n"
    "</plist>\n";

constexpr std::string_view jobJson =
    "{\n"
    "  \"dict\": {\n"
    "    \"Label\": {\n"
    "      \"string\": \"com.example\"\n"
    "    },\n"
    "    \"RunAtLoad\": {\n"
    "      \"bool\": true\n"
    "    }\n"
    "  }\n"
    "}\n";

// The same dictionary in the binary format: {"Label": "com.example", "RunAtLoad": true}.
const std::string jobBinary = [] {
    std::string bytes = "bplist00";
    bytes += std::string("\xD2\x01\x02\x03\x04", 5);                    // 8: dict, keys 1 2, values 3 4
    bytes += std::string("\x55") + "Label";                             // 13
    bytes += std::string("\x59") + "RunAtLoad";                         // 19
    bytes += std::string("\x5B") + "com.example";                       // 29
    bytes += std::string("\x09");                                       // 41
    bytes += std::string("\x08\x0D\x13\x1D\x29", 5);                    // 42: offset table
    bytes += std::string(6, '\0') + "\x01\x01";                         // offset and reference sizes
    bytes += std::string(7, '\0') + "\x05" + std::string(8, '\0');      // 5 objects, top 0
    bytes += std::string(7, '\0') + "\x2A";                             // table at 42
    return bytes;
}();

class PlistCommand : public testing::Test {
protected:
    void SetUp() override {
        folder_ = fs::temp_directory_path() / ("vornix-plist-tool-" + std::to_string(::getpid()));
        fs::create_directories(folder_);
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string file(const std::string& name, std::string_view content) const {
        const fs::path path = folder_ / name;
        std::ofstream(path, std::ios::binary) << content;
        return path.string();
    }

    fs::path folder_;
};

TEST_F(PlistCommand, LintPrintsOkForEachGoodFileAndSucceeds) {
    const std::string xml = file("job.plist", jobXml);
    const std::string binary = file("job.bplist", jobBinary);
    const ToolRun run = runTool({"plist", "lint", xml, binary});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, xml + ": OK\n" + binary + ": OK\n");
}

TEST_F(PlistCommand, LintPrintsTheErrorOfABadFileAndFails) {
    const std::string good = file("good.plist", jobXml);
    const std::string bad = file("bad.plist", "<plist><dict><key>Label</key></dict></plist>");
    const std::string missing = (folder_ / "missing.plist").string();
    const ToolRun run = runTool({"plist", "lint", good, bad, missing});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, good + ": OK\n" + bad + ": dataCorrupted: line 1, column 30: the key \"Label\" has no value\n" +
                           missing + ": cannot open: No such file or directory\n");
}

TEST_F(PlistCommand, JsonPrintsTheTypedJsonFormOfXmlAndBinary) {
    EXPECT_EQ(runTool({"plist", "json", file("job.plist", jobXml)}).out, jobJson);
    const ToolRun binary = runTool({"plist", "json", file("job.bplist", jobBinary)});
    EXPECT_EQ(binary.status, 0);
    EXPECT_EQ(binary.out, jobJson);
}

TEST_F(PlistCommand, XmlWritesTheXmlFormOfABinaryFile) {
    const ToolRun run = runTool({"plist", "xml", file("job.bplist", jobBinary)});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, jobXml);
}

TEST_F(PlistCommand, FromJsonWritesXml) {
    const ToolRun run = runTool({"plist", "from-json", file("job.json", jobJson)});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, jobXml);
}

TEST_F(PlistCommand, FromJsonWithBadJsonFailsWithAClearError) {
    const std::string path = file("bad.json", "{\"dict\": {\"Label\": \"com.example\"}}");
    const ToolRun run = runTool({"plist", "from-json", path});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "vornix-tool plist from-json: " + path +
                           ": dataCorrupted at Label: a value is not a JSON object with exactly one member naming its kind\n");
    const ToolRun syntax = runTool({"plist", "from-json", file("syntax.json", "{nope")});
    EXPECT_EQ(syntax.status, 1);
    EXPECT_NE(syntax.err.find("not JSON: parse error at line 1, column 3"), std::string::npos);
}

TEST_F(PlistCommand, ConvertingABadFileFailsAndPrintsNothingOnStandardOutput) {
    const ToolRun run = runTool({"plist", "xml", file("bad.plist", "<plist><true/><true/></plist>")});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find("<plist> holds more than one value"), std::string::npos);
}

TEST_F(PlistCommand, WrongArgumentsPrintUsageAndFail) {
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"plist"}, {"plist", "lint"}, {"plist", "json"}, {"plist", "xml", "a", "b"},
          {"plist", "frobnicate", "a"}}) {
        const ToolRun run = runTool(args);
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err.find("usage: vornix-tool plist lint FILE..."), std::string::npos);
    }
}

TEST_F(PlistCommand, HelpListsThePlistCommand) {
    EXPECT_NE(runTool({"--help"}).out.find("plist lint FILE... | json FILE | xml FILE | from-json FILE"),
              std::string::npos);
}

}  // namespace
