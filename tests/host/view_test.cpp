/// What `kvocaeio view` writes, what it says of it, and what it leaves behind when it fails. The
/// page itself is tested in a browser.
#include <gmock/gmock.h>

#include "host/program.h"

namespace kvocaeio::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

constexpr std::string_view kViewDeck =
    "*NODE\n1, 0, 0, 0\n2, 1, 0, 0\n3, 0, 1, 0\n4, 0, 0, 1\n9, 5, 5, 5\n"
    "*ELEMENT, TYPE=C3D4, ELSET=</script>&\n7, 1, 2, 3, 4\n";

#if KVOCAEIO_HAS_VIEW

/// What stands in the element `id` of a page.
std::string partOf(const std::string& page, const std::string& id) {
    const std::size_t start = page.find('>', page.find("id=\"" + id + "\"")) + 1;
    return page.substr(start, page.find("</script>", start) - start);
}

TEST(View, WritesOnePageThatNeedsNoOtherFile) {
    const TempFolder folder;
    const std::string out = folder.file("out.html");
    const Outcome outcome = runHost({"view", folder.write("a&b.inp", kViewDeck), "-o", out});
    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, out + ": 5 nodes, 1 element, 4 faces at the surface\n");
    EXPECT_THAT(namesIn(folder), ElementsAre("a&b.inp", "out.html"));
    const std::string page = readText(out);
    EXPECT_THAT(page, StartsWith("<!doctype html>"));
    EXPECT_THAT(page, HasSubstr("<title>a&amp;b.inp</title>"));
    EXPECT_THAT(page, HasSubstr("default-src 'none'"));
    EXPECT_THAT(page, HasSubstr("Permission is hereby granted, free of charge"));
    EXPECT_THAT(page, Not(HasSubstr("src=")));
}

TEST(View, WritesTheDataAsThePageReadsThem) {
    const TempFolder folder;
    const std::string out = folder.file("out.html");
    runHost(
        {"view", folder.write("in.inp", kViewDeck), "-o", out, "--view", "top", "--cut", "z:0.25"});
    const std::string page = readText(out);
    const auto scene = nlohmann::json::parse(partOf(page, "scene"));
    EXPECT_EQ(scene["counts"].dump(), R"([[5,"nodes"],[1,"element"]])");
    EXPECT_EQ(scene["box"].dump(), R"({"max":[1.0,1.0,1.0],"min":[0.0,0.0,0.0]})");
    EXPECT_EQ(scene["start"].dump(), R"({"cut":"z:0.25","view":"top"})");
    EXPECT_EQ(scene["sections"][0]["name"], "</SCRIPT>&");
    EXPECT_EQ(scene["sections"][0]["groups"].dump(),
              R"([{"elements":1,"hasOids":true,"kind":5,"total":1}])");
    EXPECT_EQ(scene["findings"][0]["code"], "mesh.node-unused");
    EXPECT_EQ(scene["findings"][0]["points"], 1);
    // Five nodes: 1.0 is 00 00 80 3F, 5.0 is 00 00 A0 40. OIDs 1 2 3 4 9 as differences with the
    // sign in the lowest bit: 02 02 02 02 0A. The element: OID 0E, nodes 00 02 04 06, four faces
    // 0F, none between sections 00. The finding's node, row 4: 08.
    EXPECT_EQ(partOf(page, "geometry"),
              "AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAAAAAAAAAAAAAAAIA/"
              "AACgQAAAoEAAAKBAAgICAgoOAAIEBg8ACA==");
}

TEST(View, ShowsWhatIsReadOfAFileWithErrors) {
    const TempFolder folder;
    const std::string out = folder.file("out.html");
    const Outcome outcome =
        runHost({"view", "--as-is", sampleDeck("clip.inp"), "-o", out, "--json"});
    EXPECT_EQ(outcome.exitCode, 0);
    const auto report = nlohmann::json::parse(outcome.output);
    EXPECT_EQ(report["page"], out);
    EXPECT_EQ(report["picture"], nullptr);
    EXPECT_EQ(report["status"], "warnings");
    EXPECT_GT(report["import"]["errors"], 0);
    EXPECT_EQ(report["shown"].dump(),
              R"({"elements":168,"faces":168,"markedFindings":2,"nodes":425})");
}

TEST(View, ShowsPackages) {
    const TempFolder folder;
    const std::string out = folder.file("out.html");
    const Outcome outcome = runHost({"view", sampleDeck("stack.3di"), "-o", out});
    EXPECT_THAT(ownLinesOf(outcome.output), ElementsAre(out + ": 167 bodies, 96 wires"));
    const auto scene = nlohmann::json::parse(partOf(readText(out), "scene"));
    EXPECT_EQ(scene["bodies"].size(), 167u);
    EXPECT_EQ(scene["bodies"][0]["colour"], "#006000");
    EXPECT_EQ(scene["wires"][0].dump(), R"({"diameter":0.02,"points":7,"profile":1})");
}

TEST(View, KeepsTheOldPageWhereItFails) {
    const TempFolder folder;
    const std::string out = folder.write("out.html", "old");
    const std::string empty = folder.write("empty.inp", "*NODE\n1, 0, 0, 0\n");
    Outcome outcome = runHost({"view", empty, "-o", out});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "kvocaeio: " + empty + ": holds no elements\n");
    outcome = runHost({"view", folder.write("in.inp", kViewDeck), "-o", out, "--picture",
                       folder.file("out.png"), "--browser", nativePath(KVOCAEIO_PROGRAM)});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("cannot be drawn: the browser ended with exit code 2"));
    EXPECT_EQ(readText(out), "old");
    EXPECT_THAT(namesIn(folder), ElementsAre("empty.inp", "in.inp", "out.html"));
}

TEST(View, RefusesToReplaceWhatItReads) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp", kViewDeck);
    const Outcome outcome = runHost({"view", deck, "-o", deck});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("cannot be written: it is the file that is read"));
    EXPECT_EQ(readText(deck), kViewDeck);
}

TEST(View, SaysThatThereIsNoSuchBrowserOrFinding) {
    const TempFolder folder;
    const std::string deck = folder.write("in.inp", kViewDeck);
    EXPECT_THAT(
        runHost({"view", deck, "--picture", folder.file("a.png"), "--browser", "no-such"}).errors,
        HasSubstr("cannot be drawn: there is no program no-such"));
    EXPECT_THAT(runHost({"view", deck, "-o", folder.file("a.html"), "--finding", "mesh.no"}).errors,
                HasSubstr("has no finding mesh.no"));
    EXPECT_THAT(namesIn(folder), ElementsAre("in.inp"));
}

#else

TEST(View, SaysThatTheProgramWasBuiltWithoutThePage) {
    const TempFolder folder;
    const Outcome outcome =
        runHost({"view", folder.write("in.inp", kViewDeck), "-o", folder.file("out.html")});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("this program was built without the page"));
    EXPECT_THAT(namesIn(folder), ElementsAre("in.inp"));
}

#endif

TEST(View, KnowsWrongCommandLines) {
    const std::string deck = sampleDeck("hinge.inp");
    EXPECT_EQ(runHost({"view", deck}).exitCode, 2);
    for (const char* cut : {"w", "x:2", "x0.5", "x:"})
        EXPECT_EQ(runHost({"view", deck, "-o", "a.html", "--cut", cut}).exitCode, 2) << cut;
    for (const char* size : {"100", "10x100", "100x", "100x9000", "axb"})
        EXPECT_EQ(runHost({"view", deck, "--picture", "a.png", "--size", size}).exitCode, 2)
            << size;
    EXPECT_EQ(runHost({"view", deck, "-o", "a.html", "--size", "100x100"}).exitCode, 2);
}

}  // namespace
}  // namespace kvocaeio::test
